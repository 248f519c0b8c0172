// tallix-cli show and update-all, run as processes on a copy of
// tests/fixtures/march_register.xml.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <optional>
#include <sstream>
#include <string>

#include "app/instance_lock.h"
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
    // The starting row shows the values the month started from.
    EXPECT_EQ(lines[19],
              " \t \t \t \t \t \t \t \t \t \t \t \t \t1000.00\t1200.50\t \t5000.25\t300.10\t"
              "50.00\t \t \t ");
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

TEST_F(RegisterCommands, WrongArgumentsExitTwoNamingTheWrongOneAndLeaveTheFile) {
    const std::string before = test::readFile(file);
    const std::pair<const char*, const char*> cases[] = {
        {"show FILE", ""},
        {"show FILE 13 --today 2026-03-15", "month must be 1-12 or a month name: 13\n"},
        {"show FILE 0", "month must be 1-12 or a month name: 0\n"},
        {"show FILE Marchx", "month must be 1-12 or a month name: Marchx\n"},
        {"show FILE 3 --today 2026-3", "--today must be a real date YYYY-MM-DD: 2026-3\n"},
        {"show FILE 3 --today", "--today must be followed by a date YYYY-MM-DD\n"},
        {"update-all", ""},
        {"update-all FILE FILE --today 2026-03-15", ""},
        {"update-all FILE --today 15.03.2026",
         "--today must be a real date YYYY-MM-DD: 15.03.2026\n"},
        {"update-all FILE --today 2026-02-30",
         "--today must be a real date YYYY-MM-DD: 2026-02-30\n"},
        {"update-all FILE --today 2026-06-15x",
         "--today must be a real date YYYY-MM-DD: 2026-06-15x\n"},
    };
    for (const auto& [arguments, message] : cases) {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_EQ(out, "") << arguments;
        EXPECT_EQ(err.rfind(std::string("tallix-cli: ") + message, 0),
                  *message ? 0 : std::string::npos)
            << err;
        EXPECT_NE(err.find("usage: tallix-cli"), std::string::npos) << arguments;
    }
    EXPECT_EQ(test::readFile(file), before);
    EXPECT_EQ(run("update-all FILE --today 2028-02-29"), 0) << err;  // a leap day is a date
}

// A file that is no data file (the core says why) fails on standard error, with nothing on
// standard output, and is left as it is.
TEST_F(RegisterCommands, APipeOrAFolderFailsAndStaysWhatItIs) {
    std::filesystem::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0644), 0);
    const std::filesystem::path folder = dir / "folder.xml";
    std::filesystem::create_directory(folder);
    const std::pair<std::string, std::string> cases[] = {
        {"update-all FILE --today 2026-03-15", file.string() + " is a named pipe, not a data file"},
        {"show " + test::shellQuoted(folder) + " 3",
         folder.string() + " is a folder, not a data file"},
    };
    for (const auto& [arguments, reason] : cases) {
        EXPECT_EQ(run(arguments), 3) << arguments;
        EXPECT_EQ(out, "") << arguments;
        EXPECT_EQ(err, "Failed to load DOM from stocks.xml. " + reason + "\n") << arguments;
    }
    EXPECT_TRUE(std::filesystem::is_fifo(file));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EXPECT_FALSE(std::filesystem::exists(dir / ".tallix.lock"));
}

// While a window holds the folder, the commands that write refuse with the
// window's own message; a link into the folder does not get round it.
TEST_F(RegisterCommands, AWindowOnTheFolderRefusesTheCommandsThatWrite) {
    const std::string before = test::readFile(file);
    test::TempDir elsewhere;
    std::filesystem::create_symlink(file, elsewhere / "link.xml");
    std::optional<InstanceLock> window = InstanceLock::acquire(dir.path());
    ASSERT_TRUE(window);
    const std::string refused =
        InstanceLock::refusedText(std::filesystem::canonical(dir.path())) + "\n";
    const std::string writers[] = {
        "update-all FILE --today 2026-03-15", "show FILE 3 --today 2026-03-15",
        "update-all " + test::shellQuoted(elsewhere / "link.xml") + " --today 2026-03-15"};
    for (const std::string& arguments : writers) {
        EXPECT_EQ(run(arguments), 3) << arguments;
        EXPECT_EQ(out, "");
        EXPECT_EQ(err, refused);
    }
    EXPECT_EQ(test::readFile(file), before);
    EXPECT_NE(run("check FILE"), 3);  // reading needs no lock
    EXPECT_EQ(err.find("already running"), std::string::npos) << err;

    window.reset();
    EXPECT_EQ(run("update-all FILE --today 2026-03-15"), 0) << err;
}

}  // namespace
}  // namespace tallix
