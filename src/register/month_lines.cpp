#include "register/month_lines.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "register/grid_table.h"
#include "register/register_columns.h"

namespace tallix {
namespace {

constexpr int kMinimumCells = 30;
constexpr int kLastDay = 31;
constexpr int kDayCell = 1;
constexpr int kDateCell = 2;
constexpr int kLineNumberCell = 3;
constexpr int kFirstFieldCell = 4;  // expense .. account stand in cells 4-11

// The weekday of day (text + offset) of the month; a day that is not a day
// of a month (a line still being typed) shows no weekday rather than hiding
// the whole month.
std::string weekday(const std::string& dayText, int offset, int month, int year) {
    std::optional<int> day = numberWithin(dayText, 1, kLastDay);
    return day ? dayOfWeek(*day + offset, month, year) : std::string(" ");
}

}  // namespace

std::vector<pugi::xml_node> monthLines(pugi::xml_node data, std::string_view monthName) {
    return selectAll(data, paths::kMonthByName, monthName, paths::kCloseChildren);
}

void readLinesIntoTable(pugi::xml_node data, std::string_view monthName, int monthNumber, int year,
                        int columnCount, const FieldColumns& fields, GridTable& table) {
    std::vector<pugi::xml_node> lines = monthLines(data, monthName);
    table.clear();
    if (lines.empty())
        return;
    const int n = static_cast<int>(lines.size());
    table.reset(n + 1, std::max(kMinimumCells, columnCount));

    std::string previousDay = "start";
    for (int i = 0; i < n; ++i) {
        table.set(i, kLineNumberCell, std::to_string(i + 1));
        std::vector<pugi::xml_node> children = elementChildren(lines[i]);
        auto field = [&](size_t k) {
            std::string text = k < children.size() ? nodeText(children[k]) : std::string();
            return text.empty() ? std::string(" ") : text;
        };
        std::string day = field(schema::kDay);
        table.set(i, kDateCell, day);
        for (int k = schema::kExpense; k <= schema::kAccount; ++k)
            table.set(i, kFirstFieldCell + k - schema::kExpense, field(k));
        table.set(i, fields.info, field(schema::kInfo));
        table.set(i, fields.info + 1, field(schema::kAccumulate));
        table.set(i, fields.info + 2, field(schema::kTypeOfEntry));

        // Each day's weekday stands once, on its lowest line: a new day writes
        // the weekday of (its day + 1) on the row above, as the program always has.
        if (previousDay == "start")
            previousDay = day;
        if (i > 0) {
            if (day != previousDay)
                table.set(i - 1, kDayCell, weekday(day, 1, monthNumber, year));
            else
                table.set(i - 1, kDayCell, " ");
        }
        previousDay = day;
    }
    table.set(n - 1, kDayCell, weekday(previousDay, 0, monthNumber, year));
}

}  // namespace tallix
