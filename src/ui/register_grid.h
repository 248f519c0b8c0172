#pragma once
// What the register grid does with the mouse and the keyboard: the in-place
// editor over a cell, Tab navigation, the pickers that a click on the
// Status, Institution or Expense cell of a line opens, and the right click. It sits on the
// main window's table view and leaves the view's own editing switched off.
#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "ui/register_grid_pickers.h"

class QKeyEvent;
class QTableView;

namespace tallix {
class Session;
}

namespace tallix::ui {

class GridModel;

class RegisterGrid : public QObject {
    Q_OBJECT
  public:
    // `redraw` shows the grid table again after a change, keeping the
    // scroll position.
    RegisterGrid(Session& session, QTableView* view, GridModel* model, std::function<void()> redraw,
                 QObject* parent = nullptr);
    ~RegisterGrid() override;

    // Replaces the picker dialogs (tests answer with scripted choices).
    void setPickers(std::unique_ptr<GridPickers> pickers);

    // Opens the editor over a cell of a line; cells that take no typing open
    // nothing. An edit already open is committed first.
    void openEditor(int row, int column);
    // Commits the open editor's text and closes it; with no editor open
    // nothing happens and nothing is saved. True when a commit ran to its end.
    bool HideEditor();
    // The editor while it is open over a cell, else null.
    QLineEdit* openEditorWidget() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void OnLButtonDown(const QPoint& at);
    void OnRButtonDown(const QPoint& at);
    void OnLButtonDblClk(const QPoint& at);
    bool onEditorKey(QKeyEvent* key);
    void moveEditor(bool forward);
    void discardEditor();
    void placeEditor();
    void pickStatus(int row);
    void pickInstitution(int row);
    void pickExpense(int row, int column);
    void mark(int row, int column);

    Session& session_;
    QTableView* view_;
    GridModel* model_;
    std::function<void()> redraw_;
    std::unique_ptr<GridPickers> pickers_;
    // Guarded: the viewport and the editor may go before the grid does.
    QPointer<QWidget> viewport_;
    QPointer<QLineEdit> editor_;
};

}  // namespace tallix::ui
