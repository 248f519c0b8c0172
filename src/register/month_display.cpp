#include "register/month_display.h"

#include "app/guard.h"
#include "app/session.h"
#include "data/values.h"
#include "register/balance_engine.h"
#include "register/month_lines.h"
#include "register/month_load.h"

namespace tallix {
namespace {

// Reads the month into the grid table and runs the engine; the data file is
// saved when the engine changed it.
void recompute(Session& session, bool postDue) {
    if (postDue && postDueEntries(session) > 0)
        session.saveData();
    FilltallixListBox(session);
    readLinesIntoTable(session.data.node(), monthName(session.month), session.month, session.year,
                       static_cast<int>(session.view.grid.columns.size()), session.view.fields,
                       session.view.table);
    if (runBalanceEngine(session))
        session.saveData();
}

}  // namespace

void prepareColumns(Session& session) {
    session.view.fields = initcolumns(session.data.node());
}

bool loadColumns(Session& session) {
    return guarded(session.prompter(), "initcolumns", [&] { prepareColumns(session); });
}

void FilltallixListBox(Session& session) {
    session.view.lineCount =
        static_cast<int>(monthLines(session.data.node(), monthName(session.month)).size());
    session.view.grid = AddtallixColumns(session.data.node());
}

bool showMonth(Session& session, const std::string& monthText) {
    const bool currentMonth = monthText == std::to_string(session.today.month) &&
                              session.yearText == std::to_string(session.today.year);
    if (currentMonth || monthText == "13")
        session.view.rememberedRow = -1;
    const std::string name = monthName(session.month);
    session.view.lineCount = static_cast<int>(monthLines(session.data.node(), name).size());
    if (session.view.lineCount == 0) {
        session.prompter().notify(kEmptyMonthStart + name + kEmptyMonthEnd);
        return false;
    }
    recompute(session, true);
    return true;
}

bool displayMonth(Session& session, const std::string& monthText) {
    bool shown = false;
    guarded(session.prompter(), "displayMonth", [&] { shown = showMonth(session, monthText); });
    return shown;
}

bool Refresh(Session& session) {
    return guarded(session.prompter(), "Refresh", [&] {
        session.data = Document::load(session.filePath);
        prepareColumns(session);
        session.view.table.clear();
        recompute(session, false);
    });
}

bool OnToolsUpdate(Session& session) {
    return guarded(session.prompter(), "OnToolsUpdate", [&] { recompute(session, true); });
}

bool OnToolsUpdateallmonths(Session& session) {
    return guarded(session.prompter(), "OnToolsUpdateallmonths", [&] {
        for (int m = 1; m <= 12; ++m) {
            session.month = m;
            showMonth(session, "13");
        }
    });
}

}  // namespace tallix
