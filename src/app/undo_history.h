#pragma once
// Edit > Undo: the way back from the operations that change the plan
// (delete an expense or a category, rename, move, apply month values, ...),
// including those whose flow offers no Cancel.
//
// An operation runs through recordedChange(): before it changes the year
// document, the document is kept (the bytes a save writes) with a label such
// as "Delete expense Gas"; then the operation changes it and the year file is
// saved once. undo() puts the last kept document back and saves it. The
// session keeps the last kDepth operations of the file it has open; an
// operation that is refused or cancelled keeps nothing.
//
// For the menu: UndoHistory::nextLabel() names what Edit > Undo would take
// back ("Undo Delete expense Gas"); disable the item when it gives nothing.
#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tallix {

class Session;

class UndoHistory {
  public:
    static constexpr size_t kDepth = 20;

    struct Entry {
        std::string label;
        std::filesystem::path file;  // the year file the document belongs to
        std::string before;          // the document before the operation
        size_t afterHash = 0;        // the document the operation saved
    };

    // Keeps `entry`, forgetting the oldest beyond kDepth.
    void record(Entry entry);
    // The label of the operation undo() would take back.
    std::optional<std::string> nextLabel() const;
    const Entry* last() const { return entries_.empty() ? nullptr : &entries_.back(); }
    void dropLast() { entries_.pop_back(); }
    void clear() { entries_.clear(); }
    size_t size() const { return entries_.size(); }
    // How many operations were ever recorded: tells whether a dialog recorded one.
    size_t recordedCount() const { return recordedCount_; }
    // The document the last operation is compared with becomes `bytes`.
    void settleLast(const std::string& bytes);

  private:
    std::deque<Entry> entries_;
    size_t recordedCount_ = 0;
};

// Runs `change` on the session's document as one operation labelled `label`:
// keeps the document on the session's history, runs `change`, and saves the
// data file. When `change` or the save throws, the document is put back as
// it was, nothing is kept, and the failure goes on to the caller.
void recordedChange(Session& session, const std::string& label,
                    const std::function<void()>& change);

// Takes back the last recorded operation of the open file: its document
// before the operation is saved to the data file and becomes the session's
// document. Returns the operation's label; nothing when there is nothing to
// take back. When the document was changed after the operation by commands
// that record nothing (a cell edit, an update), those changes would go too:
// the session's prompter asks kUndoLosesLaterChanges first, and a No keeps
// everything as it is. A failed save throws and changes nothing.
std::optional<std::string> undo(Session& session);

inline constexpr const char* kUndoLosesLaterChanges =
    "The data file has changed since this step. Undoing it also takes back every change made "
    "after it. Do you want to undo ";

}  // namespace tallix
