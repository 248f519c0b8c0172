#pragma once
// Finding what a grid row stands for in the data file: the row's line of the
// displayed month and the planned expense its Expense and Category cells name.
#include <pugixml.hpp>

namespace tallix {

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

// The guarded forms used by the cell commit: failures show
// "runtime error in get_lines() " / "runtime error in get_expense() " and
// give a null node.
pugi::xml_node get_lines(Session& session, int row);
pugi::xml_node get_expense(Session& session, int row);

}  // namespace tallix
