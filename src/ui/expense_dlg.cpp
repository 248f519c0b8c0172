#include "ui/expense_dlg.h"

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
#include <iterator>

#include "data/values.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {
namespace {

// An expense item keeps its category, an income item its place in the list
// of sources; a category item keeps neither and is never picked.
constexpr int kCategoryRole = Qt::UserRole;
constexpr int kSourceRole = Qt::UserRole + 1;

struct MonthColumn {
    const char* title;
    int width;
};
constexpr MonthColumn kMonthColumns[] = {{"MONTH", 75},    {"AMOUNT", 75},  {"DATEPAID", 100},
                                         {"DUEDATE", 100}, {"STATUS", 100}, {"TYPE", 100},
                                         {"CHECK #", 75}};
constexpr int kMonthRows = 13;  // row 0 stands for no month; rows 1-12 are the months

void setCell(QTableWidget* table, int row, int column, const std::string& text) {
    table->setItem(row, column, new QTableWidgetItem(qs(text)));
}

}  // namespace

CExpenseDlg::CExpenseDlg(pugi::xml_node yearData, int mode, QWidget* parent)
    : QDialog(parent),
      data_(yearData),
      income_(mode == kPickIncomeMode),
      banks_(institutionChoices(yearData)) {
    setObjectName(QStringLiteral("expenseDialog"));
    setWindowTitle(income_ ? QStringLiteral("SELECT AN INCOME SOURCE")
                           : QStringLiteral("SELECT AN EXPENSE"));
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
    connect(tree_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* now) { showSelection(now); });
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (isPickable(item))
            pickCurrent();
    });
    connect(ok_, &QPushButton::clicked, this, &CExpenseDlg::pickCurrent);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

QWidget* CExpenseDlg::buildDetails() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    auto* form = new QFormLayout;
    column->addLayout(form);
    name_ = addTextRow(form, QStringLiteral("NAME"), QStringLiteral("nameEdit"));
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
    // Editing the plan from here comes with the maintenance commands; until
    // then the fields only show what the file holds.
    showOnly({name_, amount_, closingDay_}, {type_, bank_.institution, bank_.account});

    months_ = new QTableWidget(kMonthRows, static_cast<int>(std::size(kMonthColumns)), panel);
    months_->setObjectName(QStringLiteral("monthTable"));
    months_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    months_->verticalHeader()->hide();
    for (int c = 0; c < static_cast<int>(std::size(kMonthColumns)); ++c) {
        months_->setHorizontalHeaderItem(c, new QTableWidgetItem(kMonthColumns[c].title));
        months_->setColumnWidth(c, kMonthColumns[c].width);
    }
    for (int m = 1; m < kMonthRows; ++m)
        setCell(months_, m, 0, monthName(m));
    column->addWidget(months_);
    clearDetails();
    return panel;
}

void CExpenseDlg::fillTree() {
    if (income_) {
        sources_ = incomeSources(data_);
        for (size_t i = 0; i < sources_.size(); ++i) {
            auto* item = new QTreeWidgetItem(tree_, {qs(sources_[i].name)});
            item->setData(0, kSourceRole, static_cast<int>(i));
        }
        return;
    }
    for (const CategoryExpenses& category : expenseTree(data_)) {
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
                   expenseDetails(data_, item->data(0, kCategoryRole).toString().toStdString(),
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
        for (const std::string* text :
             {&e.amount, &e.datePaid, &e.dueDate, &e.status, &e.type, &e.check})
            setCell(months_, row, c++, *text);
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

}  // namespace tallix::ui
