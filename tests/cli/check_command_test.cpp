// tallix-cli check and find, which only read, and the usage.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>

#include "cli/run_cli.h"

namespace tallix {
namespace {

using test::CliRun;
using test::runCli;
using test::shellQuoted;

const std::string kBlank = (test::sourceDir() / "res/blank_tallix.xml").string();

TEST(CliCheck, FileInShapeExitsZeroWithNothingOnStandardOutput) {
    CliRun run = runCli("check " + shellQuoted(kBlank));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, kBlank + ": no faults\n");
}

TEST(CliCheck, BrokenCopyReportsEachFaultOnALineAndExitsOne) {
    std::string text = test::readFile(kBlank);
    const size_t april = text.find("<month month=\"April\"");
    text.erase(april, text.find("</month>", april) + 8 - april);
    const size_t debit = text.find("<debit></debit>", text.find("month=\"June\""));
    text.replace(debit, 15, "<debit>abc</debit>");
    test::TempDir dir;
    test::writeFile(dir / "broken.xml", text);

    CliRun run = runCli("check " + shellQuoted(dir / "broken.xml"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
              "register month 'June' line 1: debit 'abc' is not a number\n"
              "register: lacks month 'April'\n");
}

TEST(CliCheck, UnusableFilesGiveOneFaultLineAndExitOne) {
    test::TempDir dir;
    test::writeFile(dir / "cut.xml", "<tallix>\n<register>\n");
    test::writeFile(dir / "page.xml", "<html><body/></html>");
    const struct {
        std::string file;
        std::string fault;
    } cases[] = {
        {"cut.xml", "cut.xml: not well-formed XML: "},
        {"page.xml", "file: root element is 'html', expected 'tallix': not a Tallix file\n"},
        {"pipe.xml", "pipe.xml is a named pipe, not a data file\n"},  // it does not block
    };
    ASSERT_EQ(::mkfifo((dir / "pipe.xml").c_str(), 0644), 0);
    for (const auto& c : cases) {
        CliRun run = runCli("check " + shellQuoted(dir / c.file));
        EXPECT_EQ(run.status, 1) << c.file;
        EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1) << run.out;
        EXPECT_NE(run.out.find(c.fault), std::string::npos) << run.out;
    }
}

TEST(CliUsage, WrongCommandOrArgumentsExitTwoWithUsageOnStandardError) {
    for (const char* arguments : {"", "frobnicate", "check", "check a.xml b.xml"}) {
        CliRun run = runCli(arguments);
        EXPECT_EQ(run.status, 2) << arguments;
        EXPECT_EQ(run.out, "") << arguments;
        EXPECT_NE(run.err.find("usage: tallix-cli COMMAND"), std::string::npos) << arguments;
        EXPECT_NE(run.err.find("check FILE"), std::string::npos) << arguments;
    }
    CliRun help = runCli("help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("check FILE"), std::string::npos);
}

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
