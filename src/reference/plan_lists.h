#pragma once
// The plan as the pickers and maintenance dialogs list it: the expenses by
// category with one expense's fields and months, the income sources, and the
// customers with their receivable items. Read-only views of the year file; a
// field that a hand-edited file lacks reads as empty instead of ending the
// listing, so one odd entry never hides the rest of the plan.
#include <optional>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

struct CategoryExpenses {
    std::string category;
    std::vector<std::string> expenses;
};

// Every category in file order, with the names of its expenses in order.
std::vector<CategoryExpenses> expenseTree(pugi::xml_node data);

// One month of an expense's plan (or one receivable item, which has the same
// fields).
struct PlanEntryRow {
    std::string amount, datePaid, dueDate, status, type, check;
};

struct ExpenseDetails {
    std::string name, category, type, account, closingDay, institution, repeatingAmount;
    // January..December as the file holds them.
    std::vector<PlanEntryRow> months;
};

// The expense `expense` of category `category`; nothing when either is not
// in the plan.
std::optional<ExpenseDetails> expenseDetails(pugi::xml_node data, const std::string& category,
                                             const std::string& expense);

struct IncomeSource {
    std::string name, institution, account, type, amount;
};
std::vector<IncomeSource> incomeSources(pugi::xml_node data);

struct Customer {
    std::string name, number, institution, account, amount;
};
// The customers in file order (the template item new receivables are copied
// from is not a customer).
std::vector<Customer> customers(pugi::xml_node data);

struct ReceivableRow {
    std::string month;  // "January".."December"
    std::string line;   // the register line the item belongs to
    PlanEntryRow entry;
};

// Every receivable item of `customer`, month by month; empty for a customer
// who is not in the plan.
std::vector<ReceivableRow> receivableRows(pugi::xml_node data, const std::string& customer);

}  // namespace tallix
