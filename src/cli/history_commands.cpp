// tallix-cli undo, redo, history and restore: Edit > Undo and Redo and File >
// History without a display, on the same version history the program keeps.
#include <ostream>

#include "app/undo_history.h"
#include "cli/terminal.h"
#include "reference/plan_input.h"

namespace tallix::cli {
namespace {

using Step = std::optional<std::string> (*)(Session&);

int takeStep(const Arguments& arguments, std::ostream& out, std::ostream& err, Step step,
             const char* done, const char* nothing) {
    if (arguments.size() != 1)
        return kUsage;
    bool moved = false;
    const int status = onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter&) {
        if (const std::optional<std::string> label = step(session)) {
            out << done << ' ' << *label << '\n';
            moved = true;
        }
    });
    if (status == kOk && !moved) {
        err << "tallix-cli: " << nothing << '\n';
        return kFaultsFound;
    }
    return status;
}

}  // namespace

int runUndo(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return takeStep(arguments, out, err, undo, "undone:", "there is nothing to undo");
}

int runRedo(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return takeStep(arguments, out, err, redo, "redone:", "there is nothing to redo");
}

int runHistory(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() != 1)
        return kUsage;
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter&) {
        out << "VERSION\tTIME\tCHANGE\n";
        const std::vector<VersionLine> lines = versionLines(session);
        for (auto line = lines.rbegin(); line != lines.rend(); ++line)
            out << line->number << (line->current ? "*" : "") << '\t' << line->time << '\t'
                << line->what << '\n';
    });
}

int runRestore(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() != 2)
        return kUsage;
    long long number = 0;
    try {
        size_t used = 0;
        number = std::stoll(arguments[1], &used);
        if (used != arguments[1].size())
            throw std::invalid_argument(arguments[1]);
    } catch (const std::exception&) {
        throw UsageError("the version must be a number, as history lists it");
    }
    return onYearFile(arguments[0], err, [&](Session& session, TerminalPrompter&) {
        try {
            const std::string label = restoreVersion(session, number);
            out << "restored: " << label << '\n';
        } catch (const std::invalid_argument& missing) {
            throw PlanRefusal(missing.what());
        }
    });
}

}  // namespace tallix::cli
