#include "ui/tallix_app.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QMessageBox>
#include <clocale>
#include <string_view>

#include "app/instance_lock.h"
#include "app/session.h"
#include "tallix_build.h"
#include "ui/desktop_environment.h"
#include "ui/qt_prompter.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {
namespace {

// Whether the command line asks only for --help or --version, which are
// printed without a display.
bool asksForText(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view given = argv[i];
        if (given == "-h" || given == "--help" || given == "-v" || given == "--version")
            return true;
    }
    return false;
}

}  // namespace

int CTallixApp::run(int argc, char** argv) {
    QCoreApplication::setApplicationName(QStringLiteral("Tallix"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TALLIX_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plans and tracks a household's money month by month."));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption dataRoot(QStringLiteral("data-root"),
                                QStringLiteral("Use DIR in place of the per-user data folder."),
                                QStringLiteral("DIR"));
    parser.addOption(dataRoot);
    if (asksForText(argc, argv)) {
        QCoreApplication text(argc, argv);
        parser.process(text);  // prints the text and ends the program
    }

    QApplication app(argc, argv);
    // Amounts are read and written with a decimal point whatever the user's
    // locale; Qt has just switched the C library to it.
    std::setlocale(LC_NUMERIC, "C");
    // The desktop entry share/applications/tallix.desktop and its icon.
    QApplication::setDesktopFileName(QStringLiteral("tallix"));
    QApplication::setWindowIcon(QIcon(QString::fromStdString(programFiles().iconFile.string())));
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
