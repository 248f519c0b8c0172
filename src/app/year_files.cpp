#include "app/year_files.h"

#include <stdexcept>

#include "app/guard.h"
#include "app/session.h"
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

// A blank year saved under the year's default name becomes the working file.
// A file of that name already in the data folder is opened, never replaced.
std::string startFromBlankYear(Session& session, std::string_view year) {
    std::string name = newYearFileName(year);
    if (std::filesystem::exists(session.inDataFolder(name)))
        return name;
    session.data = Document::load(blankTemplatePath(session));
    session.data.save(session.inDataFolder(name));
    return name;
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

}  // namespace

std::string choosePreviousYearFile(Session& session, std::string_view year) {
    std::string lookup = yearLookup(session.index.node(), year);
    // Only an empty year text gives exactly this result; any other missing
    // entry is taken as a file name whose load then fails.
    if (lookup != schema::kNoEntryForYear)
        return lookup;
    if (session.prompter().askYesNo(year_texts::kNoPreviousYearEntry) == Answer::Yes)
        return getfile(session, year);
    return startFromBlankYear(session, year);
}

std::string chooseStartupFile(Session& session) {
    std::string lookup = yearLookup(session.index.node(), session.yearText);
    if (lookup != schema::kNoFileForThisYear)
        return lookup;

    Prompter& prompter = session.prompter();
    prompter.notify(year_texts::kNoFileForCurrentYear);
    if (prompter.askYesNoCancel(year_texts::kLoadPreviousYear) != Answer::No) {
        session.setYear(session.year - 1);
        return choosePreviousYearFile(session, session.yearText);
    }
    if (prompter.askYesNoCancel(year_texts::kLoadBlankForThisYear) != Answer::Yes)
        return lookup;

    session.data = Document::load(blankTemplatePath(session));
    pugi::xml_node entry = yearEntry(session.index.node(), session.yearText);
    if (!entry) {
        prompter.notify(std::string(schema::kNoEntryForYear) + session.yearText);
        return lookup;
    }
    std::string name(schema::kBlankYearFile);
    setChildText(entry, 0, name);
    session.saveIndex();
    return name;
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
