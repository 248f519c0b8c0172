#include "data/year_lookup.h"

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"

namespace tallix {

pugi::xml_node yearEntry(pugi::xml_node indexDocument, std::string_view year) {
    return selectOne(indexDocument, paths::kYear, year);
}

std::string yearLookup(pugi::xml_node indexDocument, std::string_view year) {
    pugi::xml_node entry = yearEntry(indexDocument, year);
    if (!entry)
        return std::string(schema::kNoEntryForYear) + std::string(year);
    std::vector<pugi::xml_node> children = elementChildren(entry);
    std::string name = children.empty() ? std::string() : nodeText(children.front());
    if (name.empty())
        return std::string(schema::kNoFileForThisYear);
    return name;
}

}  // namespace tallix
