#pragma once
// Pieces the dialogs over the plan share: labelled form rows, the
// institution list that drives its account list, the lists of months and
// items with the fields APPLY writes from, and the OK/CANCEL row.
#include <QString>
#include <initializer_list>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "editing/cell_choices.h"
#include "reference/month_entries.h"

class QBoxLayout;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QWidget;

namespace tallix::ui {

inline QString qs(const std::string& text) {
    return QString::fromStdString(text);
}
std::string fieldText(const QLineEdit* edit);

// The right-hand panel of the plan dialogs: a column whose top row starts
// with the form of fields, and that form's first field, NAME.
struct DetailsPanel {
    QWidget* panel = nullptr;
    QBoxLayout* column = nullptr;
    QBoxLayout* top = nullptr;
    QFormLayout* form = nullptr;
    QLineEdit* name = nullptr;
};
DetailsPanel startDetailsPanel(QWidget* parent);

QLineEdit* addTextRow(QFormLayout* form, const QString& label, const QString& objectName);
QComboBox* addChoiceRow(QFormLayout* form, const QString& label, const QString& objectName);
// A push button at the end of `row` that Return in a field does not press.
QPushButton* addButton(QBoxLayout* row, const QString& text, const QString& objectName,
                       QWidget* parent);

// Empties `accounts` and lists the accounts of institution number `index`
// of `choices` (nothing for an index outside them).
void fillAccounts(QComboBox* accounts, const std::vector<InstitutionChoice>& choices, int index);

// The banks with their accounts, without the credit cards: where income is
// paid into.
std::vector<InstitutionChoice> bankChoices(pugi::xml_node data);

// An institution list and its account list: choosing an institution lists
// its accounts. Neither shows a choice until show() names one.
struct BankRows {
    QComboBox* institution = nullptr;
    QComboBox* account = nullptr;
    // Selects the two names where the lists hold them, else nothing.
    void show(const std::string& institutionName, const std::string& accountName) const;
};
BankRows addBankRows(QFormLayout* form, const std::vector<InstitutionChoice>& banks,
                     const QString& institutionLabel = QStringLiteral("DEFAULT INSTITUTION"),
                     const QString& accountLabel = QStringLiteral("DEFAULT ACCOUNT"));

// Fields that show the file's values but take no typing.
void showOnly(std::initializer_list<QLineEdit*> edits, std::initializer_list<QComboBox*> boxes);

// A list of months or receivable items at the end of `layout`: titled
// columns of the given widths (in pixels), whole rows selected one at a
// time, no typing in place.
struct ListColumn {
    const char* title;
    int width;
};
QTableWidget* addPlanList(QBoxLayout* layout, QWidget* parent, const QString& objectName,
                          std::initializer_list<ListColumn> columns, int rows);
// The list as tall and wide as its rows and columns, so none scrolls, and
// no larger.
void fitToRows(QTableWidget* list);
void setCell(QTableWidget* list, int row, int column, const std::string& text);
QString cellText(const QTableWidget* list, int row, int column);

// Which column of a list holds each value the month fields show; -1 where
// the list has none.
struct EntryColumns {
    int amount, datePaid, dueDate, status, check;
};

// The fields APPLY writes into the selected month or item, with APPLY,
// APPLY TO ALL MONTHS and CANCEL EDIT under them. An income month has only
// AMOUNT, DATE (its due date) and STATUS; the others are null there.
struct MonthFields {
    QLineEdit* amount = nullptr;
    QLineEdit* dueDate = nullptr;
    QLineEdit* datePaid = nullptr;
    QLineEdit* check = nullptr;
    QComboBox* status = nullptr;
    QPushButton* apply = nullptr;
    QPushButton* applyAll = nullptr;
    QPushButton* cancelEdit = nullptr;

    // The values of row `row` of `list`; a row < 0 empties the fields.
    void show(const QTableWidget* list, int row, const EntryColumns& columns) const;
    MonthValues values() const;
    void enableButtons(bool enabled) const;
};
enum class MonthFieldSet { kPlanEntry, kIncomeMonth };
MonthFields addMonthFields(QBoxLayout* layout, QWidget* parent, MonthFieldSet set);

struct OkCancel {
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
};
// "OK" and "CANCEL" at the right of a new row of `layout`.
OkCancel addOkCancelRow(QBoxLayout* layout, QWidget* parent);

}  // namespace tallix::ui
