// Right clicks on March of the sample year: insert, make, delete and move,
// each read back from the saved file.
#include <set>
#include <sstream>

#include "editing/add_item.h"
#include "editing/line_lookups.h"
#include "editing/row_operations.h"
#include "editing/sample_march.h"
#include "reference/descriptions.h"

namespace tallix {
namespace {

using test::Fields;

class RowOperationsTest : public test::SampleMarch {
  protected:
    void rightClick(int row, RowOperationChoice choice) {
        choices.rowOperations.push_back(std::move(choice));
        AddItem(session(), row, f().amount, choices);
    }
    std::optional<Rgb> background(int row, int column) {
        return cellColours(row, column, session().view).background;
    }
};

TEST_F(RowOperationsTest, InsertOnTheFirstRowMakesLineOneOnTheFirstLinesDay) {
    rightClick(0, {"insert", "check"});
    EXPECT_EQ(choices.opened, (std::vector<std::string>{"row operations"}));
    test::SavedMarch s = saved();
    EXPECT_EQ(s.numbers(), oneTo(25));
    EXPECT_EQ(s.fields(1), emptyLine("28", "check"));
    EXPECT_EQ(s.fields(2)[schema::kExpense], "Gasoline");
    // The customers' items follow their lines down by one.
    EXPECT_EQ(s.items("Maple Street Bakery"), (std::vector<std::string>{"21", "8"}));
    EXPECT_EQ(s.items("Riverside Garden Club"), (std::vector<std::string>{"16"}));

    // The grid shows the month again, balances included: the new line has no
    // institution, so its row equals the row below.
    EXPECT_EQ(session().view.lineCount, 25);
    EXPECT_EQ(year.cell(0, f().typeofentry), "check");
    EXPECT_EQ(year.cell(0, 3), "1");
    for (int column = f().account + 1; column < f().info; ++column)
        EXPECT_EQ(year.cell(0, column), year.cell(1, column)) << column;
    EXPECT_EQ(session().view.markedRow, -1);
}

TEST_F(RowOperationsTest, AnInsertedLinesDateAndItemCellsShowTheParityOfItsDay) {
    auto coloured = [&] {  // the rows with cells of their own colour
        std::set<int> rows;
        for (const auto& [cell, colours] : session().view.cellOverrides)
            rows.insert(cell.first);
        return rows;
    };
    // Row 18 is line 19, on the 7th; a second insert there pushes the first down.
    rightClick(18, {"insert", "debit"});
    rightClick(18, {"insert", "debit"});
    EXPECT_EQ(saved().fields(19)[schema::kDay], "7");
    for (int row : {18, 19})
        for (int column : {2, 3})
            EXPECT_EQ(background(row, column), cell_colour::kInsertedOddDay) << row << column;

    // Rows above come and go: the colours stay with their lines, and a
    // deleted line's colours go with it.
    rightClick(0, {"insert", "debit"});  // on the 28th
    EXPECT_EQ(background(0, 3), cell_colour::kInsertedEvenDay);
    EXPECT_EQ(coloured(), (std::set<int>{0, 19, 20}));
    rightClick(0, {"delete", ""});
    EXPECT_EQ(coloured(), (std::set<int>{18, 19}));

    // Line 22 moved to the 8th; the odd-day colours stay with rows 18 and 19.
    setChildText(childAt(year.month("March"), 21), schema::kDay, "8");
    ASSERT_TRUE(year.show(3));
    rightClick(21, {"insert", "medication"});
    EXPECT_EQ(background(21, 2), cell_colour::kInsertedEvenDay);
    EXPECT_EQ(background(21, 3), cell_colour::kInsertedEvenDay);
    EXPECT_EQ(coloured(), (std::set<int>{18, 19, 21}));
    EXPECT_EQ(saved().fields(22), emptyLine("8", "medication"));
}

TEST_F(RowOperationsTest, InsertOnTheStartingRowAddsALastLine) {
    rightClick(24, {"insert", "deposit"});
    test::SavedMarch s = saved();
    EXPECT_EQ(s.numbers(), oneTo(25));
    EXPECT_EQ(s.fields(25), emptyLine("1", "deposit"));
    EXPECT_EQ(s.fields(24)[schema::kExpense], "Mortgage");
}

// Make on a paid check empties the line and puts the bill back into the plan,
// which keeps its amount; due on 28 March, the update posts it again on its
// day, above the emptied line.
TEST_F(RowOperationsTest, MakeCheckPutsAPaidBillBackIntoThePlanAndTheUpdatePostsIt) {
    makeLine(session(), 2, "check");  // line 3, the Water check 2046, cleared
    test::SavedMarch made = saved();
    EXPECT_EQ(made.fields(3), emptyLine("25", "check"));
    EXPECT_EQ(made.plan("Water", schema::kEntryStatus), "notpaid");
    EXPECT_EQ(made.plan("Water", schema::kEntryDatePaid), "0");
    EXPECT_EQ(made.plan("Water", schema::kEntryCheck), "0");
    EXPECT_EQ(made.plan("Water", schema::kEntryAmount), "46.43");
    for (int column : {f().expense, f().amount, f().check, f().status, f().info, f().accumulate})
        EXPECT_TRUE(isBlankCell(year.cell(2, column))) << column;
    EXPECT_EQ(year.cell(2, f().typeofentry), "check");

    ASSERT_TRUE(OnToolsUpdate(session()));
    test::SavedMarch s = saved();
    EXPECT_EQ(s.numbers(), oneTo(25));
    EXPECT_EQ(s.fields(2)[schema::kExpense], "Water");
    EXPECT_EQ(s.fields(2)[schema::kStatus], "processing");
    EXPECT_EQ(s.fields(4), emptyLine("25", "check"));
    EXPECT_TRUE(year.prompter.shown.empty());
}

TEST_F(RowOperationsTest, MakeOnAReceivableLineTakesItsItemFromTheCustomer) {
    rightClick(6, {"make", "debit"});  // line 7, Maple Street Bakery's 600.00
    test::SavedMarch s = saved();
    EXPECT_EQ(s.items("Maple Street Bakery"), (std::vector<std::string>{"20"}));
    EXPECT_EQ(s.fields(7), emptyLine("20", "debit"));
    EXPECT_EQ(s.numbers(), oneTo(24));
}

TEST_F(RowOperationsTest, DeleteClosesTheGapAndKeepsTheItemsInStep) {
    rightClick(2, {"delete", ""});  // line 3, the Water check
    test::SavedMarch s = saved();
    EXPECT_EQ(s.numbers(), oneTo(23));
    EXPECT_EQ(s.fields(3)[schema::kExpense], "Resturants");
    EXPECT_EQ(s.items("Maple Street Bakery"), (std::vector<std::string>{"19", "6"}));
    EXPECT_EQ(s.items("Riverside Garden Club"), (std::vector<std::string>{"14"}));
    EXPECT_EQ(session().view.lineCount, 23);
    EXPECT_EQ(year.cell(2, f().expense), "Resturants");
    EXPECT_EQ(year.cell(22, 3), "23");

    // A deleted receivable line takes its item along.
    rightClick(13, {"delete", ""});
    s = saved();
    EXPECT_TRUE(s.items("Riverside Garden Club").empty());
    EXPECT_EQ(s.items("Maple Street Bakery"), (std::vector<std::string>{"18", "6"}));
    EXPECT_TRUE(year.prompter.shown.empty());
}

TEST_F(RowOperationsTest, MoveOntoAnEmptyLineAsksNothing) {
    rightClick(0, {"insert", "debit"});  // an empty line 1; Acme Payroll is now line 3
    choices.moveTargets = {1};
    rightClick(2, {"move", ""});
    EXPECT_TRUE(year.prompter.shown.empty());
    test::SavedMarch s = saved();
    Fields moved = s.fields(1);
    EXPECT_EQ(moved[schema::kDay], "28");  // the day stays with the line
    EXPECT_EQ(moved[schema::kExpense], "Acme Payroll");
    EXPECT_EQ(moved[schema::kDebit], "3150.00");
    EXPECT_EQ(moved[schema::kTypeOfEntry], "deposit");
    EXPECT_EQ(s.fields(3), emptyLine("25", "debit"));
    EXPECT_EQ(s.numbers(), oneTo(25));
}

TEST_F(RowOperationsTest, MoveAsksForEachFilledFieldAndANoStopsWhereItIs) {
    rightClick(0, {"insert", "debit"});
    pugi::xml_node target = childAt(year.month("March"), 0);
    setChildText(target, schema::kExpense, "Note");
    setChildText(target, schema::kDescription, "keep me");
    year.prompter.answers = {Answer::Yes, Answer::No};
    choices.moveTargets = {1};
    rightClick(2, {"move", ""});  // Acme Payroll
    // Then the half-moved source, a deposit that names nothing, is reported.
    ASSERT_GE(year.prompter.shown.size(), 2u);
    EXPECT_EQ(year.prompter.shown[0], kMoveTargetNotEmpty);
    EXPECT_EQ(year.prompter.shown[1], kMoveTargetNotEmpty);
    EXPECT_EQ(year.prompter.shown[2], "deposit name not found on line3 ...skipping");
    test::SavedMarch s = saved();
    const Fields to = s.fields(1);
    const Fields from = s.fields(3);
    EXPECT_EQ(to[schema::kExpense], "Acme Payroll");
    EXPECT_EQ(to[schema::kDebit], "3150.00");
    EXPECT_EQ(to[schema::kStatus], "cleared");
    EXPECT_EQ(to[schema::kDescription], "keep me");
    EXPECT_EQ(to[schema::kInstitution], "");
    EXPECT_EQ(from[schema::kExpense], "");
    EXPECT_EQ(from[schema::kStatus], "");
    EXPECT_EQ(from[schema::kDescription], "Payroll");
    EXPECT_EQ(from[schema::kInstitution], "First National");
    EXPECT_EQ(from[schema::kTypeOfEntry], "deposit");
}

// A customer's item goes where the customer's name goes: a move stopped at
// its first question leaves it; a move onto another customer's line takes it
// there, and the overwritten customer's item goes.
TEST_F(RowOperationsTest, AMovedReceivableLineKeepsOneItemPerLine) {
    auto receivables = [&] {
        std::ostringstream xml;
        requireOne(saved().doc.node(), paths::kReceivable, "Maple Street Bakery")
            .parent()
            .print(xml);
        return xml.str();
    };
    const std::string before = receivables();
    year.prompter.answers = {Answer::No};
    choices.moveTargets = {15};
    rightClick(6, {"move", ""});  // Maple's line 7 onto Riverside's line 15
    EXPECT_EQ(receivables(), before);

    year.prompter.answers = std::deque<Answer>(11, Answer::Yes);
    choices.moveTargets = {15};
    rightClick(6, {"move", ""});
    test::SavedMarch s = saved();
    EXPECT_EQ(s.fields(15)[schema::kExpense], "Maple Street Bakery");
    EXPECT_EQ(s.items("Maple Street Bakery"), (std::vector<std::string>{"20", "15"}));
    EXPECT_TRUE(s.items("Riverside Garden Club").empty());

    rightClick(0, {"insert", "debit"});  // Maple's lines are now 21 and 16
    choices.moveTargets = {1, 16};
    rightClick(15, {"move", ""});
    EXPECT_EQ(saved().items("Maple Street Bakery"), (std::vector<std::string>{"21", "1"}));
    rightClick(0, {"move", ""});  // and back from the first line
    EXPECT_EQ(saved().items("Maple Street Bakery"), (std::vector<std::string>{"21", "16"}));
}

// Make puts a check's bill back to "notpaid"; a bill that still has a line of
// its own in the month is not posted a second time.
TEST_F(RowOperationsTest, MakeOnACheckOfABillThatHasItsLinePostsNoSecondLine) {
    // Water's March bill is check 2046 on line 3; line 22 is February's
    // check, which the bank paid in March.
    auto waterLines = [&] {
        int count = 0;
        for (pugi::xml_node line : saved().lines)
            count += childText(line, schema::kExpense) == "Water";
        return count;
    };
    rightClick(0, {"insert", "check"});
    expenseLookup(session(), 0, f().expense, "Water", "Housing");
    ASSERT_EQ(waterLines(), 3);
    rightClick(0, {"make", "check"});
    EXPECT_EQ(childText(year.planMonth(paths::kExpense, "Water", 7, 3), schema::kEntryStatus),
              "notpaid");
    EXPECT_EQ(waterLines(), 2);
    EXPECT_EQ(saved().numbers(), oneTo(25));
}

TEST_F(RowOperationsTest, ACancelledOrImpossibleMoveChangesNothing) {
    const std::string before = test::readFile(year.path);
    choices.moveTargets = {0, 3, 40};
    rightClick(5, {"move", ""});
    rightClick(2, {"move", ""});  // onto itself
    EXPECT_TRUE(year.prompter.shown.empty());
    rightClick(5, {"move", ""});
    // A row without a line, asked directly: there is nothing to move.
    choices.moveTargets = {1};
    moveLine(session(), 24, choices);
    EXPECT_EQ(year.prompter.shown,
              (std::vector<std::string>{std::string(kNoSuchLineStart) + "40" + kNoSuchLineEnd,
                                        std::string(kNoSuchLineStart) + "1" + kNoSuchLineEnd}));
    EXPECT_EQ(test::readFile(year.path), before);
}

// A right click on the Description cell picks a description, clears it, or
// is cancelled.
TEST_F(RowOperationsTest, ARightClickOnTheDescriptionPicksOneClearsItOrNothing) {
    choices.descriptionAnswers = {"Corner Market", kDescriptionCancel, kDescriptionClear};
    for (const char* expected : {"Corner Market", "Corner Market", ""}) {
        AddItem(session(), 0, f().description, choices);
        EXPECT_EQ(saved().field(1, schema::kDescription), expected);
        EXPECT_EQ(year.cell(0, f().description), *expected ? expected : " ");
    }
    EXPECT_EQ(choices.opened, Fields(3, "description"));
    EXPECT_EQ(choices.offeredDescriptions, descriptions(year.data()));
    EXPECT_TRUE(year.prompter.shown.empty());
}

TEST_F(RowOperationsTest, CancelChangesNothingAndTheStartingRowHasNoLineToChange) {
    const std::string before = test::readFile(year.path);
    rightClick(3, {"cancel", ""});
    for (const char* op : {"make", "delete", "move"})
        rightClick(24, {op, "check"});
    EXPECT_EQ(test::readFile(year.path), before);
    EXPECT_EQ(choices.opened.size(), 4u);  // no move dialog on the starting row
    EXPECT_TRUE(year.prompter.shown.empty());
}

TEST_F(RowOperationsTest, AFailureNamesTheHandlerThatFailedAndTheUpdateStillRuns) {
    // A row whose ITEM cell names no line of the month.
    session().view.table.set(4, 3, "99");
    rightClick(4, {"make", "debit"});
    EXPECT_EQ(year.prompter.shown,
              (std::vector<std::string>{"runtime error in OnRowoperationsDelete() "}));
    // The update that follows shows the month as the file has it again.
    EXPECT_EQ(year.cell(4, 3), "5");

    year.prompter.shown.clear();
    session().view.table.set(4, 3, "99");
    rightClick(4, {"delete", ""});
    EXPECT_EQ(year.prompter.shown, (std::vector<std::string>{"runtime error in AddItem() "}));
    EXPECT_EQ(saved().numbers(), oneTo(24));
}

}  // namespace
}  // namespace tallix
