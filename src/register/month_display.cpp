#include "register/month_display.h"

#include <stdexcept>

#include "app/guard.h"
#include "app/session.h"
#include "data/shown_failure.h"
#include "data/values.h"
#include "register/balance_engine.h"
#include "register/month_lines.h"
#include "register/month_load.h"

namespace tallix {

bool recomputeMonth(Session& session, bool postDue) {
    bool changed = postDue && postDueEntries(session) > 0;
    // A column definition that cannot be read is reported by the column step
    // itself; the month is still shown, with the columns that could be read.
    guarded(session.prompter(), "FilltallixListBox", [&] { FilltallixListBox(session); });
    readLinesIntoTable(session.data.node(), monthName(session.month), session.month, session.year,
                       static_cast<int>(session.view.grid.columns.size()), session.view.fields,
                       session.view.table);
    changed |= runBalanceEngine(session);
    return changed;
}

namespace {

// Runs `body`, which reports whether it changed the document, and saves the
// data file when it did: as the change `label` names, or, without a label, as
// the balances carried on that belong to the version on screen. A body that
// fails saves nothing: the file keeps what it held, and what the steps before
// the failure wrote stays in the window until a command that succeeds saves
// it.
template <typename Body>
void savingChanges(Session& session, Body body, const std::string* label = nullptr) {
    bool changed = false;
    body(changed);
    if (!changed)
        return;
    if (label)
        session.saveChange(*label);
    else
        session.saveSettled();
}

bool showMonthUnsaved(Session& session, const std::string& monthText, bool& changed) {
    const bool currentMonth = monthText == std::to_string(session.today.month) &&
                              session.yearText == std::to_string(session.today.year);
    if (currentMonth || monthText == "13")
        session.view.rememberedRow = -1;
    const std::string name = monthName(session.month);
    if (monthLines(session.data.node(), name).empty()) {
        session.prompter().notify(kEmptyMonthStart + name + kEmptyMonthEnd);
        // The grid keeps the month it showed, and so does everything that
        // acts on the grid's lines (a right click, a commit).
        if (session.view.shownMonth != 0)
            session.month = session.view.shownMonth;
        return false;
    }
    changed |= recomputeMonth(session, true);
    session.view.shownMonth = session.month;
    return true;
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
    ColumnProblems problems;
    session.view.grid = AddtallixColumns(session.data.node(), &problems);
    if (!problems.empty())
        throw std::invalid_argument(problems.front());
}

bool showMonth(Session& session, const std::string& monthText) {
    bool shown = false;
    savingChanges(session,
                  [&](bool& changed) { shown = showMonthUnsaved(session, monthText, changed); });
    return shown;
}

bool displayMonth(Session& session, const std::string& monthText) {
    bool shown = false;
    guarded(session.prompter(), "displayMonth", [&] { shown = showMonth(session, monthText); });
    return shown;
}

bool Refresh(Session& session) {
    return guarded(session.prompter(), "Refresh", [&] {
        session.reloadData();
        prepareColumns(session);
        session.view.table.clear();
        savingChanges(session, [&](bool& changed) { changed = recomputeMonth(session, false); });
        session.view.shownMonth = session.month;
    });
}

namespace {

// `label` names the update as a change of its own; without, it is saved as
// part of the current version.
bool update(Session& session, const std::string* label) {
    return guarded(session.prompter(), "OnToolsUpdate", [&] {
        savingChanges(
            session, [&](bool& changed) { changed = recomputeMonth(session, true); }, label);
    });
}

}  // namespace

bool OnToolsUpdate(Session& session) {
    const std::string label = "update of " + monthName(session.month);
    return update(session, &label);
}

bool updateAfterChange(Session& session) {
    return update(session, nullptr);
}

bool OnToolsUpdateallmonths(Session& session) {
    static const std::string kUpdateAllLabel = "update of all months";
    return guarded(session.prompter(), "OnToolsUpdateallmonths", [&] {
        // All or nothing: a month that fails leaves the year, the window and
        // the file as they were before the run, so no month is saved
        // recomputed from a chain that broke. One save for the whole walk.
        pugi::xml_document before;
        before.reset(session.data.xml());
        const RegisterView viewBefore = session.view;
        const int monthBefore = session.month;
        savingChanges(
            session,
            [&](bool& changed) {
                for (int m = 1; m <= 12; ++m) {
                    session.month = m;
                    try {
                        showMonthUnsaved(session, "13", changed);
                    } catch (...) {
                        session.data.xml().reset(before);
                        session.view = viewBefore;
                        session.month = monthBefore;
                        try {
                            rethrowAt(monthName(m));
                        } catch (const std::exception& failure) {
                            throw ShownFailure(std::string(failure.what()) + "; nothing was saved");
                        }
                    }
                }
            },
            &kUpdateAllLabel);
    });
}

}  // namespace tallix
