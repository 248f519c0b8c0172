// A line's day set from its DATE cell, on the sample year's November: the
// days a month has, where the line goes, and what is refused.
#include <gtest/gtest.h>

#include "data/values.h"
#include "editing/line_day.h"
#include "register/month_lines.h"
#include "register/year_file.h"

namespace tallix {
namespace {

// "day expense" of each line of November, top to bottom.
std::vector<std::string> november(test::YearFile& year) {
    std::vector<std::string> lines;
    for (pugi::xml_node line : monthLines(year.data(), "November"))
        lines.push_back(childText(line, 0) + " " + childText(line, 1) + " #" +
                        line.attribute("line").value());
    return lines;
}

TEST(LineDay, TheLineTakesItsPlaceAmongTheDaysAndBadDaysAreRefused) {
    EXPECT_EQ(daysInMonth(2, 2028), 29);
    EXPECT_EQ(daysInMonth(2, 2100), 28);
    EXPECT_EQ(daysInMonth(11, 2026), 30);
    EXPECT_EQ(daysInMonth(12, 2026), 31);

    test::YearFile year({2026, 11, 21}, test::sourceDir() / "examples/tallix2026.xml");
    ASSERT_TRUE(year.show(11));
    const std::vector<std::string> before = november(year);
    const std::string bytes = test::readFile(year.path);
    for (const char* bad : {"0", "31", "9x", "", "1.5"}) {
        EXPECT_FALSE(setLineDay(year.session(), 0, bad)) << bad;
        EXPECT_EQ(year.prompter.shown.back(),
                  "The day of a line in November must be a whole number from 1 to 30.");
    }
    EXPECT_EQ(test::readFile(year.path), bytes);

    // The top line goes to the 1st: below every line, the first of the 1st too.
    const std::string top = before.front().substr(before.front().find(' ') + 1);
    ASSERT_TRUE(setLineDay(year.session(), 0, " 1 "));
    const std::vector<std::string> after = november(year);
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(after.back().substr(0, after.back().find(" #")),
              "1 " + top.substr(0, top.find(" #")));
    EXPECT_EQ(after.back().substr(after.back().find(" #")), " #" + std::to_string(after.size()));
    EXPECT_EQ(after.front().substr(0, after.front().find(" #")),
              before[1].substr(0, before[1].find(" #")));
    // Then back to the 19th: above the lines of earlier days.
    ASSERT_TRUE(year.show(11));
    ASSERT_TRUE(setLineDay(year.session(), static_cast<int>(after.size()) - 1, "19"));
    const std::vector<std::string> again = november(year);
    for (size_t i = 1; i < again.size(); ++i)
        EXPECT_GE(std::stoi(again[i - 1]), std::stoi(again[i])) << i;
}

}  // namespace
}  // namespace tallix
