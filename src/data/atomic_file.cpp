#include "data/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace tallix {
namespace {

int gFailAtWrite = 0;
int gFailErrno = 0;
int gWritesSeen = 0;

ssize_t checkedWrite(int fd, const char* data, size_t size) {
    if (gFailAtWrite > 0 && ++gWritesSeen == gFailAtWrite) {
        errno = gFailErrno;
        return -1;
    }
    return ::write(fd, data, size);
}

[[noreturn]] void fail(const std::filesystem::path& target, const char* what, int err) {
    throw std::runtime_error("could not save " + target.string() + ": " + what + ": " +
                             std::strerror(err));
}

void syncFolder(const std::filesystem::path& folder) {
    int dfd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (dfd >= 0) {
        ::fsync(dfd);  // best effort: some file systems refuse fsync on folders
        ::close(dfd);
    }
}

// The file a save must replace: `target` itself, or, when it is a symbolic
// link, the file at the end of its chain of links (a relative link counts
// from the folder that holds it). The links themselves stay as they are.
std::filesystem::path followLinks(const std::filesystem::path& target) {
    namespace fs = std::filesystem;
    constexpr int kMaxLinks = 40;  // as the kernel's own limit
    fs::path path = target;
    std::error_code ec;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, ec)); ++links) {
        if (links == kMaxLinks)
            fail(target, "too many levels of links", ELOOP);
        fs::path next = fs::read_symlink(path, ec);
        if (ec)
            fail(target, "cannot read the link", ec.value());
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    if (path != target && !fs::exists(fs::symlink_status(path, ec))) {
        throw std::runtime_error("could not save " + target.string() + ": it is a link to " +
                                 path.lexically_normal().string() + ", which does not exist");
    }
    return path;
}

// A replaced file keeps its permissions; a new one gets the usual 0644.
mode_t modeFor(const std::filesystem::path& target) {
    struct stat st {};
    if (::stat(target.c_str(), &st) == 0)
        return st.st_mode & 07777;
    return 0644;
}

}  // namespace

void writeFileAtomically(const std::filesystem::path& saved, std::string_view bytes) {
    const std::filesystem::path target = followLinks(saved);
    std::filesystem::path folder = target.parent_path();
    if (folder.empty())
        folder = ".";
    std::string pattern = (folder / ("." + target.filename().string() + ".tmp-XXXXXX")).string();
    int fd = ::mkstemp(pattern.data());
    if (fd < 0)
        fail(target, "cannot create a temporary file", errno);

    auto abandon = [&](const char* what) {
        int err = errno;
        ::close(fd);
        ::unlink(pattern.c_str());
        fail(target, what, err);
    };

    size_t done = 0;
    while (done < bytes.size()) {
        ssize_t n = checkedWrite(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            abandon("write failed");
        }
        done += static_cast<size_t>(n);
    }
    if (::fchmod(fd, modeFor(target)) != 0)
        abandon("cannot set permissions");
    if (::fsync(fd) != 0)
        abandon("flush failed");
    if (::close(fd) != 0) {
        int err = errno;
        ::unlink(pattern.c_str());
        fail(target, "close failed", err);
    }
    if (::rename(pattern.c_str(), target.c_str()) != 0) {
        int err = errno;
        ::unlink(pattern.c_str());
        fail(target, "rename failed", err);
    }
    syncFolder(folder);
}

namespace testing {
void failNthWrite(int n, int errnoValue) {
    gFailAtWrite = n;
    gFailErrno = errnoValue;
    gWritesSeen = 0;
}
}  // namespace testing

}  // namespace tallix
