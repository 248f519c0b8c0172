#pragma once
// The Data and Help menus.
#include <filesystem>
#include <optional>

namespace tallix {

class Session;

inline constexpr const char* kHelpFile = "tallix_help.pdf";

// Opens the open year file (wherever it is) with the system viewer; "XML not
// found" when the file is gone, and where it is when no viewer starts.
void displayDataFile(Session& session);
// Opens the help document `helpFile` (see program_files.h); "pdf not found"
// when missing, and where the help is when no PDF viewer starts.
void openHelp(Session& session, const std::filesystem::path& helpFile);
// Data > Save data file: an export. Asks where to write a copy of the year
// file (suggesting its name) and writes it there, atomically; nothing when
// the choice is cancelled. A place inside the data folder is refused with
// kExportIntoDataFolder: a copy there could replace another year's file,
// the index or a template. Returns where the copy went.
std::optional<std::filesystem::path> offerSaveDataFile(Session& session);

inline constexpr const char* kExportIntoDataFolder =
    "The copy was not written: choose a folder outside Tallix's data folder, where a copy "
    "could replace one of the program's own files.";

}  // namespace tallix
