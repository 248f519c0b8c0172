#pragma once
// The backup copies of the data file: where they go, the start-up check of the
// cloud target and the copies written on exit.
#include <filesystem>
#include <optional>

namespace tallix {

class Environment;
class Session;

namespace backup_texts {
inline constexpr const char* kNoCloudDrive =
    "the app has detected that either you do not have a Google Drive or it is at a drive letter "
    "other than G   This is where a backup of your data file is copied. This is in addition to "
    "your datafile being backed up in Documants/tallix/backup";
inline constexpr const char* kCloudFolderNotCreated = "no directory was created on google drive";
inline constexpr const char* kNoCloudFolderOnExit =
    "WARNING! TALLIX has detected that you do not established a Google Drive setup to backup "
    "your data file. A backup of your datafile is performed saving it in "
    "Documants/tallix/backup. BUt, it is to your advantage to establish a backup  of your data "
    "file on the Google Drive as it will protect data should your system disk crash. Which "
    "would require you to re-create your data file";
}  // namespace backup_texts

// "My Drive/tallix/backup" on the mounted cloud drive, when there is one.
std::optional<std::filesystem::path> cloudBackupFolder(const Environment& env);

// Start-up: tells the user when there is no cloud drive (once per data
// folder: the folder remembers that it was said), and creates the cloud
// backup folder on one that lacks it.
void checkBackupTarget(Session& session);

// Exit: saves the data document into the local backup folder, then into the
// cloud backup folder when it exists (otherwise into the local one again,
// after a warning shown once per data folder). Throws when a copy cannot be written; the local
// folder is not created here. Without a data file (a start-up that failed or closed early) or with
// one that could not be read there is nothing to back up.
void writeExitBackups(Session& session);

}  // namespace tallix
