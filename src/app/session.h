#pragma once
// The working session: the two open documents, the folders, the current data
// file and the year and month the program works on. The main window owns one.
#include <filesystem>
#include <memory>
#include <string>

#include "app/environment.h"
#include "app/prompter.h"
#include "data/document.h"
#include "register/register_view.h"

namespace tallix {

class VersionHistory;

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

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    // Loads <data folder>/name as the data document and makes it the current
    // file. A failed load leaves an empty document (see Document::load).
    void openDataFile(const std::string& bareName);
    // Opens a data file anywhere (tallix-cli works on the file it is given).
    void openDataPath(const std::filesystem::path& path);
    // Reads the open data file again (Refresh). A change made to it by
    // another program becomes a version of its own in the file's history.
    void reloadData();

    // The one way the document reaches its data file. saveChange() saves a
    // change the user made: a new version in the file's history, which Edit >
    // Undo names with `label` ("amount of line 7, March"). saveSettled() saves
    // what the balance engine carried on when a month was shown: part of the
    // current version, not a change of its own. Both write the file
    // atomically; a document whose load failed is never saved. When the
    // history cannot be written, the file is still saved and the user is told
    // once that this change cannot be undone.
    void saveChange(const std::string& label);
    void saveSettled();
    // The bytes the data file holds, as last read or saved.
    const std::string& savedBytes() const { return savedBytes_; }
    // The open file's version history, opened on first use; null when there
    // is none (no file read, a read-only session, a history that cannot be
    // written).
    VersionHistory* versions();
    // Makes `bytes`, a version from the history, the data file and the
    // document. With a label it is recorded as a new change (a restore);
    // without, the history has already moved to it (undo, redo).
    void putVersion(const std::string& bytes, const std::string* label);
    // A session that only looks at a version: it never saves and keeps no
    // history.
    bool readOnly = false;

    // Whether a data file was opened and read (not so after a start-up that
    // failed early or a file that could not be read).
    bool hasDataFile() const { return !fileName.empty() && !data.loadFailed(); }
    void saveIndex() const;

    Document data;
    Document index;
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
    void save(const std::string* label);
    // After a failed save: the history finds the version the file still holds.
    void writeDataFile(const std::string& bytes);
    void realignHistory();
    void historyFailed(const std::exception& failure);

    Environment& env_;
    Prompter& prompter_;
    std::string savedBytes_;
    std::unique_ptr<VersionHistory> history_;
    bool historyOpened_ = false;
};

}  // namespace tallix
