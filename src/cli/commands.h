#pragma once
// The commands of tallix-cli. Each takes the arguments after its name and
// returns the exit status; main.cpp turns a name into a command and prints the
// usage text. A command writes its findings to `out` and notices to `err`.
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tallix::cli {

using Arguments = std::vector<std::string>;

// Exit statuses shared by all commands.
inline constexpr int kOk = 0;
inline constexpr int kFaultsFound = 1;
inline constexpr int kUsage = 2;
inline constexpr int kFailed = 3;

// An argument of the right place but the wrong value (a month of 13, a date
// that does not exist). main.cpp prints its message and the usage text on
// standard error and exits with kUsage.
struct UsageError : std::invalid_argument {
    using std::invalid_argument::invalid_argument;
};

// The commands that write a file (show, update-all, next-year, expense,
// category, bank, account, card, income, customer, undo, redo, history,
// restore) first take the lock a
// Tallix window holds on its data folder, on the folder of the file they
// write; while a window (or another tallix-cli) holds it they print the
// window's own refusal on standard error and return kFailed.

struct Command {
    std::string_view name;
    std::string_view arguments;  // as shown in the usage text
    std::string_view summary;
    int (*run)(const Arguments& arguments, std::ostream& out, std::ostream& err);
};

// check FILE: one line per structural fault on `out`; kFaultsFound when there
// is any, kOk otherwise; kUsage for anything but one FILE.
int runCheck(const Arguments& arguments, std::ostream& out, std::ostream& err);

// find FILE TEXT: Edit > Find; prints a title line and one tab-separated
// line per line found (month, day, line, expense, amount, status), and the
// count on `err`. Reads only. kFaultsFound when nothing is found.
int runFind(const Arguments& arguments, std::ostream& out, std::ostream& err);

// show FILE MONTH [--today YYYY-MM-DD]: shows MONTH (1-12 or its English
// name) as its month button does and prints the grid's column titles and
// then each row, cells joined by a tab. The file is saved as the program
// saves it. kFaultsFound for a month without lines.
int runShow(const Arguments& arguments, std::ostream& out, std::ostream& err);

// update-all FILE [--today YYYY-MM-DD]: Update all months, saving the file.
int runUpdateAll(const Arguments& arguments, std::ostream& out, std::ostream& err);

// next-year DATAROOT YEAR [--name FILE]: Make next year from the file the
// index in DATAROOT/tallix names for YEAR; prints the new file's path.
int runNextYear(const Arguments& arguments, std::ostream& out, std::ostream& err);

// report KIND FILE [--month M] [--today YYYY-MM-DD] [--data-root DIR]:
// prints the report's column titles and rows as comma-separated lines and
// writes the report's own file into Documents/tallix/reports, as the program
// does (DIR/Documents with --data-root DIR, else ~/Documents), naming it on
// `err`. M (default: today's month) is the month of the recurring report.
int runReport(const Arguments& arguments, std::ostream& out, std::ostream& err);

// expense rename|move|apply FILE ...: the expense dialog's SAVE ABOVE
// CHANGES of a new name, Move to different Category, APPLY and APPLY TO ALL
// MONTHS; each prints what it changed. kFaultsFound, with the reason on
// `err`, when a name is not in the plan or a value is refused (nothing is
// written then).
int runExpense(const Arguments& arguments, std::ostream& out, std::ostream& err);

// category rename|add|delete FILE ...: the category dialog's operations, the
// same way.
int runCategory(const Arguments& arguments, std::ostream& out, std::ostream& err);

// bank add|rename|delete FILE ...: the bank dialog's operations: add a bank
// with its first account, rename a bank and every place naming it, delete a
// bank and its columns. Each prints what it changed; kFaultsFound, with the
// reason on `err`, when a name is not found or taken or a value is refused
// (nothing is written then).
int runBank(const Arguments& arguments, std::ostream& out, std::ostream& err);

// account add|rename|delete FILE BANK ...: the same for an account of a bank.
int runAccount(const Arguments& arguments, std::ostream& out, std::ostream& err);

// card add|rename|delete FILE ...: the credit card dialog's operations, the
// same way.
int runCard(const Arguments& arguments, std::ostream& out, std::ostream& err);

// income set|add|delete FILE ...: the income dialog's SAVE EDIT VALUES (the
// dates of the automatic types worked out for the year of FILE's name
// tallixYYYY.xml, today's for another name, or --year), SAVE NEW INCOME and
// delete, the same way; set prints the twelve dates the source then holds.
int runIncome(const Arguments& arguments, std::ostream& out, std::ostream& err);

// customer add|delete FILE ...: the receivables dialog's SAVE THE NEW
// CUSTOMER and delete, the same way.
int runCustomer(const Arguments& arguments, std::ostream& out, std::ostream& err);

// undo FILE / redo FILE: Edit > Undo and Redo on FILE's version history;
// prints "undone: WHAT" ("redone: WHAT"). kFaultsFound when there is nothing
// to take back (make again).
int runUndo(const Arguments& arguments, std::ostream& out, std::ostream& err);
int runRedo(const Arguments& arguments, std::ostream& out, std::ostream& err);

// history FILE: File > History; a title line, then one line per version kept,
// newest first: its number (with "*" on the current one), time and change.
int runHistory(const Arguments& arguments, std::ostream& out, std::ostream& err);

// restore FILE N: makes version N current, as a change undo takes back;
// prints "restored: WHAT". kFaultsFound when the history keeps no version N.
int runRestore(const Arguments& arguments, std::ostream& out, std::ostream& err);

}  // namespace tallix::cli
