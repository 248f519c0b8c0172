#include "data/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace tallix {
namespace {

namespace fs = std::filesystem;

int gFailAtWrite = 0;
int gFailErrno = 0;
int gWritesSeen = 0;

constexpr std::string_view kTempInfix = ".tmp-";
constexpr size_t kTempRandomChars = 6;  // the XXXXXX of mkstemp

ssize_t checkedWrite(int fd, const char* data, size_t size) {
    if (gFailAtWrite > 0 && ++gWritesSeen == gFailAtWrite) {
        errno = gFailErrno;
        return -1;
    }
    return ::write(fd, data, size);
}

[[noreturn]] void fail(const fs::path& target, const char* what, int err) {
    throw std::runtime_error("could not save " + target.string() + ": " + what + ": " +
                             std::strerror(err));
}

// The file a save must replace: `target` itself, or, when it is a symbolic
// link, the file at the end of its chain of links (a relative link counts
// from the folder that holds it). The links themselves stay as they are.
fs::path followLinks(const fs::path& target) {
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

// The permissions of the new file: a replaced file keeps its own, a new one
// gets the usual 0644. Refuses, before anything is written, a target that is
// not a regular file (a save would put a plain file in place of a pipe or a
// device) and one the user may not write. The super-user passes access(), so
// a file without any write permission is refused for everyone: replacing it
// would undo the chmod that made it read-only.
mode_t checkTarget(const fs::path& target) {
    struct stat st {};
    if (::stat(target.c_str(), &st) != 0) {
        if (errno == ENOENT)
            return 0644;
        fail(target, "cannot look at the file", errno);
    }
    if (!S_ISREG(st.st_mode)) {
        throw std::runtime_error("could not save " + target.string() + ": it is " +
                                 fileKindName(st.st_mode) + ", not a regular file");
    }
    if ((st.st_mode & 0222) == 0)
        fail(target, "the file is read-only", EACCES);
    if (::access(target.c_str(), W_OK) != 0)
        fail(target, "you may not write the file", errno);
    return st.st_mode & 07777;
}

bool sameFile(int fd, const std::string& name) {
    struct stat byFd {
    }, byName{};
    return ::fstat(fd, &byFd) == 0 && ::stat(name.c_str(), &byName) == 0 &&
           byFd.st_dev == byName.st_dev && byFd.st_ino == byName.st_ino;
}

// Creates the temporary file for `target` in `folder` and locks it until it
// is closed, so that removeStaleTempFiles() in any program leaves it alone.
// Returns the open file; `name` receives its path.
int createLockedTemp(const fs::path& target, const fs::path& folder, std::string& name) {
    const std::string pattern =
        (folder / ("." + target.filename().string() + std::string(kTempInfix) + "XXXXXX")).string();
    // A clean-up can take the new file in the moment before it is locked:
    // then it is gone, and another one is made.
    constexpr int kAttempts = 8;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        name = pattern;
        int fd = ::mkostemp(name.data(), O_CLOEXEC);
        if (fd < 0)
            fail(target, "cannot create a temporary file", errno);
        if (::flock(fd, LOCK_EX) != 0) {
            int err = errno;
            ::unlink(name.c_str());
            ::close(fd);
            fail(target, "cannot lock the temporary file", err);
        }
        if (sameFile(fd, name))
            return fd;
        ::close(fd);
    }
    fail(target, "cannot keep a temporary file", EAGAIN);
}

bool isTempName(const std::string& name) {
    // "." + at least one character of the file's name + ".tmp-" + XXXXXX
    const size_t tail = kTempInfix.size() + kTempRandomChars;
    if (name.size() < 2 + tail || name[0] != '.' ||
        name.compare(name.size() - tail, kTempInfix.size(), kTempInfix) != 0)
        return false;
    for (size_t i = name.size() - kTempRandomChars; i < name.size(); ++i) {
        if (!std::isalnum(static_cast<unsigned char>(name[i])))
            return false;
    }
    return true;
}

// Removes one temporary file unless a running save holds its lock.
void removeIfStale(const fs::path& path) {
    int fd = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return;
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && ::flock(fd, LOCK_EX | LOCK_NB) == 0 &&
        sameFile(fd, path.string()))
        ::unlink(path.c_str());
    ::close(fd);  // releases the lock
}

}  // namespace

void syncFolder(const std::filesystem::path& folder) noexcept {
    int dfd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dfd >= 0) {
        ::fsync(dfd);  // best effort: some file systems refuse fsync on folders
        ::close(dfd);
    }
}

std::string fileKindName(unsigned mode) {
    if (S_ISREG(mode))
        return "a regular file";
    if (S_ISDIR(mode))
        return "a folder";
    if (S_ISFIFO(mode))
        return "a named pipe";
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return "a device";
    if (S_ISSOCK(mode))
        return "a socket";
    return "a special file";
}

void removeStaleTempFiles(const fs::path& folder) noexcept {
    try {
        std::error_code ec;
        for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, ec), end;
             !ec && it != end; it.increment(ec)) {
            if (isTempName(it->path().filename().string()))
                removeIfStale(it->path());
        }
    } catch (...) {  // housekeeping only: a save goes on without it
    }
}

void writeFileAtomically(const fs::path& saved, std::string_view bytes) {
    const fs::path target = followLinks(saved);
    fs::path folder = target.parent_path();
    if (folder.empty())
        folder = ".";
    const mode_t mode = checkTarget(target);
    removeStaleTempFiles(folder);
    std::string temp;
    int fd = createLockedTemp(target, folder, temp);

    auto abandon = [&](const char* what) {
        int err = errno;
        ::unlink(temp.c_str());
        ::close(fd);
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
    if (::fchmod(fd, mode) != 0)
        abandon("cannot set permissions");
    if (::fsync(fd) != 0)
        abandon("flush failed");
    // The file stays open, and so locked, until it has its final name.
    if (::rename(temp.c_str(), target.c_str()) != 0)
        abandon("rename failed");
    // The bytes are on disk (fsync above), so a late close error changes
    // nothing: the target holds the new file already.
    ::close(fd);
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
