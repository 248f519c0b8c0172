#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "editing/cell_choices.h"
#include "reference/plan_lists.h"
#include "ui/plan_dialog_parts.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace tallix::ui {

// The customers dialog: the customers in a tree, the selected one's fields
// and receivable items beside it. Opened from a register cell it picks the
// customer for that line; opened from the plan menu it is where customers
// are maintained, which is why the fields are laid out although they are
// not editable yet. OK or a double click picks the selected customer.
class CReceivablesDlg : public QDialog {
    Q_OBJECT
  public:
    CReceivablesDlg(pugi::xml_node data, bool pickForCell, QWidget* parent = nullptr);

    // The picked customer after OK; "noselection" otherwise.
    std::string selectedCustomer() const { return selected_; }

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

  private:
    QWidget* buildDetails();
    void showCustomer(QTreeWidgetItem* item);
    void pickCurrent();

    pugi::xml_node data_;
    std::vector<InstitutionChoice> banks_;
    std::vector<Customer> customers_;
    std::string selected_;

    QLabel* prompt_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* number_ = nullptr;
    BankRows bank_;
    QLineEdit* amount_ = nullptr;
    QTableWidget* items_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

}  // namespace tallix::ui
