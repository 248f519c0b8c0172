#include "app/undo_history.h"

#include <cctype>
#include <ctime>
#include <stdexcept>

#include "app/session.h"
#include "app/version_history.h"

namespace tallix {
namespace {

// A label with its first letter in the case asked for: "Undo rename
// expense ..." in the menu, "Rename expense ..." in the history's list.
std::string withFirstLetter(std::string label, int (*toCase)(int)) {
    if (!label.empty())
        label[0] = static_cast<char>(toCase(static_cast<unsigned char>(label[0])));
    return label;
}

std::string menuText(const char* verb, const Version* v) {
    return std::string(verb) + " " + withFirstLetter(v->label, std::tolower);
}

std::string localTime(long long seconds) {
    const std::time_t t = static_cast<std::time_t>(seconds);
    std::tm parts{};
    localtime_r(&t, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &parts);
    return text;
}

size_t indexOf(const VersionHistory& history, long long number) {
    const std::vector<Version>& all = history.versions();
    for (size_t i = 0; i < all.size(); ++i)
        if (all[i].number == number)
            return i;
    throw std::invalid_argument("the history keeps no version " + std::to_string(number));
}

VersionHistory& historyOf(Session& session) {
    VersionHistory* history = session.versions();
    if (!history)
        throw std::runtime_error("the data file has no change history");
    return *history;
}

}  // namespace

void recordedChange(Session& session, const std::string& label,
                    const std::function<void()>& change) {
    pugi::xml_document before;
    before.reset(session.data.xml());
    try {
        change();
        session.saveChange(label);
    } catch (...) {
        session.data.xml().reset(before);
        throw;
    }
}

std::optional<std::string> undoText(Session& session) {
    const VersionHistory* history = session.versions();
    if (!history || !history->undoable())
        return std::nullopt;
    return menuText("Undo", history->undoable());
}

std::optional<std::string> redoText(Session& session) {
    const VersionHistory* history = session.versions();
    if (!history || !history->redoable())
        return std::nullopt;
    return menuText("Redo", history->redoable());
}

std::optional<std::string> undo(Session& session) {
    VersionHistory* history = session.versions();
    if (!history || !history->undoable())
        return std::nullopt;
    const std::string label = history->undoable()->label;
    session.putVersion(history->undoneText(session.savedBytes()), nullptr);
    history->moved(-1);
    return label;
}

std::optional<std::string> redo(Session& session) {
    VersionHistory* history = session.versions();
    if (!history || !history->redoable())
        return std::nullopt;
    const std::string label = history->redoable()->label;
    session.putVersion(history->redoneText(session.savedBytes()), nullptr);
    history->moved(1);
    return label;
}

std::vector<VersionLine> versionLines(Session& session) {
    std::vector<VersionLine> lines;
    const VersionHistory* history = session.versions();
    if (!history)
        return lines;
    for (size_t i = 0; i < history->versions().size(); ++i) {
        const Version& v = history->versions()[i];
        std::string what = withFirstLetter(v.label, std::toupper);
        if (v.changes > 1)
            what += " and " + std::to_string(v.changes - 1) + " earlier change" +
                    (v.changes > 2 ? "s" : "");
        lines.push_back({v.number, localTime(v.time), what, i == history->current()});
    }
    return lines;
}

std::string versionText(Session& session, long long number) {
    VersionHistory& history = historyOf(session);
    return history.textOf(indexOf(history, number));
}

std::string restoreVersion(Session& session, long long number) {
    VersionHistory& history = historyOf(session);
    const size_t index = indexOf(history, number);
    const std::string label = "restore of version " + std::to_string(number) + " of " +
                              localTime(history.versions()[index].time);
    session.putVersion(history.textOf(index), &label);
    return label;
}

}  // namespace tallix
