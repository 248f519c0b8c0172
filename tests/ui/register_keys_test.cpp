// The register's keys, the DATE cell and open edits kept on leaving.
#include <gtest/gtest.h>

#include "data/schema_names.h"
#include "data/values.h"
#include "editing/line_day.h"
#include "register/line_elements.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class RegisterKeysTest : public test::WindowTest {
  protected:
    static constexpr int kWaterRow = 1, kDate = 2, kAmount = 5, kFnRegister = 13;
    void SetUp() override {
        test::WindowTest::SetUp();
        start();
    }
    double shown(int row) { return textToAmount(cell(row, kFnRegister)); }
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

    type(0, kDate, "3");
    // Below IRA Distribution (day 3, now line 17), above Water (day 2).
    Document saved = Document::load(yearFile());
    std::vector<pugi::xml_node> lines = monthLines(saved.node(), "November");
    ASSERT_EQ(lines.size(), 21u);
    for (size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(attributeText("line", lines[i]), std::to_string(i + 1));
    EXPECT_EQ(childText(lines[16], schema::kExpense), "IRA Distribution");
    EXPECT_EQ(childText(lines[17], schema::kExpense), "Acme Payroll");
    EXPECT_EQ(childText(lines[17], schema::kDay), "3");
    EXPECT_EQ(childText(lines[18], schema::kExpense), "Water");
    // Maple Street Bakery's item followed its line from 16 to 15.
    EXPECT_TRUE(receivableItem(saved.node(), lines[14], 11, "15"));
    expectGridShowsTheFile();

    // The FN register runs up from the starting row. Row 17 adds the 3244.50
    // deposit to row 18's balance, row 16 (IRA into FN Savings) leaves it, and
    // row 15 (Groceries, 129.82 out of FN Checking) takes 129.82 off.
    EXPECT_NEAR(shown(17), shown(18) + 3244.50, 0.005);
    EXPECT_NEAR(shown(16), shown(18) + 3244.50, 0.005);
    EXPECT_NEAR(shown(15), shown(18) + 3244.50 - 129.82, 0.005);
}

}  // namespace
}  // namespace tallix
