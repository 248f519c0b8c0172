#pragma once
// The pieces the structural check is built from: the list of faults, the
// tests of a node's shape (its element children by position, its key
// attribute) and of the values the program reads as numbers. Each container
// of a year file has its own check below; structure_check.h is the entry.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "data/child_names.h"

namespace tallix::structure {

// The faults found so far, each "where: what", and the notices: what the
// program reads as it is but a user may want to know (a child it does not
// name, read by its position).
class Faults {
  public:
    void add(std::string_view where, std::string_view what);
    void notice(std::string_view where, std::string_view what);
    size_t size() const { return lines_.size(); }
    std::vector<std::string> take() { return std::move(lines_); }

  private:
    std::vector<std::string> lines_;
};

using Names = schema::ChildNames;
using schema::withRepeats;

// "'text'" for messages.
std::string quote(std::string_view text);

// Compares the element children of `node` with `expected`, position by
// position; true when the program can read them by position. With the right
// number of children a name that belongs to another position is a fault and a
// name the program does not use a notice; otherwise each missing, surplus or
// unexpected child is a fault.
bool expectChildren(Faults& faults, std::string_view where, pugi::xml_node node,
                    const Names& expected);

// The element children of `node` named `name`; every other element child is
// a fault.
std::vector<pugi::xml_node> childrenNamed(Faults& faults, std::string_view where,
                                          pugi::xml_node node, std::string_view name);

// How an element of a list is named in messages: its key attribute quoted,
// or "#n" (n from 1) when it has none.
std::string label(pugi::xml_node node, std::string_view attribute, size_t index);

// Every node must carry the attribute `attribute`, and no two the same text.
void expectUniqueKeys(Faults& faults, std::string_view where,
                      const std::vector<pugi::xml_node>& nodes, std::string_view attribute);

// The value of text made of decimal digits only; nothing for any other text.
std::optional<long long> wholeNumber(std::string_view text);
// Text the program reads as an amount (see textToAmount).
bool isAmount(std::string_view text);
// The text of `node` must be an amount; `what` names it in the message.
void expectAmount(Faults& faults, std::string_view where, pugi::xml_node node,
                  std::string_view what);

// The same for a value that may be left empty: only text that is not an
// amount is a fault.
void expectAmountOrEmpty(Faults& faults, std::string_view where, pugi::xml_node node,
                         std::string_view what);

// The twelve month entries of a plan entry (`months` holding twelve `month`
// elements, January first): each must have the children `monthChildren`, the
// first of them `name` holding the English month name of its position and
// the second the month's amount.
void expectMonthEntries(Faults& faults, std::string_view where, pugi::xml_node months,
                        const Names& monthChildren);

// The containers of a year file. `document` is the document node, for the
// register-column lookups.
void checkRegister(Faults& faults, pugi::xml_node container);
void checkRegisterColumns(Faults& faults, pugi::xml_node container);
void checkInstitutions(Faults& faults, pugi::xml_node container, pugi::xml_node document);
void checkCategories(Faults& faults, pugi::xml_node container);
void checkIncome(Faults& faults, pugi::xml_node container);
void checkReceivables(Faults& faults, pugi::xml_node container);
void checkRmds(Faults& faults, pugi::xml_node container);
void checkDescriptions(Faults& faults, pugi::xml_node container);

}  // namespace tallix::structure
