#pragma once
// Changes to the register-column definitions of a year file: a balance column
// added, removed, given another key or header text, or another width. After
// every change the positions from the thirteenth column on are written again
// in file order, so they stay unique and consecutive (1, 2, 3 ...).
#include <optional>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace tallix {

// The kinds of balance column, written as the sample year writes them:
// "regcolumn", "bankcolumn", "outstanding check" (drawn in the outstanding
// colour) and "creditcard".
enum class ColumnKind { Register, Bank, Outstanding, Card };
std::string_view columnKindWord(ColumnKind kind);

// A new balance column's width, in characters.
inline constexpr const char* kNewColumnWidth = "12";

// Refuses (PlanRefusal) a column key or header text that is empty, "0" (the
// file's word for "no column") or already the key or header text of a
// column: the balance engine finds a column by its key, and two columns
// with one name would share every balance.
void refuseTakenColumn(pugi::xml_node data, std::string_view title);

// Adds a column keyed `key` with header text `title`, after the last balance
// column and before "Info" (made as a copy of the "Info" definition, which
// every year file has), and renumbers.
pugi::xml_node addBalanceColumn(pugi::xml_node data, std::string_view key, std::string_view title,
                                ColumnKind kind);

// Removes the column keyed `key` (nothing when there is none) and renumbers.
void removeColumn(pugi::xml_node data, std::string_view key);

// Gives the column keyed `key` the key `newKey`; its header text follows
// when it was the key. Nothing when there is no such column.
void renameColumnKey(pugi::xml_node data, std::string_view key, std::string_view newKey);

// Sets the header text of the column keyed `key`.
void setColumnTitle(pugi::xml_node data, std::string_view key, std::string_view title);

// Writes the positions of the thirteenth and later columns in file order.
void renumberColumns(pugi::xml_node data);

// One definition as the column-width dialog shows it.
struct ColumnWidth {
    std::string key;
    std::string title;
    std::string width;
};

// The definition behind grid column `gridColumn` (1 = the first definition,
// as the grid is built); nothing for column 0 or a column past the end.
std::optional<ColumnWidth> columnAtGridPosition(pugi::xml_node data, int gridColumn);

}  // namespace tallix
