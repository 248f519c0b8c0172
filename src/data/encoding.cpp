#include "data/encoding.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <stdexcept>

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

bool parserReadsEncoding(std::string_view encodingName) {
    static constexpr std::array<std::string_view, 13> kKnown = {
        "",         "utf-8",    "utf8",       "utf-16", "utf-16le", "utf-16be", "utf-32",
        "utf-32le", "utf-32be", "iso-8859-1", "latin1", "us-ascii", "ascii"};
    std::string name = lower(encodingName);
    return std::find(kKnown.begin(), kKnown.end(), name) != kKnown.end();
}

std::optional<std::string> convertToUtf8(std::string_view bytes, std::string_view encodingName) {
    iconv_t cd = ::iconv_open("UTF-8", std::string(encodingName).c_str());
    if (cd == reinterpret_cast<iconv_t>(-1))
        return std::nullopt;
    std::string out(bytes.size() * 2 + 16, '\0');
    char* in = const_cast<char*>(bytes.data());
    size_t inLeft = bytes.size();
    size_t written = 0;
    while (inLeft > 0) {
        char* dst = out.data() + written;
        size_t outLeft = out.size() - written;
        size_t rc = ::iconv(cd, &in, &inLeft, &dst, &outLeft);
        written = out.size() - outLeft;
        if (rc != static_cast<size_t>(-1))
            continue;
        if (errno == E2BIG) {
            out.resize(out.size() * 2);
            continue;
        }
        ::iconv_close(cd);
        throw std::runtime_error("the text is not valid " + std::string(encodingName) +
                                 " at byte " + std::to_string(bytes.size() - inLeft));
    }
    ::iconv_close(cd);
    out.resize(written);
    return out;
}

}  // namespace tallix
