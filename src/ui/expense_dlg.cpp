#include "ui/expense_dlg.h"

#include <QAction>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/session.h"
#include "data/values.h"
#include "reference/expense_order.h"
#include "reference/plan_input.h"
#include "reference/plan_messages.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {
namespace {

// An expense item keeps its category, an income item its place in the list
// of sources; a category item keeps neither and is never picked.
constexpr int kCategoryRole = Qt::UserRole;
constexpr int kSourceRole = Qt::UserRole + 1;

constexpr int kMonthRows = 13;  // row 0 stands for no month; rows 1-12 are the months
enum MonthCell { kAmountCell = 1, kDatePaidCell, kDueDateCell, kStatusCell, kTypeCell, kCheckCell };
constexpr EntryColumns kMonthCells{kAmountCell, kDatePaidCell, kDueDateCell, kStatusCell,
                                   kCheckCell};

}  // namespace

CExpenseDlg::CExpenseDlg(pugi::xml_node yearData, int mode, QWidget* parent)
    : QDialog(parent),
      data_(yearData),
      income_(mode == kPickIncomeMode),
      banks_(institutionChoices(yearData)) {
    setWindowTitle(income_ ? QStringLiteral("SELECT AN INCOME SOURCE")
                           : QStringLiteral("SELECT AN EXPENSE"));
    buildWindow();
    connect(tree_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* now) { showSelection(now); });
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (isPickable(item))
            pickCurrent();
    });
}

CExpenseDlg::CExpenseDlg(Session& session, QWidget* parent)
    : QDialog(parent),
      session_(&session),
      income_(false),
      banks_(institutionChoices(session.data.node())),
      calls_(this, &session.prompter()) {
    setWindowTitle(QStringLiteral("EDIT, ADD OR DELETE AN EXPENSE"));
    buildWindow();
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now) {
        if (!filling_)
            onSelected(now);
    });
    updateButtons();
    // Room for the whole month list (13 rows, 7 columns) beside the tree.
    resize(sizeHint().expandedTo(QSize(1100, 680)));
}

void CExpenseDlg::buildWindow() {
    setObjectName(QStringLiteral("expenseDialog"));
    auto* layout = new QVBoxLayout(this);
    auto* body = new QHBoxLayout;
    tree_ = new QTreeWidget(this);
    tree_->setObjectName(QStringLiteral("planTree"));
    tree_->setMinimumWidth(190);  // room for a whole expense or income name
    tree_->setHeaderLabel(income_ ? QStringLiteral("INCOME SOURCES") : QStringLiteral("EXPENSES"));
    body->addWidget(tree_, 1);
    body->addWidget(buildDetails(), 3);
    layout->addLayout(body);

    const OkCancel buttons = addOkCancelRow(layout, this);
    ok_ = buttons.ok;
    cancel_ = buttons.cancel;
    fillTree();
    connect(ok_, &QPushButton::clicked, this, &CExpenseDlg::pickCurrent);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    if (session_) {
        auto* menu = new QMenuBar(this);
        layout->setMenuBar(menu);
        for (QAction* a : {delete_, addNew_, moveTo_})
            menu->addAction(a);
    }
}

QWidget* CExpenseDlg::buildDetails() {
    const DetailsPanel details = startDetailsPanel(this);
    QWidget* panel = details.panel;
    QBoxLayout* column = details.column;
    QBoxLayout* top = details.top;
    QFormLayout* form = details.form;
    name_ = details.name;
    category_ = new QLabel(panel);
    category_->setObjectName(QStringLiteral("categoryLabel"));
    form->addRow(QStringLiteral("CATEGORY"), category_);
    type_ = addChoiceRow(form, QStringLiteral("TYPE"), QStringLiteral("typeBox"));
    type_->addItems(
        {QStringLiteral("accumulate"), QStringLiteral("recurring"), QStringLiteral("auto")});
    bank_ = addBankRows(form, banks_);
    amount_ =
        addTextRow(form, QStringLiteral("REPEATING AMOUNT"), QStringLiteral("repeatingAmountEdit"));
    closingDay_ = addTextRow(form, QStringLiteral("CLOSING DAY"), QStringLiteral("closingDayEdit"));
    // A picker only shows what the file holds.
    if (!session_)
        showOnly({name_, amount_, closingDay_}, {type_, bank_.institution, bank_.account});

    months_ = addPlanList(column, panel, QStringLiteral("monthTable"),
                          {{"MONTH", 75},
                           {"AMOUNT", 75},
                           {"DATEPAID", 100},
                           {"DUEDATE", 100},
                           {"STATUS", 100},
                           {"TYPE", 100},
                           {"CHECK #", 75}},
                          kMonthRows);
    for (int m = 1; m < kMonthRows; ++m)
        setCell(months_, m, 0, monthName(m));
    // Every row and column shows without scrolling.
    fitToRows(months_);
    if (session_)
        buildMaintenance(panel, top, column);
    clearDetails();
    return panel;
}

void CExpenseDlg::buildMaintenance(QWidget* panel, QBoxLayout* top, QBoxLayout* column) {
    month_ = addMonthFields(top, panel, MonthFieldSet::kPlanEntry);

    auto* expenseButtons = new QHBoxLayout;
    column->addLayout(expenseButtons);
    saveNew_ = addButton(expenseButtons, QStringLiteral("SAVE THE NEW EXPENSE"),
                         QStringLiteral("saveNewButton"), panel);
    saveChanges_ = addButton(expenseButtons, QStringLiteral("SAVE ABOVE CHANGES"),
                             QStringLiteral("saveChangesButton"), panel);
    expenseButtons->addStretch(1);
    moveUp_ =
        addButton(expenseButtons, QStringLiteral("MOVE UP"), QStringLiteral("moveUpButton"), panel);
    moveDown_ = addButton(expenseButtons, QStringLiteral("MOVE DOWN"),
                          QStringLiteral("moveDownButton"), panel);
    saveNew_->hide();

    delete_ = new QAction(QStringLiteral("Delete"), this);
    addNew_ = new QAction(QStringLiteral("Add New"), this);
    moveTo_ = new QAction(QStringLiteral("Move to different Category"), this);
    tree_->setContextMenuPolicy(Qt::ActionsContextMenu);
    tree_->addActions({delete_, addNew_, moveTo_});

    connect(delete_, &QAction::triggered, this, &CExpenseDlg::deleteSelected);
    connect(addNew_, &QAction::triggered, this, &CExpenseDlg::addNew);
    connect(moveTo_, &QAction::triggered, this, &CExpenseDlg::startMove);
    connect(saveNew_, &QPushButton::clicked, this, &CExpenseDlg::saveNew);
    connect(saveChanges_, &QPushButton::clicked, this, &CExpenseDlg::saveChanges);
    connect(month_.apply, &QPushButton::clicked, this, [this] { applyMonth(false); });
    connect(month_.applyAll, &QPushButton::clicked, this, [this] { applyMonth(true); });
    connect(month_.cancelEdit, &QPushButton::clicked, this,
            [this] { showMonthRow(months_->currentRow()); });
    connect(moveUp_, &QPushButton::clicked, this, [this] { move(true); });
    connect(moveDown_, &QPushButton::clicked, this, [this] { move(false); });
    connect(months_, &QTableWidget::currentCellChanged, this, [this](int row) {
        showMonthRow(row);
        updateButtons();
    });
}

pugi::xml_node CExpenseDlg::data() const {
    return session_ ? session_->data.node() : data_;
}

void CExpenseDlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CExpenseDlg::fillTree() {
    if (income_) {
        sources_ = incomeSources(data());
        for (size_t i = 0; i < sources_.size(); ++i) {
            auto* item = new QTreeWidgetItem(tree_, {qs(sources_[i].name)});
            item->setData(0, kSourceRole, static_cast<int>(i));
        }
        return;
    }
    for (const CategoryExpenses& category : expenseTree(data())) {
        auto* top = new QTreeWidgetItem(tree_, {qs(category.category)});
        for (const std::string& expense : category.expenses) {
            auto* item = new QTreeWidgetItem(top, {qs(expense)});
            item->setData(0, kCategoryRole, qs(category.category));
        }
    }
    tree_->expandAll();
}

bool CExpenseDlg::isPickable(const QTreeWidgetItem* item) const {
    if (!item)
        return false;
    return income_ ? item->data(0, kSourceRole).isValid() : item->parent() != nullptr;
}

void CExpenseDlg::showSelection(QTreeWidgetItem* item) {
    clearDetails();
    if (!item)
        return;
    if (income_) {
        const int at = item->data(0, kSourceRole).toInt();
        if (at >= 0 && at < static_cast<int>(sources_.size()))
            showIncome(sources_[static_cast<size_t>(at)]);
    } else if (!isPickable(item)) {
        category_->setText(item->text(0));
    } else if (const auto details =
                   expenseDetails(data(), item->data(0, kCategoryRole).toString().toStdString(),
                                  item->text(0).toStdString())) {
        showExpense(*details);
    }
}

void CExpenseDlg::showExpense(const ExpenseDetails& details) {
    name_->setText(qs(details.name));
    category_->setText(qs(details.category));
    type_->setCurrentIndex(type_->findText(qs(details.type)));
    bank_.show(details.institution, details.account);
    amount_->setText(qs(details.repeatingAmount));
    closingDay_->setText(qs(details.closingDay));
    for (size_t m = 0; m < details.months.size() && m + 1 < kMonthRows; ++m) {
        const PlanEntryRow& e = details.months[m];
        const int row = static_cast<int>(m) + 1;
        int c = 1;
        for (const std::string* cell :
             {&e.amount, &e.datePaid, &e.dueDate, &e.status, &e.type, &e.check})
            setCell(months_, row, c++, *cell);
    }
}

void CExpenseDlg::showIncome(const IncomeSource& source) {
    name_->setText(qs(source.name));
    bank_.show(source.institution, source.account);
    amount_->setText(qs(source.amount));
}

void CExpenseDlg::clearDetails() {
    for (QLineEdit* edit : {name_, amount_, closingDay_})
        edit->clear();
    category_->clear();
    type_->setCurrentIndex(-1);
    bank_.institution->setCurrentIndex(-1);
    bank_.account->clear();
    for (int row = 0; row < kMonthRows; ++row)
        for (int c = 1; c < months_->columnCount(); ++c)
            delete months_->takeItem(row, c);
    if (session_)
        showMonthRow(-1);
}

void CExpenseDlg::pickCurrent() {
    pick_ = ExpensePick{};
    QTreeWidgetItem* item = tree_->currentItem();
    if (isPickable(item)) {
        pick_.name = item->text(0).toStdString();
        if (!income_)
            pick_.category = item->data(0, kCategoryRole).toString().toStdString();
    }
    accept();
}

// ---- Maintenance ----

void CExpenseDlg::onSelected(QTreeWidgetItem* item) {
    if (pendingMove_ && item) {
        pendingMove_ = false;
        const std::string target = (item->parent() ? item->parent() : item)->text(0).toStdString();
        std::optional<int> moved;
        if (!calls_.run([&] {
                moved = moveExpenseToCategory(*session_, session_->prompter(), expenseCategory_,
                                              expense_, target);
            }))
            return;
        if (moved) {
            reload(target, expense_);
            return;
        }
    }
    saveNew_->hide();
    saveChanges_->show();
    expense_.clear();
    expenseCategory_.clear();
    clearDetails();
    if (item && isPickable(item)) {
        const std::string category = item->data(0, kCategoryRole).toString().toStdString();
        const std::string name = item->text(0).toStdString();
        if (const auto details = expenseDetails(data(), category, name)) {
            expense_ = name;
            expenseCategory_ = category;
            showExpense(*details);
            showMonthRow(months_->currentRow());
        } else {
            session_->prompter().notify(kPlanExpenseNotFound + name);
        }
    } else if (item) {
        expenseCategory_ = item->text(0).toStdString();
        category_->setText(item->text(0));
    }
    updateButtons();
}

void CExpenseDlg::showMonthRow(int row) {
    const bool month = row >= 1 && row < kMonthRows && !expense_.empty() && saveNew_->isHidden();
    month_.show(months_, month ? row : -1, kMonthCells);
}

void CExpenseDlg::updateButtons() {
    const bool expense = !expense_.empty();
    const bool adding = !saveNew_->isHidden();
    const int row = months_->currentRow();
    moveUp_->setVisible(expense && !adding);
    moveDown_->setVisible(expense && !adding);
    saveChanges_->setEnabled(expense);
    month_.enableButtons(expense && !adding && row >= 1 && row < kMonthRows);
    moveTo_->setEnabled(expense && !adding);
}

void CExpenseDlg::reload(const std::string& category, const std::string& expense) {
    const int row = months_->currentRow();
    filling_ = true;
    tree_->clear();
    fillTree();
    QTreeWidgetItem* found = nullptr;
    for (QTreeWidgetItem* item :
         tree_->findItems(qs(expense), Qt::MatchExactly | Qt::MatchRecursive))
        if (item->parent() && item->parent()->text(0) == qs(category))
            found = item;
    tree_->setCurrentItem(found);
    filling_ = false;
    onSelected(found);
    if (row >= 1)
        months_->setCurrentCell(row, 0);
}

ExpenseFields CExpenseDlg::fields() const {
    return {type_->currentText().toStdString(), bank_.account->currentText().toStdString(),
            fieldText(closingDay_), bank_.institution->currentText().toStdString(),
            fieldText(amount_)};
}

void CExpenseDlg::addNew() {
    if (expense_.empty()) {
        session_->prompter().notify(kNoExpenseToPlaceBefore);
        return;
    }
    const std::string category = expenseCategory_;
    clearDetails();
    category_->setText(qs(category));
    saveChanges_->hide();
    saveNew_->show();
    showMonthRow(-1);
    updateButtons();
    name_->setFocus();
}

void CExpenseDlg::saveNew() {
    const std::string name = fieldText(name_);
    if (calls_.run(
            [&] { saveNewExpense(*session_, expenseCategory_, expense_, name, fields()); })) {
        pick_ = {trimmedText(name), expenseCategory_};
        accept();
    }
}

void CExpenseDlg::saveChanges() {
    if (expense_.empty())
        return;
    const std::string name = fieldText(name_);
    std::optional<int> saved;
    if (!calls_.run([&] {
            saved = saveExpenseChanges(*session_, session_->prompter(), expenseCategory_, expense_,
                                       name, fields());
        }) ||
        !saved)
        return;
    reload(expenseCategory_, trimmedText(name));
}

void CExpenseDlg::deleteSelected() {
    if (expense_.empty()) {
        session_->prompter().notify(kNoExpenseToDelete);
        return;
    }
    if (calls_.run(
            [&] { deleteExpense(*session_, session_->prompter(), expenseCategory_, expense_); })) {
        pick_ = ExpensePick{};
        accept();
    }
}

void CExpenseDlg::startMove() {
    if (expense_.empty())
        return;
    session_->prompter().notify(kSelectMoveTarget);
    pendingMove_ = true;
}

void CExpenseDlg::applyMonth(bool toAllMonths) {
    const int row = months_->currentRow();
    if (expense_.empty() || row < 1)
        return;
    const MonthValues values = month_.values();
    if (calls_.run([&] {
            if (toAllMonths)
                applyToAllMonths(*session_, expenseCategory_, expense_, row, values);
            else
                applyToMonth(*session_, expenseCategory_, expense_, row, values);
        }))
        reload(expenseCategory_, expense_);
}

void CExpenseDlg::move(bool up) {
    bool moved = false;
    if (calls_.run([&] {
            moved = up ? moveExpenseUp(*session_, expenseCategory_, expense_)
                       : moveExpenseDown(*session_, expenseCategory_, expense_);
        }) &&
        moved)
        reload(expenseCategory_, expense_);
}

}  // namespace tallix::ui
