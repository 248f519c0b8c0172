#include "cli/terminal.h"

#include <cstdlib>
#include <ctime>
#include <ostream>

#include "data/text_utils.h"

namespace tallix::cli {

void TerminalPrompter::notify(const std::string& text) {
    if (text.rfind("runtime error in ", 0) == 0)
        failed_ = true;
    err_ << text << '\n';
}

Answer TerminalPrompter::askYesNo(const std::string& text) {
    err_ << text << " [answered No]\n";
    return Answer::No;
}

Answer TerminalPrompter::askYesNoCancel(const std::string& text) {
    err_ << text << " [answered No]\n";
    return Answer::No;
}

std::filesystem::path TerminalEnvironment::documentsFolder() const {
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : ".") / "Documents";
}

std::optional<Date> takeToday(Arguments& arguments) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != "--today")
            continue;
        if (i + 1 >= arguments.size())
            return std::nullopt;
        std::vector<std::string> parts = split(arguments[i + 1], "-");
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i),
                        arguments.begin() + static_cast<std::ptrdiff_t>(i + 2));
        if (parts.size() != 3)
            return std::nullopt;
        try {
            Date d{std::stoi(parts[0]), std::stoi(parts[1]), std::stoi(parts[2])};
            if (d.month < 1 || d.month > 12 || d.day < 1 || d.day > 31)
                return std::nullopt;
            return d;
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }
    std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

}  // namespace tallix::cli
