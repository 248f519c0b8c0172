#pragma once
// The Data and Help menus.

namespace tallix {

class Session;

inline constexpr const char* kHelpFile = "tallix_help.pdf";

// Opens the data file's bare name, resolved against the working directory,
// with the system viewer; "XML not found" when there is no such file.
void displayDataFile(Session& session);
// Opens "tallix_help.pdf" from the working directory; "pdf not found" when missing.
void openHelp(Session& session);
// Shows the save dialog with the data file's name and writes nothing: every
// change is already on disk.
void offerSaveDataFile(Session& session);

}  // namespace tallix
