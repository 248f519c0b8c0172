#include "ui/transfer_dlg.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/plan_dialog_parts.h"

namespace tallix::ui {

CtransferDlg::CtransferDlg(std::vector<InstitutionChoice> banks, QWidget* parent)
    : QDialog(parent), banks_(std::move(banks)) {
    setObjectName(QStringLiteral("transferDialog"));
    setWindowTitle(QStringLiteral("TRANSFER"));
    auto* layout = new QVBoxLayout(this);
    frame_ = new QGroupBox(QStringLiteral("TRANSFER"), this);
    frame_->setObjectName(QStringLiteral("transferFrame"));
    auto* inFrame = new QVBoxLayout(frame_);
    auto* targets = new QHBoxLayout;
    targets->addWidget(buildTarget(QStringLiteral("FROM TARGET"), QStringLiteral("FROM"),
                                   fromInstitution_, fromAccount_));
    targets->addWidget(
        buildTarget(QStringLiteral("TO TARGET"), QStringLiteral("TO"), toInstitution_, toAccount_));
    inFrame->addLayout(targets);
    auto* amountRow = new QFormLayout;
    amount_ = new QLineEdit(frame_);
    amount_->setObjectName(QStringLiteral("amountEdit"));
    amountRow->addRow(QStringLiteral("ENTER AMOUNT TO TRANSFER"), amount_);
    inFrame->addLayout(amountRow);

    auto* buttons = new QHBoxLayout;
    perform_ = new QPushButton(QStringLiteral("PERFORM TRANFER"), frame_);
    perform_->setObjectName(QStringLiteral("performButton"));
    cancel_ = new QPushButton(QStringLiteral("CANCEL"), frame_);
    cancel_->setObjectName(QStringLiteral("cancelButton"));
    for (QPushButton* b : {perform_, cancel_}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    inFrame->addLayout(buttons);
    layout->addWidget(frame_);

    connect(perform_, &QPushButton::clicked, this, &CtransferDlg::perform);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

QGroupBox* CtransferDlg::buildTarget(const QString& title, const QString& side,
                                     QComboBox*& institution, QComboBox*& account) {
    auto* group = new QGroupBox(title, frame_);
    group->setObjectName(side.toLower() + QStringLiteral("Target"));
    auto* form = new QFormLayout(group);
    institution = new QComboBox(group);
    institution->setObjectName(side.toLower() + QStringLiteral("InstitutionBox"));
    account = new QComboBox(group);
    account->setObjectName(side.toLower() + QStringLiteral("AccountBox"));
    for (const InstitutionChoice& bank : banks_)
        institution->addItem(QString::fromStdString(bank.name));
    // Nothing is chosen for the user: a transfer names both ends on purpose.
    institution->setCurrentIndex(-1);
    form->addRow(side + QStringLiteral(" INSTITUTION"), institution);
    form->addRow(side + QStringLiteral(" ACCOUNT"), account);
    connect(institution, &QComboBox::currentIndexChanged, this,
            [this, account](int at) { showAccounts(at, account); });
    return group;
}

void CtransferDlg::showAccounts(int institution, QComboBox* accounts) {
    fillAccounts(accounts, banks_, institution);
}

void CtransferDlg::perform() {
    answer_ = {fromInstitution_->currentText().toStdString(),
               fromAccount_->currentText().toStdString(),
               toInstitution_->currentText().toStdString(), toAccount_->currentText().toStdString(),
               amount_->text().toStdString()};
    accept();
}

}  // namespace tallix::ui
