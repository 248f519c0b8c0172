// The Tallix desktop program.
#include <QApplication>
#include <QCommandLineParser>
#include <clocale>

#include "app/session.h"
#include "ui/desktop_environment.h"
#include "ui/qt_prompter.h"
#include "ui/tallix_dlg.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // Amounts are read and written with a decimal point whatever the user's
    // locale; Qt has just switched the C library to it.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(QStringLiteral("Tallix"));

    QCommandLineParser parser;
    parser.addHelpOption();
    QCommandLineOption dataRoot(QStringLiteral("data-root"),
                                QStringLiteral("Use DIR in place of the per-user data folder."),
                                QStringLiteral("DIR"));
    parser.addOption(dataRoot);
    parser.process(app);

    tallix::ui::DesktopEnvironment environment(parser.value(dataRoot).toStdString());
    tallix::ui::QtPrompter prompter;
    tallix::Session session(environment, prompter);
    tallix::ui::CTallixDlg window(session);
    prompter.setParent(&window);
    window.OnInitDialog();
    return window.exec();
}
