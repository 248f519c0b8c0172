// A new user's first start on a fresh data folder, through the real message
// boxes and file dialog: every way of answering the start-up questions ends
// with a month on screen or a notice, and then with a clean exit.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <deque>
#include <string>
#include <vector>

#include "app/backups.h"
#include "app/session.h"
#include "app/year_files.h"
#include "support/scripted.h"
#include "support/temp_dir.h"
#include "ui/grid_model.h"
#include "ui/qt_prompter.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kCloses =
    "No data file was chosen for this year, so Tallix closes. Start Tallix again to choose an "
    "existing data file or to begin the year with a blank one.";
constexpr const char* kFileDialog = "(file dialog)";

// Answers whatever modal window comes up, as a user would: clicks the next
// button of the script on a message box, or types the next file name into
// the file dialog ("" presses Escape). Records every text it was shown.
class User : public QObject {
  public:
    std::deque<QMessageBox::StandardButton> clicks;
    std::deque<QString> files;
    Texts seen;

    User() {
        timer_.setInterval(10);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] { answer(); });
        timer_.start();
    }

  private:
    void answer() {
        if (busy_)
            return;
        QScopedValueRollback<bool> busy(busy_, true);
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            seen.push_back(box->text().toStdString());
            QMessageBox::StandardButton button = QMessageBox::Ok;
            if (box->standardButtons() != QMessageBox::Ok) {
                if (clicks.empty()) {
                    ADD_FAILURE() << "unexpected question: " << seen.back();
                    button = QMessageBox::Cancel;
                } else {
                    button = clicks.front();
                    clicks.pop_front();
                }
            }
            QAbstractButton* target = box->button(button);
            if (!target)
                target = box->buttons().front();
            QTest::mouseClick(target, Qt::LeftButton);
        } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            seen.push_back(kFileDialog);
            const QString file = files.empty() ? QString() : files.front();
            if (!files.empty())
                files.pop_front();
            auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            if (file.isEmpty() || !edit) {
                QTest::keyClick(dialog, Qt::Key_Escape);
                return;
            }
            edit->setText(file);
            QTest::keyClick(edit, Qt::Key_Return);
        }
    }
    QTimer timer_;
    bool busy_ = false;
};

class FirstRunTest : public ::testing::Test {
  protected:
    FirstRunTest() {
        env.date = {2026, 11, 21};
        env.root = tmp / "root";
        env.documents = tmp / "docs";
    }
    // Starts the window as the program does and runs it until it closes,
    // pressing Escape once the start-up is over and the window is up.
    void runWindow(ui::CTallixDlg& window) {
        shownAtStart = false;
        window.OnInitDialog();
        title = window.windowTitle().toStdString();
        rows = window.gridModel()->rowCount();
        QTimer::singleShot(50, &window, [&] {
            shownAtStart = window.isVisible();
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        QTimer::singleShot(5000, &window, [&] { window.done(99); });  // a window that stays
        result = window.exec();
    }

    test::TempDir tmp;
    test::FixedEnvironment env;
    User user;
    std::string title;
    int rows = 0;
    bool shownAtStart = false;
    int result = -1;
};

TEST_F(FirstRunTest, EveryAnswerEndsWithAMonthOnScreenOrANoticeAndThenACleanExit) {
    using B = QMessageBox::StandardButton;
    std::filesystem::copy_file(test::sourceDir() / "examples" / "tallix2026.xml",
                               tmp / "household.xml");
    const QString household = QString::fromStdString((tmp / "household.xml").string());
    const Texts opened = {backup_texts::kNoCloudDrive, backup_texts::kNoCloudFolderOnExit};
    const struct {
        std::vector<B> clicks;
        QString file;                 // typed into the file dialog, "" to cancel it
        Texts after;                  // what is shown after the answers
        std::string fileName, title;  // "" when Tallix closes at once
    } cases[] = {
        // Each button of each question and both ends of the file dialog; the
        // core's start-up test walks every combination.
        {{B::Yes, B::Yes}, household, opened, "household.xml", "November 2025"},
        {{B::Cancel, B::Yes}, "", {kCloses}, "", ""},
        {{B::Yes, B::No}, "", opened, "tallix2026.xml", "November 2026"},
        {{B::No, B::Yes}, "", opened, "tallix2026.xml", "November 2026"},
        {{B::No, B::Cancel}, "", {kCloses}, "", ""},
    };
    int run = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(run);
        env.root = tmp / ("run" + std::to_string(++run));
        user.seen.clear();
        user.clicks = {c.clicks.begin(), c.clicks.end()};
        user.files = {c.file};
        ui::QtPrompter prompter;
        Session session(env, prompter);
        ui::CTallixDlg window(session);
        prompter.setParent(&window);
        testing::internal::CaptureStderr();
        runWindow(window);
        testing::internal::GetCapturedStderr();

        Texts expected = {year_texts::kNoFileForCurrentYear, year_texts::kLoadPreviousYear};
        expected.push_back(c.clicks[0] == B::No ? year_texts::kLoadBlankForThisYear
                                                : year_texts::kNoPreviousYearEntry);
        if (c.clicks[0] != B::No && c.clicks[1] == B::Yes)
            expected.push_back(kFileDialog);
        expected.insert(expected.end(), c.after.begin(), c.after.end());
        EXPECT_EQ(user.seen, expected);
        EXPECT_TRUE(user.clicks.empty());
        EXPECT_EQ(result, QDialog::Rejected);
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(session.fileName, c.fileName);
        if (c.title.empty()) {
            EXPECT_FALSE(shownAtStart);
            continue;
        }
        EXPECT_TRUE(shownAtStart);
        EXPECT_EQ(title, c.title);
        EXPECT_GT(rows, 0);
        EXPECT_TRUE(std::filesystem::exists(env.documents / "tallix" / "backup" / c.fileName));
    }
}

// A start-up that fails before any data file is open (here the data folder
// cannot be made) still lets the user close the window.
TEST_F(FirstRunTest, AWindowWithoutADataFileClosesWithoutBackingUp) {
    test::writeFile(tmp / "root", "a file where the data root should be");
    ui::QtPrompter prompter;
    Session session(env, prompter);
    ui::CTallixDlg window(session);
    prompter.setParent(&window);
    runWindow(window);
    EXPECT_EQ(user.seen, Texts{"runtime error in OnInitDialog() "});
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tallix
