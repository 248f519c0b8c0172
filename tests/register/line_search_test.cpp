// Edit > Find over the sample year: texts found in any of the four fields
// without regard to case, amounts found whatever way they are typed.
#include <gtest/gtest.h>

#include "register/line_search.h"
#include "register/year_file.h"

namespace tallix {
namespace {

// "day expense" of the March results.
std::vector<std::string> inMarch(const std::vector<FoundLine>& found) {
    std::vector<std::string> lines;
    for (const FoundLine& f : found)
        if (f.month == 3)
            lines.push_back(f.day + " " + f.expense + " " + f.amount + " " + f.status + " #" +
                            std::to_string(f.line));
    return lines;
}

TEST(LineSearch, FindsTextsInFourFieldsAndAmountsHoweverTyped) {
    test::YearFile year({2026, 3, 15}, test::sourceDir() / "examples/tallix2026.xml");
    using L = std::vector<std::string>;
    EXPECT_EQ(inMarch(findLines(year.data(), " sHELL ")),
              (L{"28 Gasoline 39.57 cleared #1", "11 Gasoline 49.50 posted #18"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "$1,850")), (L{"1 Mortgage 1850.00 cleared #24"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "46.340")),
              (L{"23 Mastercard 46.34 posted check #5", "19 Mastercard 46.34 cleared #9"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "2045")),
              (L{"11 Visa 278.32 posted check #17", "7 Visa 278.32 cleared #19"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "receivables")).size(), 3u);  // a category
    const std::vector<FoundLine> all = findLines(year.data(), "Mortgage");
    ASSERT_EQ(all.size(), 11u);  // December is not planned in the sample yet
    for (size_t m = 0; m < all.size(); ++m)
        EXPECT_EQ(all[m].month, static_cast<int>(m + 1));
    EXPECT_TRUE(findLines(year.data(), "  ").empty());
    EXPECT_TRUE(findLines(year.data(), "no such thing").empty());
}

}  // namespace
}  // namespace tallix
