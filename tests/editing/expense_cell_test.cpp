// A click on the Expense cell of March of the sample year: which picker the
// line's kind opens, what the pick writes, and transfers with their balances.
#include "data/values.h"
#include "editing/add_item.h"
#include "editing/sample_march.h"

namespace tallix {
namespace {

// Rows of March: 1 Acme Payroll, 2 Water, 6 Maple Street Bakery, 10 Social
// Security; balance columns of the sample.
constexpr int kPayRow = 1, kWaterRow = 2, kMapleRow = 6, kSocialSecurityRow = 10;
constexpr int kFnRegister = 13, kFnBank = 14, kFnSavings = 16, kCuRegister = 17, kCuBank = 18,
              kVisa = 19;

class ExpenseCellTest : public test::SampleMarch {
  protected:
    void click(int row) { expenseCellClicked(session(), row, f().expense, choices); }
    std::string saved(int row, size_t child) { return SampleMarch::saved().field(row + 1, child); }
    // How much a balance cell of `row` differs from the row below.
    double change(int row, int column) {
        return textToAmount(year.cell(row, column)) - textToAmount(year.cell(row + 1, column));
    }
};

TEST_F(ExpenseCellTest, EachKindOfLineOpensItsOwnPicker) {
    choices.expensePicks = {{"Water", "Housing"}, {"Social Security", ""}};
    choices.customers = {"Riverside Garden Club"};
    click(kWaterRow);
    // A deposit line takes an income source whatever its category was.
    setChildText(childAt(year.month("March"), kPayRow), schema::kCategoty, "Living");
    click(kPayRow);
    click(kMapleRow);
    EXPECT_EQ(choices.opened, (std::vector<std::string>{"expense 3", "expense 4", "customer"}));

    EXPECT_EQ(saved(kWaterRow, schema::kStatus), "pending");  // a check line's expense picked
    EXPECT_EQ(saved(kPayRow, schema::kExpense), "Social Security");
    EXPECT_EQ(saved(kPayRow, schema::kCategoty), "Income");
    EXPECT_EQ(saved(kPayRow, schema::kInstitution), "Credit Union");
    EXPECT_EQ(year.cell(kPayRow, f().category), "Income");
    EXPECT_EQ(saved(kMapleRow, schema::kExpense), "Riverside Garden Club");

    // The customer's month gains an item for line 7 with the line's amount.
    Document d = Document::load(year.path);
    pugi::xml_node march =
        monthEntry(requireOne(d.node(), paths::kReceivable, "Riverside Garden Club"),
                   schema::kCustomerMonths, 3);
    pugi::xml_node added = childAt(march, elementChildCount(march) - 1);
    EXPECT_EQ(childText(added, 0), "7");
    EXPECT_EQ(childText(added, 1), "600.00");
    EXPECT_EQ(year.session().view.markedRow, -1);
}

TEST_F(ExpenseCellTest, ATransferEntryTakesTheMoneyFromTheFromAccountToTheToAccount) {
    choices.expensePicks = {{"Credit Union Move", ""}};
    choices.transfers = {
        TransferAnswer{"Credit Union", "Share Draft", "First National", "Savings", "100.00"}};
    click(kSocialSecurityRow);
    EXPECT_EQ(choices.opened, (std::vector<std::string>{"expense 4", "transfer"}));
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kExpense), "Credit Union Move");
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kInstitution), "Credit Union");
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kAccount), "Share Draft");
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kInfo), "First National");
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kAccumulate), "Savings");
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kDebit), "100.00");
    EXPECT_EQ(saved(kSocialSecurityRow, schema::kTypeOfEntry), "deposit");

    // The balances follow at once: 125.00 - 100.00 and 830.00 + 100.00.
    EXPECT_EQ(year.cell(kSocialSecurityRow + 1, kCuRegister), "125.00");
    EXPECT_EQ(year.cell(kSocialSecurityRow, kCuRegister), "25.00");
    EXPECT_EQ(year.cell(kSocialSecurityRow, kCuBank), "25.00");
    EXPECT_DOUBLE_EQ(change(kSocialSecurityRow, kFnSavings), 100.0);
    for (int column : {kFnRegister, kFnBank, kVisa})
        EXPECT_EQ(year.cell(kSocialSecurityRow, column), year.cell(kSocialSecurityRow + 1, column));
    EXPECT_TRUE(year.prompter.shown.empty());
}

// A picker closed without a pick, a transfer cancelled or refused for its
// amount: nothing is written and the month is not worked out again (a cell of
// the grid keeps what it was given).
TEST_F(ExpenseCellTest, NoPickOrACancelledOrRefusedTransferChangesNothing) {
    const std::string before = test::readFile(year.path);
    session().view.table.set(kWaterRow, f().info, "untouched");
    choices.expensePicks = {{kNoSelection, ""},
                            {kPickCanceled, ""},
                            {"Savings Transfer", ""},
                            {"Savings Transfer", ""}};
    choices.customers = {kNoSelection};
    choices.transfers = {std::nullopt, TransferAnswer{"First National", "Checking",
                                                      "First National", "Savings", "1.2.3"}};
    for (int row : {kWaterRow, kPayRow, kMapleRow, kPayRow, kPayRow})
        click(row);
    EXPECT_EQ(choices.opened,
              (std::vector<std::string>{"expense 3", "expense 4", "customer", "expense 4",
                                        "transfer", "expense 4", "transfer"}));
    EXPECT_EQ(test::readFile(year.path), before);
    EXPECT_EQ(year.cell(kWaterRow, f().info), "untouched");
    EXPECT_EQ(year.prompter.shown,
              (std::vector<std::string>{"\"1.2.3\" is not an amount. Type a number such as "
                                        "1234.56, -45.10 or $1,234.56."}));
}

}  // namespace
}  // namespace tallix
