#include "editing/line_lookups.h"

#include <stdexcept>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "editing/line_access.h"
#include "register/plan_index.h"
#include "register/receivable_items.h"

namespace tallix {

void expenseLookup(Session& session, int row, int column, const std::string& expense,
                   const std::string& category) {
    pugi::xml_node categoryNode = selectOne(session.data.node(), paths::kCategory, category);
    pugi::xml_node planned = categoryNode
                                 ? selectOne(categoryNode, paths::kExpenseInCategory, expense)
                                 : pugi::xml_node();
    if (!planned) {
        session.prompter().notify(kExpenseNotFound);
        return;
    }
    const FieldColumns& f = session.view.fields;
    LineWriter line(session, row);
    line.set(column, schema::kExpense, expense);
    line.set(f.category, schema::kCategoty, category);
    line.set(f.institution, schema::kInstitution, childText(planned, 4));
    line.set(f.account, schema::kAccount, childText(planned, 2));

    const std::string kind = childText(planned, 1);
    if (kind == "recurring") {
        line.set(f.accumulate, schema::kAccumulate, "recurring");
    } else if (kind == "auto" || kind == "Auto-Bank") {
        line.set(f.accumulate, schema::kAccumulate, kind);
        line.set(f.typeofentry, schema::kTypeOfEntry, kind);
    } else {
        line.set(f.accumulate, schema::kAccumulate, "accumulate");
    }
    if (line.field(schema::kTypeOfEntry) == "check") {
        line.set(f.status, schema::kStatus, "pending");
        setChildText(monthEntry(planned, schema::kExpenseMonths, session.month),
                     schema::kEntryStatus, "pending");
    }
    session.saveChange(lineChange(session, "expense", row));
}

void incomeLookup(Session& session, int row, int column, const std::string& name) {
    pugi::xml_node source = requireOne(session.data.node(), paths::kIncome, name);
    const FieldColumns& f = session.view.fields;
    LineWriter line(session, row);
    line.set(column, schema::kExpense, name);
    line.set(f.institution, schema::kInstitution, childText(source, 0));
    line.set(f.account, schema::kAccount, childText(source, 1));
    line.set(f.amount, schema::kDebit, childText(source, 5));
    line.set(f.category, schema::kCategoty, "Income");
    session.saveChange(lineChange(session, "income source", row));
}

void receivableLookup(Session& session, int row, int column, const std::string& name) {
    pugi::xml_node customer = requireOne(session.data.node(), paths::kReceivable, name);
    requireOne(session.data.node(), paths::kRevenue);  // before anything is written
    const FieldColumns& f = session.view.fields;
    LineWriter line(session, row);
    line.set(column, schema::kExpense, name);
    line.set(f.category, schema::kCategoty, "Receivables");
    // The Info cell shows the customer's number when the month is shown again.
    line.set(-1, schema::kInfo, childText(customer, 0));
    line.set(f.institution, schema::kInstitution, childText(customer, 1));
    line.set(f.account, schema::kAccount, childText(customer, 2));

    // Picked again, the line keeps its one item, now the new customer's.
    pugi::xml_node item =
        settleReceivableItem(session.data.node(), customer, session.month, line.number());
    setChildText(item, schema::kEntryAmount, line.field(schema::kDebit));
    session.saveChange(lineChange(session, "customer", row));
}

}  // namespace tallix
