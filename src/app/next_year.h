#pragma once
// Make next year: next year's data file is made from the current one. The
// reference data are carried over, each balance starts from this year's last
// closing, the plan's paid amounts and dates are cleared, and the register is
// emptied down to one blank line per month. The new file is entered in the
// index under the next year and the session goes on with it.
#include <optional>
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
// Shown beside the explanation.
inline constexpr const char* kBalancesWorkedOutFirst =
    "Before next years file is made, every month of the current year is worked out again, "
    "January to December, and the current year is saved, so that next year starts from the "
    "balances this year's lines make. Nothing that is due is posted while this is done.";
inline constexpr const char* kSameFileName =
    "You are atempting to set next years tallix datafile to the same as the current "
    "filename.\nThis would overwrite your tallix's current data, or a previous years data,  so "
    "this has been prevented. Please select a differnt filenamwe";
// A name that is empty, names a folder or does not end in ".xml".
inline std::string badFileName(int yearToMake) {
    return "The next years filename must be a plain file name that ends in .xml, for example "
           "tallix" +
           std::to_string(yearToMake) +
           ".xml. It cannot be empty or name a folder: every year's file is kept in the tallix "
           "data folder. Nothing has been written.";
}
}  // namespace next_year_texts

// What the Make next year dialog shows when it opens.
struct NextYearFields {
    std::string currentYear;
    std::string currentFileName;
    std::string yearToMake;
    std::string nextFileName;  // the suggestion the user may edit
};
NextYearFields nextYearFields(const Session& session);

// The plain file name inside the data folder that a typed name stands for:
// "." and "folder/.." parts fall away ("./tallix2026.xml" is
// "tallix2026.xml"). Nothing when the name is empty, leaves the folder or
// names a sub-folder, or does not end in ".xml" (in any case).
std::optional<std::string> plainYearFileName(const std::string& typed);

// "tallix" + year + ".xml".
std::string defaultYearFileName(int year);

// Whether the bare file name `name` may not be `year`'s file: it is the
// current file, the index, a template or the file the index names for
// another year (letters compared without case).
bool isNameInUse(Session& session, const std::string& name, const std::string& year);

// A "month/day/year" date moved to `year`; "" and "0" stay as they are, and
// so does a text that is not a date.
std::string dateInYear(const std::string& date, int year);

// The carry-over into `newYear`, on a year document (its document node):
// banks, credit cards, categories and expenses, income sources, customers.
void carryOverToNextYear(pugi::xml_node document, int newYear);

// Removes every line of every month and gives each month one blank line.
void resetRegister(pugi::xml_node document);

// Makes next year from the session's data document, under `nextFileName` in
// the data folder. A name that is not a plain ".xml" file name is refused
// with badFileName; a name that is the current file, the index, a template,
// the file of another year in the index or any file that exists is refused
// with kSameFileName. A refusal writes nothing and returns false.
// Otherwise every month of the current year is worked out again and the year
// saved, the new file is written, and only then is it entered in the index;
// the session works on the new file and year when it returns true. Throws on
// a failed read or write, with the index as it was.
bool makeNextYear(Session& session, const std::string& nextFileName);

// The command: makeNextYear run through the handler's guard
// ("runtime error in OnToolsMakenextyear() "). True when the year was made.
bool OnToolsMakenextyear(Session& session, const std::string& nextFileName);

}  // namespace tallix
