// tallix-cli expense and category on a copy of the sample year: every
// command leaves a file the structural check finds no fault in, and a
// refusal leaves the file as it was.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace tallix {
namespace {

TEST(PlanCommands, EachCommandLeavesAFileWithoutFaults) {
    test::TempDir dir;
    const std::filesystem::path file = dir / "tallix2026.xml";
    std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml", file);
    const std::string f = test::shellQuoted(file) + " ", joes = "\"Joe's & Café\" ";
    // clang-format off
    const std::tuple<std::string, int, std::string> steps[] = {
        {"expense rename " + f + "Living Groceries " + joes + "--lines", 0, "; 22 register lines"},
        {"expense move " + f + joes + "Living Medical --lines", 0, "; 22 register lines given"},
        {"expense apply " + f + "Medical " + joes + "3 --amount 12 --due 3/7/2026 --all-months",
         0, "December of Joe's & Café: amount 12.00, date paid 3/19/2026, due date 12/7/2026"},
        {"category rename " + f + "Medical Health", 0, "; 41 register lines given category Health"},
        {"category add " + f + "Pets --before Housing", 0, "added category Pets before Housing"},
        {"category delete " + f + "Pets", 0, "deleted category Pets and its 1 expenses"},
        {"expense rename " + f + "Living Nope X", 1, "expense not found on line Nope"},
        {"expense apply " + f + "Living Gasoline 3 --amount 1x", 1, "AMOUNT \"1x\""},
        {"expense apply " + f + "Living Gasoline 13", 2, "month must be 1-12"},
    };
    // clang-format on
    for (const auto& [arguments, status, printed] : steps) {
        const std::string before = test::readFile(file);
        test::CliRun run = test::runCli(arguments);
        EXPECT_EQ(run.status, status) << arguments << '\n' << run.err;
        EXPECT_NE((status ? run.err : run.out).find(printed), std::string::npos) << run.out;
        EXPECT_EQ(test::runCli("check " + test::shellQuoted(file)).status, 0) << arguments;
        EXPECT_EQ(test::readFile(file) == before, status != 0) << arguments;
    }
}

}  // namespace
}  // namespace tallix
