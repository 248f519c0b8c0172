// The register's keys, the DATE cell and open edits kept on leaving.
#include <gtest/gtest.h>

#include "data/schema_names.h"
#include "editing/line_day.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class RegisterKeysTest : public test::WindowTest {
  protected:
    static constexpr int kWaterRow = 1, kDate = 2, kAmount = 5;
    void SetUp() override {
        test::WindowTest::SetUp();
        start();
    }
};

TEST_F(RegisterKeysTest, AnOpenEditIsKeptByEscapeAMonthButtonAndExit) {
    type(kWaterRow, kAmount, "61.25", Qt::Key_Escape);
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(savedField(2, schema::kDebit), "61.25");
    type(kWaterRow, kAmount, "62", Qt::Key_End);  // left open
    clickMonth(10);
    EXPECT_EQ(savedField(2, schema::kDebit), "62.00");
    clickMonth(11);
    type(kWaterRow, kAmount, "63", Qt::Key_End);
    window.OnBnClickedCancel();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(savedField(2, schema::kDebit), "63.00");
}

TEST_F(RegisterKeysTest, TypingOnTheSelectedCellEditsItAndEnterMovesDown) {
    click(kWaterRow, kAmount);
    QTest::keyClicks(window.grid(), "12.50");
    ASSERT_NE(visibleEditor(), nullptr);
    QTest::keyClick(visibleEditor(), Qt::Key_Return);
    EXPECT_EQ(savedField(2, schema::kDebit), "12.50");
    EXPECT_EQ(window.grid()->currentIndex(), window.gridModel()->index(kWaterRow + 1, kAmount));
    // F2 opens on the cell's own text; the arrows stay the view's.
    QTest::keyClick(window.grid(), Qt::Key_Up);
    QTest::keyClick(window.grid(), Qt::Key_F2);
    ASSERT_NE(visibleEditor(), nullptr);
    EXPECT_EQ(visibleEditor()->text(), "12.50");
}

TEST_F(RegisterKeysTest, TheDateCellMovesTheLineToItsDay) {
    const std::string before = test::readFile(yearFile());
    type(0, kDate, "31");  // Acme Payroll, day 25
    EXPECT_EQ(prompter.shown, std::vector<std::string>{std::string(kNotADayStart) + "November" +
                                                       kNotADayMiddle + "30" + kNotADayEnd});
    EXPECT_EQ(test::readFile(yearFile()), before);

    // Where the line goes and what follows it is the core's; the grid shows
    // the file as it is then.
    type(0, kDate, "3");
    EXPECT_EQ(savedField(18, schema::kExpense), "Acme Payroll");
    EXPECT_EQ(savedField(18, schema::kDay), "3");
    expectGridShowsTheFile();
}

}  // namespace
}  // namespace tallix
