// The plan part of a synthetic year file: categories with their expenses,
// income sources, customers and the RMD, each month entry agreeing with the
// register lines of its month.
#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "data/values.h"
#include "synthetic_model.h"
#include "xml_out.h"

namespace tallix::bench::model {
namespace {

// The lines of one month by the expense (or source, or customer) they name.
using LinesByName = std::map<std::string, std::vector<const Line*>, std::less<>>;

std::array<LinesByName, 12> linesByName(const Year& y) {
    std::array<LinesByName, 12> result;
    for (size_t m = 0; m < 12; ++m)
        for (const Line& line : y.months[m])
            result[m][line.expense].push_back(&line);
    return result;
}
struct Entry {  // a month entry of an expense or a receivable item
    std::string line;
    std::string amount = "0";
    std::string datePaid = "0";
    std::string dueDate = "0";
    std::string status = "no entry";
    std::string type = "0";
    std::string check = "0";
};

void writeEntry(XmlOut& x, std::string_view tag, std::string_view first, const Entry& e,
                bool withName) {
    x.open(tag);
    x.leaf(withName ? "name" : "line", first);
    x.leaf("amount", e.amount);
    x.leaf("datepaid", e.datePaid);
    x.leaf("duedate", e.dueDate);
    x.leaf("status", e.status);
    x.leaf("type", e.type);
    x.leaf("check", e.check);
    x.close();
}

// An expense's entry for a month, agreeing with the month's lines.
Entry expenseEntry(const Year& y, const Expense& e, int m, const std::vector<const Line*>& lines) {
    const int year = y.options.year;
    const int length = monthLength(year, m);
    Entry entry;
    if (e.type == "accumulate") {
        entry.dueDate = dateText(year, m, length);
        if (lines.empty()) {
            entry.status = "notpaid";
            return entry;
        }
        long long total = 0;
        int lastDay = 0;
        bool processing = false;
        for (const Line* l : lines) {
            total += l->cents + (e.name == kRestaurants ? l->tip : 0);
            lastDay = std::max(lastDay, l->day);
            processing |= l->status == "processing";
        }
        entry.amount = money(total);
        entry.datePaid = dateText(year, m, lastDay);
        entry.status = processing ? "processing" : "cleared";
        entry.type = lines.front()->kind;
        return entry;
    }
    if (lines.empty())
        return entry;  // nothing this month: "no entry"
    const Line* paid = lines.front();
    for (const Line* l : lines)
        if (l->kind == "check")
            paid = l;
    entry.amount = money(paid->cents);
    entry.datePaid = dateText(year, m, paid->day);
    entry.dueDate = dateText(year, m, std::min(std::max(e.closingDay, 1), length));
    entry.status = e.type == "auto" ? "posted" : "cleared";
    entry.type = lines.size() > 1 ? "posted check" : paid->kind;
    if (paid->kind == "check")
        entry.check = paid->check;
    return entry;
}

void writeCategories(XmlOut& x, const Year& y, const std::array<LinesByName, 12>& byName) {
    static const std::vector<const Line*> kNone;
    x.open("catagories");
    for (const std::string& category : y.categories) {
        std::vector<const Expense*> members;
        for (const Expense& e : y.expenses)
            if (e.category == category)
                members.push_back(&e);
        x.open("category", {{"id", category}});
        x.leaf("type", "category");
        x.leaf("numberItems", static_cast<long long>(members.size()));
        x.open("names");
        for (const Expense* e : members) {
            x.open("name", {{"id", e->name}});
            x.leaf("category", e->category);
            x.leaf("type", e->type);
            x.leaf("account", e->place.account);
            x.leaf("closingday", e->closingDay);
            x.leaf("institution", e->place.institution);
            x.leaf("reset", "0");
            x.leaf("amount", e->amount ? money(e->amount) : "0");
            x.open("months");
            for (int m = 1; m <= 12; ++m) {
                auto found = byName[static_cast<size_t>(m - 1)].find(e->name);
                const auto& lines =
                    found == byName[static_cast<size_t>(m - 1)].end() ? kNone : found->second;
                writeEntry(x, "month", monthName(m), expenseEntry(y, *e, m, lines), true);
            }
            x.close();
            x.close();
        }
        x.close();
        x.close();
    }
    x.close();
}

// The year's total of an income source, in cents.
long long incomeTotal(const std::array<LinesByName, 12>& byName, const std::string& name) {
    long long total = 0;
    for (const LinesByName& month : byName)
        if (auto found = month.find(name); found != month.end())
            for (const Line* l : found->second)
                total += l->cents;
    return total;
}

void writeIncome(XmlOut& x, const Year& y, const std::array<LinesByName, 12>& byName) {
    x.open("income");
    for (const IncomeSource& s : y.income) {
        x.open("name", {{"id", s.name}});
        x.leaf("institution", s.place.institution);
        x.leaf("account", s.place.account);
        x.leaf("type", s.type);
        x.leaf("dayordate", s.dayOrDate);
        x.leaf("daynumber", s.dayNumber);
        x.leaf("amount", money(s.amount));
        x.open("months");
        for (int m = 1; m <= 12; ++m) {
            const LinesByName& month = byName[static_cast<size_t>(m - 1)];
            auto found = month.find(s.name);
            long long total = 0;
            int day = s.day;
            if (found != month.end()) {
                day = found->second.front()->day;
                for (const Line* l : found->second)
                    total += l->cents;
            }
            x.open("month");
            x.leaf("name", monthName(m));
            x.leaf("amount", total ? money(total) : "0");
            x.leaf("date", dateText(y.options.year, m, day));
            x.leaf("status", total ? "cleared" : "no entry");
            x.close();
        }
        x.close();
        x.close();
    }
    x.close();
}

void writeReceivables(XmlOut& x, const Year& y, const std::array<LinesByName, 12>& byName) {
    x.open("receivables");
    for (const Customer& c : y.customers) {
        x.open("name", {{"id", c.name}});
        x.leaf("number", c.number);
        x.leaf("institution", c.place.institution);
        x.leaf("account", c.place.account);
        x.leaf("amount", money(c.amount));
        x.open("months");
        for (int m = 1; m <= 12; ++m) {
            const LinesByName& month = byName[static_cast<size_t>(m - 1)];
            auto found = month.find(c.name);
            x.open("month");
            if (found == month.end()) {
                writeEntry(x, "revenue", "0", Entry{}, false);
            } else {
                for (const Line* l : found->second) {
                    Entry e;
                    e.amount = money(l->cents);
                    e.datePaid = dateText(y.options.year, m, l->day);
                    e.dueDate = dateText(y.options.year, m, std::min(c.dueDay, l->day));
                    e.status = "cleared";
                    e.type = l->kind;
                    writeEntry(x, "revenue", std::to_string(l->number), e, false);
                }
            }
            x.close();
        }
        x.close();
        x.close();
    }
    writeEntry(x, "revenue", "0", Entry{}, false);
    x.close();
}

void writeRmds(XmlOut& x, const Year& y, const std::array<LinesByName, 12>& byName) {
    // The individual draws through the income source of the same name: the
    // "posted" source when there is one.
    const IncomeSource* source = &y.income.front();
    for (const IncomeSource& s : y.income)
        if (s.type == "posted") {
            source = &s;
            break;
        }
    const long long lastYear = 16842000;
    x.open("rmds");
    x.open("rmd", {{"id", source->name}});
    x.open("holder");
    x.leaf("name", "Margaret Ellis");
    x.open("accounts");
    x.open("account");
    x.leaf("name", "Vanguard Traditional IRA");
    x.leaf("lastyearbalance", money(lastYear));
    x.leaf("rmdamount", money((lastYear * 10 + 132) / 265));
    x.leaf("currentdraw", money(incomeTotal(byName, source->name)));
    x.close();
    x.close();
    x.close();
    x.close();
    x.close();
}

}  // namespace

void writePlan(XmlOut& x, const Year& y) {
    const std::array<LinesByName, 12> byName = linesByName(y);
    writeCategories(x, y, byName);
    writeIncome(x, y, byName);
    writeReceivables(x, y, byName);
    writeRmds(x, y, byName);
}

}  // namespace tallix::bench::model
