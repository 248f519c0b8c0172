#pragma once
#include <QColor>
#include <QWidget>
#include <array>

class QPushButton;

namespace tallix::ui {

// The twelve month buttons. The pressed one shows green, the others their
// usual blue-grey face.
class MonthButtons : public QWidget {
    Q_OBJECT
  public:
    static inline const QColor kFace{154, 210, 222};
    static inline const QColor kPressedFace{0, 255, 0};

    explicit MonthButtons(QWidget* parent = nullptr);

    // Month 1-12; 0 when none is pressed.
    int pressed() const { return pressed_; }
    void press(int month);
    QPushButton* button(int month) const { return buttons_.at(month - 1); }

  signals:
    void monthChosen(int month);

  private:
    void paint(int month, const QColor& face);

    std::array<QPushButton*, 12> buttons_{};
    int pressed_ = 0;
};

}  // namespace tallix::ui
