// tallix-cli show and update-all: the register without a display.
#include <algorithm>
#include <ostream>

#include "app/session.h"
#include "cli/commands.h"
#include "cli/terminal.h"
#include "data/values.h"
#include "register/month_display.h"

namespace tallix::cli {
namespace {

void printTable(const Session& session, std::ostream& out) {
    const auto& columns = session.view.grid.columns;
    for (size_t c = 0; c < columns.size(); ++c)
        out << (c ? "\t" : "") << columns[c].title;
    out << '\n';
    const GridTable& table = session.view.table;
    const int width = std::min<int>(static_cast<int>(columns.size()), table.columnCount());
    for (int r = 0; r < table.rowCount(); ++r) {
        for (int c = 0; c < width; ++c)
            out << (c ? "\t" : "") << table.cell(r, c);
        out << '\n';
    }
}

int finish(const OpenedFile& opened) {
    return opened.prompter.failed() ? kFailed : kOk;
}

}  // namespace

int runShow(const Arguments& given, std::ostream& out, std::ostream& err) {
    Arguments arguments = given;
    const Date today = takeToday(arguments);
    if (arguments.size() != 2)
        return kUsage;
    const int month = monthArgument(arguments[1]);
    std::vector<InstanceLock> locks;
    if (!lockFolderOf(arguments[0], locks, err))
        return kFailed;
    OpenedFile opened(arguments[0], today, err);
    Session& session = opened.session;
    if (session.data.loadFailed())
        return kFailed;
    session.month = month;
    session.view.rememberedRow = 31;
    if (!loadColumns(session))
        return kFailed;
    bool shown = displayMonth(session, std::to_string(session.month));
    if (shown)
        printTable(session, out);
    // A month that failed is a failure, not a month without lines.
    return shown || opened.prompter.failed() ? finish(opened) : kFaultsFound;
}

int runUpdateAll(const Arguments& given, std::ostream&, std::ostream& err) {
    Arguments arguments = given;
    const Date today = takeToday(arguments);
    if (arguments.size() != 1)
        return kUsage;
    std::vector<InstanceLock> locks;
    if (!lockFolderOf(arguments[0], locks, err))
        return kFailed;
    OpenedFile opened(arguments[0], today, err);
    Session& session = opened.session;
    if (session.data.loadFailed())
        return kFailed;
    if (!loadColumns(session))
        return kFailed;
    OnToolsUpdateallmonths(session);
    return finish(opened);
}

}  // namespace tallix::cli
