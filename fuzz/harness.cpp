#include "harness.h"

#include <cctype>
#include <exception>
#include <fstream>
#include <optional>

#include "app/environment.h"
#include "app/guard.h"
#include "app/prompter.h"
#include "app/session.h"
#include "data/document.h"
#include "data/structure_check.h"
#include "register/month_display.h"
#include "reports/reports.h"

namespace tallix::fuzz {
namespace {

namespace fs = std::filesystem;

// The household's "today" of the sample year: November 2026 is in progress.
constexpr Date kToday{2026, 11, 15};

// Digits left out and the length capped, so "line 12" and "line 13" are one
// thing said, not two.
std::uint64_t featureOf(const std::string& kind, const std::string& text) {
    std::string shape = kind + ':';
    for (char c : text) {
        if (shape.size() >= 80)
            break;
        if (!std::isdigit(static_cast<unsigned char>(c)))
            shape += c;
    }
    return hashText(shape);
}

// Swallows every notice, answers every question No and picks no file, as
// tallix-cli does; remembers what was said.
class QuietPrompter : public Prompter {
  public:
    explicit QuietPrompter(Outcome& outcome) : outcome_(outcome) {}
    void notify(const std::string& text) override {
        outcome_.features.insert(featureOf("notice", text));
    }
    Answer askYesNo(const std::string& text) override {
        outcome_.features.insert(featureOf("question", text));
        return Answer::No;
    }
    Answer askYesNoCancel(const std::string& text) override { return askYesNo(text); }
    std::optional<fs::path> pickFileToOpen(const fs::path&) override { return std::nullopt; }
    std::optional<fs::path> pickFileToSave(const fs::path&) override { return std::nullopt; }

  private:
    Outcome& outcome_;
};

class FolderEnvironment : public Environment {
  public:
    explicit FolderEnvironment(fs::path folder) : folder_(std::move(folder)) {}
    Date today() const override { return kToday; }
    fs::path dataRoot() const override { return folder_; }
    fs::path documentsFolder() const override { return folder_ / "Documents"; }
    std::optional<fs::path> cloudDriveRoot() const override { return std::nullopt; }
    bool openWithViewer(const fs::path&) override { return false; }

  private:
    fs::path folder_;
};

// Runs one step; an exception that gets out of it is a problem.
template <typename Step>
void step(Outcome& outcome, const char* name, Step&& body) {
    try {
        body();
    } catch (const std::exception& e) {
        outcome.problems.push_back(std::string("exception escaped from ") + name + ": " + e.what());
    } catch (...) {
        outcome.problems.push_back(std::string("exception escaped from ") + name);
    }
}

void writeFile(const fs::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::optional<std::string> readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void runSession(Outcome& outcome, const fs::path& file, const fs::path& folder) {
    QuietPrompter prompter(outcome);
    FolderEnvironment env(folder);
    Session session(env, prompter);
    session.openDataPath(file);
    step(outcome, "initcolumns", [&] { loadColumns(session); });
    step(outcome, "Update all months", [&] { OnToolsUpdateallmonths(session); });
    for (int m = 1; m <= 12; ++m) {
        session.month = m;
        session.view.rememberedRow = 31;
        step(outcome, "displayMonth", [&] { displayMonth(session, std::to_string(m)); });
        step(outcome, "Update", [&] { OnToolsUpdate(session); });
    }
    step(outcome, "Refresh", [&] { Refresh(session); });
}

void runReports(Outcome& outcome, const fs::path& file, const fs::path& folder) {
    QuietPrompter prompter(outcome);
    Document data = Document::load(file);
    for (ReportKind kind : allReportKinds()) {
        const int months = kind == ReportKind::Recurring ? 12 : 1;
        for (int m = 1; m <= months; ++m) {
            step(outcome, "report", [&] {
                guarded(prompter, reportLayout(kind).handlerName, [&] {
                    Report report = buildReport(data.node(), kind, m);
                    writeReportFile(report, folder);
                    writePrintFile(report, folder);
                    rowsAsCsv(report);
                });
            });
        }
    }
}

}  // namespace

std::uint64_t hashText(const std::string& text) {
    std::uint64_t h = 14695981039346656037ull;  // FNV-1a
    for (unsigned char c : text) {
        h ^= c;
        h *= 1099511628211ull;
    }
    return h;
}

Outcome runInput(const std::string& bytes, const fs::path& folder) {
    Outcome outcome;
    fs::remove_all(folder);
    fs::create_directories(folder);
    const fs::path file = folder / "tallix2026.xml";
    writeFile(file, bytes);

    bool loadFailed = false;
    step(outcome, "Document::load", [&] {
        Document loaded = Document::load(file);
        loadFailed = loaded.loadFailed();
        if (loadFailed)
            outcome.features.insert(featureOf("load", loaded.loadError()));
        else
            for (const std::string& fault : checkStructure(loaded.node()))
                outcome.features.insert(featureOf("fault", fault));
    });
    step(outcome, "checkFile", [&] { checkFile(file); });
    runSession(outcome, file, folder);
    runReports(outcome, file, folder);

    if (loadFailed && readFile(file) != bytes)
        outcome.problems.push_back("a file that failed to load was written");
    return outcome;
}

}  // namespace tallix::fuzz
