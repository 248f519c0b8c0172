#include "register/line_search.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>

#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "register/month_lines.h"

namespace tallix {
namespace {

constexpr int kMonths = 12;

std::string lowered(std::string_view text) {
    std::string out(text);
    std::ranges::transform(out, out.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::string trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::optional<long long> centsOf(std::string_view text) {
    try {
        return std::llround(textToAmount(text) * 100);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace

std::vector<FoundLine> findLines(pugi::xml_node data, std::string_view typed) {
    const std::string text = trimmed(typed);
    std::vector<FoundLine> found;
    if (text.empty())
        return found;
    const std::string wanted = lowered(text);
    std::optional<long long> amount;
    if (std::optional<std::string> typedAmount = typedAmountText(text))
        amount = centsOf(*typedAmount);
    for (int month = 1; month <= kMonths; ++month) {
        int number = 0;
        for (pugi::xml_node line : monthLines(data, monthName(month))) {
            ++number;
            bool match = false;
            for (int field :
                 {schema::kExpense, schema::kDescription, schema::kCheck, schema::kCategoty})
                match = match ||
                        lowered(childTextOrEmpty(line, static_cast<size_t>(field))).find(wanted) !=
                            std::string::npos;
            const std::string lineAmount = childTextOrEmpty(line, schema::kDebit);
            if (!match && amount && !lineAmount.empty())
                match = centsOf(lineAmount) == amount;
            if (match)
                found.push_back({month, childTextOrEmpty(line, schema::kDay), number,
                                 childTextOrEmpty(line, schema::kExpense), lineAmount,
                                 childTextOrEmpty(line, schema::kStatus)});
        }
    }
    return found;
}

}  // namespace tallix
