// tallix-cli next-year: Make next year without a display.
#include <optional>
#include <ostream>

#include "app/next_year.h"
#include "app/session.h"
#include "cli/commands.h"
#include "cli/terminal.h"
#include "data/schema_names.h"
#include "data/year_lookup.h"

namespace tallix::cli {
namespace {

// Takes "--name FILE" out of `arguments`; false when FILE is missing. An
// empty FILE is kept: Make next year refuses it with its message.
bool takeName(Arguments& arguments, std::optional<std::string>& name) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != "--name")
            continue;
        if (i + 1 >= arguments.size())
            return false;
        name = arguments[i + 1];
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i),
                        arguments.begin() + static_cast<std::ptrdiff_t>(i + 2));
        return true;
    }
    return true;
}

bool isYear(const std::string& text) {
    return text.size() == 4 && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

int runNextYear(const Arguments& given, std::ostream& out, std::ostream& err) {
    Arguments arguments = given;
    std::optional<std::string> name;
    if (!takeName(arguments, name) || arguments.size() != 2)
        return kUsage;
    if (!isYear(arguments[1]))
        throw UsageError("YEAR must be a year of four digits: " + arguments[1]);
    const int year = std::stoi(arguments[1]);

    TerminalPrompter prompter(err);
    TerminalEnvironment env(Date{year, 12, 31}, arguments[0]);
    Session session(env, prompter);
    std::vector<InstanceLock> locks;
    if (!lockFolderOf(session.indexPath(), locks, err))
        return kFailed;
    session.index = Document::load(session.indexPath());
    if (session.index.loadFailed())
        return kFailed;
    std::string current = yearLookup(session.index.node(), arguments[1]);
    if (current.empty() || current == schema::kNoFileForThisYear ||
        current == schema::kNotInitialized ||
        current.rfind(std::string(schema::kNoEntryForYear), 0) == 0) {
        err << "tallix-cli: the index has no data file for " << year << " (" << current << ")\n";
        return kFailed;
    }
    session.openDataFile(current);
    if (session.data.loadFailed())
        return kFailed;
    session.setYear(year);
    if (!OnToolsMakenextyear(session, name.value_or(defaultYearFileName(year + 1))))
        return kFailed;
    out << session.filePath.string() << '\n';
    return kOk;
}

}  // namespace tallix::cli
