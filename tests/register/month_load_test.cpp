// Posting the plan's due entries into the displayed month.
#include <gtest/gtest.h>

#include "data/schema_names.h"
#include "data/values.h"
#include "register/month_load.h"
#include "register/year_file.h"

namespace tallix {
namespace {

using test::YearFile;

std::vector<std::string> lines(YearFile& year, const std::string& month) {
    std::vector<std::string> result;
    for (pugi::xml_node line : elementChildren(year.month(month))) {
        std::string text = attributeText("line", line) + ":";
        for (size_t k = 0; k < 12; ++k)
            text += (k ? "|" : "") + childText(line, k);
        result.push_back(text);
    }
    return result;
}

// April's plan on 15 April 2026: Rent (recurring, no amount of its own) due
// the 14th, Mortgage (Auto-Bank) the 1st, Internet (auto, on the Visa) today,
// Side Gig (income, auto date, no amount) the 9th and IRA Draw (income, auto
// day) the 2nd are due and "notpaid". Phone is due tomorrow; Water is "no
// entry", Fuel "pending", Groceries accumulates and Payroll is "posted" kind.
// A line without a day counts as the earliest: the 1st goes above it.
TEST(MonthLoad, PostsEachDueEntryOnItsDayAndMarksItPosted) {
    YearFile year({2026, 4, 15});
    setChildText(year.month("April").append_copy(childAt(year.month("April"), 0)), 0, "");
    year.session().month = 4;
    EXPECT_EQ(postDueEntries(year.session()), 5);
    const std::vector<std::string> expected = {
        "1:20|Groceries|10.00||Living|cleared||Harbor Bank|Checking||accumulate|debit",
        "2:15|Internet|60.00||Living|cleared||creditcards|Visa||recurring|auto",
        "3:14|Groceries|5.00||Living|cleared||Harbor Bank|Checking||accumulate|debit",
        "4:14|Rent|800.00||Housing|processing||Harbor Bank|Checking||recurring|debit",
        "5:9|Water|40.00||Housing|cleared||Harbor Bank|Checking||recurring|debit",
        "6:9|Side Gig|75.00||Income|processing||Summit Savings|Savings|||deposit",
        "7:3|Groceries|1.00||Living|cleared||Harbor Bank|Checking||accumulate|debit",
        "8:2|IRA Draw|55.55||Income|processing||Summit Savings|Savings|||deposit",
        "9:1|Mortgage|1500.00||Housing|processing||Harbor Bank|Checking||recurring|Auto-Bank",
        "10:|Groceries|10.00||Living|cleared||Harbor Bank|Checking||accumulate|debit",
    };
    EXPECT_EQ(lines(year, "April"), expected);

    struct Entry {
        const char* prefix;
        const char* id;
        size_t months, status;
        const char* now;
    };
    for (const Entry& e : {Entry{paths::kExpense, "Rent", 7, 4, "posted"},
                           Entry{paths::kExpense, "Mortgage", 7, 4, "posted"},
                           Entry{paths::kExpense, "Internet", 7, 4, "posted"},
                           Entry{paths::kIncome, "Side Gig", 6, 3, "posted"},
                           Entry{paths::kIncome, "IRA Draw", 6, 3, "posted"},
                           Entry{paths::kExpense, "Phone", 7, 4, "notpaid"},
                           Entry{paths::kExpense, "Water", 7, 4, "no entry"},
                           Entry{paths::kExpense, "Fuel", 7, 4, "pending"},
                           Entry{paths::kExpense, "Groceries", 7, 4, "notpaid"},
                           Entry{paths::kIncome, "Payroll", 6, 3, "notpaid"}})
        EXPECT_EQ(childText(year.planMonth(e.prefix, e.id, e.months, 4), e.status), e.now) << e.id;

    // Posted entries are not posted again, and other months' entries wait.
    EXPECT_EQ(postDueEntries(year.session()), 0);
    year.session().month = 5;
    EXPECT_EQ(postDueEntries(year.session()), 0);
}

// A posting renumbers the lines below it; the customers' items of the month
// follow their lines.
TEST(MonthLoad, CustomersItemsFollowTheirRenumberedLines) {
    YearFile year({2026, 11, 21}, test::sourceDir() / "examples" / "tallix2026.xml");
    pugi::xml_node doctor = year.planMonth(paths::kExpense, "Doctor", 7, 3);
    setChildText(doctor, 1, "60.00");
    setChildText(doctor, 3, "3/27/2026");
    setChildText(doctor, 4, "notpaid");
    year.session().month = 3;
    ASSERT_EQ(postDueEntries(year.session()), 1);

    // March's Maple Street Bakery items named lines 20 and 7, in that order.
    std::vector<std::string> items;
    pugi::xml_node bakery = selectOne(year.data(), paths::kReceivable, "Maple Street Bakery");
    for (pugi::xml_node item : elementChildren(childAt(childAt(bakery, 4), 2)))
        items.push_back(childText(item, 0));
    EXPECT_EQ(items, (std::vector<std::string>{"21", "8"}));
    std::vector<pugi::xml_node> march = elementChildren(year.month("March"));
    EXPECT_EQ(childText(march[7], 1), "Maple Street Bakery");
    EXPECT_EQ(childText(march[1], 1), "Doctor");
}

// A plan entry is posted at most once into a month: an entry whose expense
// already has a line of its category there is not posted again, whatever its
// status was set back to (by a typed "notpaid" or by Make).
TEST(MonthLoad, AnEntryWithALineInTheMonthIsNeverPostedAgain) {
    YearFile year({2026, 4, 15});
    year.session().month = 4;
    ASSERT_EQ(postDueEntries(year.session()), 5);
    for (const char* id : {"Rent", "Mortgage", "Internet"})
        setChildText(year.planMonth(paths::kExpense, id, 7, 4), 4, "notpaid");
    setChildText(year.planMonth(paths::kIncome, "Side Gig", 6, 4), 3, "notpaid");
    EXPECT_EQ(postDueEntries(year.session()), 0);
    EXPECT_EQ(elementChildCount(year.month("April")), 9u);
    // A line of the expense under another category is another bill.
    setChildText(childAt(year.month("April"), 3), schema::kCategoty, "Living");
    EXPECT_EQ(postDueEntries(year.session()), 1);
}

// The first and the last month post like any other.
TEST(MonthLoad, JanuaryAndDecemberEntriesArePostedToo) {
    YearFile year({2026, 12, 31});
    for (int m : {1, 12}) {
        pugi::xml_node rent = year.planMonth(paths::kExpense, "Rent", 7, m);
        setChildText(rent, 3, std::to_string(m) + "/14/2026");
        setChildText(rent, 4, "notpaid");
        year.session().month = m;
        postDueEntries(year.session());
        int rentLines = 0;
        for (pugi::xml_node line : elementChildren(year.month(monthName(m))))
            rentLines += childText(line, schema::kExpense) == "Rent";
        EXPECT_EQ(rentLines, 1) << m;
    }
}

// A month entry's amount is the month's running total of the source (every
// deposit of the month is added into it), so a posted income line carries
// the source's planned amount, not what other deposits already added.
TEST(MonthLoad, APostedIncomeLineCarriesThePlannedAmount) {
    YearFile year({2026, 4, 15});
    setChildText(requireOne(year.data(), paths::kIncome, "Side Gig"), 5, "3150.00");
    setChildText(year.planMonth(paths::kIncome, "Side Gig", 6, 4), 1, "100.00");
    year.session().month = 4;
    ASSERT_EQ(postDueEntries(year.session()), 5);
    pugi::xml_node sideGig = childAt(year.month("April"), 5);
    ASSERT_EQ(childText(sideGig, schema::kExpense), "Side Gig");
    EXPECT_EQ(childText(sideGig, schema::kDebit), "3150.00");
}

}  // namespace
}  // namespace tallix
