#pragma once
// Reading and writing the text of elements the way the program always has:
// an element's text is all of its descendant text joined and trimmed, and
// setting it replaces every child with that one text. Children are counted by
// position among element children only, so comments never shift a position.
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

std::string nodeText(pugi::xml_node node);
void setNodeText(pugi::xml_node node, std::string_view text);

// Sets the text only when it differs; true when it did.
bool updateNodeText(pugi::xml_node node, std::string_view text);

std::vector<pugi::xml_node> elementChildren(pugi::xml_node node);
size_t elementChildCount(pugi::xml_node node);
// The position of `node` among its parent's element children, from 0.
size_t elementPosition(pugi::xml_node node);

// The element child at `index` (from 0); throws std::out_of_range when the
// node or the child does not exist.
pugi::xml_node childAt(pugi::xml_node node, size_t index);
std::string childText(pugi::xml_node node, size_t index);
// The same for readers that list what a hand-edited file holds: a missing
// node or child gives a null node and an empty text.
pugi::xml_node childAtOrNull(pugi::xml_node node, size_t index);
std::string childTextOrEmpty(pugi::xml_node node, size_t index);
// Writes the child at `index`; refuses (schema::MisplacedElement) a child that
// carries another child's name, as after a swap by hand.
void setChildText(pugi::xml_node node, size_t index, std::string_view text);

// Appends a new element `name` holding `text` (no text node when empty).
pugi::xml_node appendTextElement(pugi::xml_node parent, std::string_view name,
                                 std::string_view text);

// The text of attribute `name` ("" when the node has no such attribute);
// throws when the node itself does not exist.
std::string attributeText(std::string_view name, pugi::xml_node node);
// Replaces the text of an existing attribute; never creates one, and throws
// when the attribute or the node is missing.
void setAttributeText(std::string_view value, std::string_view name, pugi::xml_node node);

}  // namespace tallix
