#include "reference/plan_input.h"

#include <optional>

#include "data/values.h"

namespace tallix {
namespace {

constexpr int kLastDay = 31;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool allDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::string trimmedText(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

std::string checkedName(std::string_view typed, std::string_view what) {
    std::string name = trimmedText(typed);
    if (name.empty())
        throw PlanRefusal("the " + std::string(what) + " needs a name");
    return name;
}

std::string checkedAmount(std::string_view field, std::string_view typed) {
    std::string text = trimmedText(typed);
    if (text.empty() || text == "0")
        return text;
    std::optional<std::string> amount = typedAmountText(text);
    if (!amount)
        throw PlanRefusal(std::string(field) + " \"" + text +
                          "\" is not an amount (invalid stof argument)");
    return *amount;
}

std::string checkedDay(std::string_view field, std::string_view typed) {
    std::string text = trimmedText(typed);
    if (text.empty() || text == "0")
        return text;
    if (!allDigits(text) || text.size() > 2 || std::stoi(text) < 1 || std::stoi(text) > kLastDay)
        throw PlanRefusal(std::string(field) + " \"" + text + "\" is not a day from 1 to 31");
    return text;
}

}  // namespace tallix
