// The main window's register grid and the commands that recompute it.
#include <algorithm>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>

#include "app/guard.h"
#include "app/session.h"
#include "register/month_display.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/register_grid.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {
namespace {

// The column definitions give widths in characters, which the register turns
// into pixels at this many per character.
constexpr double kDefinitionPixelsPerCharacter = 6.0;

}  // namespace

int CTallixDlg::columnPixels(int definitionWidth, const QString& title) const {
    if (definitionWidth <= 1)
        return definitionWidth;  // column 0 stays a hairline
    // Drawn at the grid font's own character width, with room for the margins
    // the style keeps either side of a cell's text, and never narrower than
    // the column's title.
    QStyle* style = grid_->style();
    const double perCharacter = QFontMetricsF(grid_->font()).averageCharWidth();
    const int cellMargins =
        2 * (style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, grid_) + 1) + 1;
    const int cell =
        qRound(definitionWidth * perCharacter / kDefinitionPixelsPerCharacter) + cellMargins;
    QHeaderView* header = grid_->horizontalHeader();
    const int titleWidth = header->fontMetrics().horizontalAdvance(title) +
                           2 * style->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header) + 2;
    return std::max(cell, titleWidth);
}

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
    grid_->setShowGrid(true);
    QFont font(QStringLiteral("Courier New"), 9);
    font.setStyleHint(QFont::TypeWriter);
    grid_->setFont(font);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setWordWrap(false);
    grid_->verticalHeader()->hide();
    const int rowHeight = QFontMetrics(font).height() + 4;
    grid_->verticalHeader()->setMinimumSectionSize(rowHeight);
    grid_->verticalHeader()->setDefaultSectionSize(rowHeight);
    grid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = grid_->horizontalHeader();
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);  // column 0 is one pixel wide
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(header, &QHeaderView::sectionDoubleClicked, this, &CTallixDlg::OnColumnWidth);
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
    const auto& columns = session_.view.grid.columns;
    for (size_t i = 0; i < columns.size(); ++i)
        grid_->setColumnWidth(
            static_cast<int>(i),
            columnPixels(columns[i].width, QString::fromStdString(columns[i].title)));
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
