#pragma once
// What the expense and category maintenance takes from the user, checked
// before anything is written: a refused value leaves the document and the
// year file as they were and says why.
#include <string>
#include <string_view>

#include "data/shown_failure.h"

namespace tallix {

// A refused value, or a category or expense that is not in the plan. The
// message says which and why; tallix-cli ends with status 1 on it.
class PlanRefusal : public ShownFailure {
  public:
    using ShownFailure::ShownFailure;
};

// The text without leading and trailing blanks.
std::string trimmedText(std::string_view text);

// A name for a category or an expense (`what`: "expense", "category"),
// without leading and trailing blanks; refuses a name that is empty then.
std::string checkedName(std::string_view typed, std::string_view what);

// An amount field (`field` names it in the message): empty stays empty, "0"
// stays the word the plan uses for a month that takes the repeating amount,
// and any other text must be one amount as the register takes typed ones
// ("$1,234.5" is stored "1234.5"). Refuses anything else with the conversion
// error "invalid stof argument".
std::string checkedAmount(std::string_view field, std::string_view typed);

// A day field (`field` names it in the message): empty, "0" (the plan's
// "none") or a whole number 1-31.
std::string checkedDay(std::string_view field, std::string_view typed);
inline std::string checkedClosingDay(std::string_view typed) {
    return checkedDay("CLOSING DAY", typed);
}

}  // namespace tallix
