#include "app/session.h"

#include "app/version_history.h"
#include "data/atomic_file.h"

#include "data/schema_names.h"
#include "data/values.h"

namespace tallix {

bool isCalendarDate(const Date& d) {
    return d.month >= 1 && d.month <= 12 && d.day >= 1 && d.day <= daysInMonth(d.month, d.year);
}

Session::Session(Environment& env, Prompter& prompter) : env_(env), prompter_(prompter) {
    today = env_.today();
    todayValid = isCalendarDate(today);
    setYear(today.year);
    month = today.month;
    firstWeekdayOfMonth = dayOfWeek(1, today.month, today.year);
}

std::filesystem::path Session::dataFolder() const {
    return env_.dataRoot() / "tallix";
}

std::filesystem::path Session::indexPath() const {
    return dataFolder() / std::string(schema::kIndexFile);
}

std::filesystem::path Session::inDataFolder(const std::string& bareName) const {
    return dataFolder() / bareName;
}

Session::~Session() = default;

void Session::openDataFile(const std::string& bareName) {
    openDataPath(inDataFolder(bareName));
}

void Session::openDataPath(const std::filesystem::path& path) {
    fileName = path.filename().string();
    filePath = path;
    history_.reset();
    historyOpened_ = false;
    savedBytes_.clear();
    std::string bytes;
    try {
        bytes = readFileBytes(path);
    } catch (const std::runtime_error&) {
        data = Document::load(path);  // marks the document failed, with the reason
        return;
    }
    data = Document::parse(bytes, path);
    if (!data.loadFailed())
        savedBytes_ = std::move(bytes);
}

void Session::reloadData() {
    const std::filesystem::path path = filePath;
    const bool opened = historyOpened_;
    openDataPath(path);
    // A history already in use sees the file again at once, so a change
    // made elsewhere is kept as a version before the next one.
    if (opened)
        versions();
}

VersionHistory* Session::versions() {
    if (!historyOpened_ && !readOnly && hasDataFile()) {
        historyOpened_ = true;
        try {
            auto opened = std::make_unique<VersionHistory>(filePath, [this] { return env_.now(); });
            if (std::optional<std::string> problem = opened->open(savedBytes_))
                prompter_.notify(*problem);
            history_ = std::move(opened);
        } catch (const std::exception& failure) {
            historyFailed(failure);
        }
    }
    return history_.get();
}

void Session::historyFailed(const std::exception& failure) {
    history_.reset();
    prompter_.notify(std::string(kHistoryNotKept) + fileName + " (" + failure.what() + ")" +
                     kHistoryNotKeptEnd);
}

void Session::saveChange(const std::string& label) {
    save(&label);
}

void Session::saveSettled() {
    save(nullptr);
}

void Session::save(const std::string* label) {
    if (readOnly)
        return;
    if (data.loadFailed()) {
        data.save(filePath);  // refuses, naming the file that could not be read
        return;
    }
    std::string after = data.serialize();
    if (after != savedBytes_) {
        if (VersionHistory* history = versions()) {
            try {
                if (label)
                    history->record(*label, savedBytes_, after);
                else
                    history->amend(savedBytes_, after);
            } catch (const std::exception& failure) {
                historyFailed(failure);
            }
        }
    }
    writeDataFile(after);
    savedBytes_ = std::move(after);
}

void Session::putVersion(const std::string& bytes, const std::string* label) {
    Document version = Document::parse(bytes, filePath);
    if (version.loadFailed())
        throw std::runtime_error(version.loadError());
    if (label)
        if (VersionHistory* history = versions())
            history->record(*label, savedBytes_, bytes);
    writeDataFile(bytes);
    data = std::move(version);
    savedBytes_ = bytes;
}

// A write that failed leaves the old file on disk, and the history is put
// back in step with it.
void Session::writeDataFile(const std::string& bytes) {
    try {
        writeFileAtomically(filePath, bytes);
    } catch (...) {
        realignHistory();
        throw;
    }
}

void Session::realignHistory() {
    if (!history_)
        return;
    try {
        if (std::optional<std::string> problem = history_->open(savedBytes_))
            prompter_.notify(*problem);
    } catch (const std::exception& failure) {
        historyFailed(failure);
    }
}

void Session::saveIndex() const {
    index.save(indexPath());
}

void Session::setYear(int newYear) {
    year = newYear;
    yearText = std::to_string(newYear);
}

std::string Session::title() const {
    return monthName(month) + " " + yearText;
}

}  // namespace tallix
