#pragma once
// The values a bank account's balance group or a card carries through the
// year: the starting balance (`lastyearclosing`) and the twelve `closing`
// values, each month's start.
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace tallix {

inline constexpr size_t kMonthsInYear = 12;

// A balance typed in a field named `field`: empty is 0, otherwise one amount
// as the register takes typed ones. Refuses anything else (PlanRefusal).
// Returns the amount's text ("1234.50").
std::string checkedBalance(std::string_view field, std::string_view typed);

// Appends `lastyearclosing` and twelve `closing` elements to `owner`, each
// holding `value`.
void appendYearValues(pugi::xml_node owner, std::string_view value);
// Appends the twelve `closing` elements only.
void appendClosings(pugi::xml_node owner, std::string_view value);

// Sets the starting balance (child `startChild`) to `amount` and moves the
// twelve month values (from child `firstClosing` on) by the difference, so
// that every month carried on from the old start is carried on from the new
// one. A month value still "0" (no balance update has reached it; an update
// writes "0.00") starts from the new balance itself, as a new account's do.
// Amount texts that are not numbers throw the conversion errors.
void moveStartingBalance(pugi::xml_node owner, size_t startChild, size_t firstClosing,
                         const std::string& amount);

}  // namespace tallix
