#pragma once
// The places in the year document that the expense and category maintenance
// changes: a category, an expense within it, and the register lines of the
// twelve months that name them. Names are looked up as keys (an apostrophe,
// a quote or an ampersand in a name is just a character).
#include <optional>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace tallix {

class Session;

// Expense fields by position (child 7 holds the twelve month entries).
enum ExpenseField : size_t {
    kExpenseCategory = 0,
    kExpenseType,
    kExpenseAccount,
    kExpenseClosingDay,
    kExpenseInstitution,
    kExpenseReset,
    kExpenseAmount
};
// A category's expense count stands before its list of expenses.
inline constexpr size_t kCategoryCount = 1;

// The category `name`; throws PlanRefusal "category not found: NAME".
pugi::xml_node categoryNode(pugi::xml_node data, const std::string& name);
// The expense `expense` of `category`; throws PlanRefusal
// "expense not found on line " followed by the expense's name.
pugi::xml_node expenseNode(pugi::xml_node data, const std::string& category,
                           const std::string& expense);
// The list of expenses of a category (its `names`).
pugi::xml_node expenseList(pugi::xml_node category);

// Refuses `name` when the category already holds an expense of that name, or
// the plan a category of that name.
void refuseTakenExpense(pugi::xml_node category, const std::string& name);
void refuseTakenCategory(pugi::xml_node data, const std::string& name);

// Writes the number of expenses the category holds into its count.
void recountExpenses(pugi::xml_node category);

// MOVE UP / MOVE DOWN: `node` changes places with the nearest earlier
// (`later` false) or later sibling of the same element name, as one step
// labelled `label`, and the year file is saved. At the end of its list
// nothing changes, nothing is saved, and the result is false.
bool moveOnePlace(Session& session, pugi::xml_node node, bool later, const std::string& label);

// Sets every field of the expense's month entries to "0"; each keeps its
// month's name (its first child).
void zeroMonthEntries(pugi::xml_node expense);

// Walks the lines of the register months January to December and, on each
// line whose category (child 4) is `category` and, when `expense` is given,
// whose expense (child 1) is `expense`, writes `text` into child `field`.
// Returns the number of lines written.
int rewriteLines(pugi::xml_node data, const std::optional<std::string>& expense,
                 const std::string& category, size_t field, std::string_view text);

}  // namespace tallix
