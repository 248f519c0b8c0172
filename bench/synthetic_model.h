#pragma once
// The synthetic year as plain data: what synthetic_year.cpp and
// synthetic_lines.cpp build and synthetic_xml.cpp writes. Amounts are whole
// cents.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "synthetic_year.h"

namespace tallix::bench::model {

// A small deterministic generator (splitmix64): the same seed gives the same
// numbers with every compiler and standard library.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next();
    // A whole number from low to high, both included.
    int between(int low, int high);
    long long cents(int lowDollars, int highDollars);
    // True with the given percentage.
    bool chance(int percent) { return between(1, 100) <= percent; }

  private:
    std::uint64_t state_;
};

struct Group {  // regcolumn, bankcolumn or outstanding
    std::string title = "0";
    long long start = 0;
};

struct Account {
    std::string name;
    Group reg;
    Group bank;
    Group outstanding;
};

struct Bank {
    std::string name;
    std::vector<Account> accounts;
};

struct Card {
    std::string name;
    long long start = 0;
    std::string apr;
    int closingDay = 1;
    int dueDay = 1;
};

// Where money is paid from or into: a bank and account, or "creditcards" and
// a card.
struct Place {
    std::string institution;
    std::string account;
};

struct Expense {
    std::string name;
    std::string category;
    std::string type;  // accumulate, recurring, auto
    Place place;
    int closingDay = 0;
    long long amount = 0;  // the repeating amount of a bill
};

struct IncomeSource {
    std::string name;
    Place place;
    std::string type;
    std::string dayOrDate;
    std::string dayNumber;
    std::string description;  // of its deposit lines
    int day = 1;
    long long amount = 0;
};

struct Customer {
    std::string name;
    std::string number;
    Place place;
    long long amount = 0;
    int dueDay = 1;
};

struct Line {
    int day = 1;
    std::string expense;
    long long cents = 0;
    long long tip = 0;  // the Info value of a restaurant charge
    std::string check;
    std::string category;
    std::string status;
    std::string description;
    Place place;
    std::string info;
    std::string accumulate;
    std::string kind;
    int number = 0;  // the line's number once the month is sorted
};

struct Year {
    SyntheticYearOptions options;
    std::vector<Bank> banks;
    std::vector<Card> cards;
    std::vector<std::string> categories;  // in display order
    std::vector<Expense> expenses;
    std::vector<IncomeSource> income;
    std::vector<Customer> customers;
    std::vector<std::string> descriptions;
    std::array<std::vector<Line>, 12> months;

    // The balance-column titles in register order (banks, then cards).
    std::vector<std::string> balanceColumns() const;
};

inline constexpr const char* kCardsInstitution = "creditcards";
inline constexpr const char* kTransferExpense = "Transfer";
inline constexpr const char* kRestaurants = "Resturants";  // the format's spelling

Year buildYear(const SyntheticYearOptions& options);
// Every bank account, bank by bank.
std::vector<Place> allAccounts(const Year& y);
// Fills the twelve months of a year whose reference data is made.
void addMonths(Year& y, Random& rnd);

// The XML text of a built year.
std::string writeYear(const Year& year);
class XmlOut;
// Writes the catagories, income, receivables and rmds containers.
void writePlan(XmlOut& x, const Year& year);

int monthLength(int year, int month);
std::string money(long long cents);
std::string dateText(int year, int month, int day);

}  // namespace tallix::bench::model
