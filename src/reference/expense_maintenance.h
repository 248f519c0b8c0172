#pragma once
// The expense dialog's operations on one expense: save a new one, save the
// changes of one, delete one. Each checks what it is given before it writes,
// changes the year document as one step Edit > Undo can take back (see
// app/undo_history.h) and saves the year file once. A refused value throws
// PlanRefusal (reference/plan_input.h) and changes nothing.
#include <optional>
#include <string>

namespace tallix {

class Prompter;
class Session;

// The fields of an expense the dialog edits (children 1, 2, 3, 4 and 6; the
// category, child 0, is where the expense stands). The repeating amount is
// checked by checkedAmount and the closing day by checkedClosingDay.
struct ExpenseFields {
    std::string type, account, closingDay, institution, repeatingAmount;
};

// SAVE THE NEW EXPENSE: a deep copy of the expense `before` of `category`,
// named `name` (a name the category does not hold yet), with `fields`, its
// category and reset child "0"; every value of its months is "0". It is
// inserted before `before`.
void saveNewExpense(Session& session, const std::string& category, const std::string& before,
                    const std::string& name, const ExpenseFields& fields);

// SAVE ABOVE CHANGES of the expense `expense` of `category`. When `newName`
// differs, kRenameExpenseQuestion is asked first: Yes renames the expense and
// every register line of the twelve months that names it under `category`,
// No renames the expense only (its old lines keep the old name), Cancel
// changes nothing. Then `fields` are written and the reset child set to "0".
// Returns the number of register lines renamed; nothing after a Cancel.
std::optional<int> saveExpenseChanges(Session& session, Prompter& prompter,
                                      const std::string& category, const std::string& expense,
                                      const std::string& newName, const ExpenseFields& fields);

// Delete: shows kDeleteExpenseNotice (a notice, not a question: the delete
// always goes ahead; Edit > Undo is its way back) and removes the expense.
// Register lines that name it are left as they are.
void deleteExpense(Session& session, Prompter& prompter, const std::string& category,
                   const std::string& expense);

}  // namespace tallix
