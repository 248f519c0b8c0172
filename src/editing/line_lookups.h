#pragma once
// Filling a register line from the plan: the expense, income and receivable
// lookups a pick in the pickers runs. Each writes the grid table and the line
// and saves the data file.
#include <string>

namespace tallix {

class Session;

inline constexpr const char* kExpenseNotFound = "expense not found";

// The chosen expense of `category`: its name, category, default institution
// and account; "recurring" expenses mark Accumulate "recurring", "auto" and
// "Auto-Bank" ones put their kind into Accumulate and make it the line's
// entry type, others mark it "accumulate". A check line becomes "pending",
// and so does the expense's entry for the month. A missing expense shows
// "expense not found" and changes nothing.
void expenseLookup(Session& session, int row, int column, const std::string& expense,
                   const std::string& category);

// The chosen income source: its name, institution, account and repeating
// amount, and the category "Income".
void incomeLookup(Session& session, int row, int column, const std::string& source);

// The chosen customer: its name, the category "Receivables", its number,
// institution and account. The line's one item in the customer's month (a
// copy of the receivable template, or the item the line had under the
// customer picked before) carries the line's number and amount.
void receivableLookup(Session& session, int row, int column, const std::string& customer);

}  // namespace tallix
