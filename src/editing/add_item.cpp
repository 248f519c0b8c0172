#include "editing/add_item.h"

#include "app/guard.h"
#include "app/session.h"
#include "editing/cell_choices.h"
#include "editing/expense_cell.h"
#include "editing/line_choices.h"
#include "editing/row_operations.h"
#include "reference/descriptions.h"
#include "register/month_display.h"

namespace tallix {
namespace {

void mark(Session& session, int row, int column) {
    session.view.markedRow = row;
    session.view.markedColumn = column;
}

void pickDescription(Session& session, int row, LineChoices& choices) {
    const std::string& current = session.view.table.cell(row, session.view.fields.description);
    const std::string answer = choices.pickDescription(descriptions(session.data.node()),
                                                       isBlankCell(current) ? "" : current);
    mark(session, -1, -1);
    if (answer == kDescriptionCancel)
        return;
    writeDescription(session, row, answer == kDescriptionClear ? std::string() : answer);
    Refresh(session);
}

// The operation chosen in the popup. Only an insert has a place on the
// starting row, which holds no line.
void runRowOperation(Session& session, int row, const RowOperationChoice& choice,
                     LineChoices& choices) {
    Prompter& prompter = session.prompter();
    const bool onLine = row < session.view.lineCount;
    if (choice.operation == "insert")
        guarded(prompter, "InsertRow", [&] { InsertRow(session, row, choice.kind); });
    else if (choice.operation == "make" && onLine)
        guarded(prompter, "OnRowoperationsDelete", [&] { makeLine(session, row, choice.kind); });
    else if (choice.operation == "delete" && onLine)
        deleteLine(session, row);
    else if (choice.operation == "move" && onLine)
        guarded(prompter, "OnRowoperationsMove", [&] { moveLine(session, row, choices); });
    mark(session, -1, -1);
}

}  // namespace

void expenseCellClicked(Session& session, int row, int column, LineChoices& choices) {
    mark(session, row, column);
    const bool filled = pickIntoExpenseCell(session, row, column, choices);
    mark(session, -1, -1);
    if (filled)
        updateAfterChange(session);
}

void AddItem(Session& session, int row, int column, LineChoices& choices) {
    guarded(session.prompter(), "AddItem", [&] {
        const RegisterView& v = session.view;
        if (!v.table.contains(row, column))
            return;
        const bool onLine = row < v.lineCount;
        if (column == v.fields.description) {
            if (onLine)
                pickDescription(session, row, choices);
            return;
        }
        if (column == v.fields.expense) {
            if (onLine)
                expenseCellClicked(session, row, column, choices);
            return;
        }
        mark(session, row, column);
        runRowOperation(session, row, choices.pickRowOperation(row), choices);
        updateAfterChange(session);
    });
}

}  // namespace tallix
