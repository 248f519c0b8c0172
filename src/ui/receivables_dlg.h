#pragma once
#include <QDialog>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "editing/cell_choices.h"
#include "reference/plan_lists.h"
#include "reference/receivable_maintenance.h"
#include "ui/maintenance_parts.h"
#include "ui/plan_dialog_parts.h"

class QAction;
class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace tallix {
class Session;
}

namespace tallix::ui {

// The customers dialog: the customers in a tree, the selected one's fields
// and receivable items beside it. OK or a double click picks the selected
// customer. Opened from a register cell (the first constructor) it only
// picks: the fields show the file's values and take no typing. Made with a
// session it is where customers are maintained: the fields, the items, the
// place of the selected customer, new and deleted customers go through the
// core (reference/receivable_maintenance.h), and after each call the tree
// and the items are shown again from the document. There the item list has
// a row for every month, one without items carrying only the month's name,
// so that an item can be added to it. A refused value is shown and the
// dialog stays open; any other failure closes the dialog and is thrown
// again by rethrowFailure().
class CReceivablesDlg : public QDialog {
    Q_OBJECT
  public:
    CReceivablesDlg(pugi::xml_node data, bool pickForCell, QWidget* parent = nullptr);
    // Maintenance; `customer`, when given, is shown at once (the Customers
    // menu opens the dialog at the customer chosen there).
    CReceivablesDlg(Session& session, const std::string& customer, QWidget* parent = nullptr);
    explicit CReceivablesDlg(Session& session, QWidget* parent = nullptr)
        : CReceivablesDlg(session, std::string(), parent) {}

    // The picked customer after OK; "noselection" otherwise.
    std::string selectedCustomer() const { return selected_; }
    void rethrowFailure() const;

    QLabel* prompt() const { return prompt_; }
    QTreeWidget* tree() const { return tree_; }
    QLineEdit* nameEdit() const { return name_; }
    QLineEdit* numberEdit() const { return number_; }
    QComboBox* institutionBox() const { return bank_.institution; }
    QComboBox* accountBox() const { return bank_.account; }
    QLineEdit* repeatingAmountEdit() const { return amount_; }
    QTableWidget* itemTable() const { return items_; }
    QPushButton* okButton() const { return ok_; }
    QPushButton* cancelButton() const { return cancel_; }
    // Maintenance only (null in a picker).
    QPushButton* saveNewButton() const { return saveNew_; }
    QPushButton* saveChangesButton() const { return saveChanges_; }
    QPushButton* moveUpButton() const { return moveUp_; }
    QPushButton* moveDownButton() const { return moveDown_; }
    const MonthFields& itemFields() const { return item_; }
    QAction* deleteAction() const { return delete_; }
    QAction* addNewAction() const { return addNew_; }
    QAction* addItemAction() const { return addItem_; }

  private:
    void buildWindow(bool pickForCell);
    QWidget* buildDetails();
    void buildMaintenance(QWidget* panel, QBoxLayout* top, QBoxLayout* column);
    void fillTree();
    void showCustomer(QTreeWidgetItem* item);
    void pickCurrent();
    pugi::xml_node data() const;

    // Maintenance.
    void onSelected(QTreeWidgetItem* item);
    void showItemRow(int row);
    // The month (1-12) and the item (from 0; -1 for a month without items)
    // of a row of the item list; month 0 for no row.
    std::pair<int, int> placeOf(int row) const;
    void updateButtons();
    void addNew();
    void saveNew();
    void saveChanges();
    void move(bool up);
    void applyItem(bool toAllMonths);
    void addItem();
    void deleteSelected();
    // Runs `call` and then shows the tree again with `customer` selected and
    // the item row the call names (`row`) or, when it names none, the row
    // selected before.
    void change(const std::function<void()>& call, const std::string& customer,
                const std::function<int()>& row = {});
    CustomerFields fields() const;

    pugi::xml_node data_;
    Session* session_ = nullptr;
    std::vector<InstitutionChoice> banks_;
    std::vector<Customer> customers_;
    std::string selected_;
    CoreCalls calls_{this, nullptr};
    std::string customer_;  // the selected customer ("" for none)
    bool filling_ = false;

    QLabel* prompt_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* number_ = nullptr;
    BankRows bank_;
    QLineEdit* amount_ = nullptr;
    QTableWidget* items_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;

    MonthFields item_;
    QPushButton* saveNew_ = nullptr;
    QPushButton* saveChanges_ = nullptr;
    QPushButton* moveUp_ = nullptr;
    QPushButton* moveDown_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* addNew_ = nullptr;
    QAction* addItem_ = nullptr;
};

}  // namespace tallix::ui
