// A line's day set from its DATE cell, on the sample year's November (21
// lines, the 25th down to the 1st): the days a month has, where the line
// goes, and what follows it there.
#include <gtest/gtest.h>

#include <map>

#include "editing/line_day.h"
#include "register/line_elements.h"
#include "register/month_lines.h"
#include "register/year_file.h"

namespace tallix {
namespace {

// "day expense" of each line of November, top to bottom; the numbers run on.
std::vector<std::string> november(test::YearFile& year) {
    std::vector<std::string> lines;
    for (pugi::xml_node line : monthLines(year.data(), "November")) {
        EXPECT_EQ(attributeText("line", line), std::to_string(lines.size() + 1));
        lines.push_back(childText(line, 0) + " " + childText(line, 1));
    }
    return lines;
}

TEST(LineDay, TheLineTakesItsPlaceAmongTheDaysAndBadDaysAreRefused) {
    test::YearFile year({2026, 11, 21}, test::sourceDir() / "examples/tallix2026.xml");
    ASSERT_TRUE(year.show(11));
    std::vector<std::string> lines = november(year);
    const std::string bytes = test::readFile(year.path);
    for (const char* bad : {"0", "31", "9x", "", "1.5", "123"}) {
        EXPECT_FALSE(setLineDay(year.session(), 0, bad)) << bad;
        EXPECT_EQ(year.prompter.shown.back(),
                  "The day of a line in November must be a whole number from 1 to 30.");
    }
    EXPECT_EQ(test::readFile(year.path), bytes);

    // Cells of their own colour (red: the row they were given on) follow
    // their lines; the rows between close up.
    RegisterView& view = year.session().view;
    for (int row : {0, 1, 6, 7, 20})
        view.cellOverrides[{row, 3}] = {Rgb{row, 0, 0}, std::nullopt};
    auto coloured = [&] {
        std::map<int, int> rows;  // row now: row given
        for (const auto& [cell, colours] : view.cellOverrides)
            rows[cell.first] = colours.background->red;
        return rows;
    };

    // Acme Payroll goes to the 1st: below every line, the first of the 1st too.
    ASSERT_TRUE(setLineDay(year.session(), 0, " 1 "));
    lines.push_back("1 Acme Payroll");
    lines.erase(lines.begin());
    EXPECT_EQ(november(year), lines);
    EXPECT_EQ(coloured(), (std::map<int, int>{{0, 1}, {5, 6}, {6, 7}, {19, 20}, {20, 0}}));
    // Maple Street Bakery's item followed its line from 16 to 15.
    pugi::xml_node maple = monthLines(year.data(), "November")[14];
    ASSERT_EQ(childText(maple, 1), "Maple Street Bakery");
    EXPECT_TRUE(receivableItem(year.data(), maple, 11, "15"));

    // Back to the 19th: above the lines of earlier days (Social Security, the
    // 18th, on row 6 now).
    ASSERT_TRUE(setLineDay(year.session(), 20, "19"));
    lines.pop_back();
    lines.insert(lines.begin() + 6, "19 Acme Payroll");
    EXPECT_EQ(november(year), lines);
    EXPECT_EQ(coloured(), (std::map<int, int>{{0, 1}, {5, 6}, {6, 0}, {7, 7}, {20, 20}}));
    EXPECT_EQ(test::readFile(year.path), year.session().data.serialize());
}

}  // namespace
}  // namespace tallix
