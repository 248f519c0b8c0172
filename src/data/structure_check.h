#pragma once
// The structural check: what a year data file or the index file lacks or
// holds out of shape, one line per fault, each "where: what". It tells a user
// why a hand-edited file misbehaves; the program's own reading is not changed
// by it. docs/structural-check.md lists what is checked.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

// A line of the check that is not a fault: the file is read as it is, but a
// user may want to know (an element name the program does not use, read by
// its position).
inline constexpr std::string_view kNoticePrefix = "notice: ";
inline bool isNotice(std::string_view line) {
    return line.substr(0, kNoticePrefix.size()) == kNoticePrefix;
}

// The faults of a parsed document (its document node); empty when there are
// none. A root element other than `tallix` gives that one fault. A root whose
// children are `year` elements is checked as an index file, any other as a
// year data file.
std::vector<std::string> checkStructure(pugi::xml_node document);

// Parses `bytes` (a whole file, named `label` in messages) and checks it. Text
// that is not well-formed XML gives one fault with the parser's reason and the
// line and column it stopped at.
std::vector<std::string> checkText(std::string_view bytes, std::string_view label);

// Reads and checks the file at `path`. A missing or unreadable file gives one
// fault. Never throws for anything a file may hold.
std::vector<std::string> checkFile(const std::filesystem::path& path);

}  // namespace tallix
