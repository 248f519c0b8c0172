// The plan lists read from a small year fragment written inline.
#include <gtest/gtest.h>

#include "reference/plan_lists.h"

namespace tallix {
namespace {

// One expense month entry: name, amount, datepaid, duedate, status, type, check.
std::string month(const std::string& name, const std::string& amount, const std::string& check) {
    return "<month><name>" + name + "</name><amount>" + amount +
           "</amount><datepaid>3/2</datepaid><duedate>3/5</duedate><status>paid</status>"
           "<type>auto</type><check>" +
           check + "</check></month>";
}

std::string twelveMonths() {
    static const char* names[] = {"January",   "February", "March",    "April",
                                  "May",       "June",     "July",     "August",
                                  "September", "October",  "November", "December"};
    std::string out;
    for (int m = 0; m < 12; ++m)
        out += month(names[m], std::to_string(m + 1) + "0.00", m == 2 ? "1042" : "");
    return out;
}

std::string yearFragment() {
    return "<tallix><catagories>"
           "<category id=\"Food\"><type>category</type><numberItems>2</numberItems><names>"
           "<name id=\"Trader Joe's\"><!-- weekly shop --><category>Food</category>"
           "<type>recurring</type><account>Checking</account><closingday>15</closingday>"
           "<institution>First National</institution><reset>no</reset><amount>120.00</amount>"
           "<months>" +
           twelveMonths() +
           "</months></name>"
           "<name id=\"Bakery\"><category>Food</category><type>accumulate</type></name>"
           "</names></category>"
           "<category id=\"Gifts\"><type>category</type><numberItems>0</numberItems><names/>"
           "</category>"
           "<category id=\"Car\"><type>category</type><numberItems>1</numberItems><names>"
           "<name id=\"Bakery\"><category>Car</category><type>auto</type></name>"
           "</names></category></catagories>"
           "<income><name id=\"Salary\"><institution>First National</institution>"
           "<account>Checking</account><type>auto day</type><dayordate>day</dayordate>"
           "<daynumber>1</daynumber><amount>2500.00</amount><months/></name>"
           "<name id=\"Pat's pension\"><institution>Credit Union</institution>"
           "<account>Share Draft</account><type>posted</type><dayordate/><daynumber/>"
           "<amount>800.00</amount><months/></name></income>"
           "<receivables><revenue><line/><amount/><datepaid/><duedate/><status/><type/><check/>"
           "</revenue><name id=\"O'Neil\"><number>C-7</number><institution>Credit Union"
           "</institution><account>Share Draft</account><amount>45.00</amount><months>"
           "<month><item><line>4</line><amount>45.00</amount><datepaid>1/9</datepaid>"
           "<duedate>1/10</duedate><status>paid</status><type>receivable</type><check>88</check>"
           "</item></month><month/>"
           "<month><item><line>2</line><amount>10.00</amount></item>"
           "<item><line>9</line><amount>35.00</amount></item></month>"
           "</months></name></receivables></tallix>";
}

using Texts = std::vector<std::string>;

Texts texts(const PlanEntryRow& e) {
    return {e.amount, e.datePaid, e.dueDate, e.status, e.type, e.check};
}

class PlanListsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(
            doc_.load_string(yearFragment().c_str(), pugi::parse_default | pugi::parse_comments));
    }
    pugi::xml_node data() const { return doc_; }
    pugi::xml_document doc_;
};

TEST_F(PlanListsTest, ExpenseTreeKeepsFileOrderAndEmptyCategories) {
    const std::vector<CategoryExpenses> tree = expenseTree(data());
    ASSERT_EQ(tree.size(), 3u);
    EXPECT_EQ(tree[0].category, "Food");
    EXPECT_EQ(tree[0].expenses, (std::vector<std::string>{"Trader Joe's", "Bakery"}));
    EXPECT_EQ(tree[1].category, "Gifts");
    EXPECT_TRUE(tree[1].expenses.empty());
    EXPECT_EQ(tree[2].expenses, (std::vector<std::string>{"Bakery"}));
}

TEST_F(PlanListsTest, ExpenseDetailsReadFieldsByPositionPastComments) {
    const std::optional<ExpenseDetails> d = expenseDetails(data(), "Food", "Trader Joe's");
    ASSERT_TRUE(d.has_value());
    EXPECT_EQ(
        Texts({d->name, d->category, d->type, d->account, d->closingDay, d->institution,
               d->repeatingAmount}),
        Texts({"Trader Joe's", "Food", "recurring", "Checking", "15", "First National", "120.00"}));
    ASSERT_EQ(d->months.size(), 12u);
    EXPECT_EQ(d->months[0].amount, "10.00");
    EXPECT_EQ(d->months[11].amount, "120.00");
    EXPECT_EQ(texts(d->months[2]), Texts({"30.00", "3/2", "3/5", "paid", "auto", "1042"}));
}

TEST_F(PlanListsTest, ExpenseDetailsLookInTheNamedCategoryOnly) {
    // The same expense name in two categories is two different expenses.
    EXPECT_EQ(expenseDetails(data(), "Food", "Bakery")->type, "accumulate");
    EXPECT_EQ(expenseDetails(data(), "Car", "Bakery")->type, "auto");
    // Fields a short entry lacks read as empty.
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
        Texts({"Pat's pension", "Credit Union", "Share Draft", "posted", "800.00"}));

    const std::vector<Customer> list = customers(data());
    ASSERT_EQ(list.size(), 1u);  // the revenue template is not a customer
    const Customer& c = list[0];
    EXPECT_EQ(Texts({c.name, c.number, c.institution, c.account, c.amount}),
              Texts({"O'Neil", "C-7", "Credit Union", "Share Draft", "45.00"}));
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
