#include "app/text_delta.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace tallix {
namespace {

// Below this size a changed stretch is kept whole: splitting it into lines
// would save nothing worth the bookkeeping.
constexpr size_t kSplitFrom = 4096;

std::string_view lineAt(std::string_view text, size_t from) {
    const size_t end = text.find('\n', from);
    return text.substr(from, end == std::string_view::npos ? text.size() - from : end + 1 - from);
}

// Hunks for two stretches with the same number of lines: one hunk for each run
// of lines that differ.
void addLineHunks(std::string_view older, std::string_view newer, size_t base,
                  std::vector<TextDelta::Hunk>& hunks) {
    size_t o = 0, n = 0;
    bool open = false;
    while (o < older.size() || n < newer.size()) {
        const std::string_view a = lineAt(older, o);
        const std::string_view b = lineAt(newer, n);
        if (a != b) {
            if (!open)
                hunks.push_back({base + o, {}, {}});
            hunks.back().older.append(a);
            hunks.back().newer.append(b);
        }
        open = a != b;
        o += a.size();
        n += b.size();
    }
}

void requireSize(std::string_view text, size_t expected) {
    if (text.size() != expected)
        throw std::runtime_error("the history does not fit the file: it holds " +
                                 std::to_string(text.size()) + " bytes where " +
                                 std::to_string(expected) + " were expected");
}

// Rebuilds a text from `from`, replacing at each hunk what `from` holds there
// (`held`) with what the other version holds (`put`).
template <typename Held, typename Put>
std::string rebuild(const TextDelta& delta, std::string_view from, size_t fromSize, size_t toSize,
                    bool offsetsInFrom, Held held, Put put) {
    requireSize(from, fromSize);
    std::string out;
    out.reserve(toSize);
    size_t pos = 0;
    long long shift = 0;  // how far `from` has run ahead of the offsets
    for (const TextDelta::Hunk& h : delta.hunks) {
        const size_t at = offsetsInFrom ? h.offset : static_cast<size_t>(h.offset + shift);
        const std::string& was = held(h);
        if (at < pos || at > from.size() || from.substr(at, was.size()) != was)
            throw std::runtime_error(
                "the history does not fit the file: a change is not where it "
                "was recorded");
        out.append(from.substr(pos, at - pos));
        out.append(put(h));
        pos = at + was.size();
        shift += static_cast<long long>(h.newer.size()) - static_cast<long long>(h.older.size());
    }
    out.append(from.substr(pos));
    requireSize(out, toSize);
    return out;
}

size_t readNumber(std::string_view bytes, size_t& pos, char end) {
    size_t value = 0;
    const char* first = bytes.data() + pos;
    const char* last = bytes.data() + bytes.size();
    auto [ptr, ec] = std::from_chars(first, last, value);
    if (ec != std::errc() || ptr == last || *ptr != end)
        throw std::runtime_error("the history holds a change that cannot be read");
    pos = static_cast<size_t>(ptr - bytes.data()) + 1;
    return value;
}

std::string_view take(std::string_view bytes, size_t& pos, size_t length) {
    if (length > bytes.size() - pos)
        throw std::runtime_error("the history holds a change that is cut short");
    const std::string_view part = bytes.substr(pos, length);
    pos += length;
    return part;
}

}  // namespace

size_t TextDelta::payloadSize() const {
    size_t total = 0;
    for (const Hunk& h : hunks)
        total += h.older.size() + h.newer.size();
    return total;
}

TextDelta diffTexts(std::string_view older, std::string_view newer) {
    TextDelta delta;
    delta.olderSize = older.size();
    delta.newerSize = newer.size();
    const size_t shorter = std::min(older.size(), newer.size());
    size_t prefix = static_cast<size_t>(
        std::mismatch(older.begin(), older.begin() + static_cast<long>(shorter), newer.begin())
            .first -
        older.begin());
    if (prefix == older.size() && prefix == newer.size())
        return delta;
    size_t suffix = static_cast<size_t>(
        std::mismatch(older.rbegin(), older.rbegin() + static_cast<long>(shorter - prefix),
                      newer.rbegin())
            .first -
        older.rbegin());
    // Whole lines on both sides, so that the stretches can be split by line.
    if (prefix > 0) {
        const size_t lineEnd = older.rfind('\n', prefix - 1);
        prefix = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    }
    while (suffix > 0 && older[older.size() - suffix - 1] != '\n')
        --suffix;
    const std::string_view a = older.substr(prefix, older.size() - prefix - suffix);
    const std::string_view b = newer.substr(prefix, newer.size() - prefix - suffix);
    if (a.size() + b.size() >= kSplitFrom &&
        std::count(a.begin(), a.end(), '\n') == std::count(b.begin(), b.end(), '\n'))
        addLineHunks(a, b, prefix, delta.hunks);
    else
        delta.hunks.push_back({prefix, std::string(a), std::string(b)});
    return delta;
}

std::string applyForward(const TextDelta& delta, std::string_view older) {
    return rebuild(
        delta, older, delta.olderSize, delta.newerSize, true,
        [](const TextDelta::Hunk& h) -> const std::string& { return h.older; },
        [](const TextDelta::Hunk& h) -> const std::string& { return h.newer; });
}

std::string applyBackward(const TextDelta& delta, std::string_view newer) {
    return rebuild(
        delta, newer, delta.newerSize, delta.olderSize, false,
        [](const TextDelta::Hunk& h) -> const std::string& { return h.newer; },
        [](const TextDelta::Hunk& h) -> const std::string& { return h.older; });
}

std::string deltaToBytes(const TextDelta& delta) {
    std::string out = std::to_string(delta.olderSize) + ' ' + std::to_string(delta.newerSize) +
                      ' ' + std::to_string(delta.hunks.size()) + '\n';
    for (const TextDelta::Hunk& h : delta.hunks) {
        out += std::to_string(h.offset) + ' ' + std::to_string(h.older.size()) + ' ' +
               std::to_string(h.newer.size()) + '\n';
        out += h.older;
        out += h.newer;
    }
    return out;
}

TextDelta deltaFromBytes(std::string_view bytes) {
    TextDelta delta;
    size_t pos = 0;
    delta.olderSize = readNumber(bytes, pos, ' ');
    delta.newerSize = readNumber(bytes, pos, ' ');
    const size_t count = readNumber(bytes, pos, '\n');
    for (size_t i = 0; i < count; ++i) {
        TextDelta::Hunk h;
        h.offset = readNumber(bytes, pos, ' ');
        const size_t olderLength = readNumber(bytes, pos, ' ');
        const size_t newerLength = readNumber(bytes, pos, '\n');
        h.older = take(bytes, pos, olderLength);
        h.newer = take(bytes, pos, newerLength);
        delta.hunks.push_back(std::move(h));
    }
    if (pos != bytes.size())
        throw std::runtime_error("the history holds a change with bytes left over");
    return delta;
}

}  // namespace tallix
