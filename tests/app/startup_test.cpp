#include <gtest/gtest.h>

#include <stdexcept>

#include "app/guard.h"
#include "app/session.h"
#include "app/startup.h"
#include "data/query.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix {
namespace {

TEST(Startup, AFirstRunCanBeginTheYearBlank) {
    test::TempDir tmp;
    test::FixedEnvironment env;
    env.root = tmp / "root";
    env.documents = tmp / "docs";
    test::ScriptedPrompter prompter;
    prompter.answers = {Answer::No, Answer::Yes};
    Session session(env, prompter);

    testing::internal::CaptureStdout();  // the missing index's failure line
    openYearAtStartup(session);
    testing::internal::GetCapturedStdout();

    EXPECT_TRUE(std::filesystem::exists(session.indexPath()));
    EXPECT_EQ(session.fileName, "blank_tallix.xml");
    EXPECT_FALSE(session.data.loadFailed());
    EXPECT_EQ(selectAll(session.data.node(), paths::kAllMonths).size(), 12u);
    EXPECT_EQ(session.title(), "March 2026");
}

TEST(Guard, ShowsTheHandlersMessageAndGoesOn) {
    test::ScriptedPrompter prompter;
    EXPECT_TRUE(guarded(prompter, "displayMonth", [] {}));
    EXPECT_TRUE(prompter.shown.empty());

    testing::internal::CaptureStderr();
    EXPECT_FALSE(guarded(prompter, "displayMonth",
                         [] { throw std::invalid_argument("invalid stof argument"); }));
    EXPECT_FALSE(guarded(prompter, "OnInitDialog", [] { throw 42; }));
    std::string log = testing::internal::GetCapturedStderr();

    ASSERT_EQ(prompter.shown.size(), 2u);
    EXPECT_EQ(prompter.shown[0], "runtime error in displayMonth() ");
    EXPECT_EQ(prompter.shown[1], "runtime error in OnInitDialog() ");
    EXPECT_NE(log.find("invalid stof argument"), std::string::npos);
}

}  // namespace
}  // namespace tallix
