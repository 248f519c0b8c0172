#pragma once
// Adding, numbering and finding the line elements of a register month. A
// customer's receivable item names the register line it belongs to by number,
// so whatever renumbers lines keeps those items in step.
#include <array>
#include <string>

#include <pugixml.hpp>

namespace tallix {

using LineFields = std::array<std::string, 12>;

// The register month element of `month` (1-12); throws when the file has none.
pugi::xml_node monthElement(pugi::xml_node data, int month);

// A new line element holding `fields` (day .. typeofentry), inserted before
// `before` or appended when `before` is null. Its `line` attribute is "0"
// until the month is renumbered.
pugi::xml_node newLineElement(pugi::xml_node month, pugi::xml_node before,
                              const LineFields& fields);

// Inserts a line of `kind` on `day` before the line at `row` (counted from
// 0) of the month, or after the last line when `row` is past it, and
// renumbers the month. Returns the new line.
pugi::xml_node addxmlline(pugi::xml_node data, int month, int row, const std::string& day,
                          const std::string& kind);

// A receivable line: category "Receivables", its expense naming the customer.
bool isReceivableLine(pugi::xml_node line);

// The item of `month` of the customer a receivable line names whose number is
// `lineNumber`, or a null node.
pugi::xml_node receivableItem(pugi::xml_node data, pugi::xml_node line, int month,
                              const std::string& lineNumber);

// Numbers the month's lines 1..n in document order. Each renumbered
// receivable line takes its customer's item along to the new number; a line
// numbered "0" is new and has no item yet.
void renumberLines(pugi::xml_node data, pugi::xml_node month, int monthNumber);

}  // namespace tallix
