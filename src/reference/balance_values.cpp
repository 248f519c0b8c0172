#include "reference/balance_values.h"

#include "data/node_text.h"
#include "data/values.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

// A month value no balance update has written yet (an update writes "0.00").
constexpr const char* kNotWorkedOut = "0";

}  // namespace

std::string checkedBalance(std::string_view field, std::string_view typed) {
    const std::string text = trimmedText(typed);
    if (text.empty())
        return amountToText(0);
    std::optional<std::string> amount = typedAmountText(text);
    if (!amount)
        throw PlanRefusal(std::string(field) + " \"" + text +
                          "\" is not an amount (invalid stof argument)");
    return amountToText(textToAmount(*amount));
}

void appendClosings(pugi::xml_node owner, std::string_view value) {
    for (size_t m = 0; m < kMonthsInYear; ++m)
        appendTextElement(owner, "closing", value);
}

void appendYearValues(pugi::xml_node owner, std::string_view value) {
    appendTextElement(owner, "lastyearclosing", value);
    appendClosings(owner, value);
}

void moveStartingBalance(pugi::xml_node owner, size_t startChild, size_t firstClosing,
                         const std::string& amount) {
    const double difference = textToAmount(amount) - textToAmount(childText(owner, startChild));
    setChildText(owner, startChild, amount);
    for (size_t m = 0; m < kMonthsInYear; ++m) {
        const size_t child = firstClosing + m;
        const std::string value = childText(owner, child);
        setChildText(
            owner, child,
            value == kNotWorkedOut ? amount : amountToText(textToAmount(value) + difference));
    }
}

}  // namespace tallix
