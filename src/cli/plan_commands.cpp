// tallix-cli expense and category: the plan's maintenance without a display.
// The options stand for the dialogs' answers: the command itself is the Yes
// to the move, rename and delete questions, and --lines the Yes to carrying
// a rename or move into the register lines.
#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/terminal.h"
#include "data/node_text.h"
#include "data/values.h"
#include "reference/category_maintenance.h"
#include "reference/expense_maintenance.h"
#include "reference/expense_months.h"
#include "reference/expense_order.h"
#include "reference/plan_input.h"
#include "reference/plan_lists.h"
#include "reference/plan_messages.h"
#include "reference/plan_nodes.h"

namespace tallix::cli {
namespace {

Answer yesIf(bool yes) {
    return yes ? Answer::Yes : Answer::No;
}

// The expense as it stands; a missing one is refused.
ExpenseDetails currentExpense(Session& session, const std::string& category,
                              const std::string& expense) {
    expenseNode(session.data.node(), category, expense);
    return *expenseDetails(session.data.node(), category, expense);
}

int renameExpense(Arguments arguments, std::ostream& out, std::ostream& err) {
    const bool lines = takeFlag(arguments, "--lines");
    if (arguments.size() != 4)
        return kUsage;
    const std::string &category = arguments[1], &from = arguments[2], &to = arguments[3];
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter& prompter) {
        const ExpenseDetails d = currentExpense(session, category, from);
        prompter.answers = {yesIf(lines)};
        const std::optional<int> renamed =
            saveExpenseChanges(session, prompter, category, from, to,
                               {d.type, d.account, d.closingDay, d.institution, d.repeatingAmount});
        out << "renamed expense " << from << " of " << category << " to " << to << "; "
            << renamed.value_or(0) << " register lines renamed\n";
    });
}

int moveExpense(Arguments arguments, std::ostream& out, std::ostream& err) {
    const bool lines = takeFlag(arguments, "--lines");
    if (arguments.size() != 4)
        return kUsage;
    const std::string &expense = arguments[1], &from = arguments[2], &to = arguments[3];
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter& prompter) {
        prompter.answers = {Answer::Yes, yesIf(lines)};
        const std::optional<int> changed =
            moveExpenseToCategory(session, prompter, from, expense, to);
        out << "moved expense " << expense << " from " << from << " to " << to << "; "
            << changed.value_or(0) << " register lines given category " << to << '\n';
    });
}

int applyExpense(Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> amount = takeOption(arguments, "--amount");
    const std::optional<std::string> status = takeOption(arguments, "--status");
    const std::optional<std::string> due = takeOption(arguments, "--due");
    const std::optional<std::string> paid = takeOption(arguments, "--paid");
    const std::optional<std::string> check = takeOption(arguments, "--check");
    const bool allMonths = takeFlag(arguments, "--all-months");
    if (arguments.size() != 4)
        return kUsage;
    const int month = monthArgument(arguments[3]);
    if (status && std::find(kPlanEntryStatuses.begin(), kPlanEntryStatuses.end(), *status) ==
                      kPlanEntryStatuses.end())
        throw UsageError("--status must be notpaid, no entry, cleared, processing or pending");
    const std::string &category = arguments[1], &expense = arguments[2];
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter&) {
        const ExpenseDetails before = currentExpense(session, category, expense);
        PlanEntryRow now;
        if (static_cast<size_t>(month) <= before.months.size())
            now = before.months[static_cast<size_t>(month - 1)];
        const MonthValues values{amount.value_or(now.amount), paid.value_or(now.datePaid),
                                 due.value_or(now.dueDate), status.value_or(now.status),
                                 check.value_or(now.check)};
        (allMonths ? applyToAllMonths : applyToMonth)(session, category, expense, month, values);
        const ExpenseDetails after = currentExpense(session, category, expense);
        for (int m = month; m <= (allMonths ? 12 : month); ++m) {
            const PlanEntryRow& row = after.months[static_cast<size_t>(m - 1)];
            out << monthName(m) << " of " << expense << ": amount " << row.amount << ", date paid "
                << row.datePaid << ", due date " << row.dueDate << ", status " << row.status
                << ", check " << row.check << '\n';
        }
    });
}

int renameCategoryCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() != 3)
        return kUsage;
    const std::string &from = arguments[1], &to = arguments[2];
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter& prompter) {
        prompter.answers = {Answer::Yes};
        const std::optional<int> changed = renameCategory(session, prompter, from, to);
        out << "renamed category " << from << " to " << to << "; " << changed.value_or(0)
            << " register lines given category " << to << '\n';
    });
}

int addCategoryCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> before = takeOption(arguments, "--before", "a category");
    if (!before || arguments.size() != 2)
        return kUsage;
    const std::string& name = arguments[1];
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter& prompter) {
        addCategory(session, prompter, name, *before);
        out << "added category " << name << " before " << *before << " with expense "
            << kPlaceholderExpense << '\n';
    });
}

int deleteCategoryCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() != 2)
        return kUsage;
    const std::string& name = arguments[1];
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter& prompter) {
        const size_t expenses =
            elementChildCount(expenseList(categoryNode(session.data.node(), name)));
        prompter.answers = {Answer::Yes};
        deleteCategory(session, prompter, name);
        out << "deleted category " << name << " and its " << expenses << " expenses\n";
    });
}

}  // namespace

int runExpense(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(arguments, out, err,
                    {{"rename", renameExpense}, {"move", moveExpense}, {"apply", applyExpense}});
}

int runCategory(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(arguments, out, err,
                    {{"rename", renameCategoryCommand},
                     {"add", addCategoryCommand},
                     {"delete", deleteCategoryCommand}});
}

}  // namespace tallix::cli
