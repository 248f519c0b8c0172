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
    const Date today = takeToday(arguments);
    int month = today.month;
    takeMonth(arguments, month);
    // The program's Documents folder: DIR/Documents under --data-root DIR.
    std::filesystem::path documents = TerminalEnvironment(today, {}).documentsFolder();
    if (std::optional<std::string> root = takeOption(arguments, "--data-root", "a folder"))
        documents = std::filesystem::path(*root) / "Documents";
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
        std::error_code ec;
        const std::filesystem::path folder = std::filesystem::absolute(reportFolder(documents), ec);
        if (std::optional<std::filesystem::path> file = writeReportFile(report, folder))
            err << "report file: " << file->string() << '\n';
        out << rowsAsCsv(report);
    });
    return done ? kOk : kFailed;
}

}  // namespace tallix::cli
