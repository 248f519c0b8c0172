#include "register/month_load.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/text_utils.h"
#include "data/values.h"
#include "register/line_elements.h"
#include "register/plan_index.h"

namespace tallix {
namespace {

constexpr int kLastDay = 31;
constexpr int kLastYear = 9999;

struct DueDate {
    int month = 0;
    int day = 0;
    int year = 0;
};

// "M/D/YYYY"; nothing for "0", an empty text or anything else.
std::optional<DueDate> parseDate(const std::string& text) {
    std::vector<std::string> parts = split(text, "/");
    if (parts.size() != 3)
        return std::nullopt;
    std::optional<int> month = numberWithin(parts[0], 1, 12);
    std::optional<int> day = numberWithin(parts[1], 1, kLastDay);
    std::optional<int> year = numberWithin(parts[2], 0, kLastYear);
    if (!month || !day || !year)
        return std::nullopt;
    return DueDate{*month, *day, *year};
}

bool onOrBefore(const DueDate& d, const Date& today) {
    if (d.year != today.year)
        return d.year < today.year;
    if (d.month != today.month)
        return d.month < today.month;
    return d.day <= today.day;
}

struct Posting {
    std::string day;
    std::string name;
    std::string amount;
    std::string category;
    std::string institution;
    std::string account;
    std::string accumulate;
    std::string typeofentry;
    std::string status;
};

// A line without a day of the month counts as the earliest.
int dayOf(pugi::xml_node line) {
    return numberWithin(childText(line, schema::kDay), 1, kLastDay).value_or(0);
}

// Lines run from the latest day at the top to the earliest at the bottom: the
// new line goes above the first line of an earlier day.
void insertLine(pugi::xml_node month, const Posting& p) {
    const int day = numberWithin(p.day, 1, kLastDay).value_or(0);
    pugi::xml_node before;
    for (pugi::xml_node line : elementChildren(month))
        if (dayOf(line) < day) {
            before = line;
            break;
        }
    newLineElement(month, before,
                   {p.day, p.name, p.amount, "", p.category, p.status, "", p.institution, p.account,
                    "", p.accumulate, p.typeofentry});
}

// The entry's amount, or the repeating amount when the entry has none.
std::string amountFor(const std::string& entryAmount, const std::string& repeating) {
    return entryAmount.empty() || entryAmount == "0" ? repeating : entryAmount;
}

// The month's lines by expense and category. A plan entry with a line of
// its own in the month is never posted again, whatever its status was set
// back to (a typed "notpaid", Make), so no bill is paid twice. A posted check
// whose number is not the entry's is a check written for an earlier bill
// that the bank paid this month: it does not stand for this month's entry.
class MonthLines {
  public:
    explicit MonthLines(pugi::xml_node month) {
        for (pugi::xml_node line : elementChildren(month))
            lines_.emplace(
                key(childText(line, schema::kExpense), childText(line, schema::kCategoty)),
                Line{childText(line, schema::kTypeOfEntry), childText(line, schema::kCheck)});
    }
    bool holdEntry(const std::string& name, const std::string& category,
                   const std::string& entryCheck) const {
        auto [first, last] = lines_.equal_range(key(name, category));
        return std::any_of(first, last, [&](const auto& found) {
            const Line& line = found.second;
            return line.type != "posted check" || line.check.empty() || line.check == entryCheck;
        });
    }
    void add(const std::string& name, const std::string& category) {
        lines_.emplace(key(name, category), Line{});
    }

  private:
    struct Line {
        std::string type;
        std::string check;
    };
    static std::string key(const std::string& name, const std::string& category) {
        return name + '\n' + category;
    }
    std::multimap<std::string, Line> lines_;
};

}  // namespace

int postDueEntries(Session& session) {
    pugi::xml_node data = session.data.node();
    const int month = session.month;
    pugi::xml_node monthNode = selectOne(data, paths::kMonthByName, monthName(month));
    if (!monthNode)
        return 0;
    int posted = 0;
    MonthLines lines(monthNode);
    // `check` is the entry's check number (income entries have none).
    auto post = [&](pugi::xml_node entry, size_t statusChild, const std::string& check,
                    const DueDate& due, Posting p) {
        if (lines.holdEntry(p.name, p.category, check))
            return;
        p.day = std::to_string(due.day);
        insertLine(monthNode, p);
        lines.add(p.name, p.category);
        setChildText(entry, statusChild, "posted");
        ++posted;
    };

    for (pugi::xml_node expense : selectAll(data, paths::kAllExpenses)) {
        const std::string kind = childText(expense, 1);
        if (!schema::isMonthlyBillKind(kind))
            continue;
        pugi::xml_node entry = monthEntry(expense, schema::kExpenseMonths, month);
        std::optional<DueDate> due = parseDate(childText(entry, schema::kEntryDueDate));
        if (childText(entry, schema::kEntryStatus) != "notpaid" || !due ||
            !onOrBefore(*due, session.today))
            continue;
        // Only an "auto" entry is cleared at once; "Auto-Bank" and recurring
        // ones wait for the bank as "processing".
        const bool automatic = kind != "recurring";
        post(entry, schema::kEntryStatus, childText(entry, schema::kEntryCheck), *due,
             {"", attributeText("id", expense),
              amountFor(childText(entry, schema::kEntryAmount), childText(expense, 6)),
              childText(expense, 0), childText(expense, 4), childText(expense, 2), "recurring",
              automatic ? kind : "debit", kind == "auto" ? "cleared" : "processing"});
    }
    for (pugi::xml_node source : selectAll(data, paths::kAllIncome)) {
        const std::string kind = childText(source, 2);
        if (kind != "auto day" && kind != "auto date")
            continue;
        pugi::xml_node entry = monthEntry(source, schema::kIncomeMonths, month);
        std::optional<DueDate> due = parseDate(childText(entry, 2));
        if (childText(entry, 3) != "notpaid" || !due || !onOrBefore(*due, session.today))
            continue;
        // The month entry's amount is the month's running total of the
        // source (the balance engine adds every deposit into it), so the
        // line carries the source's planned repeating amount.
        post(entry, 3, "", *due,
             {"", attributeText("id", source), childText(source, 5), "Income", childText(source, 0),
              childText(source, 1), "", "deposit", "processing"});
    }
    if (posted > 0)
        renumberLines(data, monthNode, month);
    return posted;
}

}  // namespace tallix
