#pragma once
// How a register grid looks on a table view, shared by the main window and
// the read-only month of an older version.
#include <QString>

class QTableView;

namespace tallix {
struct GridColumns;
}

namespace tallix::ui {

// A typewriter font, rows of a fixed height, no row header, titles on the
// left, column 0 one pixel wide, one cell selected at a time and no editing
// of the view's own.
void styleRegisterTable(QTableView* table);

// A column's width on screen from its definition's width (pixels at six per
// character), in the table's font and wide enough for its title.
int registerColumnPixels(const QTableView* table, int definitionWidth, const QString& title);
// Every column of `columns` at that width.
void sizeRegisterColumns(QTableView* table, const GridColumns& columns);

}  // namespace tallix::ui
