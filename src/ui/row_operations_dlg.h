#pragma once
#include <QDialog>

#include "editing/line_choices.h"

class QAction;
class QMenu;
class QMenuBar;

namespace tallix::ui {

// The popup a right click on a register row opens: a borderless menu bar
// to insert or make a line of a kind, delete or move the row, or cancel.
// Choosing an item answers it; closing the popup any other way answers
// "cancel".
class CRowOperations : public QDialog {
    Q_OBJECT
  public:
    explicit CRowOperations(QWidget* parent = nullptr);

    RowOperationChoice choice() const { return choice_; }

    // Puts the popup beside the clicked row: firstPosition is where the
    // grid's first row shows on screen, clickHeight how far below it the
    // click was.
    void placeNear(const QPoint& firstPosition, int clickHeight);

    QMenuBar* menuBar() const { return bar_; }
    // The item `item` of menu `menu`, or the menu bar's own action `item`
    // when `menu` is empty; null when there is none.
    QAction* findAction(const QString& menu, const QString& item) const;

  private:
    QMenu* addKindMenu(const QString& title, const char* operation, const QStringList& items);
    void addChoice(QAction* action, const char* operation, const char* kind);

    QMenuBar* bar_ = nullptr;
    RowOperationChoice choice_;
};

}  // namespace tallix::ui
