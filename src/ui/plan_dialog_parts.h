#pragma once
// Pieces the dialogs over the plan share: labelled form rows, the
// institution list that drives its account list, and the OK/CANCEL row.
#include <QString>
#include <initializer_list>
#include <string>
#include <vector>

#include "editing/cell_choices.h"

class QBoxLayout;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tallix::ui {

inline QString qs(const std::string& text) {
    return QString::fromStdString(text);
}

QLineEdit* addTextRow(QFormLayout* form, const QString& label, const QString& objectName);
QComboBox* addChoiceRow(QFormLayout* form, const QString& label, const QString& objectName);

// Empties `accounts` and lists the accounts of institution number `index`
// of `choices` (nothing for an index outside them).
void fillAccounts(QComboBox* accounts, const std::vector<InstitutionChoice>& choices, int index);

// An institution list and its account list: choosing an institution lists
// its accounts. Neither shows a choice until show() names one.
struct BankRows {
    QComboBox* institution = nullptr;
    QComboBox* account = nullptr;
    // Selects the two names where the lists hold them, else nothing.
    void show(const std::string& institutionName, const std::string& accountName) const;
};
BankRows addBankRows(QFormLayout* form, const std::vector<InstitutionChoice>& banks);

// Fields that show the file's values but take no typing yet.
void showOnly(std::initializer_list<QLineEdit*> edits, std::initializer_list<QComboBox*> boxes);

struct OkCancel {
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
};
// "OK" and "CANCEL" at the right of a new row of `layout`.
OkCancel addOkCancelRow(QBoxLayout* layout, QWidget* parent);

}  // namespace tallix::ui
