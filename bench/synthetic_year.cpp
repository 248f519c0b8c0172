// Builds the synthetic year's reference data: banks, cards, the plan, income
// and customers (synthetic_lines.cpp adds the register lines).
#include "synthetic_year.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "synthetic_model.h"

namespace tallix::bench {
namespace model {
namespace {

const std::vector<std::string> kBankNames = {"First National", "Credit Union",  "Harbor Savings",
                                             "Summit Bank",    "Prairie Trust", "Lakeside Bank",
                                             "Pioneer Bank",   "Granite Mutual"};
const std::vector<std::string> kAccountNames = {
    "Checking",       "Savings",     "Money Market", "Joint Checking",
    "Emergency Fund", "Share Draft", "Holiday Club", "Business Checking"};
const std::vector<std::string> kCardNames = {"Visa",       "Mastercard", "Amex",    "Discover",
                                             "Store Card", "Gas Card",   "Airline", "Club Visa"};
const std::vector<std::string> kCategoryNames = {
    "Housing", "Living",        "Medical", "Utilities",   "Auto",     "Insurance",
    "Leisure", "Education",     "Gifts",   "Travel",      "Personal", "Pets",
    "Repairs", "Subscriptions", "Taxes",   "Children",    "Clothing", "Charity",
    "Hobbies", "Garden",        "Fitness", "Electronics", "Office",   "Dining"};
// The household's own expenses; "Resturants" (the format's spelling) is the
// one whose Info adds a tip.
const std::vector<std::string> kExpenseNames = {
    kRestaurants,     "Mortgage",       "Electric",
    "Groceries",      "Water",          "Internet",
    "Gasoline",       "Car Insurance",  "Phone",
    "Pharmacy",       "Doctor",         "Trash Pickup",
    "Coffee Shops",   "Streaming",      "Gym Membership",
    "Hardware Store", "Dentist",        "Property Tax",
    "Books",          "Life Insurance", "Vet",
    "Pet Food",       "Cable TV",       "Haircuts",
    "Lawn Service",   "Clothing Store", "Home Insurance",
    "Parking",        "Tuition",        "Birthday Gifts",
    "Natural Gas",    "Movies",         "Daycare",
    "Donations",      "Sewer",          "Toys",
    "Newspaper",      "Car Payment",    "Craft Supplies",
    "Cell Phone",     "Dry Cleaning",   "HOA Dues",
    "Music Lessons",  "Alarm Service",  "Office Supplies",
    "Eye Doctor",     "Pest Control",   "Car Wash",
    "Software",       "Farmers Market", "Cloud Storage",
    "Tolls",          "Bakery",         "Piano Tuning",
    "Takeout",        "Magazines",      "Car Repair",
    "Garden Center",  "Hotels",         "Airfare"};
const std::vector<std::string> kIncomeNames = {
    "Acme Payroll", "Social Security", "IRA Distribution", "Pension", "Rental Income", "Dividends"};
const std::vector<std::string> kCustomerNames = {"Maple Street Bakery", "Riverside Garden Club",
                                                 "Oak Hill Dental", "Bluebird Cafe"};
const std::vector<std::string> kDescriptions = {
    "City Water Dept",   "Corner Market",     "Dr. Patel copay", "FreshWay Grocery",
    "Trader Joe's",      "Main St Pharmacy",  "Monthly savings", "Payroll",
    "Shell Station",     "Statement balance", "Thai Garden",     "Valley Electric",
    "Luigi's Trattoria", "Hometown Hardware", "Online order",    "Weekend market"};

// The k-th name of a list; past its end, the list again with a number.
std::string nth(const std::vector<std::string>& names, size_t k) {
    std::string name = names[k % names.size()];
    if (k >= names.size())
        name += " " + std::to_string(k / names.size() + 1);
    return name;
}

void addBanks(Year& y, Random& rnd) {
    const SyntheticYearOptions& o = y.options;
    for (int b = 0; b < o.banks; ++b)
        y.banks.push_back({nth(kBankNames, static_cast<size_t>(b)), {}});
    for (int a = 0; a < o.accounts; ++a) {
        Bank& bank = y.banks[static_cast<size_t>(a % o.banks)];
        const size_t k = bank.accounts.size();
        Account account;
        account.name = nth(kAccountNames, k);
        const std::string prefix = bank.name + " " + account.name;
        const long long bankStart = rnd.cents(800, 25000);
        // The first account of a bank has all three columns; the others a
        // bank-balance column only, or a register and a bank column.
        if (k == 0 || k % 2 == 0)
            account.reg = {prefix + " Reg", bankStart};
        account.bank = {prefix + " Bank", bankStart};
        if (k == 0) {
            const long long outstanding = rnd.cents(0, 150);
            account.reg.start = bankStart - outstanding;
            account.outstanding = {prefix + " Out", outstanding};
        }
        bank.accounts.push_back(std::move(account));
    }
}

void addCards(Year& y, Random& rnd) {
    for (int c = 0; c < y.options.cards; ++c) {
        Card card;
        card.name = nth(kCardNames, static_cast<size_t>(c));
        card.start = rnd.cents(50, 1500);
        card.apr = std::to_string(rnd.between(12, 27)) + "." + std::to_string(rnd.between(10, 99));
        card.closingDay = rnd.between(1, 28);
        card.dueDay = rnd.between(1, 28);
        y.cards.push_back(std::move(card));
    }
}

void addPlan(Year& y, Random& rnd) {
    const SyntheticYearOptions& o = y.options;
    const std::vector<Place> accounts = allAccounts(y);
    const int own = o.expenses - o.cards - 1;
    const int categories = std::clamp(own / 8, 3, 60);
    for (int c = 0; c < categories; ++c)
        y.categories.push_back(nth(kCategoryNames, static_cast<size_t>(c)));
    static const char* const kTypes[] = {"accumulate", "recurring", "auto"};
    for (int i = 0; i < own; ++i) {
        Expense e;
        e.name = nth(kExpenseNames, static_cast<size_t>(i));
        e.category = y.categories[static_cast<size_t>(i % categories)];
        e.type = kTypes[i % 3];
        e.place = accounts[static_cast<size_t>(i) % accounts.size()];
        if (e.type != "accumulate") {
            e.closingDay = rnd.between(1, 28);
            e.amount = rnd.cents(15, 1800);
            // Every fourth automatic bill is charged to a card.
            if (e.type == "auto" && !y.cards.empty() && (i / 3) % 4 == 0)
                e.place = {kCardsInstitution,
                           y.cards[static_cast<size_t>(i) % y.cards.size()].name};
        }
        y.expenses.push_back(std::move(e));
    }
    y.categories.push_back("Transfers");
    y.expenses.push_back({kTransferExpense, "Transfers", "accumulate", accounts[0], 0, 0});
    if (!y.cards.empty())
        y.categories.push_back("Credit Cards");
    for (size_t c = 0; c < y.cards.size(); ++c)
        y.expenses.push_back({y.cards[c].name, "Credit Cards", "recurring",
                              accounts[c % accounts.size()], y.cards[c].dueDay, 0});

    for (int i = 0; i < o.incomeSources; ++i) {
        IncomeSource s;
        s.name = nth(kIncomeNames, static_cast<size_t>(i));
        s.place = accounts[static_cast<size_t>(i) % accounts.size()];
        // Enough income to pay for a month of lines, so balances stay positive.
        s.amount = rnd.cents(300, 4000) + 110LL * 100 * o.linesPerMonth / o.incomeSources;
        s.description = i == 0 ? "Payroll" : "";
        if (i % 3 == 0) {
            s.type = "auto date";
            s.day = rnd.between(1, 28);
            s.dayOrDate = std::to_string(s.day);
            s.dayNumber = "0";
        } else if (i % 3 == 1) {
            s.type = "auto day";
            s.dayOrDate = "Wednesday";
            s.dayNumber = "3";
        } else {
            s.type = "posted";
            s.day = 3;
            s.dayOrDate = "0";
            s.dayNumber = "0";
        }
        y.income.push_back(std::move(s));
    }
    for (int i = 0; i < o.customers; ++i)
        y.customers.push_back({nth(kCustomerNames, static_cast<size_t>(i)),
                               std::to_string(1001 + i),
                               accounts[static_cast<size_t>(i + 1) % accounts.size()],
                               rnd.cents(100, 900), rnd.between(1, 28)});
    y.descriptions = kDescriptions;
}

}  // namespace

std::uint64_t Random::next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

int Random::between(int low, int high) {
    if (high <= low)
        return low;
    const std::uint64_t span = static_cast<std::uint64_t>(high - low) + 1;
    return low + static_cast<int>(next() % span);
}

long long Random::cents(int lowDollars, int highDollars) {
    return static_cast<long long>(between(lowDollars * 100, highDollars * 100));
}

std::vector<Place> allAccounts(const Year& y) {
    std::vector<Place> places;
    for (const Bank& bank : y.banks)
        for (const Account& account : bank.accounts)
            places.push_back({bank.name, account.name});
    return places;
}

std::vector<std::string> Year::balanceColumns() const {
    std::vector<std::string> titles;
    for (const Bank& bank : banks)
        for (const Account& a : bank.accounts)
            for (const Group* g : {&a.reg, &a.bank, &a.outstanding})
                if (g->title != "0")
                    titles.push_back(g->title);
    for (const Card& card : cards)
        titles.push_back(card.name);
    return titles;
}

int monthLength(int year, int month) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

std::string money(long long cents) {
    const bool negative = cents < 0;
    if (negative)
        cents = -cents;
    std::string c = std::to_string(cents % 100);
    return (negative ? "-" : "") + std::to_string(cents / 100) + "." + (c.size() < 2 ? "0" : "") +
           c;
}

std::string dateText(int year, int month, int day) {
    return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
}

Year buildYear(const SyntheticYearOptions& options) {
    Year y;
    y.options = normalized(options);
    Random rnd(y.options.seed);
    addBanks(y, rnd);
    addCards(y, rnd);
    addPlan(y, rnd);
    addMonths(y, rnd);
    return y;
}

}  // namespace model

SyntheticYearOptions normalized(const SyntheticYearOptions& options) {
    SyntheticYearOptions o = options;
    o.linesPerMonth = std::max(o.linesPerMonth, 1);
    o.banks = std::max(o.banks, 1);
    o.accounts = o.accounts <= 0 ? o.banks + 1 : std::max(o.accounts, o.banks);
    o.cards = std::max(o.cards, 0);
    o.incomeSources = std::max(o.incomeSources, 1);
    o.customers = std::max(o.customers, 0);
    o.expenses = std::max(o.expenses, o.cards + 4);
    return o;
}

std::string makeSyntheticYear(const SyntheticYearOptions& options, SyntheticYearSummary* summary) {
    model::Year y = model::buildYear(options);
    if (summary) {
        summary->linesPerMonth = y.options.linesPerMonth;
        summary->totalLines = 0;
        for (const auto& lines : y.months)
            summary->totalLines += static_cast<int>(lines.size());
        summary->expenses = static_cast<int>(y.expenses.size());
        summary->categories = static_cast<int>(y.categories.size());
        summary->banks = y.options.banks;
        summary->accounts = y.options.accounts;
        summary->cards = y.options.cards;
        summary->balanceColumns = static_cast<int>(y.balanceColumns().size());
    }
    return model::writeYear(y);
}

SyntheticYearSummary writeSyntheticYear(const std::filesystem::path& path,
                                        const SyntheticYearOptions& options) {
    SyntheticYearSummary summary;
    const std::string text = makeSyntheticYear(options, &summary);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out)
        throw std::runtime_error("could not write " + path.string());
    return summary;
}

}  // namespace tallix::bench
