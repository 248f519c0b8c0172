#pragma once
#include <filesystem>
#include <optional>
#include <string>

namespace tallix {

// Keeps a second Tallix off the same data folder, so two windows never
// overwrite each other's saves. The lock is an advisory lock on a file in the
// folder, which the system releases when the holder ends, however it ends.
class InstanceLock {
  public:
    // The lock, or nothing when another program holds it.
    static std::optional<InstanceLock> acquire(const std::filesystem::path& dataFolder);
    // The message shown to the second instance.
    static std::string refusedText(const std::filesystem::path& dataFolder);

    InstanceLock(InstanceLock&& other) noexcept;
    InstanceLock& operator=(InstanceLock&& other) noexcept;
    ~InstanceLock();

  private:
    explicit InstanceLock(int fd) : fd_(fd) {}
    int fd_;
};

}  // namespace tallix
