#pragma once
// Test doubles for the two seams of the core: a prompter that records every
// text it is shown and answers from a queue, and an environment on a fixed
// date in temporary folders.
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/environment.h"
#include "app/prompter.h"

namespace tallix::test {

class ScriptedPrompter : public Prompter {
  public:
    // Every text shown or asked, in order.
    std::vector<std::string> shown;
    std::deque<Answer> answers;
    std::deque<std::optional<std::filesystem::path>> files;
    // Runs when a question is asked, before it is answered (a click that
    // arrives while a message box is open).
    std::function<void()> onQuestion;

    void notify(const std::string& text) override { shown.push_back(text); }
    Answer askYesNo(const std::string& text) override { return next(text); }
    Answer askYesNoCancel(const std::string& text) override { return next(text); }
    std::optional<std::filesystem::path> pickFileToOpen(const std::filesystem::path&) override {
        return nextFile();
    }
    std::optional<std::filesystem::path> pickFileToSave(const std::filesystem::path&) override {
        return nextFile();
    }

  private:
    Answer next(const std::string& text) {
        shown.push_back(text);
        if (onQuestion)
            onQuestion();
        if (answers.empty())
            throw std::logic_error("unexpected question: " + text);
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<std::filesystem::path> nextFile() {
        if (files.empty())
            throw std::logic_error("unexpected file dialog");
        auto f = files.front();
        files.pop_front();
        return f;
    }
};

class FixedEnvironment : public Environment {
  public:
    Date date{2026, 3, 15};
    std::filesystem::path root;
    std::filesystem::path documents;
    std::optional<std::filesystem::path> cloud;
    std::vector<std::filesystem::path> opened;
    bool viewerWorks = true;

    Date today() const override { return date; }
    std::filesystem::path dataRoot() const override { return root; }
    std::filesystem::path documentsFolder() const override { return documents; }
    std::optional<std::filesystem::path> cloudDriveRoot() const override { return cloud; }
    bool openWithViewer(const std::filesystem::path& file) override {
        opened.push_back(file);
        return viewerWorks;
    }
};

}  // namespace tallix::test
