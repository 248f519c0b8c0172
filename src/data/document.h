#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace tallix {

// One loaded XML document (a year file or the index). Loading always builds a
// fresh document, so node handles taken from an earlier load become invalid.
class Document {
  public:
    Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;
    ~Document();

    // Loads `path`. A failed load (missing file, malformed XML, a file that is
    // no data file: see readFileBytes) leaves an empty document, remembers the
    // reason and writes the program's standard failure line to standard
    // error; it does not throw.
    static Document load(const std::filesystem::path& path);
    // Parses text held in memory (the bundled templates); failures as load().
    static Document parse(std::string_view xml, const std::filesystem::path& label);

    // Writes the whole document to `path` atomically. Throws on any failure,
    // and refuses a document whose load failed so that the empty document never
    // replaces a file that could not be read.
    void save(const std::filesystem::path& path) const;
    // The bytes save() writes.
    std::string serialize() const;

    bool loadFailed() const { return !loadError_.empty(); }
    const std::string& loadError() const { return loadError_; }
    const std::filesystem::path& source() const { return source_; }

    // The document node: the context every absolute query starts from.
    pugi::xml_node node() const { return doc_->root(); }
    pugi::xml_document& xml() { return *doc_; }

  private:
    void markFailed(std::string reason);

    std::unique_ptr<pugi::xml_document> doc_;
    std::string loadError_;
    std::filesystem::path source_;
};

// The file the document holding `node` was loaded from (the label of a
// parsed text); empty for a document that was never loaded. Messages about a
// node name the file with it.
std::filesystem::path documentSource(pugi::xml_node node);

// The bytes of a file, read in one go. Throws std::runtime_error naming the
// file and the reason when it is missing, cannot be read, is not a regular
// file (a folder, a named pipe, a device) or is larger than a data file can
// be (256 MB).
std::string readFileBytes(const std::filesystem::path& path);

}  // namespace tallix
