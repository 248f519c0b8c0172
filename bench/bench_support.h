#pragma once
// What the register benchmark needs around the core: silent seams, a temp
// folder holding the generated years, and a session over one of them.
#include <filesystem>
#include <optional>
#include <string>

#include "app/environment.h"
#include "app/prompter.h"
#include "app/session.h"
#include "synthetic_year.h"

namespace tallix::bench {

// Counts the notices the core shows and answers every question No.
class CountingPrompter : public Prompter {
  public:
    void notify(const std::string& text) override;
    Answer askYesNo(const std::string& text) override;
    Answer askYesNoCancel(const std::string& text) override;
    std::optional<std::filesystem::path> pickFileToOpen(const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> pickFileToSave(const std::filesystem::path&) override {
        return std::nullopt;
    }

    int notices() const { return notices_; }
    int questions() const { return questions_; }
    // The first notice shown, for an error message.
    const std::string& firstNotice() const { return first_; }

  private:
    int notices_ = 0;
    int questions_ = 0;
    std::string first_;
};

// A fixed "today" and the benchmark's temp folder as every per-user folder.
class FixedEnvironment : public Environment {
  public:
    FixedEnvironment(Date today, std::filesystem::path folder)
        : today_(today), folder_(std::move(folder)) {}
    Date today() const override { return today_; }
    std::filesystem::path dataRoot() const override { return folder_; }
    std::filesystem::path documentsFolder() const override { return folder_; }
    std::optional<std::filesystem::path> cloudDriveRoot() const override { return std::nullopt; }
    bool openWithViewer(const std::filesystem::path&) override { return false; }

  private:
    Date today_;
    std::filesystem::path folder_;
};

// The benchmark's own folder under the system temp folder, removed when the
// program ends.
const std::filesystem::path& benchFolder();

// A generated year, written once into the bench folder.
struct Scenario {
    std::string name;
    SyntheticYearOptions options;
    SyntheticYearSummary summary;
    std::filesystem::path file;
    std::string text;  // the file's bytes, for fresh copies
    size_t bytes() const { return text.size(); }
};

// "typical", "heavy" or "long" (the typical plan and institutions with the
// heavy number of lines). Generated on first use.
const Scenario& scenario(const std::string& name);

// The month the one-month benchmarks show: June.
inline constexpr int kShownMonth = 6;

// A session over a scenario's file, with its columns resolved and `today` on
// the last day of the year. The data file it saves to is its own copy.
class BenchSession {
  public:
    explicit BenchSession(const Scenario& scenario);

    // Replaces the session's document with a fresh copy of the generated
    // year, as if the file had just been opened.
    void freshCopy();
    // Lines of the session's month in the current document.
    int monthLineCount() const;

    CountingPrompter prompter;
    FixedEnvironment env;
    Session session;

  private:
    const Scenario& scenario_;
};

}  // namespace tallix::bench
