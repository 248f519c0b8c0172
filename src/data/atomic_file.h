#pragma once
#include <filesystem>
#include <string_view>

namespace tallix {

// Replaces `target` with `bytes` so that a crash, a kill or a full disk never
// leaves a half-written file: the bytes go to a temporary file in the same
// folder, are flushed to disk, and the temporary is renamed over the target.
// A target that is a symbolic link is written through: the file at the end of
// the chain of links is replaced in its own folder and the links stay links; a
// link whose file does not exist is refused rather than followed.
// Throws std::runtime_error naming the file and the reason; on failure the old
// file is left byte for byte.
void writeFileAtomically(const std::filesystem::path& target, std::string_view bytes);

namespace testing {
// Lets a test make the n-th write(2) of the next saves fail with `errnoValue`
// (n counts from 1; 0 switches the fault off).
void failNthWrite(int n, int errnoValue);
}  // namespace testing

}  // namespace tallix
