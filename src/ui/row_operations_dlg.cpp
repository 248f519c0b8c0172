#include "ui/row_operations_dlg.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>
#include <iterator>

namespace tallix::ui {
namespace {

// The kinds of line the Insert and Make menus offer, in menu order.
constexpr const char* kKinds[] = {"debit",      "check",       "deposit",
                                  "medication", "credit card", "receivable"};

// The popup's own colour, kept on the menus that drop from it.
const QColor kMenuColour(229, 181, 233);

void paintMenuColour(QWidget* widget, const char* type) {
    QPalette palette = widget->palette();
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Button, QPalette::Base})
        palette.setColor(role, kMenuColour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    // The style paints menus in its own colours whatever the palette says;
    // a style sheet makes it use this one.
    widget->setStyleSheet(QStringLiteral("%1 { background-color: %2; }")
                              .arg(QLatin1String(type), kMenuColour.name()));
}

}  // namespace

CRowOperations::CRowOperations(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("rowOperationsDialog"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    bar_ = new QMenuBar(this);
    bar_->setObjectName(QStringLiteral("rowOperationsBar"));
    bar_->setNativeMenuBar(false);
    paintMenuColour(bar_, "QMenuBar");
    layout->addWidget(bar_);

    // "Credicard" in Insert and "Creditcard" in Make are the words the
    // program has always shown; users look for them.
    addKindMenu(
        QStringLiteral("Insert"), "insert",
        {QStringLiteral("Blank"), QStringLiteral("Check"), QStringLiteral("Deposit"),
         QStringLiteral("Medication"), QStringLiteral("Credicard"), QStringLiteral("Receivable")});
    addKindMenu(
        QStringLiteral("Make"), "make",
        {QStringLiteral("Blank"), QStringLiteral("Check"), QStringLiteral("Deposit"),
         QStringLiteral("Medication"), QStringLiteral("Creditcard"), QStringLiteral("Receivable")});
    addChoice(bar_->addAction(QStringLiteral("Delete")), "delete", "");
    addChoice(bar_->addAction(QStringLiteral("Move")), "move", "");
    addChoice(bar_->addAction(QStringLiteral("CANCEL")), "cancel", "");
}

QMenu* CRowOperations::addKindMenu(const QString& title, const char* operation,
                                   const QStringList& items) {
    QMenu* menu = bar_->addMenu(title);
    menu->setObjectName(title.toLower() + QStringLiteral("Menu"));
    paintMenuColour(menu, "QMenu");
    for (int i = 0; i < items.size() && i < static_cast<int>(std::size(kKinds)); ++i)
        addChoice(menu->addAction(items[i]), operation, kKinds[i]);
    return menu;
}

void CRowOperations::addChoice(QAction* action, const char* operation, const char* kind) {
    connect(action, &QAction::triggered, this, [this, operation, kind] {
        choice_ = {operation, kind};
        accept();
    });
}

void CRowOperations::placeNear(const QPoint& firstPosition, int clickHeight) {
    move(firstPosition + QPoint(300, 10 + clickHeight));
}

QAction* CRowOperations::findAction(const QString& menu, const QString& item) const {
    for (QAction* top : bar_->actions()) {
        if (menu.isEmpty()) {
            if (!top->menu() && top->text() == item)
                return top;
            continue;
        }
        if (!top->menu() || top->text() != menu)
            continue;
        for (QAction* a : top->menu()->actions())
            if (a->text() == item)
                return a;
    }
    return nullptr;
}

}  // namespace tallix::ui
