#pragma once
// The seams of the core for the terminal: notices go to standard error, one
// per line; questions are answered No (tallix-cli never waits for input); the
// date is the real one unless --today names another.
#include <iosfwd>
#include <optional>
#include <string>

#include "app/environment.h"
#include "app/prompter.h"
#include "cli/commands.h"

namespace tallix::cli {

class TerminalPrompter : public Prompter {
  public:
    explicit TerminalPrompter(std::ostream& err) : err_(err) {}
    void notify(const std::string& text) override;
    Answer askYesNo(const std::string& text) override;
    Answer askYesNoCancel(const std::string& text) override;
    std::optional<std::filesystem::path> pickFileToOpen(const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> pickFileToSave(const std::filesystem::path&) override {
        return std::nullopt;
    }
    // True once a command handler reported a runtime error.
    bool failed() const { return failed_; }

  private:
    std::ostream& err_;
    bool failed_ = false;
};

class TerminalEnvironment : public Environment {
  public:
    TerminalEnvironment(Date today, std::filesystem::path dataRoot)
        : today_(today), dataRoot_(std::move(dataRoot)) {}
    Date today() const override { return today_; }
    std::filesystem::path dataRoot() const override { return dataRoot_; }
    std::filesystem::path documentsFolder() const override;
    std::optional<std::filesystem::path> cloudDriveRoot() const override { return std::nullopt; }
    bool openWithViewer(const std::filesystem::path&) override { return false; }

  private:
    Date today_;
    std::filesystem::path dataRoot_;
};

// Takes "--today YYYY-MM-DD" out of `arguments`; the real date when absent.
// Nothing when the option is malformed.
std::optional<Date> takeToday(Arguments& arguments);

}  // namespace tallix::cli
