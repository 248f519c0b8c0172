#include "editing/expense_cell.h"

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "editing/line_choices.h"
#include "editing/line_lookups.h"
#include "editing/transfers.h"

namespace tallix {
namespace {

bool isTransferEntry(pugi::xml_node data, const std::string& incomeName) {
    pugi::xml_node source = selectOne(data, paths::kIncome, incomeName);
    return source && schema::isTransferKind(childText(source, 2));
}

}  // namespace

bool pickIntoExpenseCell(Session& session, int row, int column, LineChoices& choices) {
    const std::string type = session.view.table.cell(row, session.view.fields.typeofentry);
    if (type == "receivable") {
        const std::string customer = choices.pickCustomer();
        if (isNoPick(customer))
            return false;
        receivableLookup(session, row, column, customer);
        return true;
    }
    const bool deposit = type == "deposit";
    const ExpensePick pick = choices.pickExpense(deposit ? kPickIncomeMode : kPickExpenseMode);
    if (isNoPick(pick.name))
        return false;
    if (!deposit) {
        expenseLookup(session, row, column, pick.name, pick.category);
    } else if (isTransferEntry(session.data.node(), pick.name)) {
        // CANCEL in the transfer dialog leaves the line as it was.
        const std::optional<TransferAnswer> transfer = choices.pickTransfer();
        return transfer && applyTransfer(session, row, column, pick.name, *transfer);
    } else {
        incomeLookup(session, row, column, pick.name);
    }
    return true;
}

}  // namespace tallix
