// The expense reports: the month's recurring expenses, the monthly plan
// amounts and the year-end totals. They read the plan (each expense's twelve
// month entries), the income sources and the RMDs; never the register.
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reports/reports.h"

namespace tallix {
namespace {

using schema::kEntryAmount;
using schema::kEntryStatus;
using schema::kExpenseMonths;
using schema::kIncomeMonths;

constexpr size_t kExpenseType = 1;

constexpr size_t kIncomeAmount = 1;

constexpr size_t kHolderName = 0;
constexpr size_t kHolderAccounts = 1;
constexpr size_t kRmdAccountName = 0;
constexpr size_t kRmdAmount = 2;
constexpr size_t kRmdCurrentDraw = 3;

// The recurring report lists the monthly bills: recurring and automatic
// expenses, and every expense of the "Credit Cards" category (a card's monthly
// payment, whatever its type).
constexpr std::string_view kCreditCardsCategory = "Credit Cards";
constexpr std::string_view kNoEntry = "no entry";

// A month's bill is still to pay until the bank has paid it: not paid yet
// ("notpaid"), an automatic payment not made yet ("auto"), a check written but
// not cleared ("pending") or a payment the bank is processing ("processing").
// "cleared", "posted" and "posted check" are paid; "no entry" counts for
// nothing.
bool isStillToPay(std::string_view status) {
    return status == kNotPaid || status == "auto" || status == "pending" || status == "processing";
}

std::vector<pugi::xml_node> expensesOf(pugi::xml_node category) {
    std::vector<pugi::xml_node> expenses;
    for (pugi::xml_node child : elementChildren(childAt(category, schema::kCategoryNames))) {
        if (std::string_view(child.name()) == "name")
            expenses.push_back(child);
    }
    return expenses;
}

pugi::xml_node planMonth(pugi::xml_node expense, int month) {
    return childAt(childAt(expense, kExpenseMonths), static_cast<size_t>(month - 1));
}

double twelveMonths(pugi::xml_node months, size_t amountChild) {
    double total = 0.0;
    for (pugi::xml_node month : elementChildren(months))
        total += planAmount(childText(month, amountChild));
    return total;
}

std::vector<std::string> row(std::initializer_list<std::string> cells, size_t width) {
    std::vector<std::string> filled(cells);
    filled.resize(width);
    return filled;
}

}  // namespace

Report recurringReport(pugi::xml_node document, int month) {
    Report report{ReportKind::Recurring, {}, {}};
    double total = 0.0;
    double leftToPay = 0.0;
    for (pugi::xml_node category : selectAll(document, paths::kAllCategoriesAny)) {
        const bool cardPayments = attributeText("id", category) == kCreditCardsCategory;
        for (pugi::xml_node expense : expensesOf(category)) {
            if (!cardPayments && !schema::isMonthlyBillKind(childText(expense, kExpenseType)))
                continue;
            pugi::xml_node entry = planMonth(expense, month);
            std::string amount = childText(entry, kEntryAmount);
            std::string status = childText(entry, kEntryStatus);
            report.rows.push_back({attributeText("id", expense), amount,
                                   childText(entry, schema::kEntryDueDate),
                                   childText(entry, schema::kEntryDatePaid), status});
            if (status == kNoEntry)
                continue;
            double value = planAmount(amount);
            total += value;
            if (isStillToPay(status))
                leftToPay += value;
        }
    }
    report.rows.push_back({kTotalLabel, amountToText(total), "", "", ""});
    report.rows.push_back({kLeftToPayLabel, amountToText(leftToPay), "", "", ""});
    return report;
}

Report monthlyExpenseReport(pugi::xml_node document) {
    Report report{ReportKind::MonthlyExpenses, {}, {}};
    const size_t width = reportLayout(report.kind).columns.size();
    std::string& file = report.fileBytes;
    file = "Category,Expense";
    for (int m = 1; m <= 12; ++m)
        file += "," + monthName(m);
    file += "\n";
    for (pugi::xml_node category : selectAll(document, paths::kAllCategoriesAny)) {
        std::string categoryId = attributeText("id", category);
        report.rows.push_back(row({categoryId, " ", " "}, width));
        file += categoryId + "\n";
        for (pugi::xml_node expense : expensesOf(category)) {
            std::string expenseId = attributeText("id", expense);
            std::vector<std::string> cells = row({" ", expenseId}, width);
            std::string line = std::string(" ") + " ," + expenseId;
            for (int m = 1; m <= 12; ++m) {
                std::string amount = childText(planMonth(expense, m), kEntryAmount);
                if (amount == "$" || amount.empty())
                    amount = "0";
                textToAmount(amount);  // only checked: the text is shown as written
                cells[static_cast<size_t>(2 + m - 1)] = amount;
                line += "," + amount;
            }
            report.rows.push_back(std::move(cells));
            file += line + "\n";
        }
    }
    return report;
}

Report yearEndReport(pugi::xml_node document) {
    Report report{ReportKind::YearEnd, {}, {}};
    auto& rows = report.rows;

    rows.push_back({"EXPENSE", "", "", ""});
    double expenses = 0.0;
    for (pugi::xml_node category : selectAll(document, paths::kAllCategoriesAny)) {
        std::string categoryId = attributeText("id", category);
        double categoryTotal = 0.0;
        for (pugi::xml_node expense : expensesOf(category)) {
            double sum = twelveMonths(childAt(expense, kExpenseMonths), kEntryAmount);
            categoryTotal += sum;
            rows.push_back({categoryId, attributeText("id", expense), amountToText(sum), ""});
        }
        rows.push_back({categoryId, "Totals", "", amountToText(categoryTotal)});
        expenses += categoryTotal;
    }
    rows.push_back({"EXPENSE", "Totals", "", amountToText(expenses)});

    rows.push_back({"INCOME", "", "", ""});
    double income = 0.0;
    for (pugi::xml_node source : selectAll(document, paths::kAllIncome)) {
        double sum = twelveMonths(childAt(source, kIncomeMonths), kIncomeAmount);
        income += sum;
        rows.push_back({"INCOME", attributeText("id", source), amountToText(sum), ""});
    }
    rows.push_back({"INCOME", "Totals", "", amountToText(income)});

    rows.push_back({"NAME", "ACCOUNT", "AMOUNT", ""});
    double drawn = 0.0;
    double required = 0.0;
    for (pugi::xml_node individual : selectAll(document, paths::kAllRmds)) {
        for (pugi::xml_node holder : elementChildren(individual)) {
            std::string name = childText(holder, kHolderName);
            for (pugi::xml_node account : elementChildren(childAt(holder, kHolderAccounts))) {
                double draw = planAmount(childText(account, kRmdCurrentDraw));
                drawn += draw;
                required += planAmount(childText(account, kRmdAmount));
                rows.push_back({name, childText(account, kRmdAccountName), amountToText(draw), ""});
            }
        }
    }
    rows.push_back({"", "draw total", "", amountToText(drawn)});
    rows.push_back({"", "rmd total", "", amountToText(required)});

    report.fileBytes = rowsAsCsv(report);
    return report;
}

}  // namespace tallix
