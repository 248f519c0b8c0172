#include "reference/category_maintenance.h"

#include "app/prompter.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "reference/plan_input.h"
#include "reference/plan_messages.h"
#include "reference/plan_nodes.h"

namespace tallix {
namespace {

// The expense a new category's "xxxx" is copied from.
pugi::xml_node modelExpense(pugi::xml_node data, pugi::xml_node before) {
    pugi::xml_node first = childAtOrNull(expenseList(before), 0);
    if (!first)
        first = selectOne(data, paths::kAllExpenses);
    if (!first)
        throw PlanRefusal("the plan holds no expense to copy into the new category");
    return first;
}

void clearExpense(pugi::xml_node expense, const std::string& category) {
    setAttributeText(kPlaceholderExpense, "id", expense);
    setChildText(expense, kExpenseCategory, category);
    for (size_t field :
         {kExpenseType, kExpenseAccount, kExpenseClosingDay, kExpenseInstitution, kExpenseAmount})
        setChildText(expense, field, "");
    setChildText(expense, kExpenseReset, "0");
    zeroMonthEntries(expense);
}

}  // namespace

void addCategory(Session& session, Prompter& prompter, const std::string& name,
                 const std::string& before) {
    pugi::xml_node data = session.data.node();
    const std::string newName = checkedName(name, "category");
    pugi::xml_node next = categoryNode(data, before);
    refuseTakenCategory(data, newName);
    pugi::xml_node model = modelExpense(data, next);
    prompter.notify(kNewCategoryNotice);
    recordedChange(session, "Add category " + newName, [&] {
        pugi::xml_node category = next.parent().insert_child_before("category", next);
        category.append_attribute("id") = newName.c_str();
        appendTextElement(category, "type", "category");
        appendTextElement(category, "numberItems", "1");
        pugi::xml_node names = appendTextElement(category, "names", "");
        clearExpense(names.append_copy(model), newName);
    });
}

std::optional<int> renameCategory(Session& session, Prompter& prompter, const std::string& oldName,
                                  const std::string& newName) {
    pugi::xml_node data = session.data.node();
    const std::string name = checkedName(newName, "category");
    pugi::xml_node category = categoryNode(data, oldName);
    refuseTakenCategory(data, name);
    if (prompter.askYesNo(kRenameCategoryQuestion) != Answer::Yes)
        return std::nullopt;
    int changed = 0;
    recordedChange(session, "Rename category " + oldName + " to " + name, [&] {
        setAttributeText(name, "id", category);
        for (pugi::xml_node expense : elementChildren(expenseList(category)))
            setChildText(expense, kExpenseCategory, name);
        changed = rewriteLines(data, std::nullopt, oldName, schema::kCategoty, name);
    });
    return changed;
}

bool deleteCategory(Session& session, Prompter& prompter, const std::string& name) {
    pugi::xml_node category = categoryNode(session.data.node(), name);
    if (prompter.askYesNo(kDeleteCategoryQuestion) != Answer::Yes)
        return false;
    recordedChange(session, "Delete category " + name,
                   [&] { category.parent().remove_child(category); });
    return true;
}

}  // namespace tallix
