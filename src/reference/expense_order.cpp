#include "reference/expense_order.h"

#include "app/prompter.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "reference/plan_messages.h"
#include "reference/plan_nodes.h"

namespace tallix {

std::optional<int> moveExpenseToCategory(Session& session, Prompter& prompter,
                                         const std::string& fromCategory,
                                         const std::string& expense,
                                         const std::string& toCategory) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node node = expenseNode(data, fromCategory, expense);
    pugi::xml_node target = categoryNode(data, toCategory);
    refuseTakenExpense(target, expense);
    if (prompter.askYesNoCancel(kMoveExpenseQuestion) != Answer::Yes)
        return std::nullopt;
    int changed = 0;
    recordedChange(session, "Move expense " + expense + " to " + toCategory, [&] {
        pugi::xml_node source = node.parent().parent();
        pugi::xml_node moved = expenseList(target).append_copy(node);
        node.parent().remove_child(node);
        setChildText(moved, kExpenseCategory, toCategory);
        recountExpenses(source);
        recountExpenses(target);
        if (prompter.askYesNoCancel(kMoveLinesQuestion) == Answer::Yes)
            changed = rewriteLines(data, expense, fromCategory, schema::kCategoty, toCategory);
    });
    return changed;
}

bool moveExpenseUp(Session& session, const std::string& category, const std::string& expense) {
    return moveOnePlace(session, expenseNode(session.data.node(), category, expense), false,
                        "Move expense " + expense + " up");
}

bool moveExpenseDown(Session& session, const std::string& category, const std::string& expense) {
    return moveOnePlace(session, expenseNode(session.data.node(), category, expense), true,
                        "Move expense " + expense + " down");
}

}  // namespace tallix
