// A data root given on the command line keeps the backups beside it.
#include <gtest/gtest.h>

#include "ui/desktop_environment.h"

namespace tallix {
namespace {

TEST(DesktopEnvironment, ADataRootKeepsTheBackupsBesideItAndUsesNoCloudDrive) {
    ui::DesktopEnvironment trial("/tmp/trial");
    EXPECT_EQ(trial.dataRoot(), "/tmp/trial");
    EXPECT_EQ(trial.documentsFolder(), "/tmp/trial/Documents");
    EXPECT_EQ(trial.cloudDriveRoot(), std::nullopt);
    EXPECT_NE(ui::DesktopEnvironment().documentsFolder(), "/tmp/trial/Documents");
}

}  // namespace
}  // namespace tallix
