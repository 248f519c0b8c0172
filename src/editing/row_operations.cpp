#include "editing/row_operations.h"

#include <map>
#include <optional>
#include <stdexcept>
#include <vector>

#include "app/session.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "editing/line_access.h"
#include "editing/line_choices.h"
#include "register/line_elements.h"
#include "register/month_lines.h"
#include "register/plan_index.h"

namespace tallix {
namespace {

constexpr int kDateCell = 2;
constexpr int kLastDay = 31;
constexpr int kLineNumberCell = 3;

// The day in a DATE cell as a whole number; nothing for a line without one.
std::optional<int> dayOfCell(const GridTable& table, int row) {
    return numberWithin(table.cell(row, kDateCell), 1, kLastDay);
}

// Cells' own colours follow their lines when a row is inserted at `at`
// (delta 1) or removed from it (delta -1); a removed row's colours go.
void shiftCellOverrides(RegisterView& view, int at, int delta) {
    std::map<std::pair<int, int>, CellColours> shifted;
    for (const auto& [cell, colours] : view.cellOverrides) {
        auto [row, column] = cell;
        if (row < at)
            shifted[cell] = colours;
        else if (delta > 0 || row > at)
            shifted[{row + delta, column}] = colours;
    }
    view.cellOverrides = std::move(shifted);
}

bool isEmptyField(pugi::xml_node field) {
    return isBlankCell(nodeText(field));
}

}  // namespace

void InsertRow(Session& session, int row, const std::string& kind) {
    RegisterView& v = session.view;
    // On the starting row the new line goes last and takes the last line's day.
    const int dayRow = row < v.lineCount ? row : v.lineCount - 1;
    const std::optional<int> day = dayRow >= 0 ? dayOfCell(v.table, dayRow) : std::nullopt;
    addxmlline(session.data.node(), session.month, row, day ? std::to_string(*day) : std::string(),
               kind);
    session.saveChange(lineChange(session, "insertion", row));

    shiftCellOverrides(v, row, 1);
    const CellColours colours{
        day.value_or(0) % 2 != 0 ? cell_colour::kInsertedOddDay : cell_colour::kInsertedEvenDay,
        std::nullopt};
    v.cellOverrides[{row, kDateCell}] = colours;
    v.cellOverrides[{row, kLineNumberCell}] = colours;
    v.markedRow = v.markedColumn = -1;
}

void makeLine(Session& session, int row, const std::string& kind) {
    pugi::xml_node data = session.data.node();
    const FieldColumns& f = session.view.fields;
    LineWriter line(session, row);
    if (line.field(schema::kCategoty) != "Income" && line.field(schema::kTypeOfEntry) == "check") {
        // The plan no longer counts the check as paid.
        if (pugi::xml_node planned = expenseOfRow(session, row)) {
            pugi::xml_node entry = monthEntry(planned, schema::kExpenseMonths, session.month);
            setChildText(entry, schema::kEntryStatus, "notpaid");
            setChildText(entry, schema::kEntryDatePaid, "0");
            setChildText(entry, schema::kEntryCheck, "0");
        }
    }
    if (isReceivableLine(line.line()))
        if (pugi::xml_node item =
                receivableItem(data, line.line(), session.month, std::to_string(row + 1)))
            item.parent().remove_child(item);

    for (size_t child = schema::kExpense; child < schema::kTypeOfEntry; ++child) {
        const int column = columnOfLineChild(f, static_cast<int>(child));
        line.set(-1, child, std::string());
        if (column >= 0)
            session.view.table.set(row, column, " ");
    }
    line.set(f.typeofentry, schema::kTypeOfEntry, kind);
    session.saveChange(lineChange(session, "type", row));
    session.view.markedRow = session.view.markedColumn = -1;
}

void deleteLine(Session& session, int row) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node line = lineOfRow(session, row);
    pugi::xml_node month = line.parent();
    // The customer's item named a line that no longer exists.
    if (isReceivableLine(line))
        if (pugi::xml_node item =
                receivableItem(data, line, session.month, attributeText("line", line)))
            item.parent().remove_child(item);
    month.remove_child(line);
    renumberLines(data, month, session.month);
    session.saveChange(lineChange(session, "deletion", row));
    shiftCellOverrides(session.view, row, -1);
    session.view.markedRow = session.view.markedColumn = -1;
}

void moveLine(Session& session, int row, LineChoices& choices) {
    const int target = choices.pickMoveTarget();
    if (target == 0 || target == row + 1)
        return;
    pugi::xml_node data = session.data.node();
    std::vector<pugi::xml_node> lines = monthLines(data, monthName(session.month));
    if (target < 1 || target > static_cast<int>(lines.size()) || row < 0 ||
        row >= static_cast<int>(lines.size())) {
        session.prompter().notify(kNoSuchLineStart + std::to_string(target) + kNoSuchLineEnd);
        return;
    }
    pugi::xml_node source = lines[static_cast<size_t>(row)];
    pugi::xml_node destination = lines[static_cast<size_t>(target - 1)];
    // The items the two lines have before the move: a customer's item goes
    // where the customer's name goes.
    const std::string targetNumber = std::to_string(target);
    pugi::xml_node sourceItem =
        isReceivableLine(source)
            ? receivableItem(data, source, session.month, attributeText("line", source))
            : pugi::xml_node();
    pugi::xml_node targetItem = isReceivableLine(destination)
                                    ? receivableItem(data, destination, session.month, targetNumber)
                                    : pugi::xml_node();

    const size_t last = schema::kTypeOfEntry;
    bool moved = false;
    for (size_t i = schema::kExpense; i <= last; ++i) {
        if (i != last && !isEmptyField(childAt(destination, i)) &&
            session.prompter().askYesNo(kMoveTargetNotEmpty) != Answer::Yes)
            break;
        setChildText(destination, i, childText(source, i));
        setChildText(source, i, i == last ? "debit" : "");
        moved = true;
    }
    // The expense moves first: once anything moved, the target's own
    // customer was overwritten (with a Yes) and the source's customer now
    // stands on the target line. A move stopped at its first question
    // leaves both items where they were.
    if (moved) {
        if (targetItem)
            targetItem.parent().remove_child(targetItem);
        if (sourceItem)
            setChildText(sourceItem, 0, targetNumber);
    }
    // What moved stays moved, even after a No, and the file holds it.
    session.saveChange(lineChange(session, "move", row) + " to line " + targetNumber);
    session.view.markedRow = session.view.markedColumn = -1;
}

}  // namespace tallix
