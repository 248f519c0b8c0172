#pragma once
#include <QGroupBox>
#include <array>
#include <filesystem>

class QToolButton;

namespace tallix::ui {

// The nine picture buttons of the frequent tasks, under their group caption.
// Images come from `imageFolder` (the program's res folder, see
// program_files.h) at their own size; a missing image leaves its button blank.
class PictureButtons : public QGroupBox {
    Q_OBJECT
  public:
    enum Task {
        kRefresh,
        kUpdate,
        kExpense,
        kIncome,
        kReceivable,
        kBank,
        kCreditCard,
        kDescription,
        kCategory,
        kTaskCount
    };

    explicit PictureButtons(const std::filesystem::path& imageFolder, QWidget* parent = nullptr);
    QToolButton* button(Task task) const { return buttons_.at(task); }

  signals:
    void clicked(PictureButtons::Task task);

  private:
    std::array<QToolButton*, kTaskCount> buttons_{};
};

}  // namespace tallix::ui
