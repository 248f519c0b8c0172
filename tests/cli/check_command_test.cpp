#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "support/temp_dir.h"

namespace tallix {
namespace {

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

// Runs the built tallix-cli with `arguments` (already quoted for the shell).
CliRun runCli(const std::string& arguments) {
    test::TempDir dir;
    std::string command = std::string("'") + TALLIX_CLI_PATH + "' " + arguments + " >'" +
                          (dir / "out").string() + "' 2>'" + (dir / "err").string() + "'";
    int raw = std::system(command.c_str());
    CliRun run;
    if (WIFEXITED(raw))
        run.status = WEXITSTATUS(raw);
    run.out = test::readFile(dir / "out");
    run.err = test::readFile(dir / "err");
    return run;
}

std::string blankTemplate() {
    return test::readFile(test::sourceDir() / "res/blank_tallix.xml");
}

// Removes the text from the first `begin` at or after `from` through the
// following `end`.
void cut(std::string& text, const std::string& begin, const std::string& end, size_t from = 0) {
    size_t start = text.find(begin, from);
    ASSERT_NE(start, std::string::npos) << begin;
    text.erase(start, text.find(end, start) + end.size() - start);
}

void replaceFirst(std::string& text, const std::string& what, const std::string& with,
                  size_t from = 0) {
    size_t at = text.find(what, from);
    ASSERT_NE(at, std::string::npos) << what;
    text.replace(at, what.size(), with);
}

TEST(CliCheck, FileInShapeExitsZeroWithNothingOnStandardOutput) {
    std::string blank = (test::sourceDir() / "res/blank_tallix.xml").string();
    CliRun run = runCli("check '" + blank + "'");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, blank + ": no faults\n");
}

TEST(CliCheck, BrokenCopyReportsEachFaultAndExitsOne) {
    std::string text = blankTemplate();
    cut(text, "<month month=\"April\"", "</month>");
    replaceFirst(text, "<categoty></categoty>\n        <status></status>",
                 "<status></status>\n        <categoty></categoty>", text.find("month=\"March\""));
    replaceFirst(text, "<width>7</width>", "");
    cut(text, "<column column=\"Status\">", "</column>");
    std::string card =
        "<name id=\"Visa\"><type>creditcards</type><columnname>0</columnname>"
        "<lastyearclosing>0</lastyearclosing><apr>0</apr><closingday>20"
        "</closingday>";
    for (int m = 0; m < 12; ++m)
        card += "<closing>0</closing>";
    replaceFirst(text, "<names></names>", "<names>" + card + "</name></names>",
                 text.find("id=\"creditcards\""));
    replaceFirst(text, "<debit></debit>", "<debit>abc</debit>", text.find("month=\"June\""));
    test::TempDir dir;
    test::writeFile(dir / "broken.xml", text);

    CliRun run = runCli("check '" + (dir / "broken.xml").string() + "'");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
              "register month 'March' line 1: child 4 is 'status', expected 'categoty'\n"
              "register month 'March' line 1: child 5 is 'categoty', expected 'status'\n"
              "register month 'June' line 1: debit 'abc' is not a number\n"
              "register: lacks month 'April'\n"
              "registercolumns column 'Check': lacks child 'width' (child 1)\n"
              "registercolumns column 'Description': position is 9, expected 8 (positions run "
              "1, 2, 3 ... in file order)\n"
              "registercolumns: lacks the 'Status' column\n"
              "card 'Visa': lacks child 'dueday' (child 5)\n");
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
        {"gone.xml", "gone.xml: no such file\n"},
    };
    for (const auto& c : cases) {
        CliRun run = runCli("check '" + (dir / c.file).string() + "'");
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

}  // namespace
}  // namespace tallix
