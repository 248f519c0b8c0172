#include "ui/desktop_environment.h"

#include <QCoreApplication>
#include <QDate>
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QUrl>

namespace tallix::ui {
namespace {

std::filesystem::path standardFolder(QStandardPaths::StandardLocation where) {
    return QStandardPaths::writableLocation(where).toStdString();
}

}  // namespace

DesktopEnvironment::DesktopEnvironment(std::filesystem::path dataRootOverride)
    : dataRootOverride_(std::move(dataRootOverride)) {}

Date DesktopEnvironment::today() const {
    QDate d = QDate::currentDate();
    return {d.year(), d.month(), d.day()};
}

std::filesystem::path DesktopEnvironment::dataRoot() const {
    if (!dataRootOverride_.empty())
        return dataRootOverride_;
    return standardFolder(QStandardPaths::GenericDataLocation);
}

// A data root given on the command line (a trial, the demo) keeps the
// backups beside it: DIR/Documents, and no cloud drive, so the household's
// real backups are never touched.
std::filesystem::path DesktopEnvironment::documentsFolder() const {
    if (!dataRootOverride_.empty())
        return dataRootOverride_ / "Documents";
    return standardFolder(QStandardPaths::DocumentsLocation);
}

std::optional<std::filesystem::path> DesktopEnvironment::cloudDriveRoot() const {
    if (!dataRootOverride_.empty())
        return std::nullopt;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (volume.isValid() && volume.name() == QStringLiteral("Google Drive"))
            return volume.rootPath().toStdString();
    return std::nullopt;
}

// xdg-open ends at once with a failure when no program can show the file
// (the desktop services only say that it started): wait a moment for that
// answer. Still running after it, it is taken to hold a viewer, which it
// may wait for; it is then left to run, beyond the program's own end.
bool DesktopEnvironment::openWithViewer(const std::filesystem::path& file) {
    // The desktop services answer true for a missing file: look first.
    if (!std::filesystem::exists(file))
        return false;
    const QUrl url =
        QUrl::fromLocalFile(QString::fromStdString(std::filesystem::absolute(file).string()));
    auto* opener = new QProcess;
    opener->setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
    opener->start(QStringLiteral("xdg-open"), {url.toString()});
    if (!opener->waitForStarted()) {
        delete opener;
        return QDesktopServices::openUrl(url);
    }
    constexpr int kAnswerMs = 1500;
    if (!opener->waitForFinished(kAnswerMs))
        return true;
    return opener->exitStatus() == QProcess::NormalExit && opener->exitCode() == 0;
}

ProgramFiles programFiles() {
    return programFilesFor(QCoreApplication::applicationDirPath().toStdString());
}

}  // namespace tallix::ui
