#pragma once
// Amounts typed by the user (a grid cell, the transfer dialog) are taken only
// when the whole text is one amount; anything else is refused with a message
// that says what to type, before anything is written.
#include <optional>
#include <string>

namespace tallix {

class Prompter;

inline constexpr const char* kNotAnAmountEnd =
    "\" is not an amount. Type a number such as 1234.56, -45.10 or $1,234.56.";

// The amount to store for `typed` (see typedAmountText): an empty text stays
// empty. Otherwise shows "\"TEXT\" is not an amount. ..." and gives nothing.
std::optional<std::string> acceptTypedAmount(Prompter& prompter, const std::string& typed);

}  // namespace tallix
