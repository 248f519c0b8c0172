#include "editing/cell_choices.h"
#include "editing/sample_march.h"

namespace tallix {
namespace {

using test::readFile;

// A register of three lines laid out like the sample year: Expense at 4,
// Account at 11, balances from 12 to 20, Info at 21, Typeofentry at 23.
RegisterView threeLines() {
    RegisterView v;
    v.grid.columns.resize(24);
    v.fields.expense = 4;
    v.fields.amount = 5;
    v.fields.account = 11;
    v.fields.info = 21;
    v.fields.typeofentry = 23;
    v.lineCount = 3;
    v.table.reset(4, 30);
    return v;
}

TEST(EditableCells, OnlyLineFieldsRightOfTheExpenseTakeTyping) {
    const RegisterView v = threeLines();
    EXPECT_FALSE(isEditableCell(v, 0, 4));
    EXPECT_TRUE(isEditableCell(v, 0, 5));
    EXPECT_TRUE(isEditableCell(v, 2, 11));
    for (int balance = 12; balance < 21; ++balance)
        EXPECT_FALSE(isEditableCell(v, 0, balance)) << balance;
    EXPECT_TRUE(isEditableCell(v, 0, 21));
    EXPECT_TRUE(isEditableCell(v, 0, 23));
    EXPECT_FALSE(isEditableCell(v, 0, 24));  // beyond the grid's columns
    EXPECT_FALSE(isEditableCell(v, 3, 5));   // the starting row
    EXPECT_FALSE(isEditableCell(v, -1, 5));
}

TEST(EditableCells, TabWalksTheEditableCellsAndWrapsBetweenLines) {
    const RegisterView v = threeLines();
    using Cell = std::optional<std::pair<int, int>>;
    EXPECT_EQ(nextEditableCell(v, 0, 5, true), (Cell{{0, 6}}));
    EXPECT_EQ(nextEditableCell(v, 0, 11, true), (Cell{{0, 21}}));
    EXPECT_EQ(nextEditableCell(v, 0, 21, false), (Cell{{0, 11}}));
    EXPECT_EQ(nextEditableCell(v, 0, 23, true), (Cell{{1, 5}}));
    EXPECT_EQ(nextEditableCell(v, 1, 5, false), (Cell{{0, 23}}));
    EXPECT_EQ(nextEditableCell(v, 2, 23, true), Cell{});
    EXPECT_EQ(nextEditableCell(v, 0, 5, false), Cell{});
}

using CellChoicesTest = test::SampleMarch;

TEST_F(CellChoicesTest, TheInstitutionsAreTheBanksThenTheCards) {
    std::vector<std::string> banks;
    for (const InstitutionChoice& choice : institutionChoices(year.data()))
        banks.push_back(choice.name + ": " + choice.accounts.front() + ", " +
                        choice.accounts.back());
    EXPECT_EQ(banks, (std::vector<std::string>{"First National: Checking, Savings",
                                               "Credit Union: Share Draft, Share Draft",
                                               "creditcards: Visa, Mastercard"}));
    EXPECT_EQ(statusWords().size(), 8u);
    EXPECT_EQ(statusWords().front(), "notpaid");
    EXPECT_EQ(statusWords().back(), "skip");
}

TEST_F(CellChoicesTest, APickReachesTheTableTheLineAndTheFile) {
    const FieldColumns& f = this->f();
    writeStatus(session(), 1, "cleared");
    writeInstitution(session(), 1, "Credit Union", "Share Draft");
    writeDescription(session(), 1, "Corner Market");
    EXPECT_EQ(session().view.table.cell(1, f.status), "cleared");
    EXPECT_EQ(session().view.table.cell(1, f.account), "Share Draft");
    EXPECT_EQ(saved().field(2, schema::kStatus), "cleared");
    EXPECT_EQ(saved().field(2, schema::kInstitution), "Credit Union");
    EXPECT_EQ(saved().field(2, schema::kAccount), "Share Draft");
    EXPECT_EQ(saved().field(2, schema::kDescription), "Corner Market");

    // The starting row has no line: nothing is written anywhere.
    const std::string before = readFile(year.path);
    const int starting = session().view.lineCount;
    const std::string shown = session().view.table.cell(starting, f.status);
    EXPECT_ANY_THROW(writeStatus(session(), starting, "cleared"));
    EXPECT_EQ(session().view.table.cell(starting, f.status), shown);
    EXPECT_EQ(readFile(year.path), before);
}

}  // namespace
}  // namespace tallix
