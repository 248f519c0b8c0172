#include "ui/tallix_app.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QMessageBox>
#include <clocale>

#include "app/instance_lock.h"
#include "app/session.h"
#include "tallix_build.h"
#include "ui/desktop_environment.h"
#include "ui/qt_prompter.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {

int CTallixApp::run(int argc, char** argv) {
    QApplication app(argc, argv);
    // Amounts are read and written with a decimal point whatever the user's
    // locale; Qt has just switched the C library to it.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(QStringLiteral("Tallix"));
    QApplication::setApplicationVersion(QStringLiteral(TALLIX_VERSION));
    // The desktop entry share/applications/tallix.desktop and its icon.
    QApplication::setDesktopFileName(QStringLiteral("tallix"));
    QApplication::setWindowIcon(QIcon(QString::fromStdString(programFiles().iconFile.string())));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plans and tracks a household's money month by month."));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption dataRoot(QStringLiteral("data-root"),
                                QStringLiteral("Use DIR in place of the per-user data folder."),
                                QStringLiteral("DIR"));
    parser.addOption(dataRoot);
    parser.process(app);

    DesktopEnvironment environment(parser.value(dataRoot).toStdString());
    QtPrompter prompter;
    Session session(environment, prompter);

    std::optional<InstanceLock> lock;
    try {
        lock = InstanceLock::acquire(session.dataFolder());
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, QStringLiteral("Tallix"), QString::fromUtf8(e.what()));
        return 1;
    }
    if (!lock) {
        QString text = QString::fromStdString(InstanceLock::refusedText(session.dataFolder()));
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
        QMessageBox::warning(nullptr, QStringLiteral("Tallix"), text);
        return 1;
    }

    CTallixDlg window(session);
    prompter.setParent(&window);
    window.OnInitDialog();
    window.exec();
    return 0;
}

}  // namespace tallix::ui
