#pragma once
// Finding what a grid row stands for in the data file: the row's line of the
// displayed month and the planned expense its Expense and Category cells name.
#include <string>

#include <pugixml.hpp>

namespace tallix {

class GridTable;
class Session;
struct FieldColumns;

// The line of the displayed month whose number stands in the row's ITEM
// cell. Throws when there is none.
pugi::xml_node lineOfRow(Session& session, int row);

// The planned expense named by the row's Expense and Category cells, or a
// null node.
pugi::xml_node expenseOfRow(Session& session, int row);

// The child of a register line that holds a grid column's field, or -1 for
// columns that are not line fields (DAY, ITEM, B and the balance columns).
int lineChildOfColumn(const FieldColumns& fields, int column);
// The grid column that shows a line child, the inverse of the above.
int columnOfLineChild(const FieldColumns& fields, int child);

// The guarded forms used by the cell commit: failures show
// "runtime error in get_lines() " / "runtime error in get_expense() " and
// give a null node.
pugi::xml_node get_lines(Session& session, int row);
pugi::xml_node get_expense(Session& session, int row);

// How Edit > Undo names a change of a row's line: "amount of line 7, March"
// (the row's line number and the displayed month).
std::string lineChange(const Session& session, const std::string& what, int row);
// The same with the column's title as `what`, in lower case.
std::string cellChange(const Session& session, int column, int row);

// Writes the fields of a row's line together with the cells that show them.
class LineWriter {
  public:
    // Throws when the row has no line.
    LineWriter(Session& session, int row);

    // The line's child and, unless `column` is negative, the row's cell.
    void set(int column, size_t child, const std::string& text);
    std::string field(size_t child) const;
    // The line's `line` attribute.
    std::string number() const;
    pugi::xml_node line() const { return line_; }

  private:
    GridTable& table_;
    int row_;
    pugi::xml_node line_;
};

}  // namespace tallix
