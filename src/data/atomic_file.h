#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace tallix {

// Replaces `target` with `bytes` so that a crash, a kill or a full disk never
// leaves a half-written file: the bytes go to a temporary file in the same
// folder, are flushed to disk, and the temporary is renamed over the target.
// A target that is a symbolic link is written through: the file at the end of
// the chain of links is replaced in its own folder and the links stay links; a
// link whose file does not exist is refused rather than followed.
// Before anything is written, a target that exists but is not a regular file
// (a folder, a named pipe, a device) or that the user may not write (no write
// permission at all, or none for this user) is refused, and the temporary
// files that killed saves left in the folder are removed.
// Throws std::runtime_error naming the file and the reason; on failure the old
// file is left byte for byte.
void writeFileAtomically(const std::filesystem::path& target, std::string_view bytes);

// Removes from `folder` the temporary files (".NAME.tmp-XXXXXX") of saves
// that did not finish because their program was killed or crashed. A save
// holds a lock on its temporary file until it is renamed, so the temporary
// of a save still running, in this program or another, is left alone. Best
// effort: what cannot be listed or removed stays, and nothing is thrown.
void removeStaleTempFiles(const std::filesystem::path& folder) noexcept;

// Flushes a folder's entries (new names, renames, links) to disk. Best
// effort: some file systems refuse it, and nothing is thrown.
void syncFolder(const std::filesystem::path& folder) noexcept;

// How messages name a file of this type (a stat() st_mode): "a folder",
// "a named pipe", "a device", "a socket", "a regular file".
std::string fileKindName(unsigned mode);

namespace testing {
// Lets a test make the n-th write(2) of the next saves fail with `errnoValue`
// (n counts from 1; 0 switches the fault off).
void failNthWrite(int n, int errnoValue);
}  // namespace testing

}  // namespace tallix
