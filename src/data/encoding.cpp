#include "data/encoding.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace tallix {
namespace {

// windows-1252 bytes 0x80-0x9F; the rest of the upper half equals Latin-1.
constexpr char16_t kHighTable[32] = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void appendUtf8(std::string& out, char16_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

std::string lower(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

}  // namespace

std::string declaredEncoding(std::string_view bytes) {
    std::string_view head = bytes.substr(0, 256);
    if (head.substr(0, 3) == "\xEF\xBB\xBF")
        head.remove_prefix(3);
    if (head.substr(0, 5) != "<?xml")
        return "";
    size_t end = head.find("?>");
    std::string_view decl = head.substr(0, end);
    size_t at = decl.find("encoding");
    if (at == std::string_view::npos)
        return "";
    size_t quote = decl.find_first_of("\"'", at);
    if (quote == std::string_view::npos)
        return "";
    size_t close = decl.find(decl[quote], quote + 1);
    if (close == std::string_view::npos)
        return "";
    return lower(decl.substr(quote + 1, close - quote - 1));
}

bool isWindows1252(std::string_view encodingName) {
    std::string name = lower(encodingName);
    return name == "windows-1252" || name == "cp1252" || name == "x-cp1252";
}

std::string windows1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (unsigned char c : bytes) {
        if (c < 0x80)
            out += static_cast<char>(c);
        else if (c < 0xA0)
            appendUtf8(out, kHighTable[c - 0x80]);
        else
            appendUtf8(out, static_cast<char16_t>(c));
    }
    return out;
}

}  // namespace tallix
