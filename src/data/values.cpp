#include "data/values.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace tallix {
namespace {

constexpr std::array<const char*, 7> kWeekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// Days since 1970-01-01 of a proleptic Gregorian date (month 1-12).
int64_t daysFromCivil(int64_t y, int64_t m, int64_t d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

bool startsNumber(std::string_view s) {
    size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        ++i;
    if (i >= s.size())
        return false;
    if (std::isdigit(static_cast<unsigned char>(s[i])))
        return true;
    if (s[i] == '.' && i + 1 < s.size() && std::isdigit(static_cast<unsigned char>(s[i + 1])))
        return true;
    auto lowerIs = [&](std::string_view word) {
        if (s.size() - i < word.size())
            return false;
        for (size_t k = 0; k < word.size(); ++k)
            if (std::tolower(static_cast<unsigned char>(s[i + k])) != word[k])
                return false;
        return true;
    };
    return lowerIs("inf") || lowerIs("nan");
}

}  // namespace

const std::array<std::string, 13>& monthNameTable() {
    static const std::array<std::string, 13> table = {
        " - 1", "January", "February",  "March",   "April",    "May",     "June",
        "July", "August",  "September", "October", "November", "December"};
    return table;
}

std::string monthName(int month) {
    if (month < 1 || month > 12)
        return monthNameTable()[0];
    return monthNameTable()[month];
}

int monthNumber(std::string_view name) {
    for (int m = 1; m <= 12; ++m)
        if (monthNameTable()[m] == name)
            return m;
    return 0;
}

std::string dayOfWeek(int day, int month, int year) {
    // Normalise month overflow first, as the C calendar does, then let the day
    // run past the month's end.
    constexpr int64_t kLimit = 100000000;
    if (std::llabs(year) > kLimit || std::llabs(month) > kLimit || std::llabs(day) > kLimit)
        return "Error getting day of week";
    int64_t m0 = month - 1;
    int64_t y = year + (m0 >= 0 ? m0 / 12 : (m0 - 11) / 12);
    m0 -= (y - year) * 12;
    int64_t days = daysFromCivil(y, m0 + 1, 1) + (day - 1);
    int64_t weekday = (days % 7 + 7 + 4) % 7;  // 1970-01-01 was a Thursday
    return kWeekdays[static_cast<size_t>(weekday)];
}

std::string amountToText(double amount) {
    double whole = std::trunc(amount);
    double fraction = amount - whole;
    long long cents = std::llround(fraction * 100.0);
    std::string centsText = std::to_string(cents);
    if (centsText.size() == 1)
        centsText = "0" + centsText;
    // Adding 0.0 turns -0 into 0: an amount between -1 and 0 loses its sign
    // in the whole part, as it always has.
    char buffer[400];
    auto end =
        std::to_chars(buffer, buffer + sizeof buffer, whole + 0.0, std::chars_format::fixed, 0).ptr;
    return std::string(buffer, end) + "." + centsText;
}

double textToAmount(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i])))
        ++i;
    std::string_view rest = text.substr(i);
    if (!startsNumber(rest))
        throw std::invalid_argument("invalid stof argument");
    bool negative = false;
    if (rest.front() == '+' || rest.front() == '-') {
        negative = rest.front() == '-';
        rest.remove_prefix(1);
    }
    double value = 0;
    auto [ptr, ec] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (ec == std::errc::result_out_of_range)
        throw std::out_of_range("stof argument out of range");
    if (ec != std::errc())
        throw std::invalid_argument("invalid stof argument");
    double magnitude = std::fabs(value);
    if (std::isfinite(value) && (magnitude > std::numeric_limits<float>::max() ||
                                 (magnitude != 0 && magnitude < std::numeric_limits<float>::min())))
        throw std::out_of_range("stof argument out of range");
    return negative ? -value : value;
}

}  // namespace tallix
