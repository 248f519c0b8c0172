#include "app/backups.h"

#include <fstream>

#include "app/environment.h"
#include "app/first_run.h"
#include "app/session.h"

namespace tallix {
namespace {

// Shows `text` unless the data folder remembers having shown it: a household
// without a cloud drive is told once, not at every start and exit. The mark
// is a small file in the data folder; when it cannot be written the notice
// simply comes again next time.
void notifyOnce(Session& session, const char* mark, const char* text) {
    const std::filesystem::path file = session.dataFolder() / mark;
    std::error_code ec;
    if (std::filesystem::exists(file, ec))
        return;
    session.prompter().notify(text);
    std::ofstream(file) << text << '\n';
}

constexpr const char* kNoCloudDriveMark = ".shown-no-cloud-drive";
constexpr const char* kNoCloudFolderMark = ".shown-no-cloud-backup-folder";

}  // namespace

std::optional<std::filesystem::path> cloudBackupFolder(const Environment& env) {
    std::optional<std::filesystem::path> drive = env.cloudDriveRoot();
    if (!drive)
        return std::nullopt;
    return *drive / "My Drive" / "tallix" / "backup";
}

void checkBackupTarget(Session& session) {
    std::optional<std::filesystem::path> folder = cloudBackupFolder(session.env());
    if (!folder) {
        notifyOnce(session, kNoCloudDriveMark, backup_texts::kNoCloudDrive);
        return;
    }
    std::error_code ec;
    if (std::filesystem::is_directory(*folder, ec))
        return;
    std::filesystem::create_directories(*folder, ec);
    if (ec || !std::filesystem::is_directory(*folder))
        session.prompter().notify(backup_texts::kCloudFolderNotCreated);
}

void writeExitBackups(Session& session) {
    if (!session.hasDataFile())
        return;
    std::filesystem::path local =
        localBackupFolder(session.env().documentsFolder()) / session.fileName;
    session.data.save(local);

    std::filesystem::path target = local;
    std::optional<std::filesystem::path> cloud = cloudBackupFolder(session.env());
    std::error_code ec;
    if (cloud && std::filesystem::is_directory(*cloud, ec))
        target = *cloud / session.fileName;
    else
        notifyOnce(session, kNoCloudFolderMark, backup_texts::kNoCloudFolderOnExit);
    session.data.save(target);
}

}  // namespace tallix
