// The main window's register grid and the commands that recompute it.
#include <algorithm>

#include <QHeaderView>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>

#include "app/guard.h"
#include "app/session.h"
#include "register/month_display.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/register_grid.h"
#include "ui/register_table.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {

void CTallixDlg::fitWidthToGrid() {
    int wanted = 2 * grid_->frameWidth() + grid_->verticalScrollBar()->sizeHint().width();
    for (int c = 0; c < gridModel_->columnCount(); ++c)
        wanted += grid_->columnWidth(c);
    const QMargins margins = layout()->contentsMargins();
    wanted += margins.left() + margins.right();
    const int available = screen() ? screen()->availableGeometry().width() : wanted;
    if (wanted > width())
        resize(std::min(wanted, available), height());
}

void CTallixDlg::setUpGrid() {
    grid_->setModel(gridModel_);
    styleRegisterTable(grid_);
    connect(grid_->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            &CTallixDlg::OnColumnWidth);
    // Typing, clicks and the pickers; after a change the same month is shown
    // again where the user scrolled it.
    registerGrid_ = new RegisterGrid(
        session_, grid_, gridModel_, [this] { showDisplayedMonth(true); }, this);
}

void CTallixDlg::showDisplayedMonth(bool keepScrollPosition) {
    const QPoint scrolled(grid_->horizontalScrollBar()->value(),
                          grid_->verticalScrollBar()->value());
    // A month displayed anew drops the colours earlier commits gave cells; the
    // same month recomputed keeps them.
    if (!keepScrollPosition)
        session_.view.cellOverrides.clear();
    gridModel_->reload();
    sizeRegisterColumns(grid_, session_.view.grid);
    const int remembered = session_.view.rememberedRow;
    if (keepScrollPosition) {
        grid_->horizontalScrollBar()->setValue(scrolled.x());
        grid_->verticalScrollBar()->setValue(scrolled.y());
    } else if (remembered >= 0 && remembered < gridModel_->rowCount())
        grid_->scrollTo(gridModel_->index(remembered, 0));
    else
        grid_->scrollToTop();
    setWindowTitle(QString::fromStdString(session_.title()));
    // The green month button is always the month on screen.
    monthButtons_->press(session_.month);
    // Every change the window makes ends with its month shown again, so this
    // is where Edit > Undo and Redo learn of it (their keys work only while
    // they are enabled).
    updateUndoAction();
}

void CTallixDlg::Refresh() {
    tallix::Refresh(session_);
    showDisplayedMonth();
}

void CTallixDlg::OnToolsUpdate() {
    tallix::OnToolsUpdate(session_);
    // The same month recomputed: the grid stays where the user scrolled it.
    showDisplayedMonth(true);
}

void CTallixDlg::OnToolsUpdateallmonths() {
    tallix::OnToolsUpdateallmonths(session_);
    // A December without lines was refused: the grid then shows no lines
    // rather than another month's under December's title.
    if (session_.view.lineCount == 0)
        session_.view.table.clear();
    showDisplayedMonth();
}

void CTallixDlg::showLine(int month, int line) {
    guarded(session_.prompter(), "OnFindLine", [&] {
        session_.month = month;
        session_.view.rememberedRow = line - 1;
        if (!displayMonth(session_, std::to_string(month)))
            return;
        showDisplayedMonth();
        grid_->setCurrentIndex(gridModel_->index(line - 1, session_.view.fields.expense));
    });
}

}  // namespace tallix::ui
