#pragma once
// What a click on a line of the displayed month does beyond placing the
// editor: picks for the Expense and Description cells, and the row
// operations a right click offers everywhere else.
namespace tallix {

class LineChoices;
class Session;

// A click on the Expense cell of `row`: marks the cell, lets the user pick
// what fills the line, clears the mark and updates the balances when the
// line was filled. Throws on failure.
void expenseCellClicked(Session& session, int row, int column, LineChoices& choices);

// A right click on (row, column): the Description cell picks a stored
// description, the Expense cell picks as a click does, and every other cell
// opens the row operations and carries out the one chosen, after which the
// balances are updated. Failures show "runtime error in AddItem() " or the
// message of the operation that failed.
void AddItem(Session& session, int row, int column, LineChoices& choices);

}  // namespace tallix
