// The balance engine's edges beyond the hand-computed March and the random
// years of balance_property_test: empty months, receivable items, empty
// starting values, tips and an amount that cannot be read.
#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "data/values.h"
#include "register/year_file.h"

namespace tallix {
namespace {

using test::YearFile;
namespace col = test::col;

pugi::xml_node marchLine(YearFile& year, int line) {
    return childAt(year.month("March"), static_cast<size_t>(line - 1));
}
pugi::xml_node bankGroup(YearFile& year, const std::string& bank, size_t group) {
    return childAt(childAt(requireOne(year.data(), paths::kInstitutionName, bank), 0), group);
}

TEST(BalanceEngine, AMonthWithoutLinesStillResetsItsIncomeAndAccumulatedTotals) {
    YearFile year({2026, 3, 15});
    year.session().month = 1;
    ASSERT_TRUE(OnToolsUpdate(year.session()));
    Document saved = Document::load(year.path);
    using Total = std::tuple<const char*, const char*, size_t>;
    for (auto [prefix, id, months] :
         {Total{paths::kExpense, "Groceries", 7}, Total{paths::kIncome, "Side Gig", 6},
          Total{paths::kIncome, "IRA Draw", 6}})
        EXPECT_EQ(childText(childAt(childAt(requireOne(saved.node(), prefix, id), months), 0), 1),
                  "0")
            << id;
    // Only accumulated totals are reset. No closing runs: February's starting
    // values stay and no RMD is worked out (it would show its message).
    EXPECT_EQ(childText(bankGroup(year, "Harbor Bank", 1), 2), "950.00");
    EXPECT_EQ(childText(requireOne(year.data(), paths::kInstitutionName, "Visa"), 6), "22.00");
    EXPECT_TRUE(year.prompter.shown.empty());
    EXPECT_EQ(childText(year.planMonth(paths::kExpense, "Rent", 7, 1), 1), "800.00");
}

// The line names Oak Cafe now: the item another customer held for it comes
// over, and the file is saved although no text changed.
TEST(BalanceEngine, AnItemAnotherCustomerHeldForAReceivableLineComesOver) {
    YearFile year({2026, 3, 15});
    ASSERT_TRUE(year.show(3));  // everything else March changes is saved now
    pugi::xml_node oak = requireOne(year.data(), paths::kReceivable, "Oak Cafe");
    pugi::xml_node elm = oak.parent().insert_copy_after(oak, oak);
    elm.attribute("id").set_value("Elm Books");
    pugi::xml_node item = childAt(childAt(childAt(oak, 4), 2), 1);  // line 11's
    ASSERT_EQ(childText(item, 0), "11");
    childAt(childAt(elm, 4), 2).append_move(item);
    year.session().saveSettled();

    ASSERT_TRUE(year.show(3));
    Document saved = Document::load(year.path);
    auto march = [&](const char* customer) {
        std::vector<std::string> lines;
        for (pugi::xml_node i : elementChildren(
                 childAt(childAt(requireOne(saved.node(), paths::kReceivable, customer), 4), 2)))
            lines.push_back(childText(i, 0));
        return lines;
    };
    EXPECT_EQ(march("Oak Cafe"), (std::vector<std::string>{"DUMMY", "11"}));
    EXPECT_EQ(march("Elm Books"), (std::vector<std::string>{"DUMMY"}));
}

struct Variation {
    const char* name;
    std::function<void(YearFile&)> change;
    std::function<void(YearFile&)> check;
};

class MarchVariation : public ::testing::TestWithParam<Variation> {};

TEST_P(MarchVariation, ShowsAsDecided) {
    YearFile year({2026, 3, 15});
    GetParam().change(year);
    year.show(3);
    GetParam().check(year);
}

const Variation kVariations[] = {
    {"AReceivableRewritesItsOwnItem",
     [](YearFile& y) {
         pugi::xml_node item = childAt(
             childAt(childAt(requireOne(y.data(), paths::kReceivable, "Oak Cafe"), 4), 2), 0);
         setChildText(item, 0, "11");
         setChildText(item, 1, "10.00");
     },
     [](YearFile& y) {
         pugi::xml_node march =
             childAt(childAt(requireOne(y.data(), paths::kReceivable, "Oak Cafe"), 4), 2);
         ASSERT_EQ(elementChildCount(march), 1u);
         EXPECT_EQ(childText(childAt(march, 0), 1), "150.00");
         EXPECT_EQ(y.cell(10, col::kCkRegister), "409.90");
     }},
    {"AnEmptyStartingValueCountsAsZero",
     [](YearFile& y) {
         setChildText(bankGroup(y, "Harbor Bank", 1), 3, "");
         setChildText(requireOne(y.data(), paths::kInstitutionName, "Visa"), 7, "");
     },
     [](YearFile& y) {
         EXPECT_EQ(y.cell(18, col::kVisa), "0.00");  // the starting row
         EXPECT_EQ(y.cell(17, col::kCkRegister), "0.00");
         EXPECT_EQ(y.cell(16, col::kCkRegister), "-800.00");
     }},
    {"AnUnreadableAmountEndsTheRun", [](YearFile& y) { setChildText(marchLine(y, 16), 2, "abc"); },
     [](YearFile& y) { EXPECT_EQ(y.prompter.shown.back(), "runtime error in displayMonth() "); }},
    {"ATipOnlyCountsOnARestaurantLine",
     [](YearFile& y) {
         setChildText(marchLine(y, 10), 1, "Groceries");
         setChildText(marchLine(y, 1), 9, "99.00");
     },
     [](YearFile& y) {
         EXPECT_EQ(y.cell(9, col::kCkRegister), "349.90");  // 409.90 - 60.00
         EXPECT_EQ(childText(y.planMonth(paths::kExpense, "Groceries", 7, 3), 1), "135.65");
     }},
};

INSTANTIATE_TEST_SUITE_P(Lines, MarchVariation, ::testing::ValuesIn(kVariations),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace tallix
