#include "ui/bank_select.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "ui/plan_dialog_parts.h"

namespace tallix::ui {

CBankselect::CBankselect(std::vector<InstitutionChoice> choices, const std::string& institution,
                         const std::string& account, QWidget* parent)
    : QDialog(parent), choices_(std::move(choices)) {
    setWindowTitle(QStringLiteral("Institution and account"));
    auto* form = new QFormLayout(this);
    institutions_ = new QComboBox(this);
    accounts_ = new QComboBox(this);
    for (const InstitutionChoice& c : choices_)
        institutions_->addItem(QString::fromStdString(c.name));
    form->addRow(QStringLiteral("Institution"), institutions_);
    form->addRow(QStringLiteral("Account"), accounts_);
    auto* row = new QHBoxLayout;
    update_ = new QPushButton(QStringLiteral("UPDATE"), this);
    cancel_ = new QPushButton(QStringLiteral("CANCEL"), this);
    clear_ = new QPushButton(QStringLiteral("CLEAR ENTRIES"), this);
    for (QPushButton* b : {update_, cancel_, clear_}) {
        b->setAutoDefault(false);
        row->addWidget(b);
    }
    form->addRow(row);

    connect(institutions_, &QComboBox::currentIndexChanged, this, &CBankselect::showAccounts);
    connect(update_, &QPushButton::clicked, this, [this] { finish(BankChoice::Outcome::Update); });
    connect(cancel_, &QPushButton::clicked, this,
            [this] { finish(BankChoice::Outcome::Canceled); });
    connect(clear_, &QPushButton::clicked, this, [this] { finish(BankChoice::Outcome::Clear); });

    // Opens on the line's own institution and account when the lists hold them.
    const int at = institutions_->findText(QString::fromStdString(institution));
    institutions_->setCurrentIndex(at >= 0 ? at : 0);
    showAccounts(institutions_->currentIndex());
    const int accountAt = accounts_->findText(QString::fromStdString(account));
    if (accountAt >= 0)
        accounts_->setCurrentIndex(accountAt);
}

void CBankselect::showAccounts(int institution) {
    fillAccounts(accounts_, choices_, institution);
}

void CBankselect::finish(BankChoice::Outcome outcome) {
    choice_ = {outcome, {}, {}};
    if (outcome == BankChoice::Outcome::Update) {
        choice_.institution = institutions_->currentText().toStdString();
        choice_.account = accounts_->currentText().toStdString();
        accept();
    } else if (outcome == BankChoice::Outcome::Clear) {
        accept();
    } else {
        reject();
    }
}

}  // namespace tallix::ui
