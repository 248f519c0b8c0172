#pragma once
// Conversions between the text values of the data file and numbers and dates.
// Amounts are computed in double precision; their text forms are the program's
// own, including its oddities for negative amounts and cents that round to 100.
#include <array>
#include <string>
#include <string_view>

namespace tallix {

// " - 1" for any number that is not 1 to 12.
std::string monthName(int month);
// Entry 0 is " - 1", entries 1-12 "January".."December".
const std::array<std::string, 13>& monthNameTable();
// 1-12 for an English month name, 0 otherwise.
int monthNumber(std::string_view name);

// "Sun".."Sat" for the date, normalised like the C calendar (31 February is
// 3 March); "Error getting day of week" when the date cannot be formed.
std::string dayOfWeek(int day, int month, int year);

// Whole part, ".", cents (two digits or more): 7 -> "7.00", 3.999 -> "3.100",
// -3.05 -> "-3.-5", -0.5 -> "0.-50".
std::string amountToText(double amount);

// Reads as much of the text as forms a number, like the C library's
// conversion but independent of the locale. Throws std::invalid_argument
// "invalid stof argument" when the text does not begin with a number and
// std::out_of_range "stof argument out of range" outside the single-precision
// range.
double textToAmount(std::string_view text);

}  // namespace tallix
