#pragma once
#include <QDialog>
#include <functional>

#include "reference/rmd_maintenance.h"
#include "ui/maintenance_parts.h"

class QModelIndex;
class QTreeWidget;
class QTreeWidgetItem;

namespace tallix {
class Session;
}

namespace tallix::ui {

// "REQUIRED MINIMUM DISTRIBUTIONS" (Manage > RMD): the individuals, their
// names, the names' accounts and each account's three values in a tree, with
// the "Totals" of each individual and over all. The add and delete buttons
// work at the selected place; EDIT or a double click edits its label in place
// (for a value row, the value) and SAVE EDIT commits the open edit. Each goes
// through the core (reference/rmd_maintenance.h), which refuses a place of
// the wrong level, and the tree is shown again from the document afterwards.
// A refusal is shown and the dialog stays open; any other failure closes the
// dialog and is thrown again by rethrowFailure().
class CDialogrmd : public QDialog {
    Q_OBJECT
  public:
    explicit CDialogrmd(Session& session, QWidget* parent = nullptr);

    void rethrowFailure() const { calls_.rethrowFailure(); }
    QTreeWidget* tree() const { return tree_; }

  private:
    // The tree again from the document, the item at `selected` current.
    void fillTree(const RmdPlace& selected);
    QTreeWidgetItem* addItem(QTreeWidgetItem* parent, const QString& label, const QString& value,
                             const RmdPlace& place);
    void addValues(QTreeWidgetItem* parent, const RmdValues& values, RmdPlace place);
    // The item the buttons work on: the selected one (the current item
    // alone, which a tree given the focus gets, is not enough).
    QTreeWidgetItem* selectedItem() const;
    RmdPlace selectedPlace() const;
    // Runs a change at the selected place; it returns the place to select in
    // the tree shown again.
    void change(const std::function<RmdPlace(const RmdPlace&)>& call);
    void startEdit(QTreeWidgetItem* item);
    void saveEdit();
    void commitLabel(const RmdPlace& place, int column, const QString& text);

    Session& session_;
    CoreCalls calls_;
    bool filling_ = false;
    QTreeWidget* tree_ = nullptr;
};

}  // namespace tallix::ui
