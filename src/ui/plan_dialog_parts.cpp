#include "ui/plan_dialog_parts.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace tallix::ui {

QLineEdit* addTextRow(QFormLayout* form, const QString& label, const QString& objectName) {
    auto* edit = new QLineEdit(form->parentWidget());
    edit->setObjectName(objectName);
    form->addRow(label, edit);
    return edit;
}

QComboBox* addChoiceRow(QFormLayout* form, const QString& label, const QString& objectName) {
    auto* box = new QComboBox(form->parentWidget());
    box->setObjectName(objectName);
    form->addRow(label, box);
    return box;
}

void fillAccounts(QComboBox* accounts, const std::vector<InstitutionChoice>& choices, int index) {
    accounts->clear();
    if (index < 0 || index >= static_cast<int>(choices.size()))
        return;
    for (const std::string& a : choices[static_cast<size_t>(index)].accounts)
        accounts->addItem(qs(a));
}

void BankRows::show(const std::string& institutionName, const std::string& accountName) const {
    institution->setCurrentIndex(institution->findText(qs(institutionName)));
    account->setCurrentIndex(account->findText(qs(accountName)));
}

BankRows addBankRows(QFormLayout* form, const std::vector<InstitutionChoice>& banks) {
    BankRows rows;
    rows.institution =
        addChoiceRow(form, QStringLiteral("DEFAULT INSTITUTION"), QStringLiteral("institutionBox"));
    rows.account =
        addChoiceRow(form, QStringLiteral("DEFAULT ACCOUNT"), QStringLiteral("accountBox"));
    for (const InstitutionChoice& bank : banks)
        rows.institution->addItem(qs(bank.name));
    rows.institution->setCurrentIndex(-1);
    QComboBox* accounts = rows.account;
    QObject::connect(rows.institution, &QComboBox::currentIndexChanged, accounts,
                     [accounts, banks](int index) { fillAccounts(accounts, banks, index); });
    return rows;
}

void showOnly(std::initializer_list<QLineEdit*> edits, std::initializer_list<QComboBox*> boxes) {
    for (QLineEdit* edit : edits)
        edit->setReadOnly(true);
    for (QComboBox* box : boxes)
        box->setEnabled(false);
}

OkCancel addOkCancelRow(QBoxLayout* layout, QWidget* parent) {
    auto* row = new QHBoxLayout;
    OkCancel buttons{new QPushButton(QStringLiteral("OK"), parent),
                     new QPushButton(QStringLiteral("CANCEL"), parent)};
    buttons.ok->setObjectName(QStringLiteral("okButton"));
    buttons.cancel->setObjectName(QStringLiteral("cancelButton"));
    row->addStretch();
    for (QPushButton* b : {buttons.ok, buttons.cancel}) {
        b->setAutoDefault(false);
        row->addWidget(b);
    }
    layout->addLayout(row);
    return buttons;
}

}  // namespace tallix::ui
