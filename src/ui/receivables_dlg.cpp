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
#include "ui/plan_dialog_parts.h"

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

    const OkCancel buttons = addOkCancelRow(layout, this);
    ok_ = buttons.ok;
    cancel_ = buttons.cancel;

    connect(tree_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* now) { showCustomer(now); });
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, &CReceivablesDlg::pickCurrent);
    connect(ok_, &QPushButton::clicked, this, &CReceivablesDlg::pickCurrent);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

QWidget* CReceivablesDlg::buildDetails() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    auto* form = new QFormLayout;
    column->addLayout(form);
    name_ = addTextRow(form, QStringLiteral("NAME"), QStringLiteral("nameEdit"));
    number_ =
        addTextRow(form, QStringLiteral("CUSTOMER NUMBER"), QStringLiteral("customerNumberEdit"));
    bank_ = addBankRows(form, banks_);
    amount_ =
        addTextRow(form, QStringLiteral("REPEATING AMOUNT"), QStringLiteral("repeatingAmountEdit"));
    // Customers are changed through the maintenance commands, not here yet.
    showOnly({name_, number_, amount_}, {bank_.institution, bank_.account});

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
        bank_.institution->setCurrentIndex(-1);
        return;
    }
    const Customer& c = customers_[static_cast<size_t>(at)];
    name_->setText(qs(c.name));
    number_->setText(qs(c.number));
    amount_->setText(qs(c.amount));
    bank_.show(c.institution, c.account);

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

void CReceivablesDlg::pickCurrent() {
    QTreeWidgetItem* item = tree_->currentItem();
    selected_ = item ? item->text(0).toStdString() : std::string(kNoSelection);
    accept();
}

}  // namespace tallix::ui
