#include "reference/plan_lists.h"

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_nodes.h"

namespace tallix {
namespace {

using schema::kCategoryNames;
using schema::kEntryAmount;
using schema::kEntryCheck;
using schema::kEntryDatePaid;
using schema::kEntryDueDate;
using schema::kEntryStatus;
using schema::kEntryType;
// A receivable item keeps its register line where an expense month keeps the
// month's name.
constexpr size_t kItemLine = 0;

// Positions of the fields of an income source and a customer (an expense's
// are in plan_nodes.h).
enum IncomeChild : size_t {
    kIncomeInstitution = 0,
    kIncomeAccount,
    kIncomeType,
    kIncomeAmount = 5
};
enum CustomerChild : size_t {
    kCustomerNumber = 0,
    kCustomerInstitution,
    kCustomerAccount,
    kCustomerAmount
};

std::string idOf(pugi::xml_node node) {
    return attributeText("id", node);
}

PlanEntryRow entryRow(pugi::xml_node entry) {
    return {childTextOrEmpty(entry, kEntryAmount),  childTextOrEmpty(entry, kEntryDatePaid),
            childTextOrEmpty(entry, kEntryDueDate), childTextOrEmpty(entry, kEntryStatus),
            childTextOrEmpty(entry, kEntryType),    childTextOrEmpty(entry, kEntryCheck)};
}

}  // namespace

std::vector<CategoryExpenses> expenseTree(pugi::xml_node data) {
    std::vector<CategoryExpenses> tree;
    for (pugi::xml_node category : selectAll(data, paths::kAllCategories)) {
        CategoryExpenses entry{idOf(category), {}};
        for (pugi::xml_node name : elementChildren(childAtOrNull(category, kCategoryNames)))
            if (std::string_view(name.name()) == "name")
                entry.expenses.push_back(idOf(name));
        tree.push_back(std::move(entry));
    }
    return tree;
}

std::optional<ExpenseDetails> expenseDetails(pugi::xml_node data, const std::string& category,
                                             const std::string& expense) {
    pugi::xml_node categoryNode = selectOne(data, paths::kCategory, category);
    if (!categoryNode)
        return std::nullopt;
    pugi::xml_node node = selectOne(categoryNode, paths::kExpenseInCategory, expense);
    if (!node)
        return std::nullopt;
    ExpenseDetails details{expense,
                           childTextOrEmpty(node, kExpenseCategory),
                           childTextOrEmpty(node, kExpenseType),
                           childTextOrEmpty(node, kExpenseAccount),
                           childTextOrEmpty(node, kExpenseClosingDay),
                           childTextOrEmpty(node, kExpenseInstitution),
                           childTextOrEmpty(node, kExpenseAmount),
                           {}};
    for (pugi::xml_node month : elementChildren(childAtOrNull(node, schema::kExpenseMonths)))
        details.months.push_back(entryRow(month));
    return details;
}

std::vector<IncomeSource> incomeSources(pugi::xml_node data) {
    std::vector<IncomeSource> sources;
    for (pugi::xml_node n : selectAll(data, paths::kAllIncome))
        sources.push_back({idOf(n), childTextOrEmpty(n, kIncomeInstitution),
                           childTextOrEmpty(n, kIncomeAccount), childTextOrEmpty(n, kIncomeType),
                           childTextOrEmpty(n, kIncomeAmount)});
    return sources;
}

std::vector<Customer> customers(pugi::xml_node data) {
    std::vector<Customer> list;
    for (pugi::xml_node n : selectAll(data, paths::kAllReceivables))
        list.push_back({idOf(n), childTextOrEmpty(n, kCustomerNumber),
                        childTextOrEmpty(n, kCustomerInstitution),
                        childTextOrEmpty(n, kCustomerAccount),
                        childTextOrEmpty(n, kCustomerAmount)});
    return list;
}

std::vector<ReceivableRow> receivableRows(pugi::xml_node data, const std::string& customer) {
    std::vector<ReceivableRow> rows;
    pugi::xml_node node = selectOne(data, paths::kReceivable, customer);
    int month = 0;
    for (pugi::xml_node m : elementChildren(childAtOrNull(node, schema::kCustomerMonths))) {
        ++month;
        for (pugi::xml_node item : elementChildren(m))
            rows.push_back({monthName(month), childTextOrEmpty(item, kItemLine), entryRow(item)});
    }
    return rows;
}

}  // namespace tallix
