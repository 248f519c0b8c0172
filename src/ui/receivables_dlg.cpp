#include "ui/receivables_dlg.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "editing/line_choices.h"

namespace tallix::ui {
namespace {

constexpr int kCustomerRole = Qt::UserRole;  // the customer's place in the list

const QStringList& itemColumns() {
    static const QStringList titles = {QStringLiteral("MONTH"),   QStringLiteral("LINE"),
                                       QStringLiteral("AMOUNT"),  QStringLiteral("DATEPAID"),
                                       QStringLiteral("DUEDATE"), QStringLiteral("STATUS"),
                                       QStringLiteral("TYPE"),    QStringLiteral("CHECK #")};
    return titles;
}

QString qs(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

CReceivablesDlg::CReceivablesDlg(pugi::xml_node yearData, bool pickForCell, QWidget* parent)
    : QDialog(parent),
      data_(yearData),
      banks_(institutionChoices(yearData)),
      customers_(customers(yearData)),
      selected_(kNoSelection) {
    setObjectName(QStringLiteral("receivablesDialog"));
    setWindowTitle(QStringLiteral("CUSTOMERS"));
    auto* layout = new QVBoxLayout(this);
    prompt_ = new QLabel(
        pickForCell
            ? QStringLiteral("SELECT A CUSTOMER TO ADD TO THE EXPENSE ITEM CELL SELECTED")
            : QStringLiteral("SELECT A CUSTOMER TO EDIT OR SELECT ADD NEW TO ADD A NEW CUSTOMER"),
        this);
    prompt_->setObjectName(QStringLiteral("promptLabel"));
    layout->addWidget(prompt_);

    auto* body = new QHBoxLayout;
    tree_ = new QTreeWidget(this);
    tree_->setObjectName(QStringLiteral("customerTree"));
    tree_->setMinimumWidth(190);  // room for a whole customer name
    tree_->setHeaderLabel(QStringLiteral("CUSTOMERS"));
    for (size_t i = 0; i < customers_.size(); ++i) {
        auto* item = new QTreeWidgetItem(tree_, {qs(customers_[i].name)});
        item->setData(0, kCustomerRole, static_cast<int>(i));
    }
    body->addWidget(tree_, 1);
    body->addWidget(buildDetails(), 3);
    layout->addLayout(body);

    auto* buttons = new QHBoxLayout;
    ok_ = new QPushButton(QStringLiteral("OK"), this);
    ok_->setObjectName(QStringLiteral("okButton"));
    cancel_ = new QPushButton(QStringLiteral("CANCEL"), this);
    cancel_->setObjectName(QStringLiteral("cancelButton"));
    buttons->addStretch();
    for (QPushButton* b : {ok_, cancel_}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);

    connect(tree_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* now) { showCustomer(now); });
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, &CReceivablesDlg::pickCurrent);
    connect(institution_, &QComboBox::currentIndexChanged, this, &CReceivablesDlg::showAccounts);
    connect(ok_, &QPushButton::clicked, this, &CReceivablesDlg::pickCurrent);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

QWidget* CReceivablesDlg::buildDetails() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    auto* form = new QFormLayout;
    name_ = new QLineEdit(panel);
    name_->setObjectName(QStringLiteral("nameEdit"));
    number_ = new QLineEdit(panel);
    number_->setObjectName(QStringLiteral("customerNumberEdit"));
    institution_ = new QComboBox(panel);
    institution_->setObjectName(QStringLiteral("institutionBox"));
    for (const InstitutionChoice& bank : banks_)
        institution_->addItem(qs(bank.name));
    institution_->setCurrentIndex(-1);
    account_ = new QComboBox(panel);
    account_->setObjectName(QStringLiteral("accountBox"));
    amount_ = new QLineEdit(panel);
    amount_->setObjectName(QStringLiteral("repeatingAmountEdit"));
    form->addRow(QStringLiteral("NAME"), name_);
    form->addRow(QStringLiteral("CUSTOMER NUMBER"), number_);
    form->addRow(QStringLiteral("DEFAULT INSTITUTION"), institution_);
    form->addRow(QStringLiteral("DEFAULT ACCOUNT"), account_);
    form->addRow(QStringLiteral("REPEATING AMOUNT"), amount_);
    column->addLayout(form);
    // Customers are changed through the maintenance commands, not here yet.
    for (QLineEdit* edit : {name_, number_, amount_})
        edit->setReadOnly(true);
    for (QComboBox* box : {institution_, account_})
        box->setEnabled(false);

    items_ = new QTableWidget(0, static_cast<int>(itemColumns().size()), panel);
    items_->setObjectName(QStringLiteral("itemTable"));
    items_->setHorizontalHeaderLabels(itemColumns());
    items_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    items_->verticalHeader()->hide();
    column->addWidget(items_);
    return panel;
}

void CReceivablesDlg::showCustomer(QTreeWidgetItem* item) {
    items_->setRowCount(0);
    const int at = item ? item->data(0, kCustomerRole).toInt() : -1;
    if (at < 0 || at >= static_cast<int>(customers_.size())) {
        for (QLineEdit* edit : {name_, number_, amount_})
            edit->clear();
        institution_->setCurrentIndex(-1);
        return;
    }
    const Customer& c = customers_[static_cast<size_t>(at)];
    name_->setText(qs(c.name));
    number_->setText(qs(c.number));
    amount_->setText(qs(c.amount));
    institution_->setCurrentIndex(institution_->findText(qs(c.institution)));
    showAccounts(institution_->currentIndex());
    account_->setCurrentIndex(account_->findText(qs(c.account)));

    const std::vector<ReceivableRow> rows = receivableRows(data_, c.name);
    items_->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const ReceivableRow& row = rows[static_cast<size_t>(r)];
        const PlanEntryRow& e = row.entry;
        int col = 0;
        for (const std::string* text : {&row.month, &row.line, &e.amount, &e.datePaid, &e.dueDate,
                                        &e.status, &e.type, &e.check})
            items_->setItem(r, col++, new QTableWidgetItem(qs(*text)));
    }
}

void CReceivablesDlg::showAccounts(int institution) {
    account_->clear();
    if (institution < 0 || institution >= static_cast<int>(banks_.size()))
        return;
    for (const std::string& a : banks_[static_cast<size_t>(institution)].accounts)
        account_->addItem(qs(a));
}

void CReceivablesDlg::pickCurrent() {
    QTreeWidgetItem* item = tree_->currentItem();
    selected_ = item ? item->text(0).toStdString() : std::string(kNoSelection);
    accept();
}

}  // namespace tallix::ui
