#pragma once
#include <string>

namespace tallix {

class Session;

inline constexpr const char* kCheckNumberNotFound = "Check number not found";

// A check number typed on a line without a planned expense: the month's
// "check" line of the same institution and account carrying that number
// becomes "cleared", and the edited line becomes its "posted check" (taking
// the check's amount when its own is blank), so the bank column takes the
// check off once and the register column does not take it off twice.
// Shows "Check number not found" when no such line exists. Returns true when
// a check was matched.
bool matchCheckNumber(Session& session, int row, const std::string& number);

}  // namespace tallix
