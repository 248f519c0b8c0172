#pragma once
// A customer's receivable items of a month name the register lines they
// belong to by number. Every receivable line has exactly one item, held by
// the customer the line names, and every item names such a line; these keep
// it so when a line is filled, picked again or moved.
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

// The items of `month` (1-12), of every customer, that name register line
// `lineNumber`.
std::vector<pugi::xml_node> itemsNamingLine(pugi::xml_node data, int month,
                                            const std::string& lineNumber);

// The one item of `customer` for register line `lineNumber` of `month`. An
// item that line already has is kept (the customer's own first, else one of
// another customer, moved over: the line was picked again); any further item
// naming the line is removed. A line without one gets a copy of the
// receivables template. `changed`, when given, tells whether any item was
// moved, removed or made. Throws when a copy is needed and the year file has
// no template.
pugi::xml_node settleReceivableItem(pugi::xml_node data, pugi::xml_node customer, int month,
                                    const std::string& lineNumber, bool* changed = nullptr);

}  // namespace tallix
