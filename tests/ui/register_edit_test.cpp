// Typing into the register and picking from its dialogs, driven with real
// clicks and keys. The rules of each change are the core's; here every change
// must reach the file on disk, and the grid must show what a new session
// shows of that file.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/query.h"
#include "data/schema_names.h"
#include "editing/check_lookup.h"
#include "reference/descriptions.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

using test::readFile;
using Texts = std::vector<std::string>;

// The sample year's November on screen, with one more line at the bottom
// that names no planned expense (line 22, row 21).
class RegisterEditTest : public test::WindowTest {
  protected:
    static constexpr int kPayRow = 0;         // Acme Payroll, Income
    static constexpr int kWaterRow = 1;       // Water, cheque 2062, pending
    static constexpr int kGroceriesRow = 16;  // Groceries, a planned debit
    static constexpr int kUnplannedRow = 21;
    static constexpr int kExpense = 4, kAmount = 5, kCheck = 6, kStatus = 8, kDescription = 9,
                         kInstitution = 10, kAccount = 11, kFnBank = 14, kInfo = 21,
                         kTypeofentry = 23;

    void SetUp() override {
        test::WindowTest::SetUp();
        std::string xml = readFile(yearFile());
        const size_t december = xml.find("<month month=\"December\"");
        xml.insert(xml.rfind("</month>", december),
                   "<item line=\"22\"><day>1</day><expense></expense><debit></debit><check>"
                   "</check><categoty></categoty><status></status><description></description>"
                   "<institution>First National</institution><account>Checking</account><info>"
                   "</info><accumulate></accumulate><typeofentry>debit</typeofentry></item>");
        test::writeFile(yearFile(), xml);
        start();
        ASSERT_EQ(session.view.lineCount, 22);
        ASSERT_EQ(cell(kGroceriesRow, kExpense), "Groceries");
        prompter.shown.clear();
    }
};

TEST_F(RegisterEditTest, EnterCommitsAndTabCommitsAndMovesTheEditorOn) {
    prompter.answers = {Answer::No};
    type(kPayRow, kDescription, "  two   words ");
    EXPECT_EQ(savedField(1, schema::kDescription), "two words");
    EXPECT_EQ(prompter.shown, Texts{kDescriptionNotOnList});
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_EQ(session.view.editorRow, -1);

    type(kWaterRow, kAmount, "12", Qt::Key_Tab);
    EXPECT_EQ(savedField(2, schema::kDebit), "12.00");
    // The editor stands on the next cell, drawn in the editor's colour.
    ASSERT_NE(visibleEditor(), nullptr);
    EXPECT_EQ(session.view.editorRow, kWaterRow);
    EXPECT_EQ(session.view.editorColumn, kCheck);
    EXPECT_EQ(visibleEditor()->text(), "2062");
    EXPECT_EQ(colour(kWaterRow, kCheck), QColor(253, 233, 217));
    expectGridShowsTheFile();

    // Shift+Tab arrives as Tab with Shift or as Backtab, and goes back over
    // the line's start to the line above; which cell comes next is the core's.
    QTest::keyClick(visibleEditor(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(session.view.editorColumn, kAmount);
    QTest::keyClick(visibleEditor(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(session.view.editorRow, kPayRow);
    EXPECT_EQ(session.view.editorColumn, kTypeofentry);
    EXPECT_EQ(visibleEditor()->text(), "deposit");
    QTest::keyClick(visibleEditor(), Qt::Key_Tab);
    QTest::keyClick(visibleEditor(), Qt::Key_Backtab);
    EXPECT_EQ(session.view.editorRow, kPayRow);
    EXPECT_EQ(session.view.editorColumn, kTypeofentry);
    int shown = 0;
    for (QLineEdit* e : window.grid()->viewport()->findChildren<QLineEdit*>())
        shown += e->isVisible() ? 1 : 0;
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(prompter.shown.size(), 1u);
}

TEST_F(RegisterEditTest, NothingIsSavedWithoutAnOpenEditor) {
    type(kGroceriesRow, kAmount, "130");
    std::string committed = readFile(yearFile());
    EXPECT_NE(committed.find("<debit>130.00</debit>"), std::string::npos);

    // The editor is already hidden: neither a commit nor a click saves.
    EXPECT_FALSE(grid->HideEditor());
    click(kGroceriesRow, kInfo);
    EXPECT_EQ(readFile(yearFile()), committed);

    // Escape closes the editor and keeps what was typed; the window stays.
    QLineEdit* editor = openOn(kGroceriesRow, kAmount);
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "999");
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(grid->HideEditor());
    EXPECT_EQ(savedField(17, schema::kDebit), "999.00");
    EXPECT_EQ(cell(kGroceriesRow, kAmount), "999.00");
    committed = readFile(yearFile());

    // A click below the last row neither commits nor closes the open editor.
    editor = openOn(kGroceriesRow, kAmount);
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "5");
    const QPoint below = centre(session.view.lineCount, kAmount) + QPoint(0, 40);
    ASSERT_LT(below.y() + 5, window.grid()->viewport()->height());
    QTest::mouseClick(window.grid()->viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(visibleEditor(), editor);
    EXPECT_EQ(readFile(yearFile()), committed);
    // A click on another cell commits it.
    click(kPayRow, kInfo);
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_EQ(savedField(17, schema::kDebit), "5.00");
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(RegisterEditTest, OnlyLineCellsThatTakeTypingOpenAnEditor) {
    for (int column : {0, 3, kExpense, kFnBank})
        EXPECT_EQ(openOn(kPayRow, column), nullptr) << column;
    EXPECT_EQ(openOn(session.view.lineCount, kAmount), nullptr);  // the starting row
    EXPECT_EQ(session.view.editorRow, -1);
    EXPECT_NE(openOn(kPayRow, kAmount), nullptr);
    EXPECT_EQ(grid->openEditorWidget(), visibleEditor());
    EXPECT_EQ(session.view.editorColumn, kAmount);
    EXPECT_TRUE(pickers->opened.empty());
}

TEST_F(RegisterEditTest, AnUnknownCheckStandsOutUntilTheMonthIsShownAgain) {
    const QColor checkColour(228, 109, 10);
    type(kUnplannedRow, kCheck, "9999");
    EXPECT_EQ(prompter.shown, Texts{kCheckNumberNotFound});
    EXPECT_EQ(savedField(22, schema::kCheck), "9999");
    for (int column : {kCheck, kInfo}) {
        EXPECT_EQ(colour(kUnplannedRow, column), checkColour) << column;
        EXPECT_EQ(colour(kUnplannedRow, column, Qt::ForegroundRole), QColor(Qt::white)) << column;
    }
    EXPECT_NE(colour(kUnplannedRow, kDescription), checkColour);

    clickMonth(11);
    EXPECT_NE(colour(kUnplannedRow, kCheck), checkColour);
}

TEST_F(RegisterEditTest, TheStatusAndInstitutionPickersWriteTheLineOrNothing) {
    const std::string before = readFile(yearFile());
    pickers->statuses = {std::nullopt};
    pickers->banks = {{ui::BankChoice::Outcome::Canceled, "Credit Union", "Share Draft"}};
    click(kGroceriesRow, kStatus);
    click(kWaterRow, kInstitution);
    EXPECT_EQ(pickers->opened, (Texts{"status", "institution"}));
    EXPECT_EQ(readFile(yearFile()), before);

    // Cleared at the bank: the balances follow.
    pickers->statuses = {"cleared"};
    click(kGroceriesRow, kStatus);
    EXPECT_EQ(cell(kGroceriesRow, kStatus), "cleared");
    EXPECT_EQ(savedField(17, schema::kStatus), "cleared");
    expectGridShowsTheFile();

    pickers->banks = {{ui::BankChoice::Outcome::Update, "Credit Union", "Share Draft"}};
    click(kWaterRow, kInstitution);
    EXPECT_EQ(savedField(2, schema::kInstitution), "Credit Union");
    EXPECT_EQ(savedField(2, schema::kAccount), "Share Draft");
    EXPECT_EQ(cell(kWaterRow, kAccount), "Share Draft");

    pickers->banks = {{ui::BankChoice::Outcome::Clear, "", ""}};
    click(kWaterRow, kInstitution);
    EXPECT_EQ(savedField(2, schema::kInstitution), "");
    EXPECT_EQ(savedField(2, schema::kAccount), "");
    EXPECT_TRUE(prompter.shown.empty());
    expectGridShowsTheFile();
}

TEST_F(RegisterEditTest, ARightClickPicksADescriptionThereAndOpensTheRowOperationsElsewhere) {
    const std::string untouched = readFile(yearFile());
    pickers->rowOperations = {{"cancel", ""}};
    click(kGroceriesRow, kAmount, Qt::RightButton);
    EXPECT_EQ(pickers->opened, Texts{"row operations"});
    EXPECT_EQ(readFile(yearFile()), untouched);
    EXPECT_EQ(session.view.markedRow, -1);

    // A cancelled or cleared pick is the core's.
    pickers->descriptionAnswers = {"Corner Market"};
    click(kGroceriesRow, kDescription, Qt::RightButton);
    EXPECT_EQ(pickers->opened, (Texts{"row operations", "description"}));
    EXPECT_EQ(savedField(17, schema::kDescription), "Corner Market");
    EXPECT_EQ(cell(kGroceriesRow, kDescription), "Corner Market");
    EXPECT_TRUE(prompter.shown.empty());
}

// One sitting of row changes: insert a check line, pick its expense, type its
// amount, record a transfer on a new deposit line, delete a line.
TEST_F(RegisterEditTest, ASittingOfRowChangesReachesTheFileAndTheGrid) {
    auto rowOperation = [&](int row, RowOperationChoice choice) {
        pickers->rowOperations.push_back(std::move(choice));
        click(row, kAmount, Qt::RightButton);
    };
    rowOperation(2, {"insert", "check"});  // before Resturants
    pickers->expensePicks = {{"Groceries", "Living"}};
    click(2, kExpense);
    type(2, kAmount, "25.50");
    rowOperation(0, {"insert", "deposit"});
    pickers->expensePicks = {{"Savings Transfer", ""}};
    pickers->transfers = {
        TransferAnswer{"First National", "Checking", "First National", "Savings", "200.00"}};
    click(0, kExpense);
    ASSERT_EQ(cell(2, kExpense), "Water");
    rowOperation(2, {"delete", ""});

    EXPECT_EQ(pickers->opened, (Texts{"row operations", "expense 3", "row operations", "expense 4",
                                      "transfer", "row operations"}));
    EXPECT_TRUE(prompter.shown.empty()) << prompter.shown.front();
    ASSERT_EQ(session.view.lineCount, 23);
    expectGridShowsTheFile();
    // What each change writes is the core's; here the file holds them all.
    EXPECT_EQ(savedField(1, schema::kExpense), "Savings Transfer");
    EXPECT_EQ(savedField(1, schema::kAccumulate), "Savings");
    EXPECT_EQ(savedField(3, schema::kExpense), "Groceries");
    EXPECT_EQ(savedField(3, schema::kDebit), "25.50");
    EXPECT_EQ(savedField(4, schema::kExpense), "Resturants");
}

}  // namespace
}  // namespace tallix
