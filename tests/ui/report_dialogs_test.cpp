#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "reports/reports.h"
#include "ui/nextyear_dlg.h"
#include "ui/recurring_dlg.h"
#include "ui/sample_year.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

using ReportDialogsTest = test::SampleYearTest;

TEST_F(ReportDialogsTest, TheRecurringListEndsWithItsTotalsAndColoursWhatIsNotPaid) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    // December's bills are all still "notpaid".
    Report report = buildReport(session.data.node(), ReportKind::Recurring, 12);
    ui::CRecurringDlg dialog(session, report);
    QTableWidget* list = dialog.list();
    ASSERT_GE(list->rowCount(), 3);
    QStringList firstCells;
    for (int r = 0; r < list->rowCount(); ++r) {
        QTableWidgetItem* item = list->item(r, 1);
        firstCells << (item ? item->text() : QString());
    }
    EXPECT_TRUE(firstCells.contains("TOTAL"));
    EXPECT_TRUE(firstCells.contains("LEFT TO PAY"));

    bool redSeen = false;
    for (int r = 0; r < list->rowCount(); ++r)
        for (int c = 0; c < list->columnCount(); ++c)
            if (QTableWidgetItem* item = list->item(r, c))
                redSeen |= item->background().color() == QColor(255, 0, 0);
    EXPECT_TRUE(redSeen);
}

TEST_F(ReportDialogsTest, MakeNextYearOffersTheNextNameAndRefusesTheCurrentOne) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    ui::CNextyearDlg dialog(session);
    EXPECT_EQ(dialog.nextFileNameEdit()->text(), "tallix2027.xml");
    EXPECT_EQ(dialog.createButton()->text(), "CREATE NEXT YEARS TALLIX");

    dialog.nextFileNameEdit()->setText("tallix2026.xml");
    std::string before = test::readFile(yearFile());
    QTest::mouseClick(dialog.createButton(), Qt::LeftButton);
    ASSERT_EQ(prompter.shown.size(), 1u);
    EXPECT_EQ(prompter.shown[0].rfind("You are atempting to set next years tallix datafile", 0),
              0u);
    EXPECT_EQ(test::readFile(yearFile()), before);
    EXPECT_FALSE(std::filesystem::exists(env.root / "tallix" / "tallix2027.xml"));

    dialog.nextFileNameEdit()->setText("tallix2027.xml");
    QTest::mouseClick(dialog.createButton(), Qt::LeftButton);
    EXPECT_TRUE(std::filesystem::exists(env.root / "tallix" / "tallix2027.xml"));
    EXPECT_EQ(session.fileName, "tallix2027.xml");
    EXPECT_EQ(session.year, 2027);
}

}  // namespace
}  // namespace tallix
