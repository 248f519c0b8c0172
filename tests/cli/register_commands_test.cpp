// tallix-cli show and update-all, run as processes on a copy of
// tests/fixtures/march_register.xml.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "cli/run_cli.h"
#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"

namespace tallix {
namespace {

class RegisterCommands : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::copy_file(test::sourceDir() / "tests/fixtures/march_register.xml", file);
    }

    // Runs tallix-cli with `arguments` (quoted for the shell); FILE stands
    // for the copy of the year file.
    int run(std::string arguments) {
        for (size_t at; (at = arguments.find("FILE")) != std::string::npos;)
            arguments.replace(at, 4, test::shellQuoted(file));
        test::CliRun done = test::runCli(arguments);
        out = done.out;
        err = done.err;
        return done.status;
    }

    std::string savedClosing(const std::string& bank, size_t group, size_t child) {
        Document saved = Document::load(file);
        return childText(
            childAt(childAt(requireOne(saved.node(), paths::kInstitutionName, bank), 0), group),
            child);
    }

    test::TempDir dir;
    std::filesystem::path file = dir / "tallix 2026.xml";
    std::string out, err;
};

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

TEST_F(RegisterCommands, ShowPrintsTheTitlesAndEveryRowAndSavesTheFile) {
    ASSERT_EQ(run("show FILE March --today 2026-03-15"), 0) << err;
    std::vector<std::string> lines = linesOf(out);
    ASSERT_EQ(lines.size(), 20u);  // titles, 18 lines, the starting row
    EXPECT_EQ(lines[0],
              "\tDAY\tDATE\tITEM\tExpense\tAmount\tCheck\tCategory\tStatus\tDescription\t"
              "Institution\tAccount\tB\tCK Register\tCK Bank\tCK Outstanding\tSV Bank\tVisa\t"
              "Amex\tInfo\tAccumulate\tTypeofentry");
    EXPECT_EQ(lines[1],
              " \tTue\t31\t1\tGroceries\t25.00\t \tLiving\tposted\tCorner Market\tcreditcards\t"
              "Visa\t \t237.60\t543.20\t \t5070.30\t145.50\t95.55\t \taccumulate\tcredit card");
    EXPECT_EQ(lines[19], " \t \t \t \t \t \t \t \t \t \t \t \t \t0\t0\t \t0\t \t \t \t \t ");
    EXPECT_EQ(err,
              "Institution not found on line 5\n"
              "Your to and from account for a move or transfer are the same for line 5 Correct "
              "and try again\n"
              "Name of expense on line 4 not found \n"
              "category for expense on line 3 not found...skipping\n"
              "The RMD incomePension is not found\n");
    EXPECT_EQ(savedClosing("Harbor Bank", 1, 4), "237.60");
}

TEST_F(RegisterCommands, ShowReportsAnEmptyMonthAndAFailure) {
    EXPECT_EQ(run("show FILE 1 --today 2026-03-15"), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err,
              "You tying to load the month of January which has no entries and its not the "
              "current calendar month\n");

    std::string text = test::readFile(file);
    text.replace(text.find("<debit>35.00</debit>"), 20, "<debit>abc</debit>");
    test::writeFile(file, text);
    EXPECT_EQ(run("show FILE 3 --today 2026-03-15"), 3);
    EXPECT_EQ(out, "");
    EXPECT_NE(err.find("runtime error in displayMonth() \n"), std::string::npos) << err;
}

TEST_F(RegisterCommands, UpdateAllCarriesEveryMonthAndSavesTheFile) {
    ASSERT_EQ(run("update-all FILE --today 2026-03-15"), 0) << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(savedClosing("Harbor Bank", 1, 4), "237.60");  // March's closing
    // April starts from 237.60 and pays 10 + 5 + 40 + 1.
    EXPECT_EQ(savedClosing("Harbor Bank", 1, 5), "181.60");
    EXPECT_EQ(savedClosing("Harbor Bank", 1, 6), "0");  // May has no lines
    EXPECT_NE(err.find("You tying to load the month of December which has no entries and its "
                       "not the current calendar month\n"),
              std::string::npos);
}

TEST_F(RegisterCommands, WrongArgumentsExitTwoAndLeaveTheFile) {
    const std::string before = test::readFile(file);
    for (const char* arguments :
         {"show FILE", "show FILE 13 --today 2026-03-15", "show FILE Marchx",
          "show FILE 3 --today 2026-3", "show FILE 3 --today", "update-all",
          "update-all FILE FILE --today 2026-03-15", "update-all FILE --today 15.03.2026"}) {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_NE(err.find("usage: tallix-cli"), std::string::npos) << arguments;
    }
    EXPECT_EQ(test::readFile(file), before);
}

}  // namespace
}  // namespace tallix
