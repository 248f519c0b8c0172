#pragma once
// Everything the program shows or asks goes through this interface, so the
// core never opens a window: the desktop program answers with message boxes
// and dialogs, tests with scripted answers, tallix-cli on the terminal.
#include <filesystem>
#include <optional>
#include <string>

namespace tallix {

enum class Answer { Yes, No, Cancel };

class Prompter {
  public:
    virtual ~Prompter() = default;

    // An OK-only notice; it cannot stop what is going on.
    virtual void notify(const std::string& text) = 0;
    // Questions answered Yes or No (askYesNo) or Yes, No or Cancel.
    virtual Answer askYesNo(const std::string& text) = 0;
    virtual Answer askYesNoCancel(const std::string& text) = 0;
    // A file-open dialog in `folder`; the chosen file's full path, or nothing
    // when the user cancels.
    virtual std::optional<std::filesystem::path> pickFileToOpen(
        const std::filesystem::path& folder) = 0;
    // A file-save dialog offering `suggested`; the chosen path or nothing.
    virtual std::optional<std::filesystem::path> pickFileToSave(
        const std::filesystem::path& suggested) = 0;
};

}  // namespace tallix
