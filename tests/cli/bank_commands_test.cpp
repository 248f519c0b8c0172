// tallix-cli bank, account and card on copies of the sample year.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace tallix {
namespace {

struct SampleCopy {
    test::TempDir dir;
    std::filesystem::path file = dir / "tallix2026.xml";
    bool made = std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml", file);
    std::string f = test::shellQuoted(file) + " ";
};
constexpr const char* kToday = " --today 2026-12-31";

TEST(BankCommands, EachCommandLeavesAFileWithoutFaults) {
    SampleCopy copy;
    const std::string f = copy.f, joes = R"("Joe's \"Bank\" & Café" )";
    // clang-format off
    const std::tuple<std::string, int, std::string> steps[] = {
        {"bank add " + f + joes + "Main --bank-title JB --register-title JR --outstanding-title "
         "\"JB Öut\" --start 100", 0, "columns made: JR, JB, JB Öut"},
        {"account add " + f + joes + "Savings --bank-title \"J's & Sav\"", 0, "made: J's & Sav"},
        {"account add " + f + joes + "Spare --bank-title \"FN Bank\"", 1, "FN Bank"},
        {"bank add " + f + "Other Main --bank-title OB --register-title OR", 1, "OUTSTANDING DOLLARS COLUMN NAME is empty"},
        {"bank add " + f + "\"First National\" Main --bank-title X", 1, "First National"},
        {"bank add " + f + "\"\" Main --bank-title X", 1, "bank needs a name"},
        {"bank add " + f + "Other Main --bank-title X --start 12x", 1, "12x"},
        {"bank add " + f + "Other Main", 2, "--bank-title must be given"},
        {"account rename " + f + joes + "Main Mäin", 0, "renamed account Main of Joe's"},
        {"bank rename " + f + joes + "\"Ünion's\"", 0, "renamed bank Joe's \"Bank\" & Café to"},
        {"account delete " + f + "\"Ünion's\" Savings", 0, "columns removed: J's & Sav"},
        {"bank delete " + f + "\"Ünion's\"", 0, "columns removed: JR, JB, JB Öut"},
        {"card add " + f + joes + "--title JC --last-year 9 --closing-day 5 --due-day 9", 0, "JC"},
        {"card add " + f + "Visa", 1, "Visa"},
        {"card add " + f + "Amex --closing-day 32", 1, "32"},
        {"card rename " + f + joes + "Discover", 0, "renamed card Joe's \"Bank\" & Café to Dis"},
        {"card delete " + f + "Discover", 0, "columns removed: JC"},
        {"card delete " + f + "Visa", 0, "columns removed: Visa"},
        {"card delete " + f + "Nope", 1, "Nope"},
        {"card add " + f, 2, "usage"},
    };
    // clang-format on
    for (const auto& [arguments, status, printed] : steps) {
        const std::string before = test::readFile(copy.file);
        test::CliRun run = test::runCli(arguments);
        EXPECT_EQ(run.status, status) << arguments << '\n' << run.err;
        EXPECT_NE((status ? run.err : run.out).find(printed), std::string::npos) << run.err;
        EXPECT_EQ(test::readFile(copy.file) == before, status != 0) << arguments;
        EXPECT_EQ(test::runCli("check " + f).status, 0) << arguments;
        EXPECT_EQ(test::runCli("show " + f + "1" + kToday).status, 0) << arguments;
    }
}

// Update all, then every month's grid and notices as show prints them.
std::string everyMonth(const SampleCopy& copy) {
    EXPECT_EQ(test::runCli("update-all " + copy.f + kToday).status, 0);
    std::string shown;
    for (int month = 1; month <= 12; ++month) {
        test::CliRun run = test::runCli("show " + copy.f + std::to_string(month) + kToday);
        EXPECT_EQ(run.status, 0) << month << run.err;
        shown += run.out + run.err;
    }
    return shown;
}

TEST(BankCommands, ARenamedBankOrAccountBalancesEveryMonthAsBefore) {
    const std::tuple<std::string, std::string, std::string, std::string> renames[] = {
        {"bank rename ", "", "First National", "Fírst & Joe's"},
        {"account rename ", "\"First National\" ", "Checking", "Chéck & Joe's"},
    };
    for (const auto& [command, bank, from, to] : renames) {
        SampleCopy copy;
        const std::string before = everyMonth(copy);
        test::CliRun run = test::runCli(command + copy.f + bank + '"' + from + "\" \"" + to + '"');
        ASSERT_EQ(run.status, 0) << run.err;
        std::string after = everyMonth(copy);
        EXPECT_NE(after.find(to), std::string::npos) << command;
        for (size_t at; (at = after.find(to)) != std::string::npos;)
            after.replace(at, to.size(), from);
        EXPECT_EQ(after, before) << command;
    }
}

}  // namespace
}  // namespace tallix
