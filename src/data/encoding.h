#pragma once
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

}  // namespace tallix
