#pragma once
#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "editing/cell_choices.h"
#include "reference/income_maintenance.h"
#include "ui/maintenance_parts.h"
#include "ui/plan_dialog_parts.h"

class QAction;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace tallix {
class Session;
}

namespace tallix::ui {

// The income dialog: the year's income sources with what each brings in
// over the year and a TOTAL row, the selected source's fields and its
// twelve months beside them. Every change goes through the core
// (reference/income_maintenance.h), and after each one the list, the fields
// and the months are shown again from the document. A refused value is
// shown and the dialog stays open; any other failure closes the dialog and
// is thrown again by rethrowFailure().
class CIncomedlg : public QDialog {
    Q_OBJECT
  public:
    explicit CIncomedlg(Session& session, QWidget* parent = nullptr);

    void rethrowFailure() const;

    QTreeWidget* sourceList() const { return list_; }
    QLineEdit* nameEdit() const { return name_; }
    QComboBox* institutionBox() const { return bank_.institution; }
    QComboBox* accountBox() const { return bank_.account; }
    QComboBox* typeBox() const { return type_; }
    QComboBox* dayOrDateBox() const { return dayOrDate_; }
    QLineEdit* dayNumberEdit() const { return dayNumber_; }
    QLineEdit* repeatingIncomeEdit() const { return amount_; }
    QPushButton* saveNewButton() const { return saveNew_; }
    QPushButton* saveValuesButton() const { return saveValues_; }
    QTableWidget* monthTable() const { return months_; }
    const MonthFields& monthFields() const { return month_; }
    QPushButton* okButton() const { return ok_; }
    QPushButton* cancelButton() const { return cancel_; }
    QAction* deleteAction() const { return delete_; }
    QAction* addNewAction() const { return addNew_; }

  private:
    QWidget* buildDetails();
    void fillList();
    void onSelected(QTreeWidgetItem* item);
    void showSource();
    // DAY/DATE lists what TYPE `type` takes (nothing but the file's value for
    // a type without worked-out dates) and selects `wanted` there; with
    // `keepUnlisted` a value it does not list is added so that it shows.
    void fillDays(const QString& type, const QString& wanted, bool keepUnlisted);
    void showMonthRow(int row);
    void updateButtons();
    void addNew();
    void saveNew();
    void saveValues();
    void deleteSelected();
    void applyMonth(bool toAllMonths);
    // Runs `call` and then shows the list again with `source` selected.
    void change(const std::function<void()>& call, const std::string& source);
    IncomeFields fields() const;

    Session& session_;
    std::vector<InstitutionChoice> banks_;
    CoreCalls calls_{this, nullptr};
    std::string source_;  // the selected source ("" for none)
    bool filling_ = false;

    QTreeWidget* list_ = nullptr;
    QLineEdit* name_ = nullptr;
    BankRows bank_;
    QComboBox* type_ = nullptr;
    QComboBox* dayOrDate_ = nullptr;
    QLineEdit* dayNumber_ = nullptr;
    QLineEdit* amount_ = nullptr;
    QPushButton* saveNew_ = nullptr;
    QPushButton* saveValues_ = nullptr;
    QTableWidget* months_ = nullptr;
    MonthFields month_;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* addNew_ = nullptr;
};

}  // namespace tallix::ui
