// The register's keyboard, driven with real keys: typing on the selected cell,
// F2, Enter and Escape in the editor, the DATE cell that moves a line, and an
// open edit that survives leaving the month or the program.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/schema_names.h"
#include "data/values.h"
#include "editing/line_day.h"
#include "register/line_elements.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

using test::readFile;

class RegisterKeysTest : public test::WindowTest {
  protected:
    static constexpr int kPayRow = 0;    // Acme Payroll, day 25, 3244.50 into FN Checking
    static constexpr int kWaterRow = 1;  // Water, 48.60
    static constexpr int kDate = 2, kAmount = 5, kFnRegister = 13;

    void SetUp() override {
        test::WindowTest::SetUp();
        start();
        prompter.shown.clear();
    }
    QTableView* view() { return window.grid(); }
    QLineEdit* typeOver(int row, int column, const QString& text) {
        QLineEdit* editor = openOn(row, column);
        if (editor) {
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(editor, text);
        }
        return editor;
    }
    double shownAmount(int row, int column) { return textToAmount(cell(row, column)); }
};

TEST_F(RegisterKeysTest, AnOpenEditIsKeptByEscapeAMonthButtonAndExit) {
    QLineEdit* editor = typeOver(kWaterRow, kAmount, "61.25");
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(savedField(2, schema::kDebit), "61.25");

    ASSERT_NE(typeOver(kWaterRow, kAmount, "62"), nullptr);
    clickMonth(10);
    EXPECT_EQ(savedField(2, schema::kDebit), "62.00");

    clickMonth(11);
    ASSERT_NE(typeOver(kWaterRow, kAmount, "63"), nullptr);
    window.OnBnClickedCancel();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(savedField(2, schema::kDebit), "63.00");
}

TEST_F(RegisterKeysTest, TypingOnTheSelectedCellEditsItAndEnterMovesDown) {
    click(kWaterRow, kAmount);
    QTest::keyClicks(view(), "12.50");
    ASSERT_NE(visibleEditor(), nullptr);
    QTest::keyClick(visibleEditor(), Qt::Key_Return);
    EXPECT_EQ(savedField(2, schema::kDebit), "12.50");
    EXPECT_EQ(view()->currentIndex(), window.gridModel()->index(kWaterRow + 1, kAmount));

    // F2 opens on the cell's own text; the arrows stay the view's.
    QTest::keyClick(view(), Qt::Key_Up);
    QTest::keyClick(view(), Qt::Key_F2);
    ASSERT_NE(visibleEditor(), nullptr);
    EXPECT_EQ(visibleEditor()->text(), "12.50");
    EXPECT_EQ(session.view.editorRow, kWaterRow);
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(RegisterKeysTest, TheDateCellMovesTheLineToItsDay) {
    // Day 31 does not exist in November: refused, nothing written.
    const std::string before = readFile(yearFile());
    ASSERT_NE(typeOver(kPayRow, kDate, "31"), nullptr);
    QTest::keyClick(visibleEditor(), Qt::Key_Return);
    EXPECT_EQ(prompter.shown, std::vector<std::string>{std::string(kNotADayStart) + "November" +
                                                       kNotADayMiddle + "30" + kNotADayEnd});
    EXPECT_EQ(readFile(yearFile()), before);

    ASSERT_NE(typeOver(kPayRow, kDate, "3"), nullptr);
    QTest::keyClick(visibleEditor(), Qt::Key_Return);
    // Lines 2-18 move up one; Acme Payroll goes below IRA Distribution (day 3,
    // now line 17) and above Water (day 2).
    Document saved = Document::load(yearFile());
    std::vector<pugi::xml_node> lines = monthLines(saved.node(), "November");
    ASSERT_EQ(lines.size(), 21u);
    for (size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(attributeText("line", lines[i]), std::to_string(i + 1));
    EXPECT_EQ(childText(lines[17], schema::kExpense), "Acme Payroll");
    EXPECT_EQ(childText(lines[17], schema::kDay), "3");
    EXPECT_EQ(childText(lines[16], schema::kExpense), "IRA Distribution");
    EXPECT_EQ(childText(lines[18], schema::kExpense), "Water");
    // Maple Street Bakery's item followed its line from 16 to 15.
    EXPECT_TRUE(receivableItem(saved.node(), lines[14], 11, "15"));
    EXPECT_EQ(cell(17, kDate), "3");
    expectGridShowsTheFile();

    // The FN register runs up from the starting row: row 18 (Water, a posted
    // check of 51.74) ... row 17 adds the 3244.50 deposit, row 16 (IRA into
    // FN Savings) leaves it, row 15 (Groceries, 129.82) takes it off.
    const double belowPay = shownAmount(18, kFnRegister);
    EXPECT_NEAR(shownAmount(17, kFnRegister), belowPay + 3244.50, 0.005);
    EXPECT_NEAR(shownAmount(16, kFnRegister), belowPay + 3244.50, 0.005);
    EXPECT_NEAR(shownAmount(15, kFnRegister), belowPay + 3244.50 - 129.82, 0.005);
}

}  // namespace
}  // namespace tallix
