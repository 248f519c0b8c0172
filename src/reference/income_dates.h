#pragma once
// The dates an income source arrives on, month by month, worked out from its
// type: "auto date" comes on the same day of every month, "auto day" on the
// n-th of a weekday ("the second Friday"), and "posted" has no worked-out
// dates.
#include <optional>
#include <string>

namespace tallix {

inline constexpr const char* kAutoDay = "auto day";
inline constexpr const char* kAutoDate = "auto date";
inline constexpr const char* kPosted = "posted";

// Which day an income source arrives on.
struct IncomeSchedule {
    std::string type;       // "auto day", "auto date" or "posted"
    std::string dayOrDate;  // a day 1-31 ("auto date") or "Sunday".."Saturday" ("auto day")
    std::string dayNumber;  // "auto day": which one of the month, 1-5
};

// Refuses (PlanRefusal) a type other than the three and the transfer kinds
// ("transfer", "move", which income sources that move money between the
// household's accounts have), and for the two automatic types a DAY/DATE or
// DAY NUMBER they cannot use: a day outside 1-31, a name that is not a
// weekday, a number outside 1-5. The other types keep whatever the two
// fields hold, and get no worked-out dates.
void checkSchedule(const IncomeSchedule& schedule);

// The date (M/D/YYYY) the source arrives on in month `month` (1-12) of
// `year`; nothing for "posted". A day past the end of a shorter month is the
// month's last day (the 31st is 30 April), and a fifth weekday that the
// month does not have is its last (fourth) one. The schedule must have
// passed checkSchedule.
std::optional<std::string> incomeDate(const IncomeSchedule& schedule, int month, int year);

}  // namespace tallix
