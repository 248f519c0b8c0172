#include "ui/receivables_dlg.h"

#include <QAction>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/session.h"
#include "data/values.h"
#include "editing/line_choices.h"
#include "reference/plan_input.h"

namespace tallix::ui {
namespace {

constexpr int kCustomerRole = Qt::UserRole;  // the customer's place in the list
// A row of the item list keeps its month (1-12) and its item's place in the
// month (-1 for a month without items) on its MONTH cell.
constexpr int kMonthRole = Qt::UserRole;
constexpr int kItemRole = Qt::UserRole + 1;
constexpr int kLastMonth = 12;

enum ItemCell {
    kLineCell = 1,
    kAmountCell,
    kDatePaidCell,
    kDueDateCell,
    kStatusCell,
    kCheckCell = 7
};
constexpr EntryColumns kItemCells{kAmountCell, kDatePaidCell, kDueDateCell, kStatusCell,
                                  kCheckCell};

}  // namespace

CReceivablesDlg::CReceivablesDlg(pugi::xml_node yearData, bool pickForCell, QWidget* parent)
    : QDialog(parent),
      data_(yearData),
      banks_(institutionChoices(yearData)),
      selected_(kNoSelection) {
    buildWindow(pickForCell);
    connect(tree_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* now) { showCustomer(now); });
}

CReceivablesDlg::CReceivablesDlg(Session& session, const std::string& customer, QWidget* parent)
    : QDialog(parent),
      session_(&session),
      banks_(institutionChoices(session.data.node())),
      selected_(kNoSelection),
      calls_(this, &session.prompter()) {
    buildWindow(false);
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now) {
        if (!filling_)
            onSelected(now);
    });
    const QList<QTreeWidgetItem*> chosen = tree_->findItems(qs(customer), Qt::MatchExactly);
    if (!customer.empty() && !chosen.isEmpty()) {
        tree_->setCurrentItem(chosen.front());
        chosen.front()->setSelected(true);
    }
    updateButtons();
    resize(sizeHint().expandedTo(QSize(1100, 680)));
}

void CReceivablesDlg::buildWindow(bool pickForCell) {
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
    tree_->setRootIsDecorated(false);
    fillTree();
    body->addWidget(tree_, 1);
    body->addWidget(buildDetails(), 3);
    layout->addLayout(body);

    const OkCancel buttons = addOkCancelRow(layout, this);
    ok_ = buttons.ok;
    cancel_ = buttons.cancel;
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, &CReceivablesDlg::pickCurrent);
    connect(ok_, &QPushButton::clicked, this, &CReceivablesDlg::pickCurrent);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    if (session_) {
        auto* menu = new QMenuBar(this);
        layout->setMenuBar(menu);
        menu->addActions({delete_, addNew_, addItem_});
    }
}

QWidget* CReceivablesDlg::buildDetails() {
    const DetailsPanel details = startDetailsPanel(this);
    QWidget* panel = details.panel;
    QBoxLayout* column = details.column;
    QBoxLayout* top = details.top;
    QFormLayout* form = details.form;
    name_ = details.name;
    number_ =
        addTextRow(form, QStringLiteral("CUSTOMER NUMBER"), QStringLiteral("customerNumberEdit"));
    bank_ = addBankRows(form, banks_);
    amount_ =
        addTextRow(form, QStringLiteral("REPEATING AMOUNT"), QStringLiteral("repeatingAmountEdit"));
    // A picker only shows what the file holds.
    if (!session_)
        showOnly({name_, number_, amount_}, {bank_.institution, bank_.account});

    if (session_)
        buildMaintenance(panel, top, column);
    items_ = addPlanList(column, panel, QStringLiteral("itemTable"),
                         {{"MONTH", 90},
                          {"LINE", 60},
                          {"AMOUNT", 75},
                          {"DATEPAID", 90},
                          {"DUEDATE", 90},
                          {"STATUS", 90},
                          {"TYPE", 90},
                          {"CHECK #", 70}},
                         0);
    items_->setMinimumWidth(items_->horizontalHeader()->length() + 2 * items_->frameWidth() +
                            items_->verticalScrollBar()->sizeHint().width());
    column->setStretchFactor(items_, 1);  // the months' items take the room there is
    if (session_) {
        items_->setContextMenuPolicy(Qt::ActionsContextMenu);
        items_->addAction(addItem_);
        connect(items_, &QTableWidget::currentCellChanged, this, [this](int row) {
            showItemRow(row);
            updateButtons();
        });
    }
    return panel;
}

void CReceivablesDlg::buildMaintenance(QWidget* panel, QBoxLayout* top, QBoxLayout* column) {
    item_ = addMonthFields(top, panel, MonthFieldSet::kPlanEntry);

    auto* customerButtons = new QHBoxLayout;
    column->addLayout(customerButtons);
    saveNew_ = addButton(customerButtons, QStringLiteral("SAVE THE NEW CUSTOMER"),
                         QStringLiteral("saveNewButton"), panel);
    saveChanges_ = addButton(customerButtons, QStringLiteral("SAVE ABOVE CHANGES"),
                             QStringLiteral("saveChangesButton"), panel);
    customerButtons->addStretch(1);
    moveUp_ = addButton(customerButtons, QStringLiteral("MOVE UP"), QStringLiteral("moveUpButton"),
                        panel);
    moveDown_ = addButton(customerButtons, QStringLiteral("MOVE DOWN"),
                          QStringLiteral("moveDownButton"), panel);
    saveNew_->hide();

    delete_ = new QAction(QStringLiteral("Delete"), this);
    addNew_ = new QAction(QStringLiteral("Add New"), this);
    addItem_ = new QAction(QStringLiteral("Add item"), this);
    tree_->setContextMenuPolicy(Qt::ActionsContextMenu);
    tree_->addActions({delete_, addNew_, addItem_});

    connect(delete_, &QAction::triggered, this, &CReceivablesDlg::deleteSelected);
    connect(addNew_, &QAction::triggered, this, &CReceivablesDlg::addNew);
    connect(addItem_, &QAction::triggered, this, &CReceivablesDlg::addItem);
    connect(saveNew_, &QPushButton::clicked, this, &CReceivablesDlg::saveNew);
    connect(saveChanges_, &QPushButton::clicked, this, &CReceivablesDlg::saveChanges);
    connect(moveUp_, &QPushButton::clicked, this, [this] { move(true); });
    connect(moveDown_, &QPushButton::clicked, this, [this] { move(false); });
    connect(item_.apply, &QPushButton::clicked, this, [this] { applyItem(false); });
    connect(item_.applyAll, &QPushButton::clicked, this, [this] { applyItem(true); });
    connect(item_.cancelEdit, &QPushButton::clicked, this,
            [this] { showItemRow(items_->currentRow()); });
}

pugi::xml_node CReceivablesDlg::data() const {
    return session_ ? session_->data.node() : data_;
}

void CReceivablesDlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CReceivablesDlg::fillTree() {
    customers_ = customers(data());
    tree_->clear();
    for (size_t i = 0; i < customers_.size(); ++i) {
        auto* item = new QTreeWidgetItem(tree_, {qs(customers_[i].name)});
        item->setData(0, kCustomerRole, static_cast<int>(i));
    }
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

    // The items month by month; in maintenance a month without items shows
    // as a row of its own.
    const std::vector<ReceivableRow> rows = receivableRows(data(), c.name);
    const auto newRow = [this](int month, int place) {
        const int r = items_->rowCount();
        items_->insertRow(r);
        setCell(items_, r, 0, monthName(month));
        items_->item(r, 0)->setData(kMonthRole, month);
        items_->item(r, 0)->setData(kItemRole, place);
        return r;
    };
    size_t next = 0;
    for (int month = 1; month <= kLastMonth; ++month) {
        int place = 0;
        for (; next < rows.size() && rows[next].month == monthName(month); ++next, ++place) {
            const int r = newRow(month, place);
            const ReceivableRow& row = rows[next];
            const PlanEntryRow& e = row.entry;
            int col = kLineCell;
            for (const std::string* text :
                 {&row.line, &e.amount, &e.datePaid, &e.dueDate, &e.status, &e.type, &e.check})
                setCell(items_, r, col++, *text);
        }
        if (place == 0 && session_)
            newRow(month, -1);
    }
}

void CReceivablesDlg::pickCurrent() {
    QTreeWidgetItem* item = tree_->currentItem();
    selected_ = item ? item->text(0).toStdString() : std::string(kNoSelection);
    accept();
}

// ---- Maintenance ----

void CReceivablesDlg::onSelected(QTreeWidgetItem* item) {
    saveNew_->hide();
    saveChanges_->show();
    showCustomer(item);
    customer_ = item ? item->text(0).toStdString() : std::string();
    // The customer shown is the one highlighted, also when the tree made it
    // current on getting the focus.
    if (item)
        item->setSelected(true);
    showItemRow(items_->currentRow());
    updateButtons();
}

std::pair<int, int> CReceivablesDlg::placeOf(int row) const {
    const QTableWidgetItem* cell = row >= 0 ? items_->item(row, 0) : nullptr;
    if (!cell)
        return {0, -1};
    return {cell->data(kMonthRole).toInt(), cell->data(kItemRole).toInt()};
}

void CReceivablesDlg::showItemRow(int row) {
    const bool item = placeOf(row).second >= 0 && !customer_.empty() && saveNew_->isHidden();
    item_.show(items_, item ? row : -1, kItemCells);
}

void CReceivablesDlg::updateButtons() {
    const bool customer = !customer_.empty();
    const bool adding = !saveNew_->isHidden();
    const auto [month, item] = placeOf(items_->currentRow());
    moveUp_->setVisible(customer && !adding);
    moveDown_->setVisible(customer && !adding);
    saveChanges_->setEnabled(customer);
    item_.enableButtons(customer && !adding && item >= 0);
    addItem_->setEnabled(customer && !adding && month > 0);
}

void CReceivablesDlg::change(const std::function<void()>& call, const std::string& customer,
                             const std::function<int()>& row) {
    int shownRow = items_->currentRow();
    if (!calls_.run([&] {
            call();
            if (row)
                shownRow = row();
        }))
        return;
    filling_ = true;
    fillTree();
    const auto found = tree_->findItems(qs(customer), Qt::MatchExactly);
    QTreeWidgetItem* selected = found.isEmpty() ? nullptr : found.front();
    tree_->setCurrentItem(selected);
    filling_ = false;
    onSelected(selected);
    if (selected && shownRow >= 0 && shownRow < items_->rowCount())
        items_->setCurrentCell(shownRow, 0);
}

CustomerFields CReceivablesDlg::fields() const {
    return {fieldText(number_), bank_.institution->currentText().toStdString(),
            bank_.account->currentText().toStdString(), fieldText(amount_)};
}

void CReceivablesDlg::addNew() {
    if (customer_.empty()) {
        session_->prompter().notify(kNoReceivableToPlaceBefore);
        return;
    }
    showCustomer(nullptr);
    saveChanges_->hide();
    saveNew_->show();
    showItemRow(-1);
    updateButtons();
    name_->setFocus();
}

void CReceivablesDlg::saveNew() {
    const std::string name = fieldText(name_);
    change([&] { saveNewCustomer(*session_, customer_, name, fields()); }, trimmedText(name));
}

void CReceivablesDlg::saveChanges() {
    if (customer_.empty())
        return;
    const std::string name = fieldText(name_);
    change([&] { saveCustomerChanges(*session_, customer_, name, fields()); }, trimmedText(name));
}

void CReceivablesDlg::move(bool up) {
    change(
        [&] {
            if (up)
                moveCustomerUp(*session_, customer_);
            else
                moveCustomerDown(*session_, customer_);
        },
        customer_);
}

void CReceivablesDlg::applyItem(bool toAllMonths) {
    const auto [month, item] = placeOf(items_->currentRow());
    if (customer_.empty() || item < 0)
        return;
    const MonthValues values = item_.values();
    change(
        [&] {
            if (toAllMonths)
                applyItemToAllMonths(*session_, customer_, month, item, values);
            else
                applyToItem(*session_, customer_, month, item, values);
        },
        customer_);
}

void CReceivablesDlg::addItem() {
    const int row = items_->currentRow();
    const auto [month, item] = placeOf(row);
    if (customer_.empty() || month == 0)
        return;
    int added = 0;
    // The new item's row: after the month's last item, or in place of the
    // row of a month that had none.
    change([&] { added = addReceivableItem(*session_, customer_, month); }, customer_,
           [&] { return row - (item < 0 ? 0 : item) + added; });
}

void CReceivablesDlg::deleteSelected() {
    if (customer_.empty()) {
        session_->prompter().notify(kNoReceivableToDelete);
        return;
    }
    if (calls_.run([&] { deleteCustomer(*session_, customer_); })) {
        selected_ = kNoSelection;
        accept();
    }
}

}  // namespace tallix::ui
