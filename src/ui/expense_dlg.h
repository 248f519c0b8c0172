#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "editing/cell_choices.h"
#include "editing/line_choices.h"
#include "reference/expense_maintenance.h"
#include "reference/expense_months.h"
#include "reference/plan_lists.h"
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

// The expense dialog. As a picker (kPickExpenseMode, kPickIncomeMode) it
// shows the plan's expenses under their categories or the income sources in a
// tree, with the selected entry's fields and months beside it, read-only; OK
// or a double click picks the selected entry, anything else answers
// "noselection". Made with a session it maintains the plan's expenses: the
// fields, the months, the place and the category of the selected expense are
// edited through the core (reference/expense_*), and after each call the
// tree and the months are shown again from the document. A refused value is
// shown and the dialog stays open; any other failure closes the dialog and is
// thrown again by rethrowFailure().
class CExpenseDlg : public QDialog {
    Q_OBJECT
  public:
    CExpenseDlg(pugi::xml_node data, int mode, QWidget* parent = nullptr);
    CExpenseDlg(Session& session, QWidget* parent = nullptr);

    ExpensePick pick() const { return pick_; }
    void rethrowFailure() const;

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
    // Maintenance only (null in a picker).
    QPushButton* saveChangesButton() const { return saveChanges_; }
    QPushButton* saveNewButton() const { return saveNew_; }
    QAction* deleteAction() const { return delete_; }

  private:
    void buildWindow();
    QWidget* buildDetails();
    void buildMaintenance(QWidget* panel, QBoxLayout* top, QBoxLayout* column);
    void fillTree();
    bool isPickable(const QTreeWidgetItem* item) const;
    void showSelection(QTreeWidgetItem* item);
    void showExpense(const ExpenseDetails& details);
    void showIncome(const IncomeSource& source);
    void clearDetails();
    void pickCurrent();
    pugi::xml_node data() const;

    // Maintenance.
    void onSelected(QTreeWidgetItem* item);
    void showMonthRow(int row);
    void addNew();
    void deleteSelected();
    void startMove();
    void saveNew();
    void saveChanges();
    void applyMonth(bool toAllMonths);
    void move(bool up);
    // The tree and the fields again from the document, the expense
    // `expense` of `category` selected when it is there.
    void reload(const std::string& category, const std::string& expense);
    void updateButtons();
    ExpenseFields fields() const;

    pugi::xml_node data_;
    Session* session_ = nullptr;
    bool income_;
    std::vector<InstitutionChoice> banks_;
    std::vector<IncomeSource> sources_;
    ExpensePick pick_;
    CoreCalls calls_{this, nullptr};

    std::string expense_, expenseCategory_;  // the selected expense ("" for none)
    bool pendingMove_ = false;
    bool filling_ = false;

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

    MonthFields month_;
    QPushButton* saveNew_ = nullptr;
    QPushButton* saveChanges_ = nullptr;
    QPushButton* moveUp_ = nullptr;
    QPushButton* moveDown_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* addNew_ = nullptr;
    QAction* moveTo_ = nullptr;
};

}  // namespace tallix::ui
