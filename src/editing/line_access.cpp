#include "editing/line_access.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "app/guard.h"
#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "register/month_lines.h"

namespace tallix {
namespace {

constexpr int kLineNumberCell = 3;
constexpr int kDateCell = 2;

}  // namespace

pugi::xml_node lineOfRow(Session& session, int row) {
    const std::string& number = session.view.table.cell(row, kLineNumberCell);
    std::vector<pugi::xml_node> lines = monthLines(session.data.node(), monthName(session.month));
    std::optional<int> n = numberWithin(number, 1, static_cast<int>(lines.size()));
    if (!n)
        throw std::out_of_range("the month has no line " + number);
    return lines[static_cast<size_t>(*n - 1)];
}

pugi::xml_node expenseOfRow(Session& session, int row) {
    const FieldColumns& f = session.view.fields;
    pugi::xml_node category =
        selectOne(session.data.node(), paths::kCategory, session.view.table.cell(row, f.category));
    if (!category)
        return {};
    return selectOne(category, paths::kExpenseInCategory, session.view.table.cell(row, f.expense));
}

namespace {

// Each field column with the line child it shows.
std::array<std::pair<int, int>, 11> fieldColumnChildren(const FieldColumns& f) {
    return {{{f.expense, schema::kExpense},
             {f.amount, schema::kDebit},
             {f.check, schema::kCheck},
             {f.category, schema::kCategoty},
             {f.status, schema::kStatus},
             {f.description, schema::kDescription},
             {f.institution, schema::kInstitution},
             {f.account, schema::kAccount},
             {f.info, schema::kInfo},
             {f.accumulate, schema::kAccumulate},
             {f.typeofentry, schema::kTypeOfEntry}}};
}

}  // namespace

int lineChildOfColumn(const FieldColumns& f, int column) {
    if (column == kDateCell)
        return schema::kDay;
    for (const auto& [col, child] : fieldColumnChildren(f))
        if (col == column)
            return child;
    return -1;
}

int columnOfLineChild(const FieldColumns& f, int child) {
    if (child == schema::kDay)
        return kDateCell;
    for (const auto& [col, lineChild] : fieldColumnChildren(f))
        if (lineChild == child)
            return col;
    return -1;
}

LineWriter::LineWriter(Session& session, int row)
    : table_(session.view.table), row_(row), line_(lineOfRow(session, row)) {}

void LineWriter::set(int column, size_t child, const std::string& text) {
    setChildText(line_, child, text);
    if (column >= 0)
        table_.set(row_, column, text);
}

std::string LineWriter::field(size_t child) const {
    return childText(line_, child);
}

std::string LineWriter::number() const {
    return attributeText("line", line_);
}

pugi::xml_node get_lines(Session& session, int row) {
    pugi::xml_node line;
    guarded(session.prompter(), "get_lines", [&] { line = lineOfRow(session, row); });
    return line;
}

pugi::xml_node get_expense(Session& session, int row) {
    pugi::xml_node expense;
    guarded(session.prompter(), "get_expense", [&] { expense = expenseOfRow(session, row); });
    return expense;
}

std::string lineChange(const Session& session, const std::string& what, int row) {
    return what + " of line " + std::to_string(row + 1) + ", " + monthName(session.month);
}

std::string cellChange(const Session& session, int column, int row) {
    const std::vector<GridColumn>& columns = session.view.grid.columns;
    const std::string title = column >= 0 && column < static_cast<int>(columns.size())
                                  ? columns[static_cast<size_t>(column)].title
                                  : std::string();
    std::string what;
    for (char c : title)
        if (c != ' ' || (!what.empty() && what.back() != ' '))
            what += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    while (!what.empty() && what.back() == ' ')
        what.pop_back();
    return lineChange(session, what.empty() ? "cell" : what, row);
}

}  // namespace tallix
