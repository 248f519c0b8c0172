#pragma once
// Selecting nodes with the program's path prefixes (schema_paths.h). A query
// is always prefix + key + closing; the key is passed to the XPath engine as a
// variable, so a key holding an apostrophe (Trader Joe's) selects its node.
// Paths starting "//tallix" are evaluated from the root element, which means
// the same in a Tallix file and avoids a scan of every node per query.
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "data/schema_paths.h"

namespace tallix {

// The query text as the program writes it: prefix + key + closing.
std::string buildQuery(std::string_view prefix, std::string_view key,
                       std::string_view closing = paths::kClose);

// A path without a key. The first match in document order, or a null node.
pugi::xml_node selectOne(pugi::xml_node context, std::string_view path);
std::vector<pugi::xml_node> selectAll(pugi::xml_node context, std::string_view path);

// A keyed path: prefix (ending in a quote), key, closing (starting with one).
pugi::xml_node selectOne(pugi::xml_node context, std::string_view prefix, std::string_view key,
                         std::string_view closing = paths::kClose);
std::vector<pugi::xml_node> selectAll(pugi::xml_node context, std::string_view prefix,
                                      std::string_view key,
                                      std::string_view closing = paths::kClose);

// As selectOne, but throws std::runtime_error naming the query when nothing
// matches: for the places where a missing node ends the command.
pugi::xml_node requireOne(pugi::xml_node context, std::string_view path);
pugi::xml_node requireOne(pugi::xml_node context, std::string_view prefix, std::string_view key,
                          std::string_view closing = paths::kClose);

}  // namespace tallix
