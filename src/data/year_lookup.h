#pragma once
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace tallix {

// The file name the index holds for `year`, or one of the fixed texts:
// "no entry for year " + year (no entry), "no file for this year" (the
// entry's first child is empty), "not initialized" (as stored).
std::string yearLookup(pugi::xml_node indexDocument, std::string_view year);

// The index entry of `year`, or a null node.
pugi::xml_node yearEntry(pugi::xml_node indexDocument, std::string_view year);

}  // namespace tallix
