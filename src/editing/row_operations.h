#pragma once
// Changing the shape of the displayed month from a right click on a line:
// inserting a line of a kind, emptying a line into a kind ("make"), deleting a
// line and moving a line's contents to another line. Each saves the data file.
// They throw on failure; the handlers that run them show the message.
#include <string>

#include "register/cell_colours.h"

namespace tallix {

class LineChoices;
class Session;

namespace cell_colour {
// The DATE and ITEM cells of an inserted line, by the parity of its day, so
// that the lines of one day stand together.
inline constexpr Rgb kInsertedOddDay{197, 190, 151};
inline constexpr Rgb kInsertedEvenDay{204, 255, 255};
}  // namespace cell_colour

inline constexpr const char* kMoveTargetNotEmpty =
    "The row you are attempting to move the selcted line to is not empty. Do you want to "
    "continue??";
inline constexpr const char* kNoSuchLineStart = "There is no line ";
inline constexpr const char* kNoSuchLineEnd = " in this month to move the line to.";

// A new line of `kind` before the line of `row`, on the same day, or after the
// last line when `row` is the starting row. The new line's DATE and ITEM
// cells take the colour of its day.
void InsertRow(Session& session, int row, const std::string& kind);

// Empties every field of the row's line but its day and gives it `kind`. A
// check line's expense goes back to "notpaid" in the plan; a receivable
// line's item leaves its customer.
void makeLine(Session& session, int row, const std::string& kind);

// Removes the row's line; the lines below close up and keep their customers'
// items, and a receivable line's own item leaves its customer.
void deleteLine(Session& session, int row);

// Asks for a target line and moves the row's fields (all but the day) there,
// leaving an empty blank line behind. Each filled field of the target is
// overwritten only after a Yes; a No stops the move where it is. A customer's
// item goes where the customer's name goes.
void moveLine(Session& session, int row, LineChoices& choices);

}  // namespace tallix
