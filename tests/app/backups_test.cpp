#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "app/backups.h"
#include "app/data_commands.h"
#include "app/data_folder.h"
#include "app/instance_lock.h"
#include "app/program_files.h"

namespace tallix {
namespace {

using test::readFile;

class BackupsTest : public test::DataFolderTest {
  protected:
    void SetUp() override {
        test::DataFolderTest::SetUp();
        addYearFile("tallix2026.xml");
        session.openDataFile("tallix2026.xml");
    }
    std::filesystem::path localBackup() const {
        return env.documents / "tallix" / "backup" / "tallix2026.xml";
    }
};

TEST_F(BackupsTest, StartupCreatesTheCloudFolderOrSaysThereIsNoCloudDrive) {
    checkBackupTarget(session);
    ASSERT_EQ(prompter.shown.size(), 1u);
    EXPECT_EQ(prompter.shown[0], backup_texts::kNoCloudDrive);
    checkBackupTarget(session);  // the data folder remembers it was said
    EXPECT_EQ(prompter.shown.size(), 1u);

    prompter.shown.clear();
    env.cloud = tmp / "gdrive";
    std::filesystem::create_directories(*env.cloud);
    checkBackupTarget(session);
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_TRUE(std::filesystem::is_directory(tmp / "gdrive" / "My Drive" / "tallix" / "backup"));

    // A drive where the folder cannot be made (a file stands in the way).
    env.cloud = tmp / "blocked";
    test::writeFile(tmp / "blocked", "not a folder");
    checkBackupTarget(session);
    ASSERT_EQ(prompter.shown.size(), 1u);
    EXPECT_EQ(prompter.shown[0], "no directory was created on google drive");
}

TEST_F(BackupsTest, ExitWritesTheLocalCopyAndTheCloudCopyOnceItsFolderExists) {
    env.cloud = tmp / "gdrive";  // a drive, but without the backup folder
    writeExitBackups(session);
    EXPECT_EQ(prompter.shown, std::vector<std::string>{backup_texts::kNoCloudFolderOnExit});
    EXPECT_EQ(readFile(localBackup()), readFile(session.filePath));
    EXPECT_FALSE(std::filesystem::exists(tmp / "gdrive" / "My Drive"));
    writeExitBackups(session);  // warned once per data folder
    EXPECT_EQ(prompter.shown.size(), 1u);

    prompter.shown.clear();
    const auto cloudFolder = tmp / "gdrive" / "My Drive" / "tallix" / "backup";
    std::filesystem::create_directories(cloudFolder);
    writeExitBackups(session);
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(readFile(cloudFolder / "tallix2026.xml"), readFile(session.filePath));
}

TEST_F(BackupsTest, AMissingLocalBackupFolderFailsTheExit) {
    std::filesystem::remove_all(env.documents / "tallix");
    EXPECT_THROW(writeExitBackups(session), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(env.documents / "tallix"));
}

TEST_F(BackupsTest, AFileThatCouldNotBeReadIsNotBackedUp) {
    test::writeFile(localBackup(), "the last good backup");
    test::writeFile(session.filePath, "<tallix><broken>");
    testing::internal::CaptureStderr();
    session.openDataFile("tallix2026.xml");
    testing::internal::GetCapturedStderr();
    writeExitBackups(session);
    EXPECT_EQ(readFile(localBackup()), "the last good backup");
}

// A start-up that failed before any data file was opened leaves nothing to
// back up: exit writes nothing and succeeds, even without the backup folder.
TEST_F(BackupsTest, ExitBeforeAnyDataFileWasOpenedBacksUpNothing) {
    for (bool backupFolder : {true, false}) {
        if (!backupFolder)
            std::filesystem::remove_all(env.documents / "tallix");
        test::ScriptedPrompter quiet;
        Session early(env, quiet);
        EXPECT_NO_THROW(writeExitBackups(early)) << backupFolder;
        EXPECT_TRUE(quiet.shown.empty());
        EXPECT_FALSE(std::filesystem::exists(localBackup()));
    }
}

// Runs `body` with the working directory set to `folder`.
template <typename Body>
void inFolder(const std::filesystem::path& folder, Body body) {
    auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    body();
    std::filesystem::current_path(before);
}

TEST_F(BackupsTest, DataAndHelpOpenTheirFilesOrSayWhere) {
    // The help of a program installed in <prefix>/bin, not yet there.
    const ProgramFiles installed = programFilesFor(tmp / "usr" / "bin");
    const std::filesystem::path help = tmp / "usr" / "share" / "doc" / "tallix" / "tallix_help.pdf";
    EXPECT_EQ(installed.helpFile, help);
    EXPECT_EQ(installed.imageFolder, tmp / "usr" / "share" / "tallix" / "res");
    openHelp(session, installed.helpFile);
    std::filesystem::remove(session.filePath);
    displayDataFile(session);
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{"pdf not found", "XML not found"}));
    EXPECT_TRUE(env.opened.empty());

    prompter.shown.clear();
    session.saveSettled();
    inFolder(tmp.path(), [&] { displayDataFile(session); });  // not from the working folder
    std::filesystem::create_directories(help.parent_path());
    test::writeFile(help, "%PDF");
    test::writeFile(tmp / "tallix_help.pdf", "%PDF");  // a build folder's, beside the executable
    EXPECT_EQ(programFilesFor(tmp.path()).helpFile, tmp / "tallix_help.pdf");
    env.viewerWorks = false;
    openHelp(session, installed.helpFile);
    EXPECT_EQ(env.opened, (std::vector<std::filesystem::path>{session.filePath, help}));
    ASSERT_EQ(prompter.shown.size(), 1u);
    EXPECT_NE(prompter.shown[0].find(help.string()), std::string::npos);
}

TEST_F(BackupsTest, SaveDataFileExportsACopyButNeverIntoTheDataFolder) {
    const std::string before = readFile(session.filePath);
    prompter.files = {tmp / "copy.xml", session.dataFolder() / "tallix2027.xml", std::nullopt};
    EXPECT_EQ(offerSaveDataFile(session), tmp / "copy.xml");
    EXPECT_EQ(readFile(tmp / "copy.xml"), before);
    EXPECT_EQ(offerSaveDataFile(session), std::nullopt);
    EXPECT_EQ(prompter.shown, std::vector<std::string>{kExportIntoDataFolder});
    EXPECT_FALSE(std::filesystem::exists(session.dataFolder() / "tallix2027.xml"));
    EXPECT_EQ(offerSaveDataFile(session), std::nullopt);
    EXPECT_EQ(readFile(session.filePath), before);
}

TEST(InstanceLock, ASecondProgramIsRefusedUntilTheFirstEnds) {
    test::TempDir tmp;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    pid_t first = fork();
    ASSERT_GE(first, 0);
    if (first == 0) {
        auto lock = InstanceLock::acquire(tmp.path());
        char ok = lock ? 'y' : 'n';
        (void)!write(ready[1], &ok, 1);
        pause();  // held until killed
        _exit(0);
    }
    char ok = 0;
    ASSERT_EQ(read(ready[0], &ok, 1), 1);
    ASSERT_EQ(ok, 'y');

    EXPECT_FALSE(InstanceLock::acquire(tmp.path()).has_value());

    kill(first, SIGKILL);  // a crash: the lock file stays behind
    waitpid(first, nullptr, 0);
    EXPECT_TRUE(std::filesystem::exists(tmp / ".tallix.lock"));
    auto lock = InstanceLock::acquire(tmp.path());
    EXPECT_TRUE(lock.has_value());
    close(ready[0]);
    close(ready[1]);
}

// For tallix-cli a missing folder has no window on it, and is not made; a
// lock file that cannot be opened for another reason is an error.
TEST(InstanceLock, AMissingFolderHoldsNothingBackAndIsNotMade) {
    test::TempDir tmp;
    EXPECT_TRUE(InstanceLock::acquireToWrite(tmp / "gone").has_value());
    EXPECT_FALSE(std::filesystem::exists(tmp / "gone"));
    std::filesystem::create_directory(tmp / ".tallix.lock");
    EXPECT_THROW(InstanceLock::acquireToWrite(tmp.path()), std::runtime_error);
}

TEST(InstanceLock, AMovedLockReleasesTheOneItReplaces) {
    test::TempDir first, second;
    auto held = InstanceLock::acquire(first.path());
    auto other = InstanceLock::acquire(second.path());
    ASSERT_TRUE(held && other);
    // Within one program a second lock on the same folder is refused too.
    EXPECT_FALSE(InstanceLock::acquire(first.path()).has_value());
    *held = std::move(*other);
    EXPECT_TRUE(InstanceLock::acquire(first.path()).has_value());
    other.reset();
    EXPECT_FALSE(InstanceLock::acquire(second.path()).has_value());
    held.reset();
    EXPECT_TRUE(InstanceLock::acquire(second.path()).has_value());
}

TEST(InstanceLock, ALockOnDescriptorZeroIsReleasedToo) {
    test::TempDir first, second;
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::close(0);  // started without standard input: the lock file gets descriptor 0
        bool released = InstanceLock::acquire(first.path()).has_value();
        released = released && InstanceLock::acquire(first.path()).has_value();
        auto held = InstanceLock::acquire(first.path());
        auto other = InstanceLock::acquire(second.path());
        *held = std::move(*other);
        released = released && InstanceLock::acquire(first.path()).has_value();
        _exit(released ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace
}  // namespace tallix
