#include "app/year_files.h"

#include <stdexcept>

#include "app/guard.h"
#include "app/next_year.h"
#include "app/session.h"
#include "data/atomic_file.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/year_lookup.h"

namespace tallix {
namespace {

constexpr int kFirstMenuYear = 2022;
constexpr int kLastMenuYear = 2030;

std::string newYearFileName(std::string_view year) {
    return "tallix" + std::string(year) + ".xml";
}

std::string blankTemplatePath(const Session& session) {
    return session.inDataFolder(std::string(schema::kBlankYearFile)).string();
}

// Writes `name` into the year's index entry (file name first, status word
// second) and saves the index. Throws when the index has no entry for the year.
void recordInIndex(Session& session, std::string_view year, const std::string& name,
                   std::string_view status) {
    pugi::xml_node entry = yearEntry(session.index.node(), year);
    if (!entry)
        throw std::runtime_error(std::string(schema::kNoEntryForYear) + std::string(year));
    setChildText(entry, 0, name);
    if (elementChildCount(entry) > 1)
        setChildText(entry, 1, status);
    else
        appendTextElement(entry, "status", status);
    session.saveIndex();
}

// The bare name a picked file is known by in the data folder. A file picked
// elsewhere is copied in first, since the index holds bare names only; a
// different file of that name already there is never replaced.
std::string bringIntoDataFolder(Session& session, const std::filesystem::path& picked) {
    std::string name = picked.filename().string();
    std::filesystem::path inFolder = session.inDataFolder(name);
    if (std::filesystem::exists(inFolder) && std::filesystem::equivalent(inFolder, picked))
        return name;
    if (std::filesystem::exists(inFolder))
        throw std::runtime_error("a different " + name + " is already in the data folder");
    std::filesystem::copy_file(picked, inFolder);
    return name;
}

// The Years menu treats an entry without a file like one marked "not
// initialized": both mean no file was attached to the year yet.
bool hasNoFileYet(const std::string& lookup) {
    return lookup == schema::kNotInitialized || lookup == schema::kNoFileForThisYear;
}

// A blank year is the template copied to the year's own file, which the
// index then names. A file of that name already in the data folder is opened
// instead, never replaced, and the user is told so.
std::string startFromBlankYear(Session& session, std::string_view year) {
    std::string name = newYearFileName(year);
    std::filesystem::path target = session.inDataFolder(name);
    if (std::filesystem::exists(target)) {
        session.prompter().notify(year_texts::existingYearFileOpened(name, year));
    } else {
        writeFileAtomically(target, readFileBytes(blankTemplatePath(session)));
    }
    recordInIndex(session, year, name, schema::kInitialized);
    return name;
}

// getfile's answer when no file became the year's: "" (cancelled or refused)
// or "0" (failed).
bool nothingPicked(const std::string& answer) {
    return answer.empty() || answer == "0";
}

// Start-up ends without a year: the user is told why the program closes.
std::optional<std::string> closeWithoutAYear(Session& session) {
    session.prompter().notify(year_texts::kNoYearFileChosen);
    return std::nullopt;
}

// The lookup names a file that is in the data folder (the status texts and
// a missing file do not).
bool namesAnExistingFile(const Session& session, const std::string& lookup) {
    std::error_code ec;
    return !lookup.empty() && std::filesystem::is_regular_file(session.inDataFolder(lookup), ec);
}

// The previous-year branch, with the session already on the previous year.
// A previous year without a file in the data folder lets the user pick one,
// or begins `currentYear` from the blank template.
std::optional<std::string> choosePreviousYearFile(Session& session, std::string_view currentYear) {
    std::string lookup = yearLookup(session.index.node(), session.yearText);
    if (namesAnExistingFile(session, lookup))
        return lookup;
    if (session.prompter().askYesNo(year_texts::kNoPreviousYearEntry) == Answer::Yes) {
        std::string picked = getfile(session, session.yearText);
        if (nothingPicked(picked))
            return closeWithoutAYear(session);
        return picked;
    }
    session.setYear(std::stoi(std::string(currentYear)));
    return startFromBlankYear(session, currentYear);
}

}  // namespace

std::optional<std::string> chooseStartupFile(Session& session) {
    std::string lookup = yearLookup(session.index.node(), session.yearText);
    if (lookup != schema::kNoFileForThisYear)
        return lookup;

    Prompter& prompter = session.prompter();
    prompter.notify(year_texts::kNoFileForCurrentYear);
    if (prompter.askYesNoCancel(year_texts::kLoadPreviousYear) != Answer::No) {
        const std::string currentYear = session.yearText;
        session.setYear(session.year - 1);
        return choosePreviousYearFile(session, currentYear);
    }
    if (prompter.askYesNoCancel(year_texts::kLoadBlankForThisYear) != Answer::Yes)
        return closeWithoutAYear(session);
    return startFromBlankYear(session, session.yearText);
}

std::string getfile(Session& session, std::string_view year) {
    std::string result = "0";
    guarded(session.prompter(), "getfile", [&] {
        std::optional<std::filesystem::path> picked =
            session.prompter().pickFileToOpen(session.dataFolder());
        if (!picked) {
            result.clear();
            return;
        }
        // Two years on one file, or a year in the index or a template, would
        // let one year's edits overwrite another's.
        if (isNameInUse(session, picked->filename().string(), std::string(year))) {
            session.prompter().notify(
                year_texts::pickedFileInUse(picked->filename().string(), year));
            result.clear();
            return;
        }
        std::string name = bringIntoDataFolder(session, *picked);
        session.data = Document::load(session.inDataFolder(name));
        session.index = Document::load(session.indexPath());
        recordInIndex(session, year, name, schema::kInitialized);
        session.index = Document::load(session.indexPath());
        result = yearLookup(session.index.node(), year);
    });
    return result;
}

bool processprevyearrequest(Session& session, std::string_view year) {
    bool switched = false;
    guarded(session.prompter(), "processprevyearrequest", [&] {
        int newYear = std::stoi(std::string(year));
        std::string name = yearLookup(session.index.node(), year);
        if (hasNoFileYet(name)) {
            if (session.prompter().askYesNo(year_texts::kNoDataFileForSelectedYear) != Answer::Yes)
                return;
            name = getfile(session, year);
            if (nothingPicked(name))
                return;  // nothing picked, or the pick was refused: nothing changes
        }
        session.openDataFile(name);
        session.setYear(newYear);
        switched = true;
    });
    return switched;
}

std::vector<std::string> yearsMenuItems() {
    std::vector<std::string> items;
    for (int y = kFirstMenuYear; y <= kLastMenuYear; ++y)
        items.push_back(std::to_string(y));
    return items;
}

}  // namespace tallix
