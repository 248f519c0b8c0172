#include "ui/picture_buttons.h"

#include <QHBoxLayout>
#include <QPixmap>
#include <QToolButton>

namespace tallix::ui {
namespace {

struct Picture {
    const char* image;
    const char* tooltip;
};

// The tooltips are the program's own texts ("instution" and "an receivable"
// included).
constexpr std::array<Picture, PictureButtons::kTaskCount> kPictures = {{
    {"refresh.bmp", "CLICK here to refresh the display"},
    {"update.bmp", "CLICK here to update the instution balances"},
    {"dollarsignred.bmp", "CLICK here to edit, add or delete an expense"},
    {"Piggy Bank.bmp", "CLICK here to edit, add or delete an income source"},
    {"receivable.bmp", "CLICK here to edit, add or delete an receivable"},
    {"bank.bmp", "CLICK here to edit, add or delete a bank or institution"},
    {"Credit Card.bmp", "CLICK here to edit, add or delete a credit card"},
    {"desc.bmp", "CLICK here to edit or delete a description"},
    {"cat.bmp", "CLICK here to edit, add or delete a category"},
}};

}  // namespace

PictureButtons::PictureButtons(const std::filesystem::path& imageFolder, QWidget* parent)
    : QGroupBox(QStringLiteral("expense,   income,     receivable,        bank,       credit "
                               "card, category,    description"),
                parent) {
    auto* row = new QHBoxLayout(this);
    for (int i = 0; i < kTaskCount; ++i) {
        auto* b = new QToolButton(this);
        QPixmap image(QString::fromStdString((imageFolder / kPictures[i].image).string()));
        if (!image.isNull()) {
            b->setIcon(image);
            b->setIconSize(image.size());
        }
        b->setToolTip(QString::fromLatin1(kPictures[i].tooltip));
        b->setAutoRaise(true);  // flat, without the style's theming
        b->setMinimumSize(52, 52);
        buttons_[i] = b;
        row->addWidget(b);
        connect(b, &QToolButton::clicked, this, [this, i] { emit clicked(static_cast<Task>(i)); });
    }
    row->addStretch(1);
}

}  // namespace tallix::ui
