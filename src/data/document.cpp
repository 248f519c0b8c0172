#include "data/document.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <unordered_map>

#include "data/atomic_file.h"
#include "data/encoding.h"

namespace tallix {
namespace {

// Comments, processing instructions and the doctype are kept so that a save
// does not drop what a user wrote by hand.
constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_declaration |
                                   pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype;

class StringWriter : public pugi::xml_writer {
  public:
    explicit StringWriter(std::string& out) : out_(out) {}
    void write(const void* data, size_t size) override {
        out_.append(static_cast<const char*>(data), size);
    }

  private:
    std::string& out_;
};

// The parser reads a carriage return back as a line feed unless it arrives as
// a character reference, so every CR in the output is written as one.
std::string escapeCarriageReturns(const std::string& xml) {
    if (xml.find('\r') == std::string::npos)
        return xml;
    std::string out;
    out.reserve(xml.size() + 16);
    for (char c : xml) {
        if (c == '\r')
            out += "&#13;";
        else
            out += c;
    }
    return out;
}

// The document is held and saved as UTF-8; a declaration that names another
// encoding would mislabel the saved file.
void relabelAsUtf8(pugi::xml_document& doc) {
    for (pugi::xml_node n = doc.first_child(); n; n = n.next_sibling()) {
        if (n.type() != pugi::node_declaration)
            continue;
        if (pugi::xml_attribute enc = n.attribute("encoding"))
            enc.set_value("UTF-8");
        return;
    }
}

// A year's file is a few megabytes; a file this large is not a data file,
// and reading it whole would only exhaust the memory.
constexpr size_t kMaxDataFileBytes = size_t{256} << 20;

[[noreturn]] void cannotRead(const std::filesystem::path& path, int err) {
    throw std::runtime_error("cannot read " + path.string() + ": " + std::strerror(err));
}

[[noreturn]] void tooLarge(const std::filesystem::path& path) {
    throw std::runtime_error(path.string() + " is larger than " +
                             std::to_string(kMaxDataFileBytes >> 20) +
                             " MB, far more than a data file holds: it is not read");
}

void refuseUnlessDataFile(const std::filesystem::path& path, const struct stat& st) {
    if (!S_ISREG(st.st_mode))
        throw std::runtime_error(path.string() + " is " + fileKindName(st.st_mode) +
                                 ", not a data file");
    if (static_cast<unsigned long long>(st.st_size) > kMaxDataFileBytes)
        tooLarge(path);
}

// Closes the file however the read ends.
struct FileCloser {
    int fd;
    ~FileCloser() { ::close(fd); }
};

}  // namespace

// Which file each loaded document came from, so that a message about a node
// can name its file. A document keeps its address through moves.
static std::unordered_map<const void*, std::filesystem::path>& documentSources() {
    static std::unordered_map<const void*, std::filesystem::path> sources;
    return sources;
}

Document::Document() : doc_(std::make_unique<pugi::xml_document>()) {}
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&& other) noexcept {
    if (this != &other) {
        if (doc_)
            documentSources().erase(doc_->root().internal_object());
        doc_ = std::move(other.doc_);
        loadError_ = std::move(other.loadError_);
        source_ = std::move(other.source_);
    }
    return *this;
}
Document::~Document() {
    if (doc_)
        documentSources().erase(doc_->root().internal_object());
}

std::filesystem::path documentSource(pugi::xml_node node) {
    const auto& sources = documentSources();
    auto found = sources.find(node.root().internal_object());
    return found == sources.end() ? std::filesystem::path() : found->second;
}

void Document::markFailed(std::string reason) {
    doc_->reset();
    if (reason.empty())
        reason = "unknown error";
    loadError_ = std::move(reason);
    // The program's historical console line; a windowed program does not show
    // it. It goes to standard error, away from what tallix-cli prints.
    std::fprintf(stderr, "Failed to load DOM from stocks.xml. %s\n", loadError_.c_str());
}

Document Document::parse(std::string_view xml, const std::filesystem::path& label) {
    Document d;
    d.source_ = label;
    documentSources()[d.doc_->root().internal_object()] = label;
    std::string converted;
    pugi::xml_encoding encoding = pugi::encoding_auto;
    const std::string declared = declaredEncoding(xml);
    if (isWindows1252(declared)) {
        converted = windows1252ToUtf8(xml);
        xml = converted;
        encoding = pugi::encoding_utf8;
    } else if (!parserReadsEncoding(declared)) {
        // Any other declared encoding (ISO-8859-15, windows-1250, ...) is
        // decoded here: the parser would keep its bytes as they are, and the
        // save would then label them UTF-8.
        try {
            if (std::optional<std::string> utf8 = convertToUtf8(xml, declared)) {
                converted = std::move(*utf8);
                xml = converted;
                encoding = pugi::encoding_utf8;
            }
        } catch (const std::runtime_error& e) {
            d.markFailed(e.what());
            return d;
        }
    }
    pugi::xml_parse_result result =
        d.doc_->load_buffer(xml.data(), xml.size(), kParseOptions, encoding);
    if (!result) {
        d.markFailed(std::string(result.description()) + " at offset " +
                     std::to_string(result.offset));
        return d;
    }
    relabelAsUtf8(*d.doc_);
    return d;
}

// Only a regular file is opened: a named pipe would block the read and a
// device such as /dev/zero never ends. The type is looked at before the open
// and again on the open file (O_NONBLOCK keeps a pipe put in its place
// meanwhile from blocking). The whole file is read into a buffer of its size
// in one go: copying it through a stream took a quarter of a large load.
std::string readFileBytes(const std::filesystem::path& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            throw std::runtime_error("The system cannot locate the file specified: " +
                                     path.string());
        cannotRead(path, errno);
    }
    refuseUnlessDataFile(path, st);
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        cannotRead(path, errno);
    FileCloser closer{fd};
    if (::fstat(fd, &st) != 0)
        cannotRead(path, errno);
    refuseUnlessDataFile(path, st);

    // One byte more than its size, so that the end is seen without growing
    // the buffer; a file that grows meanwhile is read on to the limit.
    std::string bytes(static_cast<size_t>(st.st_size) + 1, '\0');
    size_t done = 0;
    for (;;) {
        if (done == bytes.size()) {
            if (done > kMaxDataFileBytes)
                tooLarge(path);
            bytes.resize(std::min(bytes.size() * 2, kMaxDataFileBytes + 1));
        }
        const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            cannotRead(path, errno);
        }
        if (n == 0)
            break;
        done += static_cast<size_t>(n);
    }
    bytes.resize(done);
    return bytes;
}

Document Document::load(const std::filesystem::path& path) {
    std::string bytes;
    try {
        bytes = readFileBytes(path);
    } catch (const std::runtime_error& e) {
        Document d;
        d.source_ = path;
        documentSources()[d.doc_->root().internal_object()] = path;
        d.markFailed(e.what());
        return d;
    }
    return parse(bytes, path);
}

std::string Document::serialize() const {
    std::string out;
    StringWriter writer(out);
    doc_->save(writer, "  ", pugi::format_default | pugi::format_no_empty_element_tags,
               pugi::encoding_utf8);
    return escapeCarriageReturns(out);
}

void Document::save(const std::filesystem::path& path) const {
    if (loadFailed()) {
        throw std::runtime_error(
            "nothing was saved to " + path.string() + ": the file " + source_.string() +
            " could not be read, so its empty copy is not written (" + loadError_ + ")");
    }
    writeFileAtomically(path, serialize());
}

}  // namespace tallix
