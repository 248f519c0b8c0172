// Update all months on the sample household year: each month's first-row
// balances become the next month's starting values, January to December.
#include <gtest/gtest.h>

#include "data/values.h"
#include "register/year_file.h"

namespace tallix {
namespace {

using test::YearFile;

// Every bound balance group and card with its grid column and the child that
// month m closes into.
struct Slot {
    pugi::xml_node node;
    int column;
    bool card;
    size_t closing(int m) const { return static_cast<size_t>(card ? m + 5 : m + 1); }
};

std::vector<Slot> slots(pugi::xml_node data) {
    std::vector<Slot> result;
    for (pugi::xml_node bank : elementChildren(selectOne(data, paths::kBanks).child("names")))
        for (pugi::xml_node account : elementChildren(bank))
            for (size_t group = 1; group <= 2; ++group) {
                pugi::xml_node node = childAt(account, group);
                if (childText(node, 0) != "0")
                    result.push_back({node, columnPosition(data, childText(node, 0)), false});
            }
    for (pugi::xml_node card : elementChildren(selectOne(data, paths::kCreditCards).child("names")))
        result.push_back({card, columnPosition(data, childText(card, 1)), true});
    return result;
}

TEST(UpdateAllMonths, CarriesEachMonthsFirstRowIntoTheNextThroughDecember) {
    YearFile walked({2026, 11, 15}, test::sourceDir() / "examples" / "tallix2026.xml");
    ASSERT_TRUE(OnToolsUpdateallmonths(walked.session()));
    EXPECT_EQ(walked.session().month, 12);
    EXPECT_EQ(walked.session().title(), "December 2026");
    for (const std::string& shown : walked.prompter.shown)
        EXPECT_EQ(shown.find("runtime error"), std::string::npos) << shown;
    Document saved = Document::load(walked.path);
    const std::vector<Slot> carried = slots(saved.node());
    ASSERT_EQ(carried.size(), 7u);  // five account columns, two cards

    // Each month shown on its own from the walked starting values has as its
    // first row exactly what the walk carried into the next month.
    for (int m = 1; m <= 12; ++m) {
        YearFile alone({2026, 11, 15}, walked.path);
        ASSERT_TRUE(alone.show(m)) << monthName(m);
        for (const Slot& slot : carried)
            EXPECT_EQ(childText(slot.node, slot.closing(m)), alone.cell(0, slot.column))
                << monthName(m) << " column " << slot.column;
    }
}

}  // namespace
}  // namespace tallix
