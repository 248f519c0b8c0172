#include "reference/plan_lists.h"

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"

namespace tallix {
namespace {

// Positions of an expense's fields, and of the fields of a month entry; a
// receivable item keeps the register line where an expense month keeps the
// month's name.
enum ExpenseChild : size_t {
    kExpenseCategory = 0,
    kExpenseType,
    kExpenseAccount,
    kExpenseClosingDay,
    kExpenseInstitution,
    kExpenseReset,
    kExpenseAmount
};
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
enum EntryChild : size_t {
    kEntryFirst = 0,  // the month's name, or a receivable item's line
    kEntryAmount,
    kEntryDatePaid,
    kEntryDueDate,
    kEntryStatus,
    kEntryType,
    kEntryCheck
};
constexpr size_t kCategoryNames = 2;

pugi::xml_node elementAt(pugi::xml_node node, size_t index) {
    size_t at = 0;
    for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling()) {
        if (c.type() != pugi::node_element)
            continue;
        if (at++ == index)
            return c;
    }
    return {};
}

std::string fieldText(pugi::xml_node node, size_t index) {
    pugi::xml_node child = elementAt(node, index);
    return child ? nodeText(child) : std::string();
}

std::string idOf(pugi::xml_node node) {
    return attributeText("id", node);
}

PlanEntryRow entryRow(pugi::xml_node entry) {
    return {fieldText(entry, kEntryAmount),  fieldText(entry, kEntryDatePaid),
            fieldText(entry, kEntryDueDate), fieldText(entry, kEntryStatus),
            fieldText(entry, kEntryType),    fieldText(entry, kEntryCheck)};
}

}  // namespace

std::vector<CategoryExpenses> expenseTree(pugi::xml_node data) {
    std::vector<CategoryExpenses> tree;
    for (pugi::xml_node category : selectAll(data, paths::kAllCategories)) {
        CategoryExpenses entry{idOf(category), {}};
        for (pugi::xml_node name : elementChildren(elementAt(category, kCategoryNames)))
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
                           fieldText(node, kExpenseCategory),
                           fieldText(node, kExpenseType),
                           fieldText(node, kExpenseAccount),
                           fieldText(node, kExpenseClosingDay),
                           fieldText(node, kExpenseInstitution),
                           fieldText(node, kExpenseAmount),
                           {}};
    for (pugi::xml_node month : elementChildren(elementAt(node, schema::kExpenseMonths)))
        details.months.push_back(entryRow(month));
    return details;
}

std::vector<IncomeSource> incomeSources(pugi::xml_node data) {
    std::vector<IncomeSource> sources;
    for (pugi::xml_node n : selectAll(data, paths::kAllIncome))
        sources.push_back({idOf(n), fieldText(n, kIncomeInstitution), fieldText(n, kIncomeAccount),
                           fieldText(n, kIncomeType), fieldText(n, kIncomeAmount)});
    return sources;
}

std::vector<Customer> customers(pugi::xml_node data) {
    std::vector<Customer> list;
    for (pugi::xml_node n : selectAll(data, paths::kAllReceivables))
        list.push_back({idOf(n), fieldText(n, kCustomerNumber), fieldText(n, kCustomerInstitution),
                        fieldText(n, kCustomerAccount), fieldText(n, kCustomerAmount)});
    return list;
}

std::vector<ReceivableRow> receivableRows(pugi::xml_node data, const std::string& customer) {
    std::vector<ReceivableRow> rows;
    pugi::xml_node node = selectOne(data, paths::kReceivable, customer);
    int month = 0;
    for (pugi::xml_node m : elementChildren(elementAt(node, schema::kCustomerMonths))) {
        ++month;
        for (pugi::xml_node item : elementChildren(m))
            rows.push_back({monthName(month), fieldText(item, kEntryFirst), entryRow(item)});
    }
    return rows;
}

}  // namespace tallix
