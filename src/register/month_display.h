#pragma once
// Showing a month of the register and the commands that recompute it.
#include <string>

namespace tallix {

class Session;

inline constexpr const char* kEmptyMonthStart = "You tying to load the month of ";
inline constexpr const char* kEmptyMonthEnd =
    " which has no entries and its not the current calendar month";

// Resolves the field columns of the year file (at start-up, after a change of
// columns, and by Refresh).
void prepareColumns(Session& session);
// The same as a command: failures show "runtime error in initcolumns() ".
bool loadColumns(Session& session);

// Rebuilds the grid's columns for the displayed month and counts its lines.
void FilltallixListBox(Session& session);

// Works the session's month out from its lines: posts what is due (when
// `postDue`), rebuilds the grid, reads the lines into the grid table and runs
// the balance engine. Returns true when the data document changed (the
// caller saves it); throws on failure.
bool recomputeMonth(Session& session, bool postDue);

// Shows the session's month: `monthText` is its number ("1"-"12"), or "13"
// from Update all months. A month without lines is refused with a message.
// Posts the due plan entries, reads the lines, runs the balance engine and
// saves the data file when anything changed. Returns false for an empty
// month. Throws on failure (see displayMonth).
bool showMonth(Session& session, const std::string& monthText);

// The guarded command: failures show "runtime error in displayMonth() ".
bool displayMonth(Session& session, const std::string& monthText);

// Refresh: reads the data file again and rebuilds the month without posting
// anything. Failures show "runtime error in Refresh() ".
bool Refresh(Session& session);

// Update: posts what is due, reloads the month's lines and reruns the engine.
// Failures show "runtime error in OnToolsUpdate() ". What it changes is a
// change of its own ("update of <month>") that Edit > Undo takes back.
bool OnToolsUpdate(Session& session);
// The same update after a change the user just made (a commit, a pick, a row
// operation): what it changes belongs to that change, so one Edit > Undo
// takes back both.
bool updateAfterChange(Session& session);

// Update all months: shows January to December in turn, so that each month's
// closing reaches the next. Leaves December displayed. Failures stop the walk
// with "runtime error in OnToolsUpdateallmonths() ".
bool OnToolsUpdateallmonths(Session& session);

}  // namespace tallix
