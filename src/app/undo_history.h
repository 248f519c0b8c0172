#pragma once
// Edit > Undo and Redo, File > History and Restore: every change saved to the
// year file is a version in its history (app/version_history.h), so each can
// be taken back, made again, or brought back from an older version, also
// after a restart and from tallix-cli.
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tallix {

class Session;

// Runs `change` on the session's document and saves it as one change
// labelled `label`. When `change` or the save throws, the document is put back
// as it was, nothing is kept, and the failure goes on to the caller.
void recordedChange(Session& session, const std::string& label,
                    const std::function<void()>& change);

// "Undo amount of line 7, March" / "Redo ...": what Edit > Undo and Redo would
// do; nothing when there is nothing to take back or make again.
std::optional<std::string> undoText(Session& session);
std::optional<std::string> redoText(Session& session);

// Takes back the current version's change (or makes the next one again): the
// version before (after) it is saved to the data file and becomes the
// document. Returns the change's label; nothing when there is none. A failed
// save throws and changes nothing.
std::optional<std::string> undo(Session& session);
std::optional<std::string> redo(Session& session);

// The versions File > History lists, oldest first.
struct VersionLine {
    long long number = 0;
    std::string time;  // "2026-11-23 19:30" on this machine's clock
    std::string what;  // the change's label ("... and 3 earlier changes")
    bool current = false;
};
std::vector<VersionLine> versionLines(Session& session);

// The text of the version numbered `number`; throws std::invalid_argument
// naming it when the history does not keep it.
std::string versionText(Session& session, long long number);

// Makes version `number` the current one, as a new change Edit > Undo takes
// back. Returns its label ("restore of version 12 of 2026-11-23 19:30").
std::string restoreVersion(Session& session, long long number);

}  // namespace tallix
