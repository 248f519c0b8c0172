// The synthetic year's register: twelve months of lines that use the
// reference data synthetic_year.cpp made.
#include <algorithm>
#include <map>
#include <stdexcept>

#include "data/values.h"
#include "synthetic_model.h"

namespace tallix::bench::model {
namespace {

// Day of the n-th `weekday` ("Sun".."Sat") of the month.
int nthWeekday(int year, int month, const std::string& weekday, int n) {
    int first = 1;
    while (dayOfWeek(first, month, year) != weekday)
        ++first;
    return first + 7 * (n - 1);
}
struct MonthBuilder {
    Year& y;
    Random& rnd;
    int month;
    int length;
    std::vector<Line> lines;
    std::vector<int> checkOf;  // for each line, the check line a posted check clears

    const std::string& description() {
        return y.descriptions[static_cast<size_t>(
            rnd.between(0, static_cast<int>(y.descriptions.size()) - 1))];
    }
    Line& add(Line line, int clears = -1) {
        line.day = std::clamp(line.day, 1, length);
        lines.push_back(std::move(line));
        checkOf.push_back(clears);
        return lines.back();
    }
    Line expenseLine(const Expense& e, int day, long long cents, const std::string& kind,
                     const std::string& status) {
        Line l;
        l.day = day;
        l.expense = e.name;
        l.cents = cents;
        l.category = e.category;
        l.status = status;
        l.description = description();
        l.place = e.place;
        l.accumulate = e.type;
        l.kind = kind;
        return l;
    }
    // A check written on `day` and, when `posted`, its posted check three days on.
    void checkPair(const Expense& e, int day, long long cents, bool posted, bool card) {
        add(expenseLine(e, day, cents, "check", "cleared"));
        const int check = static_cast<int>(lines.size()) - 1;
        if (card)
            lines.back().description = "Statement balance";
        if (posted) {
            Line p = expenseLine(e, day + 3, cents, "posted check", "posted check");
            p.description = lines[static_cast<size_t>(check)].description;
            add(std::move(p), check);
        }
    }
    const Expense& expense(const std::string& name) const {
        for (const Expense& e : y.expenses)
            if (e.name == name)
                return e;
        throw std::logic_error("no expense " + name);
    }

    void fixedLines(const std::vector<Place>& accounts) {
        for (const IncomeSource& s : y.income) {
            Line l;
            l.day = s.type == "auto day" ? nthWeekday(y.options.year, month, "Wed", 3) : s.day;
            l.expense = s.name;
            l.cents = s.amount;
            l.category = "Income";
            l.status = "cleared";
            l.description = s.description;
            l.place = s.place;
            l.kind = "deposit";
            add(std::move(l));
        }
        for (const Customer& c : y.customers) {
            Line l;
            l.day = c.dueDay;
            l.expense = c.name;
            l.cents = c.amount;
            l.category = "Receivables";
            l.status = "cleared";
            l.description = c.name;
            l.place = c.place;
            l.info = c.number;
            l.kind = "receivable";
            add(std::move(l));
        }
        if (accounts.size() >= 2) {
            const Expense& t = expense(kTransferExpense);
            Line transfer = expenseLine(t, 16, 30000, "transfer", "cleared");
            transfer.description = "Monthly savings";
            transfer.place = accounts[0];
            transfer.info = accounts[1].institution;
            transfer.accumulate = accounts[1].account;
            add(std::move(transfer));
            Line move = expenseLine(t, rnd.between(21, 23), 100000, "move", "cleared");
            move.description = "";
            move.place = accounts.back();
            move.info = accounts[0].institution;
            move.accumulate = accounts[0].account;
            add(std::move(move));
        }
        for (const Card& card : y.cards)
            checkPair(expense(card.name), rnd.between(5, 20), rnd.cents(100, 2500), true, true);
    }

    void billLines(int budget) {
        std::vector<const Expense*> bills;
        for (const Expense& e : y.expenses)
            if (e.type != "accumulate" && e.category != "Credit Cards")
                bills.push_back(&e);
        if (bills.empty())
            return;
        const size_t offset = static_cast<size_t>(month * 5) % bills.size();
        for (size_t k = 0; k < bills.size() && budget > 0; ++k) {
            const Expense& e = *bills[(offset + k) % bills.size()];
            const long long cents = e.amount + rnd.cents(0, 20);
            if (e.type == "auto") {
                const bool card = e.place.institution == kCardsInstitution;
                add(expenseLine(e, e.closingDay, cents, card || k % 2 ? "auto" : "Auto-Bank",
                                card ? "posted" : "cleared"));
                --budget;
            } else {
                checkPair(e, std::min(e.closingDay, length - 3), cents, budget >= 2, false);
                budget -= budget >= 2 ? 2 : 1;
            }
        }
    }

    void everydayLines(int count) {
        std::vector<const Expense*> everyday;
        for (const Expense& e : y.expenses)
            if (e.type == "accumulate" && e.name != kTransferExpense)
                everyday.push_back(&e);
        for (int i = 0; i < count; ++i) {
            const Expense& e = *everyday[static_cast<size_t>(
                rnd.between(0, static_cast<int>(everyday.size()) - 1))];
            const int day = rnd.between(1, length);
            const long long cents = rnd.cents(3, 240);
            const int pick = rnd.between(1, 100);
            const bool onCard = !y.cards.empty() && (pick <= 40 || (pick > 85 && pick % 2));
            std::string kind = pick <= 40 ? "credit card" : pick <= 85 ? "debit" : "medication";
            std::string status = onCard ? "posted" : day > length - 2 ? "processing" : "cleared";
            if (kind == "credit card" && !onCard)
                kind = "debit";
            Line l = expenseLine(e, day, cents, kind, status);
            if (onCard)
                l.place = {kCardsInstitution, y.cards[static_cast<size_t>(rnd.between(
                                                          0, static_cast<int>(y.cards.size()) - 1))]
                                                  .name};
            if (e.name == kRestaurants) {
                l.tip = (cents * 18 / 100 + 50) / 100 * 100;
                l.info = money(l.tip);
            }
            add(std::move(l));
        }
    }

    // Checks are numbered per account in the order they were written; a
    // posted check repeats its check's number. Then the latest day goes to
    // the top, a day's lines staying in the order they were entered.
    void finish(std::map<std::string, int>& nextCheck) {
        std::vector<size_t> checks;
        for (size_t i = 0; i < lines.size(); ++i)
            if (lines[i].kind == "check")
                checks.push_back(i);
        std::stable_sort(checks.begin(), checks.end(),
                         [&](size_t a, size_t b) { return lines[a].day < lines[b].day; });
        for (size_t i : checks) {
            const std::string key = lines[i].place.institution + "/" + lines[i].place.account;
            auto [it, added] =
                nextCheck.try_emplace(key, 2001 + 300 * static_cast<int>(nextCheck.size()));
            lines[i].check = std::to_string(it->second++);
        }
        for (size_t i = 0; i < lines.size(); ++i)
            if (checkOf[i] >= 0)
                lines[i].check = lines[static_cast<size_t>(checkOf[i])].check;
        std::stable_sort(lines.begin(), lines.end(),
                         [](const Line& a, const Line& b) { return a.day > b.day; });
        for (size_t i = 0; i < lines.size(); ++i)
            lines[i].number = static_cast<int>(i) + 1;
    }
};

}  // namespace

void addMonths(Year& y, Random& rnd) {
    const std::vector<Place> accounts = allAccounts(y);
    std::map<std::string, int> nextCheck;
    for (int m = 1; m <= 12; ++m) {
        MonthBuilder b{y, rnd, m, monthLength(y.options.year, m), {}, {}};
        b.fixedLines(accounts);
        const int wanted = y.options.linesPerMonth;
        if (static_cast<int>(b.lines.size()) > wanted) {
            b.lines.resize(static_cast<size_t>(wanted));
            b.checkOf.resize(static_cast<size_t>(wanted));
        }
        const int rest = wanted - static_cast<int>(b.lines.size());
        b.billLines(rest * 2 / 5);
        b.everydayLines(wanted - static_cast<int>(b.lines.size()));
        b.finish(nextCheck);
        y.months[static_cast<size_t>(m - 1)] = std::move(b.lines);
    }
}

}  // namespace tallix::bench::model
