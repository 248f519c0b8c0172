#include "reference/plan_nodes.h"

#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_input.h"
#include "reference/plan_messages.h"
#include "register/month_lines.h"

namespace tallix {

pugi::xml_node categoryNode(pugi::xml_node data, const std::string& name) {
    pugi::xml_node category = selectOne(data, paths::kCategory, name);
    if (!category)
        throw PlanRefusal("category not found: " + name);
    return category;
}

pugi::xml_node expenseNode(pugi::xml_node data, const std::string& category,
                           const std::string& expense) {
    pugi::xml_node node =
        selectOne(categoryNode(data, category), paths::kExpenseInCategory, expense);
    if (!node)
        throw PlanRefusal(kPlanExpenseNotFound + expense);
    return node;
}

pugi::xml_node expenseList(pugi::xml_node category) {
    return childAt(category, schema::kCategoryNames);
}

void refuseTakenExpense(pugi::xml_node category, const std::string& name) {
    if (selectOne(category, paths::kExpenseInCategory, name))
        throw PlanRefusal("the category " + attributeText("id", category) +
                          " already holds an expense named " + name);
}

void refuseTakenCategory(pugi::xml_node data, const std::string& name) {
    if (selectOne(data, paths::kCategory, name))
        throw PlanRefusal("there is already a category named " + name);
}

void recountExpenses(pugi::xml_node category) {
    size_t count = 0;
    for (pugi::xml_node entry : elementChildren(expenseList(category)))
        count += std::string_view(entry.name()) == "name";
    if (childAtOrNull(category, kCategoryCount))
        setChildText(category, kCategoryCount, std::to_string(count));
}

bool moveOnePlace(Session& session, pugi::xml_node node, bool later, const std::string& label) {
    pugi::xml_node neighbour =
        later ? node.next_sibling(node.name()) : node.previous_sibling(node.name());
    if (!neighbour)
        return false;
    recordedChange(session, label, [&] {
        if (later)
            node.parent().insert_move_after(node, neighbour);
        else
            node.parent().insert_move_before(node, neighbour);
    });
    return true;
}

void zeroMonthEntries(pugi::xml_node expense) {
    for (pugi::xml_node month : elementChildren(childAt(expense, schema::kExpenseMonths)))
        for (size_t field = schema::kEntryAmount; field < elementChildCount(month); ++field)
            setChildText(month, field, "0");
}

int rewriteLines(pugi::xml_node data, const std::optional<std::string>& expense,
                 const std::string& category, size_t field, std::string_view text) {
    int written = 0;
    for (int month = 1; month <= 12; ++month) {
        for (pugi::xml_node line : monthLines(data, monthName(month))) {
            if (childTextOrEmpty(line, schema::kCategoty) != category)
                continue;
            if (expense && childTextOrEmpty(line, schema::kExpense) != *expense)
                continue;
            setChildText(line, field, text);
            ++written;
        }
    }
    return written;
}

}  // namespace tallix
