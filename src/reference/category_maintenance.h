#pragma once
// The category dialog's operations: add, rename and delete a category. Each
// checks the names first (an empty name, a name another category has, a
// category that is not in the plan throw PlanRefusal and change nothing),
// changes the document as one step Edit > Undo can take back and saves the
// year file once.
#include <optional>
#include <string>

namespace tallix {

class Prompter;
class Session;

// Shows kNewCategoryNotice, then inserts the category `name` before the
// category `before`: its children `type` "category", `numberItems` "1" and
// `names` holding one expense "xxxx". That expense is a deep copy of the
// first expense of `before` (of the plan's first expense when `before` has
// none) with its values cleared: its category is `name`, its reset child
// "0", its type, account, closing day, institution and repeating amount
// empty, and every value of its months "0". A plan without any expense to
// copy is refused.
void addCategory(Session& session, Prompter& prompter, const std::string& name,
                 const std::string& before);

// Asks kRenameCategoryQuestion; Yes renames the category, the category child
// of each of its expenses and every register line of the twelve months that
// names the old category. Returns the number of lines changed; nothing after
// a No (nothing changes then).
std::optional<int> renameCategory(Session& session, Prompter& prompter, const std::string& oldName,
                                  const std::string& newName);

// Asks kDeleteCategoryQuestion; Yes removes the category with all its
// expenses (register lines are left as they are). False after a No.
bool deleteCategory(Session& session, Prompter& prompter, const std::string& name);

}  // namespace tallix
