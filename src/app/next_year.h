#pragma once
// Make next year: next year's data file is made from the current one. The
// reference data are carried over, each balance starts from this year's last
// closing, the plan's paid amounts and dates are cleared, and the register is
// emptied down to one blank line per month. The new file is entered in the
// index under the next year and the session goes on with it.
#include <string>

#include <pugixml.hpp>

namespace tallix {

class Session;

namespace next_year_texts {
inline constexpr const char* kExplanation =
    "You have selected to make next years tallix. The file name shown in the next years filename "
    "will be the file name for next years data file. You can edit the file name to anything you "
    "want except the current file name as this will over write your current tallix and you would "
    "loose all the of this years data. Therefore this is prevented";
inline constexpr const char* kSameFileName =
    "You are atempting to set next years tallix datafile to the same as the current "
    "filename.\nThis would overwrite your tallix's current data, or a previous years data,  so "
    "this has been prevented. Please select a differnt filenamwe";
}  // namespace next_year_texts

// What the Make next year dialog shows when it opens.
struct NextYearFields {
    std::string currentYear;
    std::string currentFileName;
    std::string yearToMake;
    std::string nextFileName;  // the suggestion the user may edit
};
NextYearFields nextYearFields(const Session& session);

// "tallix" + year + ".xml".
std::string defaultYearFileName(int year);

// A "month/day/year" date moved to `year`; "" and "0" stay as they are, and
// so does a text that is not a date.
std::string dateInYear(const std::string& date, int year);

// The carry-over into `newYear`, on a year document (its document node):
// banks, credit cards, categories and expenses, income sources, customers.
void carryOverToNextYear(pugi::xml_node document, int newYear);

// Removes every line of every month and gives each month one blank line.
void resetRegister(pugi::xml_node document);

// Makes next year from the session's data document, under `nextFileName` in
// the data folder. Refuses the current file name (the user is told, nothing
// is written) and returns false. Otherwise the session works on the new file
// and year when it returns true. Throws on a failed read or write.
bool makeNextYear(Session& session, const std::string& nextFileName);

// The command: makeNextYear run through the handler's guard
// ("runtime error in OnToolsMakenextyear() "). True when the year was made.
bool OnToolsMakenextyear(Session& session, const std::string& nextFileName);

}  // namespace tallix
