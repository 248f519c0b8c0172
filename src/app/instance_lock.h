#pragma once
#include <filesystem>
#include <optional>
#include <string>

namespace tallix {

// Keeps a second Tallix off the same data folder, so two windows never
// overwrite each other's saves, and keeps tallix-cli from changing a file in
// a folder that a window holds. The lock is an advisory lock on a file in the
// folder (.tallix.lock), which the system releases when the holder ends,
// however it ends.
class InstanceLock {
  public:
    // The lock, or nothing when another program holds it. Creates the folder
    // when it does not exist yet.
    static std::optional<InstanceLock> acquire(const std::filesystem::path& dataFolder);
    // The same lock for a program that only writes files in `folder`
    // (tallix-cli): the folder is not created, and where no lock file exists
    // and none can be made (a missing folder, or one this user may not write),
    // no window holds the folder either, so an empty lock is returned.
    static std::optional<InstanceLock> acquireToWrite(const std::filesystem::path& folder);
    // The message shown to the second instance.
    static std::string refusedText(const std::filesystem::path& dataFolder);

    InstanceLock(InstanceLock&& other) noexcept;
    InstanceLock& operator=(InstanceLock&& other) noexcept;
    ~InstanceLock();

  private:
    explicit InstanceLock(int fd) : fd_(fd) {}
    static std::optional<InstanceLock> lockOpened(int fd);
    int fd_;
};

}  // namespace tallix
