#pragma once
// Element names and fixed words of the data and index files. The misspellings
// "catagories" and "categoty" are part of the format and must stay.
#include <array>
#include <cstddef>
#include <string_view>

namespace tallix::schema {

inline constexpr std::string_view kRootElement = "tallix";

// The containers of a year file, in the order the templates write them.
inline constexpr std::array<std::string_view, 8> kContainers = {
    "register", "registercolumns", "financial-institutions", "catagories", "income", "receivables",
    "rmds",     "descriptions"};

// The twelve children of a register line, by position.
inline constexpr std::array<std::string_view, 12> kLineChildren = {
    "day",         "expense",     "debit",   "check", "categoty",   "status",
    "description", "institution", "account", "info",  "accumulate", "typeofentry"};

enum LineChild : int {
    kDay = 0,
    kExpense,
    kDebit,
    kCheck,
    kCategoty,
    kStatus,
    kDescription,
    kInstitution,
    kAccount,
    kInfo,
    kAccumulate,
    kTypeOfEntry
};

// Titles of the field columns that every year file must define.
inline constexpr std::array<std::string_view, 12> kFieldColumnTitles = {
    "Expense",     "B",           "Amount",  "Check", "Category",   "Status",
    "Description", "Institution", "Account", "Info",  "Accumulate", "Typeofentry"};

// Child positions (from 0) in the plan: where each kind of entry keeps its
// twelve months, and the fields of an expense's month entry (a receivable
// item has the same seven).
inline constexpr size_t kExpenseMonths = 7;
inline constexpr size_t kIncomeMonths = 6;
inline constexpr size_t kCustomerMonths = 4;
inline constexpr size_t kEntryAmount = 1;
inline constexpr size_t kEntryDatePaid = 2;
inline constexpr size_t kEntryDueDate = 3;
inline constexpr size_t kEntryStatus = 4;
inline constexpr size_t kEntryType = 5;
inline constexpr size_t kEntryCheck = 6;
// A category's expenses stand under its child at this position.
inline constexpr size_t kCategoryNames = 2;

// The expense kinds that are monthly bills: posted into the register when
// due, and listed by the recurring report.
inline bool isMonthlyBillKind(std::string_view kind) {
    return kind == "recurring" || kind == "auto" || kind == "Auto-Bank";
}

// The entry kinds that move money between two of the household's own
// accounts (both capitalisations of "transfer" occur in year files).
inline bool isTransferKind(std::string_view kind) {
    return kind == "transfer" || kind == "move" || kind == "Transfer";
}

// The largest column position and width (in characters) a file may give:
// far beyond any real register, small enough that no arithmetic on them
// overflows.
inline constexpr int kMostColumnPosition = 1000;
inline constexpr int kMostColumnWidth = 1000;

inline constexpr std::string_view kBanksId = "banks";
inline constexpr std::string_view kCreditCardsId = "creditcards";

// Index-file results that are not file names.
inline constexpr std::string_view kNoEntryForYear = "no entry for year ";
inline constexpr std::string_view kNoFileForThisYear = "no file for this year";
inline constexpr std::string_view kNotInitialized = "not initialized";
inline constexpr std::string_view kInitialized = "initialized";

inline constexpr std::string_view kFirstIndexFile = "first_tallix.xml";
inline constexpr std::string_view kBlankYearFile = "blank_tallix.xml";
inline constexpr std::string_view kIndexFile = "tallix.xml";

}  // namespace tallix::schema
