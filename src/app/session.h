#pragma once
// The working session: the two open documents, the folders, the current data
// file and the year and month the program works on. The main window owns one.
#include <filesystem>
#include <string>

#include "app/environment.h"
#include "app/prompter.h"
#include "app/undo_history.h"
#include "data/document.h"
#include "register/register_view.h"

namespace tallix {

// Whether `d` is a day of the calendar (not 30 February, not month 13).
bool isCalendarDate(const Date& d);

class Session {
  public:
    Session(Environment& env, Prompter& prompter);

    Environment& env() { return env_; }
    Prompter& prompter() { return prompter_; }

    // <data root>/tallix: every year file, the index and the templates.
    std::filesystem::path dataFolder() const;
    std::filesystem::path indexPath() const;
    std::filesystem::path inDataFolder(const std::string& bareName) const;

    // Loads <data folder>/name as the data document and makes it the current
    // file. A failed load leaves an empty document (see Document::load).
    void openDataFile(const std::string& bareName);
    // Opens a data file anywhere (tallix-cli works on the file it is given).
    void openDataPath(const std::filesystem::path& path);
    void saveData() const;
    // Whether a data file was opened and read (not so after a start-up that
    // failed early or a file that could not be read).
    bool hasDataFile() const { return !fileName.empty() && !data.loadFailed(); }
    void saveIndex() const;

    Document data;
    Document index;
    // The operations Edit > Undo can take back; forgotten when a data file
    // is opened.
    UndoHistory history;
    std::string fileName;
    std::filesystem::path filePath;

    int year = 0;
    std::string yearText;
    // The displayed month, 1-12.
    int month = 1;
    void setYear(int newYear);

    // The displayed month's grid.
    RegisterView view;

    // Today's date as read at start-up: whether it is a real calendar date,
    // and the weekday ("Sun".."Sat") the current month began on.
    Date today;
    bool todayValid = false;
    std::string firstWeekdayOfMonth;

    // "<Month> <year>", the main window's title.
    std::string title() const;

  private:
    Environment& env_;
    Prompter& prompter_;
};

}  // namespace tallix
