#pragma once
// The stored descriptions that register lines may carry.
#include <cstddef>
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

// The longest description the list takes: a description is a short note
// shown in one cell of the register.
inline constexpr size_t kLongestDescription = 255;

// The maintenance dialog's APPLY: adds `text` (without leading and trailing
// blanks) to the list and saves; false, with nothing written, when the list
// has it already. Refuses (PlanRefusal) an empty text and one longer than
// kLongestDescription. Edit > Undo takes it back, as it does the two below.
bool saveNewDescription(Session& session, const std::string& text);
// A description's label edited: the stored text changes (register lines
// that carry the old text keep it). Refused as above, and when the new text
// is on the list already.
void renameDescription(Session& session, const std::string& oldText, const std::string& newText);
// DELETE: removes the description, without a question.
void deleteDescription(Session& session, const std::string& text);

// The description dialog's add mode: a text already on the list returns at
// once; otherwise the user is asked whether to add it, and Yes adds it and
// saves the data file.
void offerDescription(Session& session, const std::string& text);

}  // namespace tallix
