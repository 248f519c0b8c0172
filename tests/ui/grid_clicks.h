#pragma once
// Mouse clicks on cells of the main window's register grid.
#include <QTableView>
#include <QTest>

#include "ui/grid_model.h"
#include "ui/tallix_dlg.h"

namespace tallix::test {

// The centre of a cell, scrolled into view first.
inline QPoint cellCentre(ui::CTallixDlg& window, int row, int column) {
    const QModelIndex index = window.gridModel()->index(row, column);
    window.grid()->scrollTo(index);
    return window.grid()->visualRect(index).center();
}

inline void clickCell(ui::CTallixDlg& window, int row, int column,
                      Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(window.grid()->viewport(), button, {}, cellCentre(window, row, column));
}

inline void doubleClickCell(ui::CTallixDlg& window, int row, int column) {
    QTest::mouseDClick(window.grid()->viewport(), Qt::LeftButton, {},
                       cellCentre(window, row, column));
}

}  // namespace tallix::test
