#pragma once
// Conversions between the text values of the data file and numbers and dates.
// Amounts are computed in double precision and written exact to the cent, so
// that a balance read back from its text is the balance that was written.
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tallix {

// " - 1" for any number that is not 1 to 12.
std::string monthName(int month);
// Entry 0 is " - 1", entries 1-12 "January".."December".
const std::array<std::string, 13>& monthNameTable();
// 1-12 for an English month name, 0 otherwise.
int monthNumber(std::string_view name);

// The number of days of `month` (1-12) in `year`, leap years counted; 31
// for a number that is not a month.
int daysInMonth(int month, int year);

// "Sun".."Sat" for the date, normalised like the C calendar (31 February is
// 3 March); "Error getting day of week" when the date cannot be formed.
std::string dayOfWeek(int day, int month, int year);

// The amount rounded to whole cents (halves away from zero) in plain decimal
// form: 7 -> "7.00", 3.999 -> "4.00", -3.05 -> "-3.05", -0.5 -> "-0.50".
// Throws std::out_of_range "stof argument out of range" for a value that is
// not finite.
std::string amountToText(double amount);

// Reads as much of the text as forms a number, like the C library's
// conversion but independent of the locale, and the negative forms that
// older files hold: "-3.-5" is -3.05, "0.-50" is -0.50. Throws
// std::invalid_argument "invalid stof argument" when the text does not begin
// with a number (or is "nan") and std::out_of_range "stof argument out of
// range" for infinities and outside the single-precision range.
double textToAmount(std::string_view text);

// The number `text` holds, read as textToAmount reads it and cut to a whole
// number as days and positions always were, when it lies from `low` to
// `high`; nothing for text that is not a number or lies outside. Every day,
// position and width read from a file goes through here, so no value out of
// range reaches the arithmetic.
std::optional<int> numberWithin(std::string_view text, int low, int high);

// An amount as the user typed it, when the whole text is one amount: an
// optional sign, "$" and thousands commas are accepted ("-$1,234.5" gives
// "-1234.5"); ".00" is added to a whole number and more than two decimals
// are rounded to cents. Nothing for any other text ("12abc", "1.2.3", "").
std::optional<std::string> typedAmountText(std::string_view typed);

}  // namespace tallix
