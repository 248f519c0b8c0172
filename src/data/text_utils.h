#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace tallix {

// Decimal text without leading zeros.
std::string numberToText(long long value);

// The pieces between the delimiters, in order (empty pieces included):
// split("1/15/2026", "/") is {"1", "15", "2026"}.
std::vector<std::string> split(std::string_view text, std::string_view delimiter);

}  // namespace tallix
