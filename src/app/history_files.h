#pragma once
// The files a year file's change history is kept in. Each version is one
// file: the oldest kept version whole ("base"), every later one as the change
// from the version before it (a ".step" file holding a TextDelta). A file
// starts with a few text lines (what the version is, when it was made, what
// changed, the fingerprints of the texts before and after) followed by its
// bytes compressed with zlib. Every file is written atomically, so a crash
// leaves a whole file or none.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace tallix {

// A short fingerprint of a text (its CRC-32 and its size): equal texts have
// equal fingerprints, and a change is all but certain to alter it.
std::string fingerprint(std::string_view bytes);

struct HistoryEntry {
    bool whole = false;     // the "base" file: `payload` is the whole text
    long long number = 0;   // versions are numbered in the order they were made
    long long time = 0;     // seconds since 1970 (UTC)
    std::string label;      // what changed, as Edit > Undo names it
    long long changes = 1;  // how many changes it holds (pruning joins some)
    std::string before;     // fingerprint of the text before (steps only)
    std::string after;      // fingerprint of the text the version holds
    std::string payload;    // the whole text, or the delta's bytes
};

std::string entryToBytes(const HistoryEntry& entry);
// Throws std::runtime_error on bytes that are not a whole entry. With
// `withPayload` false only the opening lines are read.
HistoryEntry entryFromBytes(std::string_view bytes, bool withPayload = true);

void writeEntry(const std::filesystem::path& file, const HistoryEntry& entry);
HistoryEntry readEntry(const std::filesystem::path& file, bool withPayload = true);

}  // namespace tallix
