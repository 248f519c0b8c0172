#include "reference/expense_maintenance.h"

#include "app/prompter.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "reference/plan_input.h"
#include "reference/plan_messages.h"
#include "reference/plan_nodes.h"

namespace tallix {
namespace {

ExpenseFields checkedFields(const ExpenseFields& typed) {
    return {trimmedText(typed.type), trimmedText(typed.account),
            checkedClosingDay(typed.closingDay), trimmedText(typed.institution),
            checkedAmount("REPEATING AMOUNT", typed.repeatingAmount)};
}

void writeFields(pugi::xml_node expense, const ExpenseFields& fields) {
    setChildText(expense, kExpenseType, fields.type);
    setChildText(expense, kExpenseAccount, fields.account);
    setChildText(expense, kExpenseClosingDay, fields.closingDay);
    setChildText(expense, kExpenseInstitution, fields.institution);
    setChildText(expense, kExpenseReset, "0");
    setChildText(expense, kExpenseAmount, fields.repeatingAmount);
}

}  // namespace

void saveNewExpense(Session& session, const std::string& category, const std::string& before,
                    const std::string& name, const ExpenseFields& fields) {
    const std::string newName = checkedName(name, "expense");
    const ExpenseFields checked = checkedFields(fields);
    pugi::xml_node model = expenseNode(session.data.node(), category, before);
    pugi::xml_node categoryElement = categoryNode(session.data.node(), category);
    refuseTakenExpense(categoryElement, newName);
    recordedChange(session, "New expense " + newName, [&] {
        pugi::xml_node copy = model.parent().insert_copy_before(model, model);
        setAttributeText(newName, "id", copy);
        setChildText(copy, kExpenseCategory, category);
        writeFields(copy, checked);
        zeroMonthEntries(copy);
        recountExpenses(categoryElement);
    });
}

std::optional<int> saveExpenseChanges(Session& session, Prompter& prompter,
                                      const std::string& category, const std::string& expense,
                                      const std::string& newName, const ExpenseFields& fields) {
    const std::string name = checkedName(newName, "expense");
    const ExpenseFields checked = checkedFields(fields);
    pugi::xml_node node = expenseNode(session.data.node(), category, expense);
    Answer answer = Answer::No;
    if (name != expense) {
        refuseTakenExpense(categoryNode(session.data.node(), category), name);
        answer = prompter.askYesNoCancel(kRenameExpenseQuestion);
        if (answer == Answer::Cancel)
            return std::nullopt;
    }
    int renamed = 0;
    const std::string label =
        name == expense ? "Change expense " + expense : "Rename expense " + expense + " to " + name;
    recordedChange(session, label, [&] {
        if (name != expense)
            setAttributeText(name, "id", node);
        if (answer == Answer::Yes)
            renamed = rewriteLines(session.data.node(), expense, category, schema::kExpense, name);
        writeFields(node, checked);
    });
    return renamed;
}

void deleteExpense(Session& session, Prompter& prompter, const std::string& category,
                   const std::string& expense) {
    pugi::xml_node node = expenseNode(session.data.node(), category, expense);
    prompter.notify(kDeleteExpenseNotice);
    recordedChange(session, "Delete expense " + expense, [&] {
        pugi::xml_node categoryElement = categoryNode(session.data.node(), category);
        node.parent().remove_child(node);
        recountExpenses(categoryElement);
    });
}

}  // namespace tallix
