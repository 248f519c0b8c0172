// tallix-cli report: a report's rows without a display.
#include <ostream>

#include "app/guard.h"
#include "cli/commands.h"
#include "cli/terminal.h"
#include "data/document.h"
#include "data/values.h"
#include "reports/reports.h"

namespace tallix::cli {
namespace {

// Takes "--month M" out of `arguments` (1-12 or a month name); `month`
// keeps its value when the option is absent. Throws UsageError when M is
// missing or names no month.
void takeMonth(Arguments& arguments, int& month) {
    if (std::optional<std::string> given = takeOption(arguments, "--month", "a month"))
        month = monthArgument(*given);
}

}  // namespace

int runReport(const Arguments& given, std::ostream& out, std::ostream& err) {
    Arguments arguments = given;
    int month = takeToday(arguments).month;
    takeMonth(arguments, month);
    if (arguments.size() != 2)
        return kUsage;
    std::optional<ReportKind> kind = reportKindFromCliName(arguments[0]);
    if (!kind)
        return kUsage;

    Document data = Document::load(arguments[1]);
    if (data.loadFailed())
        return kFailed;
    TerminalPrompter prompter(err);
    bool done = guarded(prompter, reportLayout(*kind).handlerName, [&] {
        Report report = buildReport(data.node(), *kind, month);
        writeReportFile(report, std::filesystem::current_path());
        out << rowsAsCsv(report);
    });
    return done ? kOk : kFailed;
}

}  // namespace tallix::cli
