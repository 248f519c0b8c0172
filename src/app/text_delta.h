#pragma once
// The difference between two versions of a year file, small enough to keep
// for every change: the bytes both versions share at the start and at the end
// are left out, and when what remains has the same number of lines on both
// sides (a rename that reaches a hundred lines, an amount typed over another),
// only the lines that differ are kept. A delta turns the older text into the
// newer one and back.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallix {

struct TextDelta {
    struct Hunk {
        size_t offset = 0;  // where the hunk starts in the older text
        std::string older;  // the bytes the older text holds there
        std::string newer;  // the bytes the newer text holds instead
    };
    std::vector<Hunk> hunks;  // in order, not overlapping
    size_t olderSize = 0;
    size_t newerSize = 0;

    // The bytes of every hunk: what a delta costs to keep.
    size_t payloadSize() const;
};

TextDelta diffTexts(std::string_view older, std::string_view newer);

// The newer text from the older one, and the older from the newer. Throw
// std::runtime_error when the text is not the one the delta was made from
// (a size or a hunk's bytes differ).
std::string applyForward(const TextDelta& delta, std::string_view older);
std::string applyBackward(const TextDelta& delta, std::string_view newer);

// The delta's own bytes (for the history files) and back; fromBytes throws
// std::runtime_error on bytes that are not a whole delta.
std::string deltaToBytes(const TextDelta& delta);
TextDelta deltaFromBytes(std::string_view bytes);

}  // namespace tallix
