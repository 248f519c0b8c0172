#include "register/register_columns.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"

namespace tallix {
namespace {

constexpr int kCharacterWidth = 6;  // pixels per character of a column width
constexpr int kItemColumnWidth = 50;
constexpr int kDefaultWidth = 10;  // characters

// A position or width as a whole number within its range; a fraction is a
// fault, as is anything outside the range.
int wholeNumber(const std::string& text, std::string_view what, int high) {
    std::optional<int> value = numberWithin(text, 0, high);
    if (!value || textToAmount(text) != *value)
        throw std::invalid_argument(std::string(what) + " is not a whole number from 0 to " +
                                    std::to_string(high) + ": " + text);
    return *value;
}

}  // namespace

int columnPosition(pugi::xml_node data, std::string_view title) {
    pugi::xml_node column = selectOne(data, paths::kColumn, title);
    if (!column)
        throw std::runtime_error("the year file has no register column titled '" +
                                 std::string(title) + "'");
    return wholeNumber(childText(column, 3), "a column position", schema::kMostColumnPosition);
}

GridColumns AddtallixColumns(pugi::xml_node data, ColumnProblems* problems) {
    auto number = [&](pugi::xml_node definition, size_t child, std::string_view what,
                      int high) -> std::optional<int> {
        try {
            return wholeNumber(childText(definition, child), what, high);
        } catch (const std::exception& e) {
            if (!problems)
                throw;
            problems->push_back("register column '" + attributeText("column", definition) +
                                "': " + e.what());
            return std::nullopt;
        }
    };
    GridColumns grid;
    grid.columns.push_back({"", 1});
    std::vector<pugi::xml_node> definitions = selectAll(data, paths::kAllRegisterColumns);
    for (size_t i = 0; i < definitions.size(); ++i) {
        pugi::xml_node definition = definitions[i];
        // A column without a usable position has no place in the grid; one
        // without a usable width gets the usual one.
        std::optional<int> position =
            number(definition, 3, "a column position", schema::kMostColumnPosition);
        if (!position)
            continue;
        const int width = number(definition, 1, "a column width", schema::kMostColumnWidth)
                              .value_or(kDefaultWidth) *
                          kCharacterWidth;
        if (i == 0) {
            grid.columns.push_back({"DAY", width});
        } else if (i == 1) {
            grid.columns.push_back({"DATE", width});
        } else if (i == 2) {
            grid.columns.push_back({"ITEM", kItemColumnWidth});
        } else {
            if (childText(definition, 2) == "outstanding check")
                grid.outstandingCheckColumn = *position;
            // Inserted where the definition says, as the list control did; a
            // position past the end appends.
            size_t at = std::clamp<size_t>(static_cast<size_t>(std::max(*position, 0)), 0,
                                           grid.columns.size());
            grid.columns.insert(grid.columns.begin() + static_cast<std::ptrdiff_t>(at),
                                {childText(definition, 0), width});
        }
    }
    return grid;
}

FieldColumns initcolumns(pugi::xml_node data) {
    FieldColumns f;
    f.expense = columnPosition(data, "Expense");
    f.b = columnPosition(data, "B");
    f.amount = columnPosition(data, "Amount");
    f.check = columnPosition(data, "Check");
    f.category = columnPosition(data, "Category");
    f.status = columnPosition(data, "Status");
    f.description = columnPosition(data, "Description");
    f.institution = columnPosition(data, "Institution");
    f.account = columnPosition(data, "Account");
    f.info = columnPosition(data, "Info");
    f.accumulate = columnPosition(data, "Accumulate");
    f.typeofentry = columnPosition(data, "Typeofentry");
    return f;
}

}  // namespace tallix
