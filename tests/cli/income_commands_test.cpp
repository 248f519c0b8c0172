// tallix-cli income and customer on copies of the sample year.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace tallix {
namespace {

TEST(IncomeCommands, EachCommandLeavesAFileWithoutFaults) {
    test::TempDir dir;
    // The dates are worked out for the year the file's name gives.
    const std::filesystem::path file = dir / "tallix2026.xml", leap = dir / "tallix2028.xml";
    for (const std::filesystem::path& copy : {file, leap})
        std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml", copy);
    const std::string f = test::shellQuoted(file) + " ", l = test::shellQuoted(leap) + " ";
    const std::string acme = f + "\"Acme Payroll\" ", social = f + "\"Social Security\" ";
    const std::string joes = R"("Joe's \"Pay\" & Café" )",
                      bakery = R"(--like "Maple Street Bakery")";
    // clang-format off
    const std::tuple<std::string, int, std::string> steps[] = {
        {"set " + acme + "--type \"auto day\" --day Friday --number 2", 0, "auto day Friday 2; dates worked out for 2026:\nJanuary 1/9/2026\nFebruary 2/13/2026\n"},
        {"set " + acme + "--type \"auto date\" --day 31", 0, "March 3/31/2026\nApril 4/30/2026\n"},
        {"set " + social + "--day Monday --number 5", 0, "January 1/26/2026\nFebruary 2/23/2026\nMarch 3/30/2026\n"},
        {"set " + l + "\"Acme Payroll\" --day 29", 0, "February 2/29/2028\n"},
        {"set " + l + "\"Acme Payroll\" --day 29 --year 2027", 0, "February 2/28/2027\n"},
        {"set " + f + "\"IRA Distribution\" --amount 600", 0, "repeating amount 600.00, posted; dates kept:\nJanuary 1/3/2026\n"},
        {"set " + acme + "--name \"\"", 1, "the income source needs a name"},
        {"set " + acme + "--name \"Social Security\"", 1, "there is already an income source named Social Security"},
        {"set " + acme + "--day 32", 1, "DAY/DATE \"32\""},
        {"set " + acme + "--type \"auto day\" --day Fryday --number 2", 1, "DAY/DATE \"Fryday\" is not a weekday"},
        {"set " + social + "--number 6", 1, "DAY NUMBER \"6\" is not a number from 1 to 5"},
        {"set " + social + "--amount 12abc", 1, "REPEATING INCOME \"12abc\" is not an amount"},
        {"set " + f + "Nope --amount 5", 1, "income source not found: Nope"},
        {"set " + acme + "--year 20x6", 2, "--year must be a year YYYY: 20x6"},
        {"set " + f, 2, "usage:"},
        {"add " + f + joes + "--like \"Acme Payroll\" --account Savings", 0, "added income source Joe's \"Pay\" & Café before Acme Payroll: First National Savings, repeating amount 3150.00"},
        {"set " + f + joes + "--type \"auto day\" --day Friday --number 2 --name \"Søn's & <Co>\"", 0, "renamed income source Joe's \"Pay\" & Café to Søn's & <Co>: First National Savings"},
        {"add " + f + "\"Social Security\" --like \"Acme Payroll\"", 1, "there is already an income source named Social Security"},
        {"add " + f + "Bonus --like Nope", 1, "income source not found: Nope"},
        {"add " + f + "Bonus", 2, "--like must name"},
        {"delete " + f + "\"Søn's & <Co>\"", 0, "deleted income source Søn's & <Co>"},
        {"customer add " + f + joes + bakery + " --number 1003", 0, "added customer Joe's \"Pay\" & Café before Maple Street Bakery: number 1003, First National Checking, repeating amount 350.00"},
        {"customer add " + f + "\"Riverside Garden Club\" " + bakery, 1, "there is already a customer named Riverside Garden Club"},
        {"customer add " + f + "\"\" " + bakery, 1, "the customer needs a name"},
        {"customer add " + f + "Lakeside --like Nope", 1, "Receivable not found on line Nope"},
        {"customer delete " + f + joes, 0, "deleted customer Joe's \"Pay\" & Café"},
        {"customer delete " + f + joes, 1, "Receivable not found on line Joe's \"Pay\" & Café"},
    };
    // clang-format on
    for (auto [arguments, status, printed] : steps) {
        if (!arguments.starts_with("customer "))
            arguments = "income " + arguments;
        const std::string before = test::readFile(file) + test::readFile(leap);
        test::CliRun run = test::runCli(arguments);
        EXPECT_EQ(run.status, status) << arguments << '\n' << run.err;
        const std::string shown = status ? run.err : run.out;
        EXPECT_NE(shown.find(status == 1 ? "tallix-cli: " + printed : printed), std::string::npos)
            << arguments << '\n'
            << shown;
        EXPECT_EQ(test::readFile(file) + test::readFile(leap) == before, status != 0) << arguments;
        EXPECT_EQ(test::runCli("check " + f).status + test::runCli("check " + l).status, 0)
            << arguments;
    }
}

}  // namespace
}  // namespace tallix
