#include "ui/month_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tallix::ui {
namespace {

constexpr std::array<const char*, 12> kCaptions = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                   "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                   "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};

}  // namespace

MonthButtons::MonthButtons(QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    for (int m = 1; m <= 12; ++m) {
        auto* b = new QPushButton(QString::fromLatin1(kCaptions[m - 1]), this);
        b->setAutoDefault(false);
        b->setFocusPolicy(Qt::TabFocus);
        buttons_[m - 1] = b;
        row->addWidget(b);
        paint(m, kFace);
        connect(b, &QPushButton::clicked, this, [this, m] { emit monthChosen(m); });
    }
}

void MonthButtons::press(int month) {
    if (pressed_ >= 1)
        paint(pressed_, kFace);
    pressed_ = month;
    if (month >= 1 && month <= 12)
        paint(month, kPressedFace);
}

void MonthButtons::paint(int month, const QColor& face) {
    QPushButton* b = buttons_[month - 1];
    b->setStyleSheet(QStringLiteral("QPushButton { background-color: %1; color: black; "
                                    "border: 1px solid #6a8a94; padding: 4px 6px; }")
                         .arg(face.name()));
}

}  // namespace tallix::ui
