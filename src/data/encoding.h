#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace tallix {

// The encoding named in an XML declaration at the start of `bytes`, lower
// case ("" when there is none).
std::string declaredEncoding(std::string_view bytes);

// True for the names under which Windows programs label windows-1252 text.
bool isWindows1252(std::string_view encodingName);

// Re-encodes windows-1252 bytes as UTF-8 (the five unassigned bytes become
// U+FFFD), since the XML parser does not know that code page.
std::string windows1252ToUtf8(std::string_view bytes);

// True when the XML parser reads text declared in `encodingName` correctly
// on its own: UTF-8, UTF-16/32 (told apart by their bytes), ISO-8859-1 and
// plain ASCII, or no declared encoding at all.
bool parserReadsEncoding(std::string_view encodingName);

// Re-encodes `bytes` from `encodingName` to UTF-8 through the system's
// converter. std::nullopt when the system does not know the encoding; throws
// std::runtime_error when the bytes are not valid text in it.
std::optional<std::string> convertToUtf8(std::string_view bytes, std::string_view encodingName);

}  // namespace tallix
