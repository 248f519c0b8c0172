// tallix-cli bank, account, card, expense, category, income and customer on
// copies of the sample year: what each prints, its exit status (1 for a
// refusal, 2 for wrong arguments), and a file that changes only when the
// command succeeds and is left without faults. The rules of the operations
// are the core's.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace tallix {
namespace {

struct Step {
    std::string arguments;
    int status;
    std::string printed;  // on standard output, or on standard error for a failure
};

// Runs the steps in turn; FILE and LEAP stand for copies of the sample year
// named for 2026 and 2028, whose names give the year dates are worked out for.
void runSteps(const std::vector<Step>& steps) {
    test::TempDir dir;
    const std::string files[] = {(dir / "tallix2026.xml").string(),
                                 (dir / "tallix2028.xml").string()};
    for (const std::string& file : files)
        std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml", file);
    for (Step step : steps) {
        SCOPED_TRACE(step.arguments);
        for (auto [name, file] : {std::pair{"FILE", files[0]}, {"LEAP", files[1]}})
            for (size_t at; (at = step.arguments.find(name)) != std::string::npos;)
                step.arguments.replace(at, 4, test::shellQuoted(file));
        const std::string before = test::readFile(files[0]) + test::readFile(files[1]);
        const test::CliRun run = test::runCli(step.arguments);
        EXPECT_EQ(run.status, step.status) << run.err;
        const std::string& shown = step.status ? run.err : run.out;
        EXPECT_NE(shown.find(step.printed), std::string::npos) << shown;
        EXPECT_EQ(test::readFile(files[0]) + test::readFile(files[1]) == before, step.status != 0);
        for (const std::string& file : files)
            EXPECT_EQ(test::runCli("check " + test::shellQuoted(file)).status, 0);
    }
}

const std::string kJoes = R"("Joe's \"Bank\" & Café" )";

TEST(MaintenanceCommands, BanksAccountsAndCards) {
    // clang-format off
    runSteps({
        {"bank add FILE " + kJoes + "Main --bank-title JB --register-title JR --outstanding-title "
         "\"JB Öut\" --start 100", 0, "columns made: JR, JB, JB Öut"},
        {"account add FILE " + kJoes + "Savings --bank-title \"J's & Sav\"", 0, "made: J's & Sav"},
        {"account add FILE " + kJoes + "Spare --bank-title \"FN Bank\"", 1, "FN Bank"},
        {"bank add FILE Other Main", 2, "--bank-title must be given"},
        {"account rename FILE " + kJoes + "Main Mäin", 0, "renamed account Main of Joe's"},
        {"bank rename FILE " + kJoes + "\"Ünion's\"", 0, "renamed bank Joe's \"Bank\" & Café to"},
        {"account delete FILE \"Ünion's\" Savings", 0, "columns removed: J's & Sav"},
        {"bank delete FILE \"Ünion's\"", 0, "columns removed: JR, JB, JB Öut"},
        {"card add FILE " + kJoes + "--title JC --last-year 9 --closing-day 5 --due-day 9", 0, "JC"},
        {"card add FILE Amex --closing-day 32", 1, "32"},
        {"card rename FILE " + kJoes + "Discover", 0, "renamed card Joe's \"Bank\" & Café to Dis"},
        {"card delete FILE Discover", 0, "columns removed: JC"},
        {"card add FILE", 2, "usage"},
    });
    // clang-format on
}

TEST(MaintenanceCommands, ExpensesAndCategories) {
    // clang-format off
    runSteps({
        {"expense rename FILE Living Groceries " + kJoes + "--lines", 0, "; 22 register lines"},
        {"expense move FILE " + kJoes + "Living Medical --lines", 0, "; 22 register lines given"},
        {"expense apply FILE Medical " + kJoes + "3 --amount 12 --due 3/7/2026 --all-months", 0,
         "December of Joe's \"Bank\" & Café: amount 12.00, date paid 3/19/2026, due date 12/7/2026"},
        {"category rename FILE Medical Health", 0, "; 41 register lines given category Health"},
        {"category add FILE Pets --before Housing", 0, "added category Pets before Housing"},
        {"category delete FILE Pets", 0, "deleted category Pets and its 1 expenses"},
        {"expense rename FILE Living Nope X", 1, "expense not found on line Nope"},
        {"expense apply FILE Living Gasoline 13", 2, "month must be 1-12"},
    });
    // clang-format on
}

TEST(MaintenanceCommands, IncomeSourcesAndCustomers) {
    const std::string acme = "income set FILE \"Acme Payroll\" ",
                      leap = "income set LEAP \"Acme Payroll\" ";
    // clang-format off
    runSteps({
        {acme + "--type \"auto day\" --day Friday --number 2", 0, "auto day Friday 2; dates worked out for 2026:\nJanuary 1/9/2026\nFebruary 2/13/2026\n"},
        {leap + "--type \"auto date\" --day 29", 0, "February 2/29/2028\n"},
        {leap + "--day 29 --year 2027", 0, "February 2/28/2027\n"},
        {"income set FILE \"IRA Distribution\" --amount 600", 0, "repeating amount 600.00, posted; dates kept:\nJanuary 1/3/2026\n"},
        {acme + "--day 32", 1, "tallix-cli: DAY/DATE \"32\""},
        {acme + "--year 20x6", 2, "--year must be a year YYYY: 20x6"},
        {"income set FILE", 2, "usage:"},
        {"income add FILE " + kJoes + "--like \"Acme Payroll\" --account Savings", 0, "added income source Joe's \"Bank\" & Café before Acme Payroll: First National Savings, repeating amount 3150.00"},
        {"income set FILE " + kJoes + "--name \"Søn's & <Co>\"", 0, "renamed income source Joe's \"Bank\" & Café to Søn's & <Co>: First National Savings"},
        {"income add FILE Bonus", 2, "--like must name"},
        {"income delete FILE \"Søn's & <Co>\"", 0, "deleted income source Søn's & <Co>"},
        {"customer add FILE " + kJoes + "--like \"Maple Street Bakery\" --number 1003", 0, "added customer Joe's \"Bank\" & Café before Maple Street Bakery: number 1003, First National Checking, repeating amount 350.00"},
        {"customer delete FILE " + kJoes, 0, "deleted customer Joe's \"Bank\" & Café"},
        {"customer delete FILE " + kJoes, 1, "tallix-cli: Receivable not found on line Joe's \"Bank\" & Café"},
    });
    // clang-format on
}

}  // namespace
}  // namespace tallix
