#pragma once
// What the main window keeps of the displayed month: its grid columns, the
// positions of the field columns, the grid table and the cells marked for
// editing. The month itself is the session's month.
#include <map>
#include <utility>

#include "register/cell_colours.h"
#include "register/grid_table.h"
#include "register/register_columns.h"

namespace tallix {

struct RegisterView {
    GridColumns grid;
    FieldColumns fields;
    GridTable table;

    // The month (1-12) whose lines the table holds, 0 before any is shown.
    int shownMonth = 0;
    // The number of lines of the displayed month (the starting row's index).
    int lineCount = 0;
    // The row the grid keeps in view: 31 after a month button, -1 for the
    // current month and during Update all months.
    int rememberedRow = 31;
    // The cell being edited (the marked cell) and the cell whose editor is open.
    int markedRow = -1;
    int markedColumn = -1;
    int editorRow = -1;
    int editorColumn = -1;
    // Set while an edited cell is being committed, so that a second commit
    // (a click arriving during a Tab) waits its turn instead of interleaving.
    bool committing = false;
    // Colours a commit gave single cells (row, column); they are drawn over
    // every other colour rule until a month is displayed again.
    std::map<std::pair<int, int>, CellColours> cellOverrides;
};

}  // namespace tallix
