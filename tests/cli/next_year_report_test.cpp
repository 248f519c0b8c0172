// tallix-cli next-year and report, run as processes in temporary folders.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

#include "app/instance_lock.h"
#include "cli/run_cli.h"
#include "data/document.h"
#include "data/node_text.h"
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
    const auto reports = root / "Documents" / "tallix" / "reports";
    ASSERT_EQ(run("report monthly " + shellQuoted(plan) + " --data-root root"), 0) << err;
    EXPECT_EQ(err, "report file: " +
                       (std::filesystem::canonical(reports) / "monthendreport.csv").string() +
                       "\n");
    EXPECT_EQ(readFile(reports / "monthendreport.csv"),
              readFile(test::sourceDir() / "tests/fixtures/reports/monthendreport_expected.csv"));
    EXPECT_FALSE(std::filesystem::exists(dir / "monthendreport.csv"));
    EXPECT_EQ(out.substr(0, out.find('\n')),
              "category,Expense,January,February,March,April,May,June,July,August,September,"
              "October,November,December");
    EXPECT_NE(out.find("\n ,Power,80.10,75,0,0,90.25,0,0,0,0,0,0,110.5\n"), std::string::npos);

    ASSERT_EQ(run("report recurring " + shellQuoted(plan) + " --month 12 --data-root root"), 0)
        << err;
    EXPECT_NE(out.find("\nTOTAL,1310.50,,,\nLEFT TO PAY,1310.50,,,\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(reports / "recurringreport.csv"));

    EXPECT_EQ(run("report weekly " + shellQuoted(plan)), 2);
    EXPECT_EQ(run("report recurring " + shellQuoted(plan) + " --month 13"), 2);
    EXPECT_EQ(err.rfind("tallix-cli: month must be 1-12 or a month name: 13\n", 0), 0u) << err;
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

// Every file of `folder` with its bytes, but the lock file that the first
// command makes.
std::map<std::string, std::string> filesIn(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename() != ".tallix.lock")
            files[entry.path().filename().string()] = readFile(entry.path());
    }
    return files;
}

TEST_F(NextYearAndReportCommands, NextYearRefusesANameThatCouldReplaceAFileOrLeaveTheFolder) {
    Document index = Document::load(folder / "tallix.xml");
    setChildText(yearEntry(index.node(), "2025"), 0, "tallix2025.xml");
    index.save(folder / "tallix.xml");
    const std::string same =
        "You are atempting to set next years tallix datafile to the same as "
        "the current filename.\nThis would overwrite";
    const std::string bad = "The next years filename must be a plain file name that ends in .xml";
    // The core refuses every such name; here one of each reason.
    const std::pair<const char*, std::string> cases[] = {
        {"tallix2025.xml", same}, {"../x.xml", bad}, {"tallix2027", bad}};
    const auto before = filesIn(folder);
    for (const auto& [name, message] : cases) {
        EXPECT_EQ(run("next-year " + shellQuoted(root) + " 2026 --name '" + name + "'"), 3) << name;
        EXPECT_NE(err.find(message), std::string::npos) << name << ": " << err;
        EXPECT_EQ(filesIn(folder), before) << name;
    }
    EXPECT_FALSE(std::filesystem::exists(root / "x.xml"));
}

TEST_F(NextYearAndReportCommands, NextYearMakesTheFileOnceAndNotUnderAWindow) {
    std::optional<InstanceLock> window = InstanceLock::acquire(folder);
    EXPECT_EQ(run("next-year " + shellQuoted(root) + " 2026"), 3);
    EXPECT_EQ(err, InstanceLock::refusedText(std::filesystem::canonical(folder)) + "\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "tallix2027.xml"));
    window.reset();

    ASSERT_EQ(run("next-year " + shellQuoted(root) + " 2026"), 0) << err;
    EXPECT_EQ(out, (folder / "tallix2027.xml").string() + "\n");
    EXPECT_EQ(yearLookup(Document::load(folder / "tallix.xml").node(), "2027"), "tallix2027.xml");
    const std::string made = readFile(folder / "tallix2027.xml");
    EXPECT_EQ(run("next-year " + shellQuoted(root) + " 2026"), 3);  // it exists now
    EXPECT_EQ(readFile(folder / "tallix2027.xml"), made);

    EXPECT_EQ(run("next-year " + shellQuoted(root) + " 2025"), 3);  // no file for 2025
    EXPECT_EQ(run("next-year " + shellQuoted(root)), 2);
    EXPECT_EQ(run("next-year " + shellQuoted(root) + " 26"), 2);
    EXPECT_NE(err.find("tallix-cli: YEAR must be a year of four digits: 26\n"), std::string::npos);
}

}  // namespace
}  // namespace tallix
