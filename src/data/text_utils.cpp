#include "data/text_utils.h"

#include <stdexcept>

namespace tallix {

std::string numberToText(long long value) {
    return std::to_string(value);
}

std::vector<std::string> split(std::string_view text, std::string_view delimiter) {
    if (delimiter.empty())
        throw std::invalid_argument("split needs a delimiter");
    std::vector<std::string> pieces;
    size_t start = 0;
    for (size_t at = text.find(delimiter); at != std::string_view::npos;
         at = text.find(delimiter, start)) {
        pieces.emplace_back(text.substr(start, at - start));
        start = at + delimiter.size();
    }
    pieces.emplace_back(text.substr(start));
    return pieces;
}

}  // namespace tallix
