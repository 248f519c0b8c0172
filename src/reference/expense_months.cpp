#include "reference/expense_months.h"

#include <optional>
#include <vector>

#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_input.h"
#include "reference/plan_nodes.h"

namespace tallix {
namespace {

constexpr int kMonths = 12;

// The month entries of the expense from `month` to `last`.
std::vector<pugi::xml_node> entriesFrom(Session& session, const std::string& category,
                                        const std::string& expense, int month, int last) {
    checkedMonth(month);
    pugi::xml_node months =
        childAt(expenseNode(session.data.node(), category, expense), schema::kExpenseMonths);
    std::vector<pugi::xml_node> entries;
    for (int m = month; m <= last; ++m)
        entries.push_back(childAt(months, static_cast<size_t>(m - 1)));
    return entries;
}

std::string monthLabel(const std::string& expense, int month) {
    return " " + monthName(month) + " of " + expense;
}

}  // namespace

void applyToMonth(Session& session, const std::string& category, const std::string& expense,
                  int month, const MonthValues& values) {
    const MonthValues checked = checkedMonthValues(values);
    pugi::xml_node entry = entriesFrom(session, category, expense, month, month).front();
    recordedChange(session, "Apply" + monthLabel(expense, month),
                   [&] { writeEntry(entry, kExpenseEntrySlots, checked); });
}

void applyToAllMonths(Session& session, const std::string& category, const std::string& expense,
                      int month, const MonthValues& values) {
    const MonthValues checked = checkedMonthValues(values);
    const std::vector<pugi::xml_node> entries =
        entriesFrom(session, category, expense, month, kMonths);
    recordedChange(session, "Apply to all months from" + monthLabel(expense, month),
                   [&] { writeFromMonthOn(entries, kExpenseEntrySlots, checked); });
}

}  // namespace tallix
