#pragma once
#include "app/prompter.h"

class QWidget;

namespace tallix::ui {

// The prompts of the core as message boxes and file dialogs.
class QtPrompter : public Prompter {
  public:
    explicit QtPrompter(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }

    void notify(const std::string& text) override;
    Answer askYesNo(const std::string& text) override;
    Answer askYesNoCancel(const std::string& text) override;
    std::optional<std::filesystem::path> pickFileToOpen(
        const std::filesystem::path& folder) override;
    std::optional<std::filesystem::path> pickFileToSave(
        const std::filesystem::path& suggested) override;

  private:
    QWidget* parent_;
};

}  // namespace tallix::ui
