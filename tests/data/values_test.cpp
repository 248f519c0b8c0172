#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

#include "data/values.h"
#include "support/temp_dir.h"
#include "support/thrown.h"

namespace tallix {
namespace {

// Exact to the cent: what is written reads back as the same amount.
TEST(AmountToText, WritesWholeCentsInPlainDecimalForm) {
    // clang-format off
    const std::pair<double, const char*> cases[] = {
        {0, "0.00"}, {0.5, "0.50"}, {7, "7.00"}, {12.05, "12.05"}, {5.999, "6.00"}, {3.999, "4.00"},
        {-3.05, "-3.05"}, {-0.5, "-0.50"}, {-12.5, "-12.50"}, {0.1 + 0.2, "0.30"},
        {4.35 - 0.35, "4.00"}, {12.34 + 0.04 + 0.62, "13.00"}, {2.675, "2.68"}, {-2.675, "-2.68"},
        {0.005, "0.01"}, {-0.004, "0.00"}, {99.995, "100.00"}, {1234567.89, "1234567.89"},
        {-16777217.01, "-16777217.01"}};
    // clang-format on
    for (const auto& [amount, text] : cases) {
        EXPECT_EQ(amountToText(amount), text) << amount;
        EXPECT_EQ(amountToText(textToAmount(text)), text) << text;
    }
    EXPECT_THROW(amountToText(std::nan("")), std::out_of_range);
}

TEST(TextToAmount, ReadsTheLeadingNumberAndTheOldNegativeFormsOrFails) {
    // clang-format off
    const std::pair<const char*, double> cases[] = {
        {"12.50abc", 12.5}, {"  \t12.5", 12.5}, {"-3.05", -3.05}, {"+7", 7}, {".5", 0.5},
        {"1e3", 1000}, {"1,5", 1}, {"1234567.89", 1234567.89},
        // Forms older files hold for negative amounts.
        {"-3.-5", -3.05}, {"0.-50", -0.5}, {"-2.-30", -2.3}, {"-100.-30", -100.3}, {"-3.-100", -4},
        {"-2.-3x", -2}, {"5-30", 5}, {"-3.-1000", -3}};
    // clang-format on
    for (const auto& [text, amount] : cases)
        EXPECT_DOUBLE_EQ(textToAmount(text), amount) << text;
    // Cents survive the trip through the file above 100,000.
    EXPECT_EQ(amountToText(textToAmount("16777217.01")), "16777217.01");

    for (const char* text : {"", "abc", "   ", "-", ".", "+-1", "$12", "nan", "-NaN"})
        EXPECT_EQ(test::thrown<std::invalid_argument>([&] { textToAmount(text); }),
                  "invalid stof argument")
            << text;
    for (const char* text : {"1e40", "-1e40", "1e400", "1e-50", "inf", "-Infinity"})
        EXPECT_EQ(test::thrown<std::out_of_range>([&] { textToAmount(text); }),
                  "stof argument out of range")
            << text;
}

TEST(TypedAmount, TheWholeTextMustBeOneAmount) {
    // clang-format off
    const std::pair<const char*, const char*> taken[] = {
        {"12", "12.00"}, {"12.5", "12.5"}, {"12.", "12.00"}, {".5", "0.5"}, {"+7", "7.00"},
        {" -45.10 ", "-45.10"}, {"1,234.56", "1234.56"}, {"-$45.10", "-45.10"},
        {"$-45.10", "-45.10"}, {"$1,234,567", "1234567.00"}, {"12.345", "12.35"},
        {"-0.999", "-1.00"}, {"1234567890123", "1234567890123.00"}};
    // clang-format on
    for (const auto& [typed, stored] : taken)
        EXPECT_EQ(typedAmountText(typed), std::optional<std::string>(stored)) << typed;
    for (const char* typed :
         {"", "abc", "12abc", "1.2.3", "1,5", "12,34.00", ",123", "1,2345", "$", "-", "+-5", "1e3",
          "nan", "inf", "12 34", "$$5", "-$-45", "12345678901234"})
        EXPECT_EQ(typedAmountText(typed), std::nullopt) << typed;
}

// A process locale with a decimal comma, as a German desktop session sets it;
// when the machine has none, one is compiled for this process only.
bool useCommaLocale(const test::TempDir& folder) {
    auto tryLocale = [](const char* name) {
        return std::setlocale(LC_ALL, name) && std::string(std::localeconv()->decimal_point) == ",";
    };
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"})
        if (tryLocale(name))
            return true;
    const std::string build =
        "localedef -i de_DE -f UTF-8 '" + (folder / "de_DE.UTF-8").string() + "' >/dev/null 2>&1";
    if (std::system(build.c_str()) != 0)
        return false;
    ::setenv("LOCPATH", folder.path().c_str(), 1);
    return tryLocale("de_DE.UTF-8");
}

TEST(Amounts, IgnoreACommaDecimalLocale) {
    test::TempDir folder;
    const bool active = useCommaLocale(folder);
    if (active) {
        EXPECT_DOUBLE_EQ(textToAmount("12.50"), 12.5);
        EXPECT_DOUBLE_EQ(textToAmount(" 1234567.89"), 1234567.89);
        EXPECT_EQ(amountToText(0.1), "0.10");
        EXPECT_EQ(amountToText(-3.05), "-3.05");
        EXPECT_EQ(typedAmountText("1,234.56"), std::optional<std::string>("1234.56"));
    }
    std::setlocale(LC_ALL, "C");
    ::unsetenv("LOCPATH");
    if (!active)
        GTEST_SKIP() << "no locale with a decimal comma is available";
}

TEST(Calendar, MonthNamesAndDaysOfTheWeek) {
    const char* names[] = {" - 1", "January", "February",  "March",   "April",    "May",     "June",
                           "July", "August",  "September", "October", "November", "December"};
    for (int m = 0; m <= 12; ++m)
        EXPECT_EQ(monthName(m), names[m]);
    EXPECT_EQ(monthNameTable()[0], " - 1");
    EXPECT_EQ(monthNameTable()[12], "December");
    EXPECT_EQ(monthName(13), " - 1");
    EXPECT_EQ(monthName(-1), " - 1");
    EXPECT_EQ(monthNumber("March"), 3);
    EXPECT_EQ(monthNumber("march"), 0);

    const struct {
        int day, month, year;
        const char* weekday;
    } dates[] = {
        {1, 1, 1970, "Thu"},   {1, 1, 2000, "Sat"},  {29, 2, 2024, "Thu"}, {31, 12, 2025, "Wed"},
        {1, 1, 1900, "Mon"},   {15, 6, 2026, "Mon"}, {31, 2, 2026, "Tue"},  // 3 March 2026
        {31, 2, 2024, "Sat"},   // 2 March 2024, a leap year
        {0, 3, 2024, "Thu"},    // 29 February 2024
        {32, 12, 2025, "Thu"},  // 1 January 2026
    };
    for (const auto& d : dates)
        EXPECT_EQ(dayOfWeek(d.day, d.month, d.year), d.weekday)
            << d.day << "/" << d.month << "/" << d.year;
}

// Every month of a common year, February of each kind of year, and 31 for a
// number that is no month.
TEST(Calendar, DaysInMonthCountLeapYears) {
    const int common[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int m = 1; m <= 12; ++m)
        EXPECT_EQ(daysInMonth(m, 2026), common[m - 1]) << m;
    for (auto [year, days] : {std::pair{2024, 29}, {2000, 29}, {1900, 28}, {2100, 28}, {2028, 29}})
        EXPECT_EQ(daysInMonth(2, year), days) << year;
    EXPECT_EQ(daysInMonth(0, 2026), 31);
    EXPECT_EQ(daysInMonth(13, 2024), 31);
}

// Days, positions and widths from a file: only a number within the range
// comes back, so nothing huge or non-finite reaches the arithmetic.
TEST(Values, NumberWithinKeepsFileNumbersInRange) {
    EXPECT_EQ(numberWithin("1", 1, 31), 1);
    EXPECT_EQ(numberWithin("31", 1, 31), 31);
    EXPECT_EQ(numberWithin("31.99", 1, 31), 31);  // cut, as days always were
    EXPECT_EQ(numberWithin("0", 0, 1000), 0);
    for (const char* text : {"0", "0.5", "32", "-1", "2147483647", "9223372036854775808", "1e23",
                             "-1e23", "nan", "inf", "abc", ""})
        EXPECT_EQ(numberWithin(text, 1, 31), std::nullopt) << text;
}

}  // namespace
}  // namespace tallix
