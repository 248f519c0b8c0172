#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "register/cell_colours.h"
#include "register/register_view.h"

namespace tallix {
namespace {

using namespace cell_colour;

constexpr int kColumns = 24;
constexpr int kOutstanding = 15;

// The sample year's layout: Expense..Account at 4-11, "B" at 12, balance
// columns 13-20 (15 the outstanding checks), Info, Accumulate and
// Typeofentry at 21-23.
RegisterView sampleLayout(int lines) {
    RegisterView v;
    v.grid.columns.assign(kColumns, GridColumn{"", 60});
    v.grid.outstandingCheckColumn = kOutstanding;
    v.fields = {.expense = 4,
                .b = 12,
                .amount = 5,
                .check = 6,
                .category = 7,
                .status = 8,
                .description = 9,
                .institution = 10,
                .account = 11,
                .info = 21,
                .accumulate = 22,
                .typeofentry = 23};
    v.table.reset(lines + 1, 30);
    v.lineCount = lines;
    return v;
}

void setLine(RegisterView& v, int row, const std::string& type, const std::string& status = " ",
             const std::string& day = "10") {
    v.table.set(row, 2, day);
    v.table.set(row, v.fields.status, status);
    v.table.set(row, v.fields.typeofentry, type);
}

CellColours colours(Rgb background, std::optional<Rgb> text) {
    return {background, text};
}

// A background that leaves the text in the grid's own colour.
CellColours backgroundOnly(Rgb background) {
    return {background, std::nullopt};
}

TEST(CellColours, FollowTheLinesTypeStatusAndDay) {
    const std::optional<Rgb> none;
    const struct {
        const char *type, *status, *day;
        int column;
        CellColours expected;
    } cases[] = {
        // clang-format off
        // Debits are striped by the parity of their day; grid column 5 is red.
        {"debit", "cleared", "14", 4, {kDebitEvenDay, kBlack}}, {"debit", "cleared", "14", 5, {kDebitEvenDay, kRed}},
        {"debit", "cleared", "7", 9, {kDebitOddDay, kBlack}}, {"Auto", " ", "3", 4, {kAuto, kBlack}},
        {"auto", " ", "3", 5, {kAuto, kRed}}, {"Auto-Bank", " ", "3", 10, {kAuto, kBlack}},
        // A check not yet seen by the bank is red, with white text in column 5.
        {"check", "pending", "5", 5, {kPendingCheck, kWhite}}, {"check", " ", "5", 4, {kPendingCheck, kBlack}},
        {"check", "", "5", 5, {kPendingCheck, kWhite}}, {"check", "cleared", "5", 5, {kCheck, kWhite}},
        {"check", "Pending", "5", 8, {kCheck, kBlack}}, {"medication", " ", "5", 5, {kMedication, kRed}},
        {"Medication", " ", "5", 6, {kMedication, kBlack}}, {"posted check", "cleared", "5", 5, {kPostedCheck, kWhite}},
        {"posted check", "cleared", "5", 6, {kPostedCheck, kBlack}}, {"credit card", " ", "5", 5, {kCreditCard, kRed}},
        // Deposits are black throughout, column 5 included; a receivable keeps
        // the grid's own text colour.
        {"deposit", "notpaid", "25", 5, {kDeposit, kBlack}}, {"receivable", " ", "5", 5, {kReceivable, none}},
        // The Info, Accumulate and Typeofentry cells take the row's colour.
        {"deposit", " ", "5", 21, {kDeposit, kBlack}}, {"check", "pending", "5", 23, {kPendingCheck, kBlack}},
        // Types are matched exactly.
        {"transfer", " ", "5", 5, {}}, {"Debit", " ", "5", 5, {}}, {" ", " ", "5", 5, {}},
        // clang-format on
    };
    for (const auto& c : cases) {
        RegisterView v = sampleLayout(3);
        setLine(v, 1, c.type, c.status, c.day);
        EXPECT_EQ(cellColours(1, c.column, v), c.expected)
            << c.type << " / '" << c.status << "' / day " << c.day << " / column " << c.column;
    }
}

TEST(CellColours, DebitStripesFollowTheDayNotTheRow) {
    RegisterView v = sampleLayout(4);
    setLine(v, 0, "debit", " ", "12");
    setLine(v, 1, "debit", " ", "12");
    setLine(v, 2, "debit", " ", "11");
    setLine(v, 3, "debit", " ", " ");  // a line still without a day: no failure
    EXPECT_EQ(cellColours(0, 4, v).background, kDebitEvenDay);
    EXPECT_EQ(cellColours(1, 4, v).background, kDebitEvenDay);
    EXPECT_EQ(cellColours(2, 4, v).background, kDebitOddDay);
    EXPECT_EQ(cellColours(3, 4, v).background, kDebitEvenDay);
}

TEST(CellColours, BalanceColumnsLieStrictlyBetweenAccountAndInfo) {
    RegisterView v = sampleLayout(2);
    setLine(v, 0, "check", "pending");
    for (int column = 12; column <= 20; ++column) {
        Rgb expected = column == kOutstanding ? kOutstandingCheck : kBalance;
        EXPECT_EQ(cellColours(0, column, v), colours(expected, kBlack)) << column;
    }
    // Account and Info themselves take the row's colour.
    EXPECT_EQ(cellColours(0, 11, v).background, kPendingCheck);
    EXPECT_EQ(cellColours(0, 21, v).background, kPendingCheck);
}

TEST(CellColours, TheFirstFourColumnsAndColumnsFromTwelveBeforeInfoHaveNone) {
    RegisterView v = sampleLayout(2);
    setLine(v, 0, "deposit");
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(cellColours(0, column, v), CellColours{}) << column;

    // With Account moved to 14, columns 12-14 are neither balances nor field
    // cells of the row.
    v.fields.account = 14;
    for (int column = 12; column <= 14; ++column)
        EXPECT_EQ(cellColours(0, column, v), CellColours{}) << column;
    EXPECT_EQ(cellColours(0, 15, v), colours(kOutstandingCheck, kBlack));
    EXPECT_EQ(cellColours(0, 11, v), colours(kDeposit, kBlack));
}

TEST(CellColours, RedTextBelongsToGridColumnFiveWhereverTheAmountStands) {
    RegisterView v = sampleLayout(2);
    setLine(v, 0, "credit card");
    v.fields.amount = 6;
    EXPECT_EQ(cellColours(0, 5, v).text, kRed);
    EXPECT_EQ(cellColours(0, 6, v).text, kBlack);

    // Balance columns that reach column 5 draw it red as well.
    v.fields.account = 3;
    v.fields.info = 8;
    EXPECT_EQ(cellColours(0, 5, v), colours(kBalance, kRed));
    EXPECT_EQ(cellColours(0, 4, v), colours(kBalance, kBlack));
}

TEST(CellColours, TheStartingRowAndTheOpenEditorsCellArePeach) {
    RegisterView v = sampleLayout(3);
    setLine(v, 1, "deposit");
    for (int column : {0, 5, 13, kOutstanding, 23})
        EXPECT_EQ(cellColours(3, column, v), backgroundOnly(kStartingRow)) << column;

    v.editorRow = 1;
    v.editorColumn = 13;
    EXPECT_EQ(cellColours(1, 13, v), backgroundOnly(kStartingRow));
    EXPECT_EQ(cellColours(1, 14, v), colours(kBalance, kBlack));
    EXPECT_EQ(cellColours(1, 4, v), colours(kDeposit, kBlack));
}

TEST(CellColours, AMarkedExpenseOrDescriptionCellIsTheOnlyYellowCellOfItsRow) {
    for (int marked : {4, 9}) {
        RegisterView v = sampleLayout(3);
        setLine(v, 1, "deposit");
        v.markedRow = 1;
        v.markedColumn = marked;
        EXPECT_EQ(cellColours(1, marked, v), backgroundOnly(kMarked)) << marked;
        EXPECT_EQ(cellColours(1, marked == 4 ? 9 : 4, v), colours(kDeposit, kBlack)) << marked;
        EXPECT_EQ(cellColours(1, 13, v), colours(kBalance, kBlack)) << marked;
        EXPECT_EQ(cellColours(0, marked, v), CellColours{}) << marked;
    }
}

TEST(CellColours, AnyOtherMarkedColumnTurnsTheWholeRowYellow) {
    RegisterView v = sampleLayout(3);
    setLine(v, 1, "check", "pending");
    v.markedRow = 1;
    v.markedColumn = 8;
    for (int column : {0, 5, 8, 13, kOutstanding, 23})
        EXPECT_EQ(cellColours(1, column, v), backgroundOnly(kMarked)) << column;

    // The mark wins over the starting row.
    v.markedRow = 3;
    EXPECT_EQ(cellColours(3, 2, v).background, kMarked);
}

TEST(CellColours, CellsOutsideTheTableHaveNone) {
    RegisterView v = sampleLayout(2);
    setLine(v, 0, "deposit");
    for (auto [row, column] : std::vector<std::pair<int, int>>{{-1, 4}, {3, 4}, {0, -1}, {0, 30}})
        EXPECT_EQ(cellColours(row, column, v), CellColours{}) << row << "," << column;
    EXPECT_EQ(cellColours(0, 4, RegisterView{}), CellColours{});

    // Type and status columns beyond the table give the row no colour.
    v.fields.typeofentry = 40;
    v.fields.status = 41;
    EXPECT_EQ(cellColours(0, 4, v), CellColours{});
    EXPECT_EQ(cellColours(0, 13, v), colours(kBalance, kBlack));
}

}  // namespace
}  // namespace tallix
