#include "editing/line_day.h"

#include <algorithm>
#include <map>
#include <optional>
#include <vector>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "editing/cell_commit.h"
#include "editing/line_access.h"
#include "register/line_elements.h"

namespace tallix {
namespace {

// The whole number the text holds, digits only; nothing for anything else.
std::optional<int> wholeNumber(const std::string& text) {
    if (text.empty() || text.size() > 2 ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return std::stoi(text);
}

// The day a line holds; a line without a readable day counts as the latest,
// so a moved line never goes above it.
int dayOfLine(pugi::xml_node line) {
    return numberWithin(childText(line, schema::kDay), 1, 31).value_or(32);
}

// The colours single cells were given follow their lines: the line that was
// at `from` now stands at `to`, and the rows between close up.
void moveCellOverrides(RegisterView& view, int from, int to) {
    if (from == to)
        return;
    std::map<std::pair<int, int>, CellColours> moved;
    for (const auto& [cell, colours] : view.cellOverrides) {
        auto [row, column] = cell;
        if (row == from)
            row = to;
        else if (from < to && row > from && row <= to)
            --row;
        else if (to < from && row >= to && row < from)
            ++row;
        moved[{row, column}] = colours;
    }
    view.cellOverrides = std::move(moved);
}

}  // namespace

bool setLineDay(Session& session, int row, const std::string& text) {
    const int lastDay = daysInMonth(session.month, session.year);
    const std::optional<int> day = wholeNumber(normaliseBlanks(text));
    if (!day || *day < 1 || *day > lastDay) {
        session.prompter().notify(kNotADayStart + monthName(session.month) + kNotADayMiddle +
                                  std::to_string(lastDay) + kNotADayEnd);
        return false;
    }
    pugi::xml_node line = lineOfRow(session, row);
    pugi::xml_node month = line.parent();
    setChildText(line, schema::kDay, std::to_string(*day));

    // The first other line of an earlier day; the line goes above it, or
    // last when every other line is of its day or later.
    pugi::xml_node before;
    int from = -1;
    int to = 0;
    int index = 0;
    for (pugi::xml_node other : elementChildren(month)) {
        if (other == line) {
            from = index++;
            continue;
        }
        if (!before && dayOfLine(other) < *day)
            before = other;
        if (!before)
            ++to;
        ++index;
    }
    if (before)
        month.insert_move_before(line, before);
    else
        month.append_move(line);
    renumberLines(session.data.node(), month, session.month);
    session.saveChange(lineChange(session, "day", row));

    moveCellOverrides(session.view, from, to);
    session.view.markedRow = session.view.markedColumn = -1;
    return true;
}

}  // namespace tallix
