#include "reference/expense_months.h"

#include <optional>
#include <vector>

#include "app/session.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/text_utils.h"
#include "data/values.h"
#include "reference/plan_input.h"
#include "reference/plan_nodes.h"

namespace tallix {
namespace {

using schema::kEntryAmount;
using schema::kEntryCheck;
using schema::kEntryDatePaid;
using schema::kEntryDueDate;
using schema::kEntryStatus;

constexpr int kMonths = 12;

struct DueDate {
    int month, day, year;
    std::string text(int monthNumber) const {
        return std::to_string(monthNumber) + "/" + std::to_string(day) + "/" + std::to_string(year);
    }
};

std::optional<int> partWithin(const std::string& part, int low, int high) {
    if (part.empty() || part.size() > 4 ||
        part.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    const int value = std::stoi(part);
    return value >= low && value <= high ? std::optional<int>(value) : std::nullopt;
}

// The due date taken apart at "/"; nothing for an empty date or "0".
std::optional<DueDate> parsedDueDate(const std::string& text) {
    if (text.empty() || text == "0")
        return std::nullopt;
    std::vector<std::string> parts = split(text, "/");
    std::optional<int> month, day, year;
    if (parts.size() == 3) {
        month = partWithin(parts[0], 1, kMonths);
        day = partWithin(parts[1], 1, 31);
        year = partWithin(parts[2], 0, 9999);
    }
    if (!month || !day || !year)
        throw PlanRefusal("DUE DATE \"" + text + "\" is not a date M/D/YYYY");
    return DueDate{*month, *day, *year};
}

MonthValues checkedValues(const MonthValues& typed) {
    return {checkedAmount("AMOUNT", typed.amount), trimmedText(typed.datePaid),
            trimmedText(typed.dueDate), trimmedText(typed.status), trimmedText(typed.check)};
}

// The month entries of the expense from `month` to `last`.
std::vector<pugi::xml_node> entriesFrom(Session& session, const std::string& category,
                                        const std::string& expense, int month, int last) {
    if (month < 1 || month > kMonths)
        throw PlanRefusal("month " + std::to_string(month) + " is not a month from 1 to 12");
    pugi::xml_node months =
        childAt(expenseNode(session.data.node(), category, expense), schema::kExpenseMonths);
    std::vector<pugi::xml_node> entries;
    for (int m = month; m <= last; ++m)
        entries.push_back(childAt(months, static_cast<size_t>(m - 1)));
    return entries;
}

void writeMonth(pugi::xml_node entry, const MonthValues& values) {
    setChildText(entry, kEntryAmount, values.amount);
    setChildText(entry, kEntryDatePaid, values.datePaid);
    setChildText(entry, kEntryDueDate, values.dueDate);
    setChildText(entry, kEntryStatus, values.status);
    setChildText(entry, kEntryCheck, values.check);
}

std::string monthLabel(const std::string& expense, int month) {
    return " " + monthName(month) + " of " + expense;
}

}  // namespace

void applyToMonth(Session& session, const std::string& category, const std::string& expense,
                  int month, const MonthValues& values) {
    const MonthValues checked = checkedValues(values);
    pugi::xml_node entry = entriesFrom(session, category, expense, month, month).front();
    recordedChange(session, "Apply" + monthLabel(expense, month),
                   [&] { writeMonth(entry, checked); });
}

void applyToAllMonths(Session& session, const std::string& category, const std::string& expense,
                      int month, const MonthValues& values) {
    MonthValues checked = checkedValues(values);
    const std::optional<DueDate> due = parsedDueDate(checked.dueDate);
    if (due)
        checked.dueDate = due->text(due->month);
    const std::vector<pugi::xml_node> entries =
        entriesFrom(session, category, expense, month, kMonths);
    const bool noEntry = checked.status == kNoEntryStatus;
    recordedChange(session, "Apply to all months from" + monthLabel(expense, month), [&] {
        writeMonth(entries.front(), checked);
        for (size_t later = 1; later < entries.size(); ++later) {
            setChildText(entries[later], kEntryAmount, checked.amount);
            setChildText(entries[later], kEntryStatus, checked.status);
            if (noEntry)
                continue;
            setChildText(entries[later], kEntryDatePaid, checked.datePaid);
            if (due)
                setChildText(entries[later], kEntryDueDate,
                             due->text(due->month + static_cast<int>(later)));
        }
    });
}

}  // namespace tallix
