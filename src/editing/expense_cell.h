#pragma once
// A click on the Expense cell of a line: the picker that suits the line's
// kind, and the lookup that fills the line from the pick.
namespace tallix {

class LineChoices;
class Session;

// A receivable line picks a customer; a deposit line an income source, which
// becomes a transfer through the transfer dialog when the source is a
// "transfer" or "move" entry; any other line picks an expense. A pick fills
// the line and saves the data file; a picker closed without one changes
// nothing. Returns true when the line was filled. Throws on failure.
bool pickIntoExpenseCell(Session& session, int row, int column, LineChoices& choices);

}  // namespace tallix
