#pragma once
// Which data file belongs to which year: the start-up choice, attaching an
// existing file to a year, and switching years from the Years menu.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallix {

class Session;

// The texts the start-up choice shows, as the program has always shown them.
namespace year_texts {
inline constexpr const char* kNoFileForCurrentYear =
    "You have not created a data file for the current year...The previous years data file will "
    "be loaded so you then can create a data file for the current year. After the previous year "
    "is loaded select 'Tools' > 'make next year' to create the current year's datafile based on "
    "previous year's file";
inline constexpr const char* kLoadPreviousYear =
    "Do you want to load the previous years data file or";
inline constexpr const char* kNoPreviousYearEntry =
    "Since there is no previous year file entry defined in the main xml file and one exits click "
    "YES and a file dialog will open to allow you to locate and open it. \n It will be save in "
    "the app will start using that file name. If there no previous data file then a blank one "
    "will be placed  in the app and processing wil/ start with that data";
inline constexpr const char* kLoadBlankForThisYear =
    "Do you want to load a blank data file for this year";
inline constexpr const char* kNoDataFileForSelectedYear =
    "There is no data file for the year you have selected. Do you want to load one?";
inline constexpr const char* kNoYearFileChosen =
    "No data file was chosen for this year, so Tallix closes. Start Tallix again to choose an "
    "existing data file or to begin the year with a blank one.";
inline std::string pickedFileInUse(std::string_view name, std::string_view year) {
    return std::string(name) +
           " is the index, a template or the data file of another year, so Tallix does not use "
           "it for " +
           std::string(year) + ". Nothing was changed.";
}
inline std::string existingYearFileOpened(std::string_view name, std::string_view year) {
    return std::string(name) + " is already in the data folder, so Tallix opens it for " +
           std::string(year) + " instead of a blank data file. Nothing was overwritten.";
}
}  // namespace year_texts

// Start-up: decides the data file of the session's year, asking the user
// where the index has no file for it. May move the session to the previous
// year. Returns the bare file name to open from the data folder, or nothing
// when the user chose no file (they were told that the program closes).
// A blank year is the template copied to "tallixYYYY.xml" and entered in the
// index; an existing file of that name is opened instead, never replaced.
std::optional<std::string> chooseStartupFile(Session& session);

// Lets the user pick an existing data file for `year`, loads it as the data
// document and records it in the index. Returns the file name the index now
// holds for the year; "" when the user cancelled; "0" after an error (shown as
// "runtime error in getfile() ").
std::string getfile(Session& session, std::string_view year);

// Years menu: switches the session to `year`'s data file. Returns true when
// the data document was replaced (the caller then rebuilds the display);
// errors are shown as "runtime error in processprevyearrequest() ".
bool processprevyearrequest(Session& session, std::string_view year);

// The items of the Years menu: "2022" to "2030".
std::vector<std::string> yearsMenuItems();

}  // namespace tallix
