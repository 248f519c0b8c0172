#include <gtest/gtest.h>

#include "app/session.h"
#include "support/scripted.h"
#include "support/temp_dir.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

TEST(MainWindow, StartsOnTheIndexedYearAndTitlesItWithTheMonth) {
    test::TempDir tmp;
    test::FixedEnvironment env;
    env.date = {2026, 11, 21};
    env.root = tmp / "root";
    env.documents = tmp / "docs";
    std::filesystem::create_directories(env.root / "tallix");
    std::filesystem::copy_file(test::sourceDir() / "res" / "blank_tallix.xml",
                               env.root / "tallix" / "tallix2026.xml");
    test::writeFile(env.root / "tallix" / "tallix.xml",
                    "<tallix><year year=\"2026\"><file>tallix2026.xml</file>"
                    "<status>initialized</status></year></tallix>");
    test::ScriptedPrompter prompter;
    Session session(env, prompter);

    ui::CTallixDlg window(session);
    window.OnInitDialog();

    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle().toStdString(), "November 2026");
    EXPECT_EQ(session.fileName, "tallix2026.xml");
    EXPECT_FALSE(session.data.loadFailed());
}

}  // namespace
}  // namespace tallix
