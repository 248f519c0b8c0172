#include "editing/typed_amount.h"

#include "app/prompter.h"
#include "data/values.h"

namespace tallix {

std::optional<std::string> acceptTypedAmount(Prompter& prompter, const std::string& typed) {
    if (typed.empty())
        return typed;
    std::optional<std::string> amount = typedAmountText(typed);
    if (!amount)
        prompter.notify("\"" + typed + kNotAnAmountEnd);
    return amount;
}

}  // namespace tallix
