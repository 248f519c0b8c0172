#include "app/undo_history.h"

#include "app/session.h"

namespace tallix {
namespace {

size_t hashOf(const std::string& bytes) {
    return std::hash<std::string>{}(bytes);
}

}  // namespace

void UndoHistory::record(Entry entry) {
    ++recordedCount_;
    entries_.push_back(std::move(entry));
    while (entries_.size() > kDepth)
        entries_.pop_front();
}

void UndoHistory::settleLast(const std::string& bytes) {
    if (!entries_.empty())
        entries_.back().afterHash = hashOf(bytes);
}

std::optional<std::string> UndoHistory::nextLabel() const {
    if (entries_.empty())
        return std::nullopt;
    return entries_.back().label;
}

void recordedChange(Session& session, const std::string& label,
                    const std::function<void()>& change) {
    const std::string before = session.data.serialize();
    try {
        change();
        session.saveData();
    } catch (...) {
        session.data = Document::parse(before, session.data.source());
        throw;
    }
    session.history.record({label, session.filePath, before, hashOf(session.data.serialize())});
}

std::optional<std::string> undo(Session& session) {
    const UndoHistory::Entry* entry = session.history.last();
    if (entry && entry->file != session.filePath) {
        // Kept for a file that is no longer open: never written into this one.
        session.history.clear();
        entry = nullptr;
    }
    if (!entry)
        return std::nullopt;
    if (hashOf(session.data.serialize()) != entry->afterHash &&
        session.prompter().askYesNo(kUndoLosesLaterChanges + entry->label + "?") != Answer::Yes)
        return std::nullopt;
    Document restored = Document::parse(entry->before, session.data.source());
    restored.save(session.filePath);
    session.data = std::move(restored);
    std::string label = entry->label;
    session.history.dropLast();
    return label;
}

}  // namespace tallix
