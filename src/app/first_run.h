#pragma once
#include <filesystem>

namespace tallix {

class Session;

// What an installer would do: writes the bundled "first_tallix.xml" and
// "blank_tallix.xml" into the data folder when they are missing (an existing
// file is never overwritten) and creates the Documents backup folder.
void installMissingFiles(const std::filesystem::path& dataFolder,
                         const std::filesystem::path& documentsFolder);

// <Documents>/tallix/backup
std::filesystem::path localBackupFolder(const std::filesystem::path& documentsFolder);

// Loads the index; when it cannot be read (a first run), loads the first
// index template in its place and saves it at once as the index.
void loadOrCreateIndex(Session& session);

}  // namespace tallix
