#pragma once
// The register's columns, built from the column definitions of the year file,
// and the grid positions of the named field columns.
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

struct GridColumn {
    std::string title;
    int width = 0;  // pixels
};

// The grid's columns: column 0 is a narrow blank one, 1-3 are always "DAY",
// "DATE" and "ITEM", the rest stand where their definitions put them.
struct GridColumns {
    std::vector<GridColumn> columns;
    int outstandingCheckColumn = -1;
};

// Grid positions of the field columns, resolved by title.
struct FieldColumns {
    int expense = -1;
    int b = -1;
    int amount = -1;
    int check = -1;
    int category = -1;
    int status = -1;
    int description = -1;
    int institution = -1;
    int account = -1;
    int info = -1;
    int accumulate = -1;
    int typeofentry = -1;
};

// The position (fourth child) of the column titled `title`. Throws when the
// year file defines no such column or its position is not a number.
int columnPosition(pugi::xml_node data, std::string_view title);

// What could not be read from the column definitions, one text each.
using ColumnProblems = std::vector<std::string>;

// Rebuilds the grid's columns from the definitions. A definition whose
// position or width is not a whole number throws, unless `problems` is given:
// then it is noted there, and the column is left out (no position) or gets
// the usual width (no width).
GridColumns AddtallixColumns(pugi::xml_node data, ColumnProblems* problems = nullptr);

// Resolves the twelve field columns; throws naming a missing title.
FieldColumns initcolumns(pugi::xml_node data);

}  // namespace tallix
