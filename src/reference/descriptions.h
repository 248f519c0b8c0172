#pragma once
// The stored descriptions that register lines may carry.
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

class Session;

inline constexpr const char* kDescriptionNotOnList =
    "Description in not on list...Do you want to add it";

std::vector<std::string> descriptions(pugi::xml_node data);
bool hasDescription(pugi::xml_node data, const std::string& text);
// Appends `text` to the stored descriptions unless it is there already;
// true when it was added.
bool addDescription(pugi::xml_node data, const std::string& text);

// The description dialog's add mode: a text already on the list returns at
// once; otherwise the user is asked whether to add it, and Yes adds it and
// saves the data file.
void offerDescription(Session& session, const std::string& text);

}  // namespace tallix
