#pragma once
// Setting the day of a register line from its DATE cell. The month's lines
// stand in day order, the latest day first, so a line whose day changes moves
// to its new place; the lines are numbered again and the customers' items of
// receivable lines follow their lines.
#include <string>

namespace tallix {

class Session;

// The grid column of a line's day number.
inline constexpr int kDateColumn = 2;

inline constexpr const char* kNotADayStart = "The day of a line in ";
inline constexpr const char* kNotADayMiddle = " must be a whole number from 1 to ";
inline constexpr const char* kNotADayEnd = ".";

// Gives the row's line of the displayed month the day `text` names and moves
// it among the month's lines: above the first line of an earlier day, below
// every line of its own day and of later days. Saves the data file. A day
// that is not a whole number from 1 to the month's last day is refused with
// a message naming the month and its last day, and nothing is written.
// Returns true when the file was written. Throws when the row has no line.
bool setLineDay(Session& session, int row, const std::string& text);

}  // namespace tallix
