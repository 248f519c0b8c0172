#include "app/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace tallix {
namespace {

constexpr const char* kLockFile = ".tallix.lock";

[[noreturn]] void cannotOpen(const std::filesystem::path& file, int err) {
    throw std::runtime_error("cannot open " + file.string() + ": " + std::strerror(err));
}

}  // namespace

std::optional<InstanceLock> InstanceLock::lockOpened(int fd) {
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return std::nullopt;
    }
    return InstanceLock(fd);
}

std::optional<InstanceLock> InstanceLock::acquire(const std::filesystem::path& dataFolder) {
    std::filesystem::create_directories(dataFolder);
    std::filesystem::path file = dataFolder / kLockFile;
    int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        cannotOpen(file, errno);
    return lockOpened(fd);
}

std::optional<InstanceLock> InstanceLock::acquireToWrite(const std::filesystem::path& folder) {
    std::filesystem::path file = folder / kLockFile;
    int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0 && (errno == EACCES || errno == EPERM || errno == EROFS))
        fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);  // a lock needs no write access
    if (fd < 0 && errno == ENOENT)
        return InstanceLock(-1);
    if (fd < 0)
        cannotOpen(file, errno);
    return lockOpened(fd);
}

std::string InstanceLock::refusedText(const std::filesystem::path& dataFolder) {
    return "Tallix is already running with the data folder " + dataFolder.string() +
           ". Switch to that window, or close it and start Tallix again.";
}

InstanceLock::InstanceLock(InstanceLock&& other) noexcept : fd_(other.fd_) {
    other.fd_ = -1;
}

InstanceLock& InstanceLock::operator=(InstanceLock&& other) noexcept {
    if (this != &other) {
        if (fd_ >= 0)
            ::close(fd_);
        fd_ = other.fd_;
        other.fd_ = -1;
    }
    return *this;
}

InstanceLock::~InstanceLock() {
    if (fd_ >= 0)
        ::close(fd_);
}

}  // namespace tallix
