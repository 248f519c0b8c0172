// tallix-cli next-year and report, run as processes in temporary folders.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run_cli.h"
#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/year_lookup.h"

namespace tallix {
namespace {

using test::readFile;
using test::shellQuoted;

class NextYearAndReportCommands : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(folder);
        std::filesystem::copy_file(test::sourceDir() / "res/first_tallix.xml",
                                   folder / "tallix.xml");
        std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml",
                                   folder / "tallix2026.xml");
        Document index = Document::load(folder / "tallix.xml");
        setChildText(yearEntry(index.node(), "2026"), 0, "tallix2026.xml");
        index.save(folder / "tallix.xml");
    }

    // Runs tallix-cli in `dir` with `arguments` (quoted for the shell).
    int run(const std::string& arguments) {
        test::CliRun done = test::runCli(arguments, dir.path());
        out = done.out;
        err = done.err;
        return done.status;
    }

    test::TempDir dir;
    std::filesystem::path root = dir / "root";
    std::filesystem::path folder = root / "tallix";
    std::string out, err;
};

TEST_F(NextYearAndReportCommands, MonthlyReportPrintsItsRowsAndWritesTheExpectedFile) {
    const auto plan = test::sourceDir() / "tests/fixtures/reports/plan.xml";
    ASSERT_EQ(run("report monthly " + shellQuoted(plan)), 0) << err;
    EXPECT_EQ(readFile(dir / "monthendreport.csv"),
              readFile(test::sourceDir() / "tests/fixtures/reports/monthendreport_expected.csv"));
    EXPECT_EQ(out.substr(0, out.find('\n')),
              "category,Expense,January,February,March,April,May,June,July,August,September,"
              "October,November,December");
    EXPECT_NE(out.find("\n ,Power,80.10,75,0,0,90.25,0,0,0,0,0,0,110.5\n"), std::string::npos);

    ASSERT_EQ(run("report recurring " + shellQuoted(plan) + " --month 12"), 0) << err;
    EXPECT_NE(out.find("\nTOTAL,1310.50,,,\nLEFT TO PAY,1310.50,,,\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "recurringreport.csv"));

    EXPECT_EQ(run("report weekly " + shellQuoted(plan)), 2);
    EXPECT_EQ(run("report recurring " + shellQuoted(plan) + " --month 13"), 2);
}

TEST_F(NextYearAndReportCommands, AReportOverAnAmountThatIsNotANumberFails) {
    test::writeFile(dir / "bad.xml",
                    "<tallix><catagories><category id=\"C\"><type>category</type><numberItems>1"
                    "</numberItems><names><name id=\"E\"><category>C</category><type>recurring"
                    "</type><a/><b/><c/><d/><e/><months><month><name>January</name><amount>x"
                    "</amount></month></months></name></names></category></catagories></tallix>");
    EXPECT_EQ(run("report monthly bad.xml"), 3);
    EXPECT_EQ(err.substr(err.rfind("runtime error")),
              "runtime error in OnReportsMonthlytotals() \n");
}

TEST_F(NextYearAndReportCommands, NextYearMakesTheFileAndRefusesTheCurrentName) {
    const std::string before = readFile(folder / "tallix.xml");
    EXPECT_EQ(run("next-year " + shellQuoted(root) + " 2026 --name tallix2026.xml"), 3);
    EXPECT_NE(err.find("You are atempting to set next years tallix datafile"), std::string::npos);
    EXPECT_EQ(readFile(folder / "tallix.xml"), before);

    ASSERT_EQ(run("next-year " + shellQuoted(root) + " 2026"), 0) << err;
    EXPECT_EQ(out, (folder / "tallix2027.xml").string() + "\n");
    Document index = Document::load(folder / "tallix.xml");
    EXPECT_EQ(yearLookup(index.node(), "2027"), "tallix2027.xml");
    Document made = Document::load(folder / "tallix2027.xml");
    EXPECT_EQ(selectAll(made.node(), paths::kMonthByName, "June", paths::kCloseChildren).size(),
              1u);

    EXPECT_EQ(run("next-year " + shellQuoted(root) + " 2025"), 3);  // no file for 2025
    EXPECT_EQ(run("next-year " + shellQuoted(root)), 2);
}

TEST_F(NextYearAndReportCommands, AYearWalkedEndToEndStartsFromDecembersClosing) {
    ASSERT_EQ(run("update-all " + shellQuoted(folder / "tallix2026.xml") + " --today 2026-12-31"),
              0)
        << err;
    Document closed = Document::load(folder / "tallix2026.xml");
    pugi::xml_node regcolumn = childAt(
        childAt(requireOne(closed.node(), paths::kInstitutionName, "First National"), 0), 1);
    const std::string december = nodeText(elementChildren(regcolumn).back());
    ASSERT_NE(december, "0");

    ASSERT_EQ(run("next-year " + shellQuoted(root) + " 2026"), 0) << err;
    Document made = Document::load(folder / "tallix2027.xml");
    regcolumn =
        childAt(childAt(requireOne(made.node(), paths::kInstitutionName, "First National"), 0), 1);
    EXPECT_EQ(childText(regcolumn, 1), december);

    // Before anything of January is due, its first line shows the balances
    // January starts from.
    ASSERT_EQ(run("show " + shellQuoted(folder / "tallix2027.xml") + " January --today 2026-12-31"),
              0)
        << err;
    std::vector<std::vector<std::string>> grid;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        std::vector<std::string> cells;
        std::istringstream fields(line);
        for (std::string cell; std::getline(fields, cell, '\t');)
            cells.push_back(cell);
        grid.push_back(cells);
    }
    ASSERT_EQ(grid.size(), 3u) << out;  // titles, the blank line, the starting row
    auto column = std::find(grid[0].begin(), grid[0].end(), "FN Register") - grid[0].begin();
    ASSERT_LT(static_cast<size_t>(column), grid[1].size());
    EXPECT_DOUBLE_EQ(std::stod(grid[1][static_cast<size_t>(column)]), std::stod(december));
}

}  // namespace
}  // namespace tallix
