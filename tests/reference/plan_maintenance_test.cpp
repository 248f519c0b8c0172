// The expense and category maintenance on a small year, read back from the
// saved file: which register lines a rename or move reaches, what APPLY and
// APPLY TO ALL MONTHS write, and what leaves the file as it was.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "app/undo_history.h"
#include "reference/category_maintenance.h"
#include "reference/expense_maintenance.h"
#include "reference/expense_months.h"
#include "reference/expense_order.h"
#include "reference/maintained_year.h"
#include "reference/plan_input.h"
#include "reference/plan_messages.h"
#include "support/thrown.h"

namespace tallix {
namespace {

using Texts = std::vector<std::string>;
using S = Session;
using P = Prompter;
using test::MaintainedYear;
const ExpenseFields kSame{"recurring", "Checking", "5", "Bank", "30.00"};
const Texts kLines{"Gas/Utilities", "Gas/Car", "Water/Utilities"};

Texts original(int m) {
    const std::string n = std::to_string(m);
    return {monthName(m), "30.00", n + "/2/2026",          n + "/5/2026",
            "cleared",    "debit", std::to_string(100 + m)};
}

TEST(PlanMaintenance, RenamesAndMovesReachTheirLinesInAllTwelveMonthsOnly) {
    const auto rename = [](S& s, P& p) {
        return saveExpenseChanges(s, p, "Utilities", "Gas", "Fuel", kSame);
    };
    const auto move = [](S& s, P& p) {
        return moveExpenseToCategory(s, p, "Utilities", "Water", "Car");
    };
    // clang-format off
    // name, answers, operation, lines it reports changed, lines of every month as saved
    using Run = std::function<std::optional<int>(S&, P&)>;
    const std::tuple<const char*, std::deque<Answer>, Run, std::optional<int>, Texts> walks[] = {
        {"rename, Yes", {Answer::Yes}, rename, 12,
         {"Fuel/Utilities", "Gas/Car", "Water/Utilities"}},
        {"rename, No", {Answer::No}, rename, 0, kLines},
        {"move, lines Yes", {Answer::Yes, Answer::Yes}, move, 12,
         {"Gas/Utilities", "Gas/Car", "Water/Car"}},
        {"move, lines Cancel", {Answer::Yes, Answer::Cancel}, move, 0, kLines},
        {"rename category", {Answer::Yes},
         [](S& s, P& p) { return renameCategory(s, p, "Utilities", "Home"); },
         24, {"Gas/Home", "Gas/Car", "Water/Home"}},
        {"delete category", {Answer::Yes},
         [](S& s, P& p) { return std::optional<int>(deleteCategory(s, p, "Car")); }, 1, kLines},
    };
    // clang-format on
    for (const auto& [name, answers, run, changed, lines] : walks) {
        SCOPED_TRACE(name);
        MaintainedYear year;
        year.prompter.answers = answers;
        EXPECT_EQ(run(year.session(), year.prompter), changed);
        year.reopen();
        for (int m = 1; m <= 12; ++m)
            EXPECT_EQ(year.lines(m), lines) << monthName(m);
    }
}

TEST(PlanMaintenance, SaveChangesRenamesWritesTheFieldsAndResetsChildFive) {
    MaintainedYear year;
    year.prompter.answers = {Answer::No};
    saveExpenseChanges(year.session(), year.prompter, "Utilities", "Gas", "\tFuel\n",
                       {"auto", "Savings", "0", "Credit Union", "$1,200"});
    EXPECT_EQ(year.prompter.shown, Texts{kRenameExpenseQuestion});
    year.reopen();
    EXPECT_EQ(year.fields("Utilities", "Fuel"),
              Texts({"Utilities", "auto", "Savings", "0", "Credit Union", "0", "1200.00"}));
    EXPECT_EQ(year.expenses("Utilities"), Texts({"Fuel", "Water", "Power"}));
}

TEST(PlanMaintenance, NewExpenseIsACopyBeforeTheSelectedOneWithItsMonthsZeroed) {
    MaintainedYear year;
    saveNewExpense(year.session(), "Utilities", "Water", "Internet",
                   {"auto", "", "1", "Bank", "0"});
    year.reopen();
    EXPECT_EQ(year.expenses("Utilities"), Texts({"Gas", "Internet", "Water", "Power"}));
    EXPECT_EQ(year.fields("Utilities", "Internet"),
              Texts({"Utilities", "auto", "", "1", "Bank", "0", "0"}));
    EXPECT_EQ(year.fields("Utilities", "Internet", 12),
              Texts({"December", "0", "0", "0", "0", "0", "0"}));
    EXPECT_EQ(year.fields("Utilities", "Water", 12), original(12));
    EXPECT_EQ(childText(year.category("Utilities"), 1), "4");
}

TEST(PlanMaintenance, ApplyWritesOneMonthAndApplyToAllCarriesOnToDecember) {
    // clang-format off
    // name, all months, month, values, the months that change as saved
    const std::tuple<const char*, bool, int, MonthValues, std::map<int, Texts>> cases[] = {
        {"APPLY leaves the type", false, 3, {"12.5", "3/9/2026", "3/20/2026", "pending", "55"},
         {{3, {"March", "12.5", "3/9/2026", "3/20/2026", "pending", "debit", "55"}}}},
        {"December alone", false, 12, {"9", "12/1/2026", "12/20/2026", "cleared", "5"},
         {{12, {"December", "9.00", "12/1/2026", "12/20/2026", "cleared", "debit", "5"}}}},
        {"numbered on from the due date's month", true, 10,
         {"40", "10/1/2026", "11/07/2026", "notpaid", "77"},
         {{10, {"October", "40.00", "10/1/2026", "11/7/2026", "notpaid", "debit", "77"}},
          {11, {"November", "40.00", "10/1/2026", "12/7/2026", "notpaid", "debit", "111"}},
          {12, {"December", "40.00", "10/1/2026", "13/7/2026", "notpaid", "debit", "112"}}}},
        {"no entry keeps later dates", true, 11, {"0", "", "1/1/2026", "no entry", ""},
         {{11, {"November", "0", "", "1/1/2026", "no entry", "debit", ""}},
          {12, {"December", "0", "12/2/2026", "12/5/2026", "no entry", "debit", "112"}}}},
        {"empty due date numbers nothing", true, 11, {"5", "x", "", "notpaid", ""},
         {{11, {"November", "5.00", "x", "", "notpaid", "debit", ""}},
          {12, {"December", "5.00", "x", "12/5/2026", "notpaid", "debit", "112"}}}},
    };
    // clang-format on
    for (const auto& [name, allMonths, month, values, changed] : cases) {
        SCOPED_TRACE(name);
        MaintainedYear year;
        (allMonths ? applyToAllMonths : applyToMonth)(year.session(), "Utilities", "Gas", month,
                                                      values);
        year.reopen();
        for (int m = 1; m <= 12; ++m) {
            auto it = changed.find(m);
            EXPECT_EQ(year.fields("Utilities", "Gas", m),
                      it == changed.end() ? original(m) : it->second);
            EXPECT_EQ(year.fields("Car", "Gas", m), original(m));
        }
    }
}

TEST(PlanMaintenance, DeleteIsANoticeAndAlwaysDeletes) {
    MaintainedYear year;  // no answers: a question would fail the test
    deleteExpense(year.session(), year.prompter, "Utilities", "Water");
    EXPECT_EQ(year.prompter.shown, Texts{kDeleteExpenseNotice});
    year.reopen();
    EXPECT_EQ(year.expenses("Utilities"), Texts({"Gas", "Power"}));
    EXPECT_EQ(childText(year.category("Utilities"), 1), "2");
}

TEST(PlanMaintenance, NewCategoryHoldsAClearedCopyNamedXxxx) {
    MaintainedYear year;
    addCategory(year.session(), year.prompter, "Pets", "Car");
    addCategory(year.session(), year.prompter, "Toys", "Empty");  // copies the plan's first
    EXPECT_EQ(year.prompter.shown, Texts(2, kNewCategoryNotice));
    year.reopen();
    EXPECT_EQ(year.category("Pets").next_sibling(), year.category("Car"));
    EXPECT_EQ(year.category("Toys").next_sibling(), year.category("Empty"));
    EXPECT_EQ(childText(year.category("Pets"), 0) + childText(year.category("Pets"), 1),
              "category1");
    EXPECT_EQ(year.expenses("Toys"), Texts{"xxxx"});
    EXPECT_EQ(year.fields("Pets", "xxxx"), Texts({"Pets", "", "", "", "", "0", ""}));
    EXPECT_EQ(year.fields("Toys", "xxxx", 12), Texts({"December", "0", "0", "0", "0", "0", "0"}));
}

struct Case {
    const char* refusal;  // part of the message; null for an answer that stops
    std::function<void(S&, P&)> run;
    std::deque<Answer> answers = {};
};

TEST(PlanMaintenance, RefusedNoOrAtTheEndLeavesTheFileAndTheDocument) {
    // clang-format off
    const Case cases[] = {
        {"the expense needs a name", [](S& s, P&) { saveNewExpense(s, "Car", "Gas", " ", kSame); }},
        {"holds an expense named Water",
         [](S& s, P&) { saveNewExpense(s, "Utilities", "Gas", "Water", kSame); }},
        {"\"12abc\" is not an amount (invalid stof argument)",
         [](S& s, P&) { saveNewExpense(s, "Car", "Gas", "Oil", {"", "", "", "", "12abc"}); }},
        {"CLOSING DAY \"32\"",
         [](S& s, P& p) { saveExpenseChanges(s, p, "Car", "Gas", "Gas", {"", "", "32", "", ""}); }},
        {"holds an expense named Power",
         [](S& s, P& p) { saveExpenseChanges(s, p, "Utilities", "Gas", "Power", kSame); }},
        {"AMOUNT \"1.2.3\"",
         [](S& s, P&) { applyToMonth(s, "Car", "Gas", 2, {"1.2.3", "", "", "", ""}); }},
        {"DUE DATE \"3/5\"",
         [](S& s, P&) { applyToAllMonths(s, "Car", "Gas", 3, {"", "", "3/5", "", ""}); }},
        {"DUE DATE \"13/5/2026\"",
         [](S& s, P&) { applyToAllMonths(s, "Car", "Gas", 3, {"", "", "13/5/2026", "", ""}); }},
        {"month 13", [](S& s, P&) { applyToMonth(s, "Car", "Gas", 13, {}); }},
        {"holds an expense named Gas",
         [](S& s, P& p) { moveExpenseToCategory(s, p, "Utilities", "Gas", "Car"); }},
        {"category not found: Pets",
         [](S& s, P& p) { moveExpenseToCategory(s, p, "Utilities", "Water", "Pets"); }},
        {"expense not found on line Oil", [](S& s, P& p) { deleteExpense(s, p, "Car", "Oil"); }},
        {"already a category named Car", [](S& s, P& p) { addCategory(s, p, "Car", "Utilities"); }},
        {"the category needs a name", [](S& s, P& p) { addCategory(s, p, "", "Utilities"); }},
        {"already a category named Car", [](S& s, P& p) { renameCategory(s, p, "Car", "Car"); }},
        {nullptr, [](S& s, P& p) { saveExpenseChanges(s, p, "Car", "Gas", "Oil", {}); },
         {Answer::Cancel}},
        {nullptr, [](S& s, P& p) { moveExpenseToCategory(s, p, "Utilities", "Water", "Car"); },
         {Answer::No}},
        {nullptr, [](S& s, P& p) { renameCategory(s, p, "Car", "Auto"); }, {Answer::No}},
        {nullptr, [](S& s, P& p) { deleteCategory(s, p, "Car"); }, {Answer::No}},
        {nullptr, [](S& s, P&) { EXPECT_FALSE(moveExpenseUp(s, "Utilities", "Gas")); }},
        {nullptr, [](S& s, P&) { EXPECT_FALSE(moveExpenseDown(s, "Utilities", "Power")); }},
    };
    // clang-format on
    for (const auto& [refusal, run, answers] : cases) {
        MaintainedYear year;
        year.prompter.answers = answers;
        const std::string before = year.fileBytes(), document = year.session().data.serialize();
        const std::string said =
            test::thrown<PlanRefusal>([&] { run(year.session(), year.prompter); });
        EXPECT_NE(said.find(refusal ? refusal : "(nothing thrown)"), std::string::npos) << said;
        EXPECT_TRUE(!refusal || year.prompter.shown.empty()) << "asked before refusing";
        EXPECT_EQ(year.fileBytes(), before);
        EXPECT_EQ(year.session().data.serialize(), document);
        EXPECT_EQ(undoText(year.session()), std::nullopt);
    }
}

TEST(PlanMaintenance, NamesWithQuotesAmpersandsAndAccentsWorkEndToEnd) {
    const std::string name = "Joe's \"Café\" & <Müller>", category = name + " Co";
    MaintainedYear year;
    year.prompter.answers = {Answer::Yes, Answer::Yes};
    EXPECT_EQ(saveExpenseChanges(year.session(), year.prompter, "Utilities", "Gas", name, kSame),
              12);
    EXPECT_EQ(renameCategory(year.session(), year.prompter, "Utilities", category), 24);
    EXPECT_TRUE(moveExpenseDown(year.session(), category, name));
    EXPECT_TRUE(moveExpenseUp(year.session(), category, "Power"));
    year.reopen();
    EXPECT_EQ(year.lines(12), Texts({name + "/" + category, "Gas/Car", "Water/" + category}));
    EXPECT_EQ(year.expenses(category), Texts({"Water", "Power", name}));
    EXPECT_EQ(year.fields(category, name)[0], category);
}

}  // namespace
}  // namespace tallix
