// Edit > Find with Ctrl+F: the results of the year, and a double click that
// shows the line in its month.
#include <QTableWidget>

#include "ui/find_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class FindWindowTest : public test::WindowTest {};

TEST_F(FindWindowTest, CtrlFListsTheYearsLinesAndADoubleClickShowsOne) {
    start();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    ui::CFindDlg* find = window.findDialog();
    ASSERT_NE(find, nullptr);
    ASSERT_TRUE(find->isVisible());
    QTest::keyClicks(find->textEdit(), "$1,850");
    QTest::mouseClick(find->findButton(), Qt::LeftButton);
    QTableWidget* results = find->results();
    ASSERT_EQ(results->rowCount(), 11);  // the mortgage, January to November
    EXPECT_EQ(results->item(2, 0)->text(), "March");
    EXPECT_EQ(results->item(2, 3)->text(), "Mortgage");

    const QRect march = results->visualItemRect(results->item(2, 3));
    QTest::mouseClick(results->viewport(), Qt::LeftButton, {}, march.center());
    QTest::mouseDClick(results->viewport(), Qt::LeftButton, {}, march.center());
    EXPECT_EQ(window.windowTitle(), "March 2026");
    const int line = results->item(2, 2)->text().toInt();
    EXPECT_EQ(window.grid()->currentIndex().row(), line - 1);
    EXPECT_EQ(cell(line - 1, session.view.fields.expense), "Mortgage");
}

}  // namespace
}  // namespace tallix
