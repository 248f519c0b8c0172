#pragma once
// What the register grid does with the mouse and the keyboard: the in-place
// editor over a cell, typing and F2 on the selected cell, Enter, Escape and
// Tab in the editor, the pickers that a click on the Status, Institution or
// Expense cell of a line opens, and the right click. It sits on the main
// window's table view and leaves the view's own editing switched off.
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
    // The committed cell stays the grid's current cell. A DATE cell sets the
    // line's day and moves the line to its place.
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
    bool onViewKey(QKeyEvent* key);
    // The cells the editor opens on: the typed fields and the DATE cell of a
    // line.
    bool takesTyping(int row, int column) const;
    // Makes the cell the view's current one; unless `scroll`, the grid stays
    // where it was scrolled.
    void selectCell(int row, int column, bool scroll);
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
    QPointer<QTableView> keysOf_;
    QPointer<QLineEdit> editor_;
    // Set while a key that reached the view is handed on to the open editor.
    bool forwardingKey_ = false;
};

}  // namespace tallix::ui
