#include "app/backups.h"

#include "app/environment.h"
#include "app/first_run.h"
#include "app/session.h"

namespace tallix {

std::optional<std::filesystem::path> cloudBackupFolder(const Environment& env) {
    std::optional<std::filesystem::path> drive = env.cloudDriveRoot();
    if (!drive)
        return std::nullopt;
    return *drive / "My Drive" / "tallix" / "backup";
}

void checkBackupTarget(Session& session) {
    std::optional<std::filesystem::path> folder = cloudBackupFolder(session.env());
    if (!folder) {
        session.prompter().notify(backup_texts::kNoCloudDrive);
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
        session.prompter().notify(backup_texts::kNoCloudFolderOnExit);
    session.data.save(target);
}

}  // namespace tallix
