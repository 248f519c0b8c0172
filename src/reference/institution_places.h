#pragma once
// The places in a year file that name a bank or card and one of its
// accounts, and the renames carried into them. A rename reaches every place:
// the expenses' default institution and account, each register line of the
// twelve months (and the receiving side of a transfer or move, held in its
// Info and Accumulate fields: a line of any kind whose Info is exactly the
// bank's name is taken to name it there), the income sources and the
// customers (on their own institution and account fields).
#include <string>

#include <pugixml.hpp>

namespace tallix {

// Sets the institution `oldName` to `newName` wherever it is named. Returns
// the number of places changed.
int renameInstitutionPlaces(pugi::xml_node data, const std::string& oldName,
                            const std::string& newName);

// Sets the account `oldName` to `newName` wherever it is named together with
// `institution`. Returns the number of places changed.
int renameAccountPlaces(pugi::xml_node data, const std::string& institution,
                        const std::string& oldName, const std::string& newName);

}  // namespace tallix
