#include "app/history_files.h"

#include <zlib.h>

#include <charconv>
#include <cstdio>
#include <stdexcept>

#include "data/atomic_file.h"
#include "data/document.h"

namespace tallix {
namespace {

constexpr std::string_view kMagic = "tallix history 1\n";

std::string compressed(std::string_view bytes, bool whole) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string out(size, '\0');
    // A whole year is compressed fast (it is written once in a while); the
    // small steps get the library's usual level.
    const int level = whole ? 1 : Z_DEFAULT_COMPRESSION;
    if (compress2(reinterpret_cast<Bytef*>(out.data()), &size,
                  reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()),
                  level) != Z_OK)
        throw std::runtime_error("the change history could not be compressed");
    out.resize(size);
    return out;
}

std::string expanded(std::string_view bytes, size_t size) {
    std::string out(size, '\0');
    uLongf got = static_cast<uLongf>(size);
    if (uncompress(reinterpret_cast<Bytef*>(out.data()), &got,
                   reinterpret_cast<const Bytef*>(bytes.data()),
                   static_cast<uLong>(bytes.size())) != Z_OK ||
        got != size)
        throw std::runtime_error("a file of the change history is damaged");
    return out;
}

// Reads "name value\n" at `pos`.
std::string_view field(std::string_view bytes, size_t& pos, std::string_view name) {
    const size_t end = bytes.find('\n', pos);
    if (end == std::string_view::npos || bytes.substr(pos, name.size()) != name ||
        bytes.size() <= pos + name.size() || bytes[pos + name.size()] != ' ')
        throw std::runtime_error("a file of the change history lacks its " + std::string(name));
    const std::string_view value = bytes.substr(pos + name.size() + 1, end - pos - name.size() - 1);
    pos = end + 1;
    return value;
}

long long number(std::string_view text) {
    long long value = 0;
    auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || ptr != text.data() + text.size())
        throw std::runtime_error("a file of the change history holds a number it cannot read");
    return value;
}

std::string oneLine(std::string text) {
    for (char& c : text)
        if (c == '\n' || c == '\r')
            c = ' ';
    return text;
}

}  // namespace

std::string fingerprint(std::string_view bytes) {
    uLong crc = crc32(0L, Z_NULL, 0);
    // crc32 takes at most a uInt at a time.
    for (size_t pos = 0; pos < bytes.size(); pos += 1u << 30) {
        const std::string_view part = bytes.substr(pos, 1u << 30);
        crc =
            crc32(crc, reinterpret_cast<const Bytef*>(part.data()), static_cast<uInt>(part.size()));
    }
    char text[32];
    std::snprintf(text, sizeof text, "%08lx-%zu", static_cast<unsigned long>(crc), bytes.size());
    return text;
}

std::string entryToBytes(const HistoryEntry& entry) {
    std::string out(kMagic);
    out += std::string("kind ") + (entry.whole ? "base" : "step") + '\n';
    out += "number " + std::to_string(entry.number) + '\n';
    out += "time " + std::to_string(entry.time) + '\n';
    out += "label " + oneLine(entry.label) + '\n';
    out += "changes " + std::to_string(entry.changes) + '\n';
    out += "before " + entry.before + '\n';
    out += "after " + entry.after + '\n';
    out += "size " + std::to_string(entry.payload.size()) + '\n';
    out += compressed(entry.payload, entry.whole);
    return out;
}

HistoryEntry entryFromBytes(std::string_view bytes, bool withPayload) {
    if (!bytes.starts_with(kMagic))
        throw std::runtime_error("a file of the change history is not one");
    size_t pos = kMagic.size();
    HistoryEntry entry;
    const std::string_view kind = field(bytes, pos, "kind");
    if (kind != "base" && kind != "step")
        throw std::runtime_error("a file of the change history is of no known kind");
    entry.whole = kind == "base";
    entry.number = number(field(bytes, pos, "number"));
    entry.time = number(field(bytes, pos, "time"));
    entry.label = field(bytes, pos, "label");
    entry.changes = number(field(bytes, pos, "changes"));
    entry.before = field(bytes, pos, "before");
    entry.after = field(bytes, pos, "after");
    const long long size = number(field(bytes, pos, "size"));
    if (size < 0)
        throw std::runtime_error("a file of the change history holds a number it cannot read");
    if (withPayload)
        entry.payload = expanded(bytes.substr(pos), static_cast<size_t>(size));
    return entry;
}

void writeEntry(const std::filesystem::path& file, const HistoryEntry& entry) {
    writeFileAtomically(file, entryToBytes(entry));
}

HistoryEntry readEntry(const std::filesystem::path& file, bool withPayload) {
    return entryFromBytes(readFileBytes(file), withPayload);
}

}  // namespace tallix
