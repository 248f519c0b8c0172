// Income sources and customers on the sample year: the dates "auto day" and
// "auto date" give every month, what a new customer keeps of the items it
// is copied with, the totals of the income list, and what is refused.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "data/schema_names.h"
#include "data/values.h"
#include "reference/income_maintenance.h"
#include "reference/plan_input.h"
#include "reference/receivable_maintenance.h"
#include "reference/sample_year_file.h"

namespace tallix {
namespace {

using Texts = std::vector<std::string>;
using test::SampleYear;
const Texts kWeekdays{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

// The n-th `weekday` of the month found by walking its days (the last one
// when there are fewer than n).
std::string walkedDate(int weekday, int n, int month, int year) {
    int found = 0, day = 0;
    for (int d = 1; d <= 31 && found < n; ++d) {
        if (!isCalendarDate({year, month, d}))
            break;
        if (dayOfWeek(d, month, year) == kWeekdays[static_cast<size_t>(weekday)].substr(0, 3)) {
            ++found;
            day = d;
        }
    }
    return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
}

TEST(IncomeDates, AutoDayIsTheNthWeekdayOfEveryMonthWhateverDayItStartsOn) {
    // 2026's months start on every day of the week; 2028 is a leap year.
    for (int year : {2026, 2028})
        for (int month = 1; month <= 12; ++month)
            for (int weekday = 0; weekday < 7; ++weekday)
                for (int n = 1; n <= 5; ++n)
                    ASSERT_EQ(incomeDate({kAutoDay, kWeekdays[static_cast<size_t>(weekday)],
                                          std::to_string(n)},
                                         month, year),
                              walkedDate(weekday, n, month, year))
                        << kWeekdays[static_cast<size_t>(weekday)] << ' ' << n << ' ' << month
                        << '/' << year;
    EXPECT_EQ(incomeDate({kAutoDate, "31", ""}, 4, 2026), "4/30/2026");
    EXPECT_EQ(incomeDate({kAutoDate, "31", ""}, 2, 2028), "2/29/2028");
    EXPECT_EQ(incomeDate({kPosted, "Friday", "2"}, 5, 2026), std::nullopt);
    EXPECT_NO_THROW(checkSchedule({kAutoDay, "Sunday", "1"}));
    EXPECT_NO_THROW(checkSchedule({"transfer", "0", "0"}));
}

TEST(IncomeMaintenance, SavedValuesDateEveryMonthAndANewSourceCopiesTheSelectedOne) {
    SampleYear year;
    // December's one line deposits it too.
    setChildText(childAt(year.month("December"), 0), schema::kExpense, "IRA Distribution");
    setChildText(childAt(year.month("December"), 0), schema::kTypeOfEntry, "deposit");
    saveIncomeValues(year.session(), "IRA Distribution", "Roth Draw",
                     {"Credit Union", "Share Draft", {kAutoDay, "Friday", "2"}, "$1,200"});
    year.reopen();
    pugi::xml_node source = requireOne(year.data(), paths::kIncome, "Roth Draw");
    // Each month's date, as IncomeDates above works them out.
    for (int m = 1; m <= 12; ++m)
        EXPECT_EQ(childText(childAt(childAt(source, 6), static_cast<size_t>(m - 1)), 2),
                  incomeDate({kAutoDay, "Friday", "2"}, m, 2026));
    EXPECT_EQ(childText(source, 5), "1200.00");
    // The RMD drawn through the source and the lines that deposit it follow.
    EXPECT_TRUE(selectOne(year.data(), paths::kRmd, "Roth Draw"));
    EXPECT_EQ(year.occurrences(">IRA Distribution<"), 0);

    saveNewIncome(year.session(), "Roth Draw", "Bonus", {"First National", "Checking", {}, "50"});
    pugi::xml_node copy = childAt(source.parent(), elementPosition(source) - 1);
    EXPECT_EQ(attributeText("id", copy), "Bonus");
    EXPECT_EQ(childText(copy, 2), kAutoDay);
    EXPECT_EQ(childText(childAt(childAt(copy, 6), 4), 2), "5/8/2026");
    EXPECT_EQ(childText(childAt(childAt(copy, 6), 4), 1), "0");
}

TEST(IncomeMaintenance, TotalsAreTheMonthsSummedToTheCent) {
    SampleYear year;
    const Texts amounts{"0.10", "0.20", "1000000.05", "", "-3.05", "7"};
    pugi::xml_node months = childAt(requireOne(year.data(), paths::kIncome, "Acme Payroll"), 6);
    long long cents = 0;
    for (size_t m = 0; m < 12; ++m) {
        const std::string text = amounts[m % amounts.size()];
        setChildText(childAt(months, m), 1, text);
        cents += text.empty() ? 0 : std::llround(std::stod(text) * 100);
    }
    const IncomeTotals totals = incomeTotals(year.data());
    EXPECT_EQ(totals.sources.front().total, amountToText(static_cast<double>(cents) / 100));
    long long all = 0;
    for (const IncomeTotal& source : totals.sources)
        all += std::llround(std::stod(source.total) * 100);
    EXPECT_EQ(totals.total, amountToText(static_cast<double>(all) / 100));
    EXPECT_EQ(totals.sources.size(), 5u);
}

TEST(IncomeMaintenance, OnlyYesDeletesAndApplyCarriesTheDateOn) {
    SampleYear year;
    for (Answer answer : {Answer::Cancel, Answer::No})
        year.prompter.answers.push_back(answer);
    EXPECT_FALSE(deleteIncome(year.session(), year.prompter, "Acme Payroll"));
    EXPECT_FALSE(deleteIncome(year.session(), year.prompter, "Acme Payroll"));
    applyIncomeToAllMonths(year.session(), "Acme Payroll", 10,
                           {"99", "", "10/24/2026", "notpaid", ""});
    pugi::xml_node months = childAt(requireOne(year.data(), paths::kIncome, "Acme Payroll"), 6);
    EXPECT_EQ(childText(childAt(months, 11), 2), "12/24/2026");
    EXPECT_EQ(childText(childAt(months, 11), 1), "99.00");
    EXPECT_EQ(childText(childAt(months, 8), 2), "9/25/2026");
    year.prompter.answers = {Answer::Yes};
    EXPECT_TRUE(deleteIncome(year.session(), year.prompter, "Acme Payroll"));
    EXPECT_FALSE(selectOne(year.data(), paths::kIncome, "Acme Payroll"));
}

TEST(ReceivableMaintenance, ANewCustomerKeepsTheFirstThirdAndFifthOfItsItems) {
    const std::vector<Texts> kept = {{"DUMMY"},      {"DUMMY", "2"},      {"DUMMY", "3"},
                                     {"DUMMY", "3"}, {"DUMMY", "3", "5"}, {"DUMMY", "3", "5"}};
    for (size_t n = 1; n <= kept.size(); ++n) {
        pugi::xml_document document;
        pugi::xml_node month = document.append_child("month");
        for (size_t i = 1; i <= n; ++i) {
            pugi::xml_node item = month.append_child("revenue");
            appendTextElement(item, "line", std::to_string(i));
            appendTextElement(item, "amount", "5.00");
        }
        keepNewCustomerItems(month);
        Texts lines;
        for (pugi::xml_node item : elementChildren(month))
            lines.push_back(childText(item, 0));
        EXPECT_EQ(lines, kept[n - 1]) << n << " items";
        EXPECT_EQ(childText(childAt(month, 0), 1), "0");
    }
}

TEST(ReceivableMaintenance, CustomersAreCopiedRenamedMovedGivenItemsAndDeleted) {
    SampleYear year;
    saveNewCustomer(year.session(), "Riverside Garden Club", "Café Ünal & Sons",
                    {"1003", "Credit Union", "Share Draft", "80"});
    const int renamed = year.occurrences("<expense>Maple Street Bakery</expense>");
    EXPECT_EQ(saveCustomerChanges(year.session(), "Maple Street Bakery", "Maple's",
                                  {"1001", "First National", "Checking", "350"}),
              renamed);
    EXPECT_EQ(year.occurrences("<expense>Maple Street Bakery</expense>"), 0);
    EXPECT_TRUE(moveCustomerDown(year.session(), "Maple's"));
    EXPECT_FALSE(moveCustomerDown(year.session(), "Riverside Garden Club"));
    Texts order;
    for (pugi::xml_node c : selectAll(year.data(), paths::kAllReceivables))
        order.push_back(attributeText("id", c));
    EXPECT_EQ(order, (Texts{"Café Ünal & Sons", "Maple's", "Riverside Garden Club"}));
    EXPECT_EQ(addReceivableItem(year.session(), "Maple's", 3), 2);
    applyItemToAllMonths(year.session(), "Maple's", 3, 1,
                         {"12", "3/4", "3/9/2026", "pending", "77"});
    pugi::xml_node months = childAt(requireOne(year.data(), paths::kReceivable, "Maple's"), 4);
    EXPECT_EQ(childText(childAt(childAt(months, 2), 1), 3), "3/9/2026");
    EXPECT_EQ(childText(childAt(childAt(months, 2), 1), 6), "77");
    EXPECT_EQ(elementChildCount(childAt(months, 3)), 1u);  // April has no second item
    applyToItem(year.session(), "Maple's", 3, 0, {"7", "", "", "", ""});  // the first item
    EXPECT_EQ(childText(childAt(childAt(months, 2), 0), 1), "7.00");
    deleteCustomer(year.session(), "Maple's");
    EXPECT_FALSE(selectOne(year.data(), paths::kReceivable, "Maple's"));
    EXPECT_EQ(year.faults(), Texts{});
}

TEST(IncomeMaintenance, ARefusedValueLeavesTheFileAsItWas) {
    const auto values = [](IncomeSchedule schedule, std::string amount = "10") {
        return [=](Session& s) {
            saveIncomeValues(s, "Acme Payroll", "Acme Payroll",
                             {"First National", "Checking", schedule, amount});
        };
    };
    // clang-format off
    const std::pair<std::function<void(Session&)>, std::string> refusals[] = {
        {values({kAutoDate, "32", ""}), "DAY/DATE \"32\" is not a day"},
        {values({kAutoDate, "", ""}), "DAY/DATE needs the day"},
        {values({kAutoDay, "Fryday", "2"}), "\"Fryday\" is not a weekday"},
        {values({kAutoDay, "Friday", "6"}), "DAY NUMBER \"6\" is not a number from 1 to 5"},
        {values({"weekly", "", ""}), "TYPE \"weekly\""},
        {values({kPosted, "", ""}, "12abc"), "\"12abc\" is not an amount"},
        {[](Session& s) { saveNewIncome(s, "Acme Payroll", "Social Security", {}); },
         "already an income source named Social Security"},
        {[](Session& s) { saveNewIncome(s, "Acme Payroll", " ", {}); }, "needs a name"},
        {[](Session& s) { applyIncomeMonth(s, "Acme Payroll", 3, {"1", "", "13/1/2026", "", ""}); },
         "DATE \"13/1/2026\" is not a date"},
        {[](Session& s) { applyIncomeMonth(s, "Acme Payroll", 3, {"1", "", "3/1a/2026", "", ""}); },
         "DATE \"3/1a/2026\" is not a date"},
        {[](Session& s) { saveNewCustomer(s, "Nobody", "X", {}); }, "Receivable not found on line Nobody"},
        {[](Session& s) { saveCustomerChanges(s, "Maple Street Bakery", "Riverside Garden Club", {}); },
         "already a customer named"},
        {[](Session& s) { applyToItem(s, "Riverside Garden Club", 3, 1, {}); }, "has no item 2"},
    };
    // clang-format on
    for (const auto& [operation, message] : refusals) {
        SCOPED_TRACE(message);
        SampleYear year;
        const std::string bytes = year.fileBytes();
        EXPECT_NE(test::thrown<PlanRefusal>([&] { operation(year.session()); }).find(message),
                  std::string::npos);
        EXPECT_EQ(year.fileBytes(), bytes);
    }
}

}  // namespace
}  // namespace tallix
