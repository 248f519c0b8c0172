#include <gtest/gtest.h>

#include <stdexcept>

#include "app/guard.h"
#include "support/scripted.h"

namespace tallix {
namespace {

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
