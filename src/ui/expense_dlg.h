#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "editing/cell_choices.h"
#include "editing/line_choices.h"
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

// The expense picker: the plan's expenses under their categories
// (kPickExpenseMode) or the income sources (kPickIncomeMode) in a tree, with
// the selected entry's fields and months beside it. It is laid out as the
// expense maintenance dialog it grows into, so the fields are shown but not
// yet editable. OK or a double click picks the selected expense or income
// source; anything else answers "noselection".
class CExpenseDlg : public QDialog {
    Q_OBJECT
  public:
    CExpenseDlg(pugi::xml_node data, int mode, QWidget* parent = nullptr);

    ExpensePick pick() const { return pick_; }

    QTreeWidget* tree() const { return tree_; }
    QLineEdit* nameEdit() const { return name_; }
    QLabel* categoryLabel() const { return category_; }
    QComboBox* typeBox() const { return type_; }
    QComboBox* institutionBox() const { return bank_.institution; }
    QComboBox* accountBox() const { return bank_.account; }
    QLineEdit* repeatingAmountEdit() const { return amount_; }
    QLineEdit* closingDayEdit() const { return closingDay_; }
    QTableWidget* monthTable() const { return months_; }
    QPushButton* okButton() const { return ok_; }
    QPushButton* cancelButton() const { return cancel_; }

  private:
    QWidget* buildDetails();
    void fillTree();
    bool isPickable(const QTreeWidgetItem* item) const;
    void showSelection(QTreeWidgetItem* item);
    void showExpense(const ExpenseDetails& details);
    void showIncome(const IncomeSource& source);
    void clearDetails();
    void pickCurrent();

    pugi::xml_node data_;
    bool income_;
    std::vector<InstitutionChoice> banks_;
    std::vector<IncomeSource> sources_;
    ExpensePick pick_;

    QTreeWidget* tree_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLabel* category_ = nullptr;
    QComboBox* type_ = nullptr;
    BankRows bank_;
    QLineEdit* amount_ = nullptr;
    QLineEdit* closingDay_ = nullptr;
    QTableWidget* months_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

}  // namespace tallix::ui
