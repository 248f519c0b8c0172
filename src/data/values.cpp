#include "data/values.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
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

std::optional<int> numberWithin(std::string_view text, int low, int high) {
    double value = 0;
    try {
        value = textToAmount(text);
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
    // Cutting toward zero keeps everything below high + 1 within range.
    if (!(value > low - 1.0 && value < high + 1.0))
        return std::nullopt;
    const int whole = static_cast<int>(value);
    if (whole < low)
        return std::nullopt;
    return whole;
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

namespace {

// Whole and fractional digits rounded half away from zero to whole cents,
// as one string of digits: ("3", "9999999999999996") is "400".
std::string roundedCents(const std::string& whole, std::string fraction) {
    fraction.resize(std::max<size_t>(fraction.size(), 3), '0');
    std::string digits = (whole.empty() ? "0" : whole) + fraction.substr(0, 2);
    if (fraction[2] >= '5') {
        size_t i = digits.size();
        while (i > 0 && digits[i - 1] == '9')
            digits[--i] = '0';
        if (i == 0)
            digits.insert(digits.begin(), '1');
        else
            ++digits[i - 1];
    }
    return digits;
}

// "-", the whole part and two-digit cents; no sign for zero.
std::string plainAmount(bool negative, std::string cents) {
    const size_t first = std::min(cents.find_first_not_of('0'), cents.size() - 3);
    cents.erase(0, first);
    const bool zero = cents.find_first_not_of('0') == std::string::npos;
    cents.insert(cents.size() - 2, ".");
    return (negative && !zero ? "-" : "") + cents;
}

}  // namespace

std::string amountToText(double amount) {
    if (!std::isfinite(amount))
        throw std::out_of_range("stof argument out of range");
    // The shortest text that reads back as the same double is what gets
    // rounded, so 2.675 is 2.68 as written, whatever its binary value.
    char buffer[400];
    auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(amount), std::chars_format::fixed)
            .ptr;
    std::string text(buffer, end);
    const size_t point = text.find('.');
    if (point == std::string::npos)
        return plainAmount(amount < 0, roundedCents(text, ""));
    return plainAmount(amount < 0, roundedCents(text.substr(0, point), text.substr(point + 1)));
}

namespace {

// More whole digits than any household amount: refused as a typing slip.
constexpr size_t kMaxWholeDigits = 13;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The cents of the negative forms older files hold, "-3.-5" (-3.05) and
// "0.-50" (-0.50): whole part, ".", then the cents as a negative whole
// number. `rest` is what follows the whole part's point.
std::optional<double> oldNegativeCents(std::string_view rest) {
    if (rest.size() < 2 || rest.size() > 4 || rest[0] != '-')
        return std::nullopt;
    double cents = 0;
    for (char c : rest.substr(1)) {
        if (!isDigit(c))
            return std::nullopt;
        cents = cents * 10 + (c - '0');
    }
    return -cents / 100;
}

}  // namespace

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
    if (ec != std::errc() || std::isnan(value))
        throw std::invalid_argument("invalid stof argument");
    double magnitude = std::fabs(value);
    if (std::isinf(value) || magnitude > std::numeric_limits<float>::max() ||
        (magnitude != 0 && magnitude < std::numeric_limits<float>::min()))
        throw std::out_of_range("stof argument out of range");
    if (negative)
        value = -value;
    std::string_view after(ptr, static_cast<size_t>(rest.data() + rest.size() - ptr));
    while (!after.empty() && std::isspace(static_cast<unsigned char>(after.back())))
        after.remove_suffix(1);
    if (ptr > rest.data() && ptr[-1] == '.' && value == std::trunc(value))
        if (std::optional<double> cents = oldNegativeCents(after))
            return value + *cents;
    return value;
}

namespace {

// "1,234,567": groups of three after a first group of one to three digits.
bool separatedThousands(std::string_view whole) {
    size_t first = whole.find(',');
    if (first == 0 || first > 3)
        return false;
    for (size_t at = first; at < whole.size(); at += 4)
        if (whole[at] != ',' || whole.size() - at < 4)
            return false;
    return true;
}

}  // namespace

std::optional<std::string> typedAmountText(std::string_view typed) {
    std::string_view t = typed;
    while (!t.empty() && std::isspace(static_cast<unsigned char>(t.front())))
        t.remove_prefix(1);
    while (!t.empty() && std::isspace(static_cast<unsigned char>(t.back())))
        t.remove_suffix(1);
    bool negative = false;
    auto takeSign = [&] {
        if (!t.empty() && (t.front() == '-' || t.front() == '+')) {
            negative = t.front() == '-';
            t.remove_prefix(1);
            return true;
        }
        return false;
    };
    const bool signFirst = takeSign();
    if (!t.empty() && t.front() == '$') {
        t.remove_prefix(1);
        if (!signFirst)
            takeSign();
    }
    const size_t point = t.find('.');
    std::string_view whole = t.substr(0, point);
    std::string_view fraction = point == std::string_view::npos ? "" : t.substr(point + 1);
    if (whole.find(',') != std::string_view::npos) {
        if (!separatedThousands(whole))
            return std::nullopt;
    }
    std::string digits;
    for (char c : whole)
        if (c != ',')
            digits += c;
    if ((digits.empty() && fraction.empty()) || digits.size() > kMaxWholeDigits ||
        !std::all_of(digits.begin(), digits.end(), isDigit) ||
        !std::all_of(fraction.begin(), fraction.end(), isDigit))
        return std::nullopt;
    if (fraction.size() > 2)
        return plainAmount(negative, roundedCents(digits, std::string(fraction)));
    // Up to two decimals stay as typed (12.5 stays 12.5); none gets ".00".
    return (negative ? "-" : "") + (digits.empty() ? "0" : digits) + "." +
           (fraction.empty() ? std::string("00") : std::string(fraction));
}

int daysInMonth(int month, int year) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 31;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

}  // namespace tallix
