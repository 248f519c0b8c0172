#pragma once
// The children each kind of element of a year file or the index holds, by
// position, as the program writes them. The structural check compares files
// with these lists, and every write by position asks them whether the element
// it is about to change stands where it belongs.
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "data/shown_failure.h"

namespace tallix::schema {

using ChildNames = std::vector<std::string_view>;

// `names` followed by `count` times `repeated`.
ChildNames withRepeats(ChildNames names, std::string_view repeated, size_t count);

extern const ChildNames kColumnChildren;
extern const ChildNames kAccountChildren;
extern const ChildNames kBalanceGroupChildren;
extern const ChildNames kCardChildren;
extern const ChildNames kCategoryChildren;
extern const ChildNames kExpenseChildren;
extern const ChildNames kExpenseMonthChildren;
extern const ChildNames kIncomeChildren;
extern const ChildNames kIncomeMonthChildren;
extern const ChildNames kCustomerChildren;
extern const ChildNames kReceivableItemChildren;
extern const ChildNames kHolderChildren;
extern const ChildNames kRmdAccountChildren;
extern const ChildNames kIndexEntryChildren;
const ChildNames& lineChildNames();

// The names of the children `parent` holds by position, found from its name
// and where it stands; null for a list (months, lines, expenses) and for any
// element the program does not read by position.
const ChildNames* childNamesOf(pugi::xml_node parent);

// Whether `name` is one of `names`.
bool isOneOf(std::string_view name, const ChildNames& names);

// A write by position that found another child's element in its place (two
// children swapped by hand): the write would land in the wrong child.
class MisplacedElement : public ShownFailure {
  public:
    using ShownFailure::ShownFailure;
};

// Throws MisplacedElement when `element` carries the name of another child of
// its parent. An element whose name the program does not use at all is
// accepted: files written elsewhere may name a position differently.
void refuseMisplaced(pugi::xml_node element);

// Where an element stands, for messages:
// "/tallix/income/name[@id='Pay']/months/month[3]" (the key attribute of an
// element of a list, the place among its like of one without a key).
std::string elementPath(pugi::xml_node element);

}  // namespace tallix::schema
