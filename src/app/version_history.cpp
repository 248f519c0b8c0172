#include "app/version_history.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <stdexcept>

#include "app/history_files.h"
#include "app/text_delta.h"
#include "data/atomic_file.h"
#include "data/document.h"

namespace tallix {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kStateMagic = "tallix history 1\n";
constexpr long long kDay = 24 * 60 * 60;

std::string stepName(long long number) {
    char name[32];
    std::snprintf(name, sizeof name, "%010lld.step", number);
    return name;
}

Version versionOf(const HistoryEntry& e) {
    return {e.number, e.time, e.label, e.changes, e.after};
}

// The calendar day of `time` on this machine's clock, as one number.
long long localDay(long long time) {
    const std::time_t t = static_cast<std::time_t>(time);
    std::tm parts{};
    localtime_r(&t, &parts);
    return (parts.tm_year + 1900LL) * 10000 + (parts.tm_mon + 1) * 100 + parts.tm_mday;
}

std::string stateLine(std::string_view text, std::string_view name) {
    const size_t at = text.find(std::string(name) + " ");
    if (at == std::string_view::npos)
        throw std::runtime_error("its state lacks the " + std::string(name));
    const size_t end = text.find('\n', at);
    return std::string(text.substr(at + name.size() + 1, end - at - name.size() - 1));
}

long long stateNumber(const std::string& text) {
    try {
        size_t used = 0;
        const long long value = std::stoll(text, &used);
        if (used == text.size() && value >= 0)
            return value;
    } catch (const std::exception&) {
    }
    throw std::runtime_error("its state holds a number it cannot read");
}

}  // namespace

VersionHistory::VersionHistory(fs::path dataFile, Clock clock)
    : dataFile_(std::move(dataFile)), folder_(folderOf(dataFile_)), clock_(std::move(clock)) {}

fs::path VersionHistory::folderOf(const fs::path& dataFile) {
    return dataFile.parent_path() / ".history" / dataFile.filename();
}

long long VersionHistory::now() const {
    if (clock_)
        return clock_();
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

fs::path VersionHistory::generationFolder() const {
    return folder_ / ("g" + std::to_string(generation_));
}

fs::path VersionHistory::fileOf(const Version& v) const {
    return generationFolder() / (&v == &versions_.front() ? "base" : stepName(v.number));
}

const Version* VersionHistory::undoable() const {
    return current_ > 0 ? &versions_[current_] : nullptr;
}

const Version* VersionHistory::redoable() const {
    return current_ + 1 < versions_.size() ? &versions_[current_ + 1] : nullptr;
}

std::optional<std::string> VersionHistory::open(std::string_view fileBytes) {
    versions_.clear();
    current_ = 0;
    if (!fs::exists(folder_ / "state")) {
        start(fileBytes);
        return std::nullopt;
    }
    try {
        load();
        reconcile(fileBytes);
        return std::nullopt;
    } catch (const std::exception& failure) {
        const fs::path aside = folder_.string() + ".damaged";
        std::error_code ignored;
        fs::remove_all(aside, ignored);
        fs::rename(folder_, aside, ignored);
        if (ignored)
            fs::remove_all(folder_, ignored);
        versions_.clear();
        start(fileBytes);
        return "The change history of " + dataFile_.filename().string() + " could not be read (" +
               failure.what() +
               "). It starts again from the file as it is now; the old history was moved to " +
               aside.string() + ".";
    }
}

void VersionHistory::start(std::string_view fileBytes) {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    generation_ = 1;
    fs::create_directories(generationFolder());
    HistoryEntry base;
    base.whole = true;
    base.number = 1;
    base.time = now();
    base.label = kOpenedLabel;
    base.after = fingerprint(fileBytes);
    base.payload = fileBytes;
    writeEntry(generationFolder() / "base", base);
    versions_ = {versionOf(base)};
    current_ = 0;
    writeState();
}

void VersionHistory::writeState() const {
    std::string text(kStateMagic);
    text += "generation " + std::to_string(generation_) + '\n';
    text += "current " +
            (current_ + 1 == versions_.size() ? std::string("newest")
                                              : std::to_string(versions_[current_].number)) +
            '\n';
    writeFileAtomically(folder_ / "state", text);
}

void VersionHistory::load() {
    const std::string state = readFileBytes(folder_ / "state");
    if (!state.starts_with(kStateMagic))
        throw std::runtime_error("its state is not one");
    generation_ = stateNumber(stateLine(state, "generation"));
    const std::string current = stateLine(state, "current");

    const HistoryEntry base = readEntry(generationFolder() / "base", false);
    if (!base.whole)
        throw std::runtime_error("its oldest version is not whole");
    std::vector<long long> numbers;
    for (const fs::directory_entry& e : fs::directory_iterator(generationFolder())) {
        const std::string name = e.path().filename().string();
        if (name.size() == 15 && name.ends_with(".step"))
            numbers.push_back(stateNumber(name.substr(0, 10)));
    }
    std::sort(numbers.begin(), numbers.end());
    versions_ = {versionOf(base)};
    for (long long n : numbers) {
        const HistoryEntry step = readEntry(generationFolder() / stepName(n), false);
        if (step.whole || step.number != n || n <= versions_.back().number)
            throw std::runtime_error("version " + std::to_string(n) + " is out of place");
        if (step.before != versions_.back().fingerprint)
            throw std::runtime_error("version " + std::to_string(n) +
                                     " does not follow the one before it");
        versions_.push_back(versionOf(step));
    }
    current_ = versions_.size() - 1;
    if (current != "newest") {
        const long long number = stateNumber(current);
        const auto found = std::find_if(versions_.begin(), versions_.end(),
                                        [&](const Version& v) { return v.number == number; });
        if (found == versions_.end())
            throw std::runtime_error("its current version is not kept");
        current_ = static_cast<size_t>(found - versions_.begin());
    }
}

void VersionHistory::reconcile(std::string_view fileBytes) {
    const std::string held = fingerprint(fileBytes);
    if (versions_[current_].fingerprint == held)
        return;
    // A crash between a step and the save, or between the save and the
    // state: the file holds a neighbouring version.
    for (size_t i = versions_.size(); i-- > 0;) {
        if (versions_[i].fingerprint == held) {
            current_ = i;
            writeState();
            return;
        }
    }
    record(kChangedElsewhereLabel, textOf(current_), fileBytes);
}

HistoryEntry VersionHistory::stepOf(size_t index) const {
    HistoryEntry step = readEntry(fileOf(versions_[index]));
    if (step.after != versions_[index].fingerprint)
        throw std::runtime_error("version " + std::to_string(versions_[index].number) +
                                 " has changed on disk");
    return step;
}

std::string VersionHistory::textOf(size_t index) const {
    std::string text = stepOf(0).payload;
    if (fingerprint(text) != versions_[0].fingerprint)
        throw std::runtime_error("the oldest version is damaged");
    for (size_t i = 1; i <= index; ++i)
        text = applyForward(deltaFromBytes(stepOf(i).payload), text);
    if (fingerprint(text) != versions_[index].fingerprint)
        throw std::runtime_error("version " + std::to_string(versions_[index].number) +
                                 " cannot be rebuilt");
    return text;
}

std::string VersionHistory::undoneText(std::string_view currentText) const {
    if (!undoable())
        throw std::logic_error("nothing to undo");
    if (fingerprint(currentText) != versions_[current_].fingerprint)
        throw std::runtime_error("the file is not the version the history holds");
    const HistoryEntry step = stepOf(current_);
    std::string text = applyBackward(deltaFromBytes(step.payload), currentText);
    if (fingerprint(text) != step.before)
        throw std::runtime_error("the version before this change cannot be rebuilt");
    return text;
}

std::string VersionHistory::redoneText(std::string_view currentText) const {
    if (!redoable())
        throw std::logic_error("nothing to redo");
    if (fingerprint(currentText) != versions_[current_].fingerprint)
        throw std::runtime_error("the file is not the version the history holds");
    const HistoryEntry step = stepOf(current_ + 1);
    std::string text = applyForward(deltaFromBytes(step.payload), currentText);
    if (fingerprint(text) != step.after)
        throw std::runtime_error("the change cannot be made again");
    return text;
}

void VersionHistory::moved(int by) {
    const long long to = static_cast<long long>(current_) + by;
    if (to < 0 || to >= static_cast<long long>(versions_.size()))
        throw std::logic_error("no such version");
    current_ = static_cast<size_t>(to);
    writeState();
}

void VersionHistory::dropRedo() {
    if (!redoable())
        return;
    for (size_t i = versions_.size() - 1; i > current_; --i) {
        fs::remove(fileOf(versions_[i]));
        versions_.pop_back();
    }
    writeState();
}

void VersionHistory::record(const std::string& label, std::string_view before,
                            std::string_view after) {
    // `before` is taken to be the current version, unchecked: a fingerprint
    // of the whole year on every change would cost as much as the step
    // itself. Undo checks what it rebuilds, so a wrong `before` can never be
    // written back.
    dropRedo();
    HistoryEntry step;
    step.number = versions_.back().number + 1;
    step.time = now();
    step.label = label;
    step.before = versions_.back().fingerprint;
    step.after = fingerprint(after);
    step.payload = deltaToBytes(diffTexts(before, after));
    writeEntry(generationFolder() / stepName(step.number), step);
    versions_.push_back(versionOf(step));
    current_ = versions_.size() - 1;
    if (versions_.size() > kMostVersions)
        prune();
}

void VersionHistory::amend(std::string_view before, std::string_view after) {
    if (before == after)
        return;
    dropRedo();
    HistoryEntry entry = stepOf(current_);
    entry.after = fingerprint(after);
    if (entry.whole) {
        entry.payload = after;
    } else {
        const std::string older = applyBackward(deltaFromBytes(entry.payload), before);
        entry.payload = deltaToBytes(diffTexts(older, after));
    }
    writeEntry(fileOf(versions_[current_]), entry);
    versions_[current_].fingerprint = entry.after;
}

void VersionHistory::prune() {
    const long long today = now();
    const size_t count = versions_.size();
    std::vector<bool> keep(count, false);
    for (size_t i = 0; i < count; ++i) {
        const Version& v = versions_[i];
        const bool recent = i + kRecentKept >= count;
        const bool lastOfItsDay =
            i + 1 == count || localDay(versions_[i + 1].time) != localDay(v.time);
        keep[i] = recent || (lastOfItsDay && v.time >= today - kDaysKept * kDay);
    }

    const fs::path oldFolder = generationFolder();
    ++generation_;
    std::error_code ignored;
    fs::remove_all(generationFolder(), ignored);  // a pruning a crash cut short
    fs::create_directories(generationFolder());
    std::vector<Version> kept;
    std::string text, keptText;
    long long joined = 0;
    for (size_t i = 0; i < count; ++i) {
        const fs::path old = oldFolder / (i == 0 ? "base" : stepName(versions_[i].number));
        const HistoryEntry entry = readEntry(old);
        text = i == 0 ? entry.payload : applyForward(deltaFromBytes(entry.payload), text);
        joined += entry.changes;
        if (!keep[i])
            continue;
        if (i > 0 && keep[i - 1] && !kept.empty()) {
            // Unchanged: the same file under the new generation, without
            // writing it again.
            std::error_code linkFailed;
            fs::create_hard_link(old, generationFolder() / stepName(entry.number), linkFailed);
            if (!linkFailed) {
                kept.push_back(versionOf(entry));
                keptText = text;
                joined = 0;
                continue;
            }
        }
        HistoryEntry out = entry;
        out.changes = joined;
        out.whole = kept.empty();
        out.before = kept.empty() ? std::string() : kept.back().fingerprint;
        // A step whose version before it stays keeps its own delta.
        if (out.whole)
            out.payload = text;
        else if (!keep[i - 1])
            out.payload = deltaToBytes(diffTexts(keptText, text));
        writeEntry(generationFolder() / (out.whole ? "base" : stepName(out.number)), out);
        kept.push_back(versionOf(out));
        keptText = text;
        joined = 0;
    }
    versions_ = std::move(kept);
    current_ = versions_.size() - 1;
    syncFolder(generationFolder());  // the links are on disk before the state names them
    writeState();
    fs::remove_all(oldFolder, ignored);
}

size_t VersionHistory::bytesOnDisk() const {
    size_t total = 0;
    std::error_code ignored;
    for (const fs::directory_entry& e : fs::recursive_directory_iterator(folder_, ignored))
        if (e.is_regular_file(ignored))
            total += e.file_size(ignored);
    return total;
}

}  // namespace tallix
