// A data root given on the command line keeps the backups beside it; a
// viewer that cannot be started is said so.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cstdlib>

#include "support/temp_dir.h"
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

// xdg-open ends at once with status 3 when no program can show the file.
TEST(DesktopEnvironment, TheViewerCountsAsStartedOnlyWhenXdgOpenSucceeds) {
    test::TempDir bin;
    const std::filesystem::path guide = bin / "guide.pdf";
    test::writeFile(guide, "%PDF");
    const std::string path = std::getenv("PATH");
    setenv("PATH", bin.path().c_str(), 1);
    ui::DesktopEnvironment desktop;
    for (int status : {3, 0}) {
        test::writeFile(bin / "xdg-open", "#!/bin/sh\nexit " + std::to_string(status) + "\n");
        std::filesystem::permissions(bin / "xdg-open", std::filesystem::perms::owner_all);
        EXPECT_EQ(desktop.openWithViewer(guide), status == 0) << status;
    }
    setenv("PATH", path.c_str(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace tallix
