#pragma once
// What the program takes from the machine: today's date, the per-user
// folders and the system viewer. Tests supply a fixed date and temp folders.
#include <filesystem>
#include <optional>

namespace tallix {

struct Date {
    int year = 0;
    int month = 0;  // 1-12
    int day = 0;
};

class Environment {
  public:
    virtual ~Environment() = default;

    virtual Date today() const = 0;
    // The folder the program's "tallix" data folder lives in.
    virtual std::filesystem::path dataRoot() const = 0;
    // The user's Documents folder (the local backup goes below it).
    virtual std::filesystem::path documentsFolder() const = 0;
    // The root of a mounted cloud drive labelled "Google Drive", if any.
    virtual std::optional<std::filesystem::path> cloudDriveRoot() const = 0;
    // Opens a file with the system's viewer; false when that failed.
    virtual bool openWithViewer(const std::filesystem::path& file) = 0;
    // The time now, in seconds since 1970 (UTC): what the version history
    // stamps a change with. Tests give a clock of their own.
    virtual long long now() const;
};

}  // namespace tallix
