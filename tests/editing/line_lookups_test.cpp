// The look-ups that fill a line from the plan, on March of the sample year.
#include "editing/line_lookups.h"
#include "editing/sample_march.h"

namespace tallix {
namespace {

class LineLookupsTest : public test::SampleMarch {
  protected:
    std::string saved(int line, size_t child) { return SampleMarch::saved().field(line, child); }
};

// The payment kind decides Accumulate and the entry type; a check line of a
// planned expense is pending, on the line and in the plan.
TEST_F(LineLookupsTest, ThePaymentKindDecidesAccumulateAndTheEntryType) {
    // The sample has no "Auto-Bank" expense: make the mortgage one.
    setChildText(selectOne(year.data(), paths::kExpense, "Mortgage"), 1, "Auto-Bank");
    struct Case {
        int line;
        const char *expense, *category, *accumulate, *type, *status;
    };
    for (const Case& c : {Case{1, "Groceries", "Living", "accumulate", "debit", "cleared"},
                          Case{3, "Water", "Housing", "recurring", "check", "pending"},
                          Case{4, "Electric", "Housing", "auto", "auto", "posted"},
                          Case{8, "Mortgage", "Housing", "Auto-Bank", "Auto-Bank", "posted"}}) {
        SCOPED_TRACE(c.expense);
        expenseLookup(year.session(), c.line - 1, f().expense, c.expense, c.category);
        EXPECT_EQ(saved(c.line, schema::kExpense), c.expense);
        EXPECT_EQ(saved(c.line, schema::kAccumulate), c.accumulate);
        EXPECT_EQ(saved(c.line, schema::kTypeOfEntry), c.type);
        EXPECT_EQ(saved(c.line, schema::kStatus), c.status);
        EXPECT_EQ(year.cell(c.line - 1, f().accumulate), c.accumulate);
        EXPECT_EQ(year.cell(c.line - 1, f().status), c.status);
    }
    EXPECT_EQ(saved(1, schema::kInstitution), "First National");
    EXPECT_EQ(saved(1, schema::kAccount), "Checking");
    EXPECT_EQ(saved(1, schema::kCategoty), "Living");
    EXPECT_EQ(SampleMarch::saved().plan("Water", schema::kEntryStatus), "pending");
}

TEST_F(LineLookupsTest, AnExpenseNotInTheCategoryChangesNothing) {
    const std::string before = test::readFile(year.path);
    expenseLookup(year.session(), 0, f().expense, "Water", "Living");
    EXPECT_EQ(year.prompter.shown, (std::vector<std::string>{"expense not found"}));
    EXPECT_EQ(test::readFile(year.path), before);
    EXPECT_EQ(year.cell(0, f().expense), "Gasoline");
}

TEST_F(LineLookupsTest, AnIncomeSourceMakesTheLineIncome) {
    incomeLookup(year.session(), 0, f().expense, "Acme Payroll");
    EXPECT_EQ(saved(1, schema::kCategoty), "Income");
    EXPECT_EQ(saved(1, schema::kDebit), "3150.00");
    EXPECT_EQ(saved(1, schema::kInstitution), "First National");
    EXPECT_EQ(saved(1, schema::kAccount), "Checking");
    EXPECT_EQ(year.cell(0, f().category), "Income");
    EXPECT_EQ(year.cell(0, f().amount), "3150.00");
}

// A line has one item, under the customer it names: picked again, its item
// goes over to the new customer.
TEST_F(LineLookupsTest, ACustomerPickGivesTheLineOneItemUnderThatCustomer) {
    const std::string amount = year.cell(0, f().amount);
    // Two items left over from earlier picks name line 1 too.
    pugi::xml_node templ = requireOne(year.data(), paths::kRevenue);
    for (const char* customer : {"Riverside Garden Club", "Maple Street Bakery"})
        setChildText(monthEntry(requireOne(year.data(), paths::kReceivable, customer),
                                schema::kCustomerMonths, 3)
                         .append_copy(templ),
                     0, "1");
    auto items = [&](const char* customer) {
        Document d = Document::load(year.path);
        pugi::xml_node c = selectOne(d.node(), paths::kReceivable, customer);
        std::vector<std::string> out;
        for (pugi::xml_node item : elementChildren(monthEntry(c, schema::kCustomerMonths, 3)))
            out.push_back(childText(item, 0) + " " + childText(item, schema::kEntryAmount) + " " +
                          item.name());
        return out;
    };
    receivableLookup(year.session(), 0, f().expense, "Riverside Garden Club");
    EXPECT_EQ(saved(1, schema::kCategoty), "Receivables");
    EXPECT_EQ(saved(1, schema::kInfo), "1002");
    EXPECT_EQ(saved(1, schema::kAccount), "Share Draft");
    const std::vector<std::string> club = items("Riverside Garden Club");
    ASSERT_EQ(club.size(), 2u);
    EXPECT_EQ(club.back(), "1 " + amount + " revenue");
    EXPECT_EQ(items("Maple Street Bakery").size(), 2u);  // lines 20 and 7

    receivableLookup(year.session(), 0, f().expense, "Riverside Garden Club");
    EXPECT_EQ(items("Riverside Garden Club"), club);
    receivableLookup(year.session(), 0, f().expense, "Maple Street Bakery");
    EXPECT_EQ(items("Riverside Garden Club"), std::vector<std::string>{club.front()});
    const std::vector<std::string> maple = items("Maple Street Bakery");
    ASSERT_EQ(maple.size(), 3u);
    EXPECT_EQ(maple.back(), club.back());
}

}  // namespace
}  // namespace tallix
