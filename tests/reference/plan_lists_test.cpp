// The plan lists read from the small year of tests/fixtures/plan_year.xml.
#include <gtest/gtest.h>

#include "reference/plan_lists.h"
#include "reference/plan_year.h"

namespace tallix {
namespace {

using Texts = std::vector<std::string>;

Texts texts(const PlanEntryRow& e) {
    return {e.amount, e.datePaid, e.dueDate, e.status, e.type, e.check};
}

class PlanListsTest : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(test::loadPlanYear(doc_)); }
    pugi::xml_node data() const { return doc_; }
    pugi::xml_document doc_;
};

TEST_F(PlanListsTest, ExpenseTreeKeepsFileOrderAndEmptyCategories) {
    const std::vector<CategoryExpenses> tree = expenseTree(data());
    ASSERT_EQ(tree.size(), 3u);
    EXPECT_EQ(tree[0].category, "Food");
    EXPECT_EQ(tree[0].expenses, (Texts{"Trader Joe's", "Bakery"}));
    EXPECT_EQ(tree[1].category, "Gifts");
    EXPECT_TRUE(tree[1].expenses.empty());
    EXPECT_EQ(tree[2].expenses, (Texts{"Bakery"}));
}

TEST_F(PlanListsTest, ExpenseDetailsReadFieldsByPositionPastComments) {
    const std::optional<ExpenseDetails> d = expenseDetails(data(), "Food", "Trader Joe's");
    ASSERT_TRUE(d.has_value());
    EXPECT_EQ(
        Texts({d->name, d->category, d->type, d->account, d->closingDay, d->institution,
               d->repeatingAmount}),
        Texts({"Trader Joe's", "Food", "recurring", "Savings", "15", "First National", "120.00"}));
    ASSERT_EQ(d->months.size(), 2u);
    EXPECT_EQ(texts(d->months[0]), Texts({"100.00", "1/3", "1/5", "paid", "auto", "1042"}));
    // Fields a short entry lacks read as empty.
    EXPECT_EQ(texts(d->months[1]), Texts({"90.00", "", "", "", "", ""}));
}

TEST_F(PlanListsTest, ExpenseDetailsLookInTheNamedCategoryOnly) {
    // The same expense name in two categories is two different expenses.
    EXPECT_EQ(expenseDetails(data(), "Food", "Bakery")->type, "accumulate");
    EXPECT_EQ(expenseDetails(data(), "Car", "Bakery")->type, "auto");
    EXPECT_EQ(expenseDetails(data(), "Car", "Bakery")->repeatingAmount, "");
    EXPECT_TRUE(expenseDetails(data(), "Car", "Bakery")->months.empty());
    EXPECT_FALSE(expenseDetails(data(), "Gifts", "Bakery").has_value());
    EXPECT_FALSE(expenseDetails(data(), "Food", "Trader Joe").has_value());
    EXPECT_FALSE(expenseDetails(data(), "Pets", "Trader Joe's").has_value());
}

TEST_F(PlanListsTest, IncomeSourcesAndCustomers) {
    const std::vector<IncomeSource> income = incomeSources(data());
    ASSERT_EQ(income.size(), 2u);
    EXPECT_EQ(income[0].name, "Salary");
    const IncomeSource& pension = income[1];
    EXPECT_EQ(
        Texts({pension.name, pension.institution, pension.account, pension.type, pension.amount}),
        Texts({"Pat's pension", "First National", "Checking", "posted", "800.00"}));

    const std::vector<Customer> list = customers(data());
    ASSERT_EQ(list.size(), 2u);  // the revenue template is not a customer
    const Customer& c = list[0];
    EXPECT_EQ(Texts({c.name, c.number, c.institution, c.account, c.amount}),
              Texts({"O'Neil", "C-7", "Credit Union", "Share Draft", "45.00"}));
    EXPECT_EQ(list[1].name, "Acme");
}

TEST_F(PlanListsTest, ReceivableRowsCarryTheirMonthAndLine) {
    const std::vector<ReceivableRow> rows = receivableRows(data(), "O'Neil");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].month, "January");
    EXPECT_EQ(rows[0].line, "4");
    EXPECT_EQ(texts(rows[0].entry), Texts({"45.00", "1/9", "1/10", "paid", "receivable", "88"}));
    EXPECT_EQ(rows[1].month, "March");  // February holds no item
    EXPECT_EQ(rows[2].month, "March");
    EXPECT_EQ(rows[2].line, "9");
    EXPECT_EQ(rows[2].entry.amount, "35.00");
    EXPECT_TRUE(receivableRows(data(), "Acme").empty());
    EXPECT_TRUE(receivableRows(data(), "Nobody").empty());
}

TEST(PlanLists, AYearWithoutAPlanListsNothing) {
    pugi::xml_document doc;
    ASSERT_TRUE(doc.load_string("<tallix><register/></tallix>"));
    EXPECT_TRUE(expenseTree(doc).empty());
    EXPECT_TRUE(incomeSources(doc).empty());
    EXPECT_TRUE(customers(doc).empty());
    EXPECT_FALSE(expenseDetails(doc, "Food", "Bakery").has_value());
}

}  // namespace
}  // namespace tallix
