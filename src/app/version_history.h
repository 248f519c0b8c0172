#pragma once
// The version history of one year file: every change saved to the file is
// kept in a hidden folder beside it (".history/<file name>/"), so Edit > Undo
// and Redo, File > History and tallix-cli's undo, history and restore work
// after a restart too.
//
// Versions are numbered in the order they were made. One is current: the one
// the data file holds. Those after it are the changes Undo took back; Redo
// makes them again, until a new change drops them.
//
// Safe by construction. A change's step is written (atomically) before the
// data file is saved, and the file's own bytes decide which version is
// current when the history is opened: a crash before the save leaves the file
// at the old version with the new step as one Redo can make; a crash after it
// leaves the new version current. A data file that matches no version was
// changed elsewhere; that change becomes a version of its own. A history that
// cannot be read never stops the year from opening: it is set aside
// ("<file name>.damaged") and started again from the file, and open() says
// so, once.
//
// The history is pruned when it holds more than kMostVersions versions: the
// kRecentKept newest stay, and of the older ones the last of each day of the
// last kDaysKept days; what lies between two kept versions joins the later.
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallix {

struct HistoryEntry;

// "The change history of FILE (REASON) cannot be written: ..."
inline constexpr const char* kHistoryNotKept = "The change history of ";
inline constexpr const char* kHistoryNotKeptEnd =
    " cannot be written. Your changes are still saved, but Edit > Undo cannot take them back "
    "until the file is opened again.";

struct Version {
    long long number = 0;
    long long time = 0;  // seconds since 1970 (UTC)
    std::string label;   // what changed ("amount of line 7, March")
    long long changes = 1;
    std::string fingerprint;
};

class VersionHistory {
  public:
    static constexpr size_t kRecentKept = 50;
    static constexpr int kDaysKept = 30;
    static constexpr size_t kMostVersions = 90;
    // The label of a first version, and of a change made by another program.
    static constexpr const char* kOpenedLabel = "the file as it was opened";
    static constexpr const char* kChangedElsewhereLabel = "changes made outside Tallix";

    using Clock = std::function<long long()>;
    // `clock` gives the time versions are stamped with (the system's clock
    // when empty).
    explicit VersionHistory(std::filesystem::path dataFile, Clock clock = {});

    // ".history/<file name>" beside the data file.
    static std::filesystem::path folderOf(const std::filesystem::path& dataFile);

    // Reads the history and finds the version the data file (`fileBytes`)
    // holds. Returns what to tell the user when the history could not be
    // read and was started again. Throws only when the history cannot be
    // written at all.
    std::optional<std::string> open(std::string_view fileBytes);

    const std::vector<Version>& versions() const { return versions_; }
    size_t current() const { return current_; }
    // The version Undo takes back (the current one, unless it is the first)
    // and the one Redo makes again.
    const Version* undoable() const;
    const Version* redoable() const;

    // Keeps the change from the current version (`before`, what the data
    // file holds) to `after`, dropping the versions Undo took back. Call it
    // before the data file is saved. Throws std::runtime_error when
    // `before` is not the current version or the step cannot be written.
    void record(const std::string& label, std::string_view before, std::string_view after);
    // The current version becomes `after` (the balances the engine carried
    // on are part of the change they follow). Call before saving `after`.
    void amend(std::string_view before, std::string_view after);

    // The texts of the version before and after the current one, from the
    // current text. Throw std::runtime_error when the history does not fit.
    std::string undoneText(std::string_view currentText) const;
    std::string redoneText(std::string_view currentText) const;
    // After the data file was saved holding the version `by` steps away.
    void moved(int by);

    // The text of versions()[index], rebuilt from the oldest kept version.
    std::string textOf(size_t index) const;
    // What the history takes on disk.
    size_t bytesOnDisk() const;

  private:
    std::filesystem::path generationFolder() const;
    std::filesystem::path fileOf(const Version& v) const;
    HistoryEntry stepOf(size_t index) const;
    void load();
    void reconcile(std::string_view fileBytes);
    void start(std::string_view fileBytes);
    void writeState() const;
    void dropRedo();
    void prune();
    long long now() const;

    std::filesystem::path dataFile_;
    std::filesystem::path folder_;
    Clock clock_;
    long long generation_ = 1;
    std::vector<Version> versions_;
    size_t current_ = 0;
};

}  // namespace tallix
