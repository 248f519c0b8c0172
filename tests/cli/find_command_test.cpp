// tallix-cli find on the sample year.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace tallix {
namespace {

TEST(FindCommand, PrintsEachLineFoundAndFailsWhenNoneIs) {
    const std::string file = test::shellQuoted(test::sourceDir() / "examples/tallix2026.xml");
    const test::CliRun found = test::runCli("find " + file + " '$1,850'");
    EXPECT_EQ(found.status, 0) << found.err;
    EXPECT_EQ(found.out.rfind("MONTH\tDAY\tLINE\tEXPENSE\tAMOUNT\tSTATUS\n"
                              "January\t1\t",
                              0),
              0u)
        << found.out;
    EXPECT_NE(found.out.find("March\t1\t24\tMortgage\t1850.00\tcleared\n"), std::string::npos);
    EXPECT_EQ(found.err, "11 lines found\n");
    EXPECT_EQ(test::runCli("find " + file + " 'no such text'").status, 1);
    EXPECT_EQ(test::runCli("find " + file).status, 2);
}

}  // namespace
}  // namespace tallix
