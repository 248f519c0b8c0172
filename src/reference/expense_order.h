#pragma once
// Where an expense stands: in which category (Move to different Category)
// and at which place in its category (MOVE UP, MOVE DOWN). Each changes the
// document as one step Edit > Undo can take back and saves the year file
// once; a category or expense that is not in the plan, or a target category
// that already holds an expense of the same name, throws PlanRefusal and
// changes nothing.
#include <optional>
#include <string>

namespace tallix {

class Prompter;
class Session;

// Asks kMoveExpenseQuestion; on Yes the expense leaves `fromCategory` and is
// appended at the end of `toCategory`, its category child naming the new
// category, and kMoveLinesQuestion is asked: Yes gives every register line of
// the twelve months that names the expense under `fromCategory` the new
// category. Returns the number of lines changed; nothing when the move was
// answered No or Cancel (nothing changes then).
std::optional<int> moveExpenseToCategory(Session& session, Prompter& prompter,
                                         const std::string& fromCategory,
                                         const std::string& expense, const std::string& toCategory);

// One place earlier or later within its category. The first expense does not
// move up and the last does not move down: nothing changes and nothing is
// saved then, and the result is false.
bool moveExpenseUp(Session& session, const std::string& category, const std::string& expense);
bool moveExpenseDown(Session& session, const std::string& category, const std::string& expense);

}  // namespace tallix
