#pragma once
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

class GridTable;
struct FieldColumns;

// The register lines of the month named `monthName`, in display order.
std::vector<pugi::xml_node> monthLines(pugi::xml_node data, std::string_view monthName);

// Reads the month's lines into `table`: one row per line and the starting row,
// each of at least 30 cells; the line number, the day, the weekday of the
// lowest line of each day, and the twelve fields at their columns. Leaves the
// table empty for a month without lines.
void readLinesIntoTable(pugi::xml_node data, std::string_view monthName, int monthNumber, int year,
                        int columnCount, const FieldColumns& fields, GridTable& table);

}  // namespace tallix
