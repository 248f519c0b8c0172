#include "ui/qt_prompter.h"

#include <QFileDialog>
#include <QMessageBox>

namespace tallix::ui {
namespace {

const QString kCaption = QStringLiteral("Tallix");

Answer toAnswer(QMessageBox::StandardButton button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

std::optional<std::filesystem::path> toPath(const QString& chosen) {
    if (chosen.isEmpty())
        return std::nullopt;
    return std::filesystem::path(chosen.toStdString());
}

}  // namespace

void QtPrompter::notify(const std::string& text) {
    QMessageBox::information(parent_, kCaption, QString::fromStdString(text));
}

Answer QtPrompter::askYesNo(const std::string& text) {
    return toAnswer(QMessageBox::question(parent_, kCaption, QString::fromStdString(text),
                                          QMessageBox::Yes | QMessageBox::No));
}

Answer QtPrompter::askYesNoCancel(const std::string& text) {
    return toAnswer(
        QMessageBox::question(parent_, kCaption, QString::fromStdString(text),
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel));
}

std::optional<std::filesystem::path> QtPrompter::pickFileToOpen(
    const std::filesystem::path& folder) {
    return toPath(QFileDialog::getOpenFileName(parent_, kCaption,
                                               QString::fromStdString(folder.string()),
                                               QStringLiteral("XML files (*.xml)")));
}

std::optional<std::filesystem::path> QtPrompter::pickFileToSave(
    const std::filesystem::path& suggested) {
    return toPath(QFileDialog::getSaveFileName(parent_, kCaption,
                                               QString::fromStdString(suggested.string()),
                                               QStringLiteral("XML files (*.xml)")));
}

}  // namespace tallix::ui
