#include "ui/register_table.h"

#include <algorithm>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QStyle>
#include <QTableView>

#include "register/register_columns.h"

namespace tallix::ui {
namespace {

// The column definitions give widths in characters, which the register turns
// into pixels at this many per character.
constexpr double kDefinitionPixelsPerCharacter = 6.0;

}  // namespace

void styleRegisterTable(QTableView* table) {
    table->setShowGrid(true);
    QFont font(QStringLiteral("Courier New"), 9);
    font.setStyleHint(QFont::TypeWriter);
    table->setFont(font);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    const int rowHeight = QFontMetrics(font).height() + 4;
    table->verticalHeader()->setMinimumSectionSize(rowHeight);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = table->horizontalHeader();
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);  // column 0 is one pixel wide
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

int registerColumnPixels(const QTableView* table, int definitionWidth, const QString& title) {
    if (definitionWidth <= 1)
        return definitionWidth;  // column 0 stays a hairline
    // Drawn at the font's own character width, with room for the margins the
    // style keeps either side of a cell's text, and never narrower than the
    // column's title.
    QStyle* style = table->style();
    const double perCharacter = QFontMetricsF(table->font()).averageCharWidth();
    const int cellMargins =
        2 * (style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, table) + 1) + 1;
    const int cell =
        qRound(definitionWidth * perCharacter / kDefinitionPixelsPerCharacter) + cellMargins;
    const QHeaderView* header = table->horizontalHeader();
    const int titleWidth = header->fontMetrics().horizontalAdvance(title) +
                           2 * style->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header) + 2;
    return std::max(cell, titleWidth);
}

void sizeRegisterColumns(QTableView* table, const GridColumns& columns) {
    for (size_t i = 0; i < columns.columns.size(); ++i) {
        const GridColumn& column = columns.columns[i];
        table->setColumnWidth(
            static_cast<int>(i),
            registerColumnPixels(table, column.width, QString::fromStdString(column.title)));
    }
}

}  // namespace tallix::ui
