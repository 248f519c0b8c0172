#pragma once
// Edit > Find: the register lines of the whole year that hold a text in
// their expense, description, check number or category (letters compared
// without regard to case), or whose amount is the amount the text stands for
// ("12.5", "$1,200" and "1200.00" all find 1200.00).
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

struct FoundLine {
    int month = 0;  // 1-12
    std::string day;
    int line = 0;  // the line's number in its month, from 1
    std::string expense, amount, status;
};

// January to December, each month's lines in order; nothing for a text that
// is empty or only blanks. A line's amount that is not a number is not an
// amount match (its texts still are).
std::vector<FoundLine> findLines(pugi::xml_node data, std::string_view text);

}  // namespace tallix
