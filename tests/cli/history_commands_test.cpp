// tallix-cli undo, redo, history and restore: a change made by one command is
// taken back by the next, as the program's own Edit > Undo would.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace tallix {
namespace {

using test::readFile;
using test::runCli;

TEST(HistoryCommands, UndoRedoHistoryAndRestoreWorkAcrossRuns) {
    test::TempDir dir;
    const std::filesystem::path file = dir / "tallix2026.xml";
    std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml", file);
    const std::string f = test::shellQuoted(file);
    const std::string original = readFile(file);

    EXPECT_EQ(runCli("undo " + f).status, 1);  // nothing yet
    ASSERT_EQ(runCli("card rename " + f + " Visa 'Visa Gold'").status, 0);
    const std::string renamed = readFile(file);

    const test::CliRun undone = runCli("undo " + f);
    EXPECT_EQ(undone.status, 0);
    EXPECT_EQ(undone.out, "undone: Rename credit card Visa to Visa Gold\n");
    EXPECT_TRUE(readFile(file) == original);
    EXPECT_EQ(runCli("redo " + f).status, 0);
    EXPECT_TRUE(readFile(file) == renamed);
    EXPECT_EQ(runCli("redo " + f).status, 1);

    const test::CliRun listed = runCli("history " + f);
    EXPECT_EQ(listed.status, 0);
    EXPECT_NE(listed.out.find("2*\t"), std::string::npos) << listed.out;
    EXPECT_NE(listed.out.find("\tRename credit card Visa to Visa Gold\n1\t"), std::string::npos);
    EXPECT_NE(listed.out.find("\tThe file as it was opened\n"), std::string::npos);

    EXPECT_EQ(runCli("restore " + f + " 1").status, 0);
    EXPECT_TRUE(readFile(file) == original);
    EXPECT_EQ(runCli("undo " + f).out.rfind("undone: restore of version 1 of ", 0), 0u);
    EXPECT_TRUE(readFile(file) == renamed);

    const test::CliRun missing = runCli("restore " + f + " 9");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.out, "");
    EXPECT_EQ(runCli("restore " + f + " nine").status, 2);
    EXPECT_TRUE(readFile(file) == renamed);
}

}  // namespace
}  // namespace tallix
