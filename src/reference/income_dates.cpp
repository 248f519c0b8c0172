#include "reference/income_dates.h"

#include <array>

#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

constexpr std::array<const char*, 7> kWeekdayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                      "Thursday", "Friday", "Saturday"};
constexpr int kDaysInWeek = 7;
constexpr int kMostWeeks = 5;

// 0 for Sunday .. 6 for Saturday; -1 for anything else.
int weekdayIndex(const std::string& name) {
    for (size_t i = 0; i < kWeekdayNames.size(); ++i)
        if (name == kWeekdayNames[i])
            return static_cast<int>(i);
    return -1;
}

int weekdayOfFirst(int month, int year) {
    const std::string shortName = dayOfWeek(1, month, year);
    for (size_t i = 0; i < kWeekdayNames.size(); ++i)
        if (shortName == std::string(kWeekdayNames[i]).substr(0, 3))
            return static_cast<int>(i);
    return 0;
}

std::string dateText(int month, int day, int year) {
    return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
}

}  // namespace

void checkSchedule(const IncomeSchedule& schedule) {
    if (schedule.type == kPosted || schema::isTransferKind(schedule.type))
        return;
    if (schedule.type == kAutoDate) {
        checkedDay("DAY/DATE", schedule.dayOrDate);
        if (schedule.dayOrDate.empty() || schedule.dayOrDate == "0")
            throw PlanRefusal("DAY/DATE needs the day of the month the income arrives on");
        return;
    }
    if (schedule.type != kAutoDay)
        throw PlanRefusal("TYPE \"" + schedule.type +
                          "\" is not auto day, auto date, posted, transfer or move");
    if (weekdayIndex(schedule.dayOrDate) < 0)
        throw PlanRefusal("DAY/DATE \"" + schedule.dayOrDate +
                          "\" is not a weekday (Sunday to Saturday)");
    const std::optional<int> number = numberWithin(schedule.dayNumber, 1, kMostWeeks);
    if (!number || std::to_string(*number) != schedule.dayNumber)
        throw PlanRefusal("DAY NUMBER \"" + schedule.dayNumber + "\" is not a number from 1 to 5");
}

std::optional<std::string> incomeDate(const IncomeSchedule& schedule, int month, int year) {
    const int length = daysInMonth(month, year);
    if (schedule.type == kAutoDate)
        return dateText(month, std::min(std::stoi(schedule.dayOrDate), length), year);
    if (schedule.type != kAutoDay)
        return std::nullopt;
    const int first = weekdayOfFirst(month, year);
    const int wanted = weekdayIndex(schedule.dayOrDate);
    int day = 1 + (wanted - first + kDaysInWeek) % kDaysInWeek +
              kDaysInWeek * (std::stoi(schedule.dayNumber) - 1);
    if (day > length)
        day -= kDaysInWeek;
    return dateText(month, day, year);
}

}  // namespace tallix
