#include "cli/terminal.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <ostream>

#include "app/session.h"
#include "data/query.h"
#include "data/values.h"
#include "reference/plan_input.h"

namespace tallix::cli {

void TerminalPrompter::notify(const std::string& text) {
    if (text.rfind("runtime error in ", 0) == 0)
        failed_ = true;
    err_ << text << '\n';
}

Answer TerminalPrompter::next(const std::string& text) {
    Answer answer = Answer::No;
    if (!answers.empty()) {
        answer = answers.front();
        answers.pop_front();
    }
    err_ << text << (answer == Answer::Yes ? " [answered Yes]\n" : " [answered No]\n");
    return answer;
}

Answer TerminalPrompter::askYesNo(const std::string& text) {
    return next(text);
}

Answer TerminalPrompter::askYesNoCancel(const std::string& text) {
    return next(text);
}

std::filesystem::path TerminalEnvironment::documentsFolder() const {
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : ".") / "Documents";
}

Date takeToday(Arguments& arguments) {
    std::optional<std::string> given = takeOption(arguments, "--today", "a date YYYY-MM-DD");
    if (!given)
        return localToday();
    const std::string& text = *given;
    // Exactly YYYY-MM-DD: digits where digits belong, nothing after them.
    bool shaped = text.size() == 10 && text[4] == '-' && text[7] == '-';
    for (size_t at = 0; shaped && at < text.size(); ++at)
        shaped = at == 4 || at == 7 || (text[at] >= '0' && text[at] <= '9');
    Date d;
    if (shaped)
        d = {std::stoi(text.substr(0, 4)), std::stoi(text.substr(5, 2)),
             std::stoi(text.substr(8, 2))};
    if (!shaped || !isCalendarDate(d))
        throw UsageError("--today must be a real date YYYY-MM-DD: " + text);
    return d;
}

Date localToday() {
    std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::optional<std::string> takeOption(Arguments& arguments, const std::string& name,
                                      const std::string& what) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != name)
            continue;
        if (i + 1 >= arguments.size())
            throw UsageError(name + " must be followed by " + what);
        std::string value = arguments[i + 1];
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i),
                        arguments.begin() + static_cast<std::ptrdiff_t>(i + 2));
        return value;
    }
    return std::nullopt;
}

bool takeFlag(Arguments& arguments, const std::string& name) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == name) {
            arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i));
            return true;
        }
    }
    return false;
}

int monthArgument(const std::string& text) {
    if (int byName = monthNumber(text))
        return byName;
    if (!text.empty() && text.size() <= 2 &&
        text.find_first_not_of("0123456789") == std::string::npos) {
        const int month = std::stoi(text);
        if (month >= 1 && month <= 12)
            return month;
    }
    throw UsageError("month must be 1-12 or a month name: " + text);
}

bool lockFolderOf(const std::filesystem::path& file, std::vector<InstanceLock>& held,
                  std::ostream& err) {
    namespace fs = std::filesystem;
    // A missing file, a folder or a device is refused when it is loaded, so
    // nothing is written: no lock file is made beside it.
    std::error_code ec;
    if (!fs::is_regular_file(file, ec))
        return true;
    fs::path given = file.parent_path();
    if (given.empty())
        given = ".";
    // A file reached through a link is written in the folder at the link's
    // end, which a window may hold too.
    std::vector<fs::path> folders = {given};
    fs::path real = fs::canonical(file, ec).parent_path();
    if (!ec && !fs::equivalent(given, real, ec))
        folders.push_back(real);
    for (const fs::path& folder : folders) {
        std::optional<InstanceLock> lock = InstanceLock::acquireToWrite(folder);
        if (!lock) {
            // The folder as the window names its data folder: a full path.
            fs::path shown = fs::canonical(folder, ec);
            err << InstanceLock::refusedText(ec ? fs::absolute(folder) : shown) << '\n';
            return false;
        }
        held.push_back(std::move(*lock));
    }
    return true;
}

int onYearFile(const std::string& file, std::ostream& err, const FileBody& body) {
    std::vector<InstanceLock> locks;
    if (!lockFolderOf(file, locks, err))
        return kFailed;
    OpenedFile opened(file, localToday(), err);
    if (opened.session.data.loadFailed())
        return kFailed;
    try {
        body(opened.session, opened.prompter);
    } catch (const PlanRefusal& refused) {
        err << "tallix-cli: " << refused.what() << '\n';
        return kFaultsFound;
    }
    return kOk;
}

int answeringYes(const Arguments& arguments, size_t count, std::ostream& out, std::ostream& err,
                 const YesAction& action) {
    if (arguments.size() != count)
        return kUsage;
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter& prompter) {
        prompter.answers = {Answer::Yes};
        out << action(session, prompter) << '\n';
    });
}

namespace {

std::vector<std::string> columnTitles(const Session& session) {
    std::vector<std::string> titles;
    for (pugi::xml_node column : selectAll(session.data.node(), paths::kAllRegisterColumns))
        titles.push_back(column.child_value("title"));
    return titles;
}

// The texts of `these` that `others` lacks, joined by ", "; "none" when
// there are none.
std::string missingFrom(const std::vector<std::string>& these,
                        const std::vector<std::string>& others) {
    std::string joined;
    for (const std::string& title : these)
        if (std::find(others.begin(), others.end(), title) == others.end())
            joined += (joined.empty() ? "" : ", ") + title;
    return joined.empty() ? "none" : joined;
}

}  // namespace

ColumnChanges::ColumnChanges(const Session& session)
    : session_(session), before_(columnTitles(session)) {}

std::string ColumnChanges::made() const {
    return missingFrom(columnTitles(session_), before_);
}

std::string ColumnChanges::removed() const {
    return missingFrom(before_, columnTitles(session_));
}

int dispatch(const Arguments& arguments, std::ostream& out, std::ostream& err,
             std::initializer_list<std::pair<std::string_view, Subcommand>> subcommands) {
    if (arguments.empty())
        return kUsage;
    for (const auto& [name, run] : subcommands)
        if (arguments[0] == name)
            return run(Arguments(arguments.begin() + 1, arguments.end()), out, err);
    return kUsage;
}

}  // namespace tallix::cli
