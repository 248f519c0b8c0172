#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include "app/backups.h"
#include "app/session.h"
#include "app/year_files.h"
#include "support/temp_dir.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/picture_buttons.h"
#include "ui/sample_year.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

using test::readFile;

class MainWindowTest : public test::SampleYearTest {};

TEST_F(MainWindowTest, StartsOnTheCurrentMonthOfTheSampleYear) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "November 2026");
    EXPECT_EQ(window.monthButtons()->pressed(), 11);
    EXPECT_EQ(face(window.monthButtons()->button(11)), ui::MonthButtons::kPressedFace);
}

TEST_F(MainWindowTest, AFirstRunCreatesTheIndexAndFollowsTheYearPrompts) {
    std::filesystem::remove(env.root / "tallix" / "tallix.xml");
    env.cloud.reset();
    prompter.answers = {Answer::No, Answer::Yes};  // not the previous year; a blank one
    ui::CTallixDlg window(session);
    testing::internal::CaptureStdout();
    window.OnInitDialog();
    testing::internal::GetCapturedStdout();

    EXPECT_TRUE(std::filesystem::exists(env.root / "tallix" / "tallix.xml"));
    EXPECT_TRUE(std::filesystem::exists(env.root / "tallix" / "first_tallix.xml"));
    std::vector<std::string> expected = {
        year_texts::kNoFileForCurrentYear, year_texts::kLoadPreviousYear,
        year_texts::kLoadBlankForThisYear, backup_texts::kNoCloudDrive};
    EXPECT_EQ(prompter.shown, expected);
    EXPECT_EQ(session.fileName, "blank_tallix.xml");
    EXPECT_EQ(window.windowTitle(), "November 2026");
}

TEST_F(MainWindowTest, AMonthButtonTurnsGreenAndThePreviousOneBack) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    window.show();
    QTest::mouseClick(window.monthButtons()->button(3), Qt::LeftButton);
    EXPECT_EQ(face(window.monthButtons()->button(3)), ui::MonthButtons::kPressedFace);
    EXPECT_EQ(face(window.monthButtons()->button(11)), ui::MonthButtons::kFace);
    EXPECT_EQ(window.windowTitle(), "March 2026");
    EXPECT_EQ(window.monthButtons()->button(1)->text(), "JANUARY");
    EXPECT_EQ(window.monthButtons()->button(9)->text(), "SEPTEMBER");
}

TEST_F(MainWindowTest, TheCustomersMenuListsTheCustomersInFileOrder) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    ASSERT_NE(window.customersMenu(), nullptr);
    EXPECT_EQ(itemTexts(window.customersMenu()),
              (QStringList{"Maple Street Bakery", "Riverside Garden Club"}));
    QList<QAction*> items = window.customersMenu()->actions();
    EXPECT_EQ(items[0]->data().toInt(), 2000);
    EXPECT_EQ(items[1]->data().toInt(), 2001);

    // Choosing one changes nothing.
    std::string before = readFile(session.filePath);
    items[1]->trigger();
    EXPECT_EQ(readFile(session.filePath), before);
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(MainWindowTest, TheCustomersMenuIsEmptyWithoutCustomers) {
    std::string xml = readFile(env.root / "tallix" / "tallix2026.xml");
    size_t from = xml.find("<receivables>");
    size_t to = xml.find("</receivables>");
    xml.replace(from, to - from, "<receivables>");
    test::writeFile(env.root / "tallix" / "tallix2026.xml", xml);
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    ASSERT_NE(window.customersMenu(), nullptr);
    EXPECT_TRUE(window.customersMenu()->actions().isEmpty());
    EXPECT_EQ(window.menuBar()->actions().back()->text(), "Customers");
}

TEST_F(MainWindowTest, TheMenuBarHoldsEveryCommand) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    QStringList bar;
    for (QAction* a : window.menuBar()->actions())
        bar << a->text();
    EXPECT_EQ(bar, (QStringList{"File", "Manage", "Tools", "Years", "Help", "Data", "Customers"}));
    QList<QAction*> top = window.menuBar()->actions();
    EXPECT_EQ(itemTexts(top[1]->menu()),
              (QStringList{"Expense", "Category", "Income", "Bank or Institution", "Credit Card",
                           "Description", "RMD", "Receivables"}));
    EXPECT_EQ(itemTexts(top[3]->menu()), (QStringList{"2022", "2023", "2024", "2025", "2026",
                                                      "2027", "2028", "2029", "2030"}));
    QMenu* reports = top[2]->menu()->actions()[2]->menu();
    ASSERT_NE(reports, nullptr);
    EXPECT_EQ(itemTexts(reports),
              (QStringList{"Expense Year to date totals", "Monthly expense totals",
                           "Monthly Receivable Totals ", "Receivable Year to date totals"}));

    EXPECT_EQ(itemTexts(top[2]->menu()), (QStringList{"Refresh", "Recurring expenses", "Reports",
                                                      "Make next year", "Update all months"}));

    // Every command that is not built yet says so and changes nothing.
    std::string before = readFile(session.filePath);
    const QStringList built = {"Refresh", "Recurring expenses", "Make next year",
                               "Update all months"};
    for (int menu : {1, 2})
        for (QAction* a : top[menu]->menu()->actions())
            if (!a->menu() && !built.contains(a->text()))
                a->trigger();
    EXPECT_EQ(prompter.shown.size(), 8u);
    EXPECT_EQ(prompter.shown[0], "\"Expense\" is not available yet in this version of Tallix.");
    EXPECT_EQ(readFile(session.filePath), before);
}

TEST_F(MainWindowTest, ThePictureButtonsCarryTheirTooltipsAndImages) {
    ui::CTallixDlg window(session);
    auto* pictures = window.pictureButtons();
    EXPECT_EQ(pictures->title(),
              "expense,   income,     receivable,        bank,       credit card, category,    "
              "description");
    EXPECT_EQ(pictures->button(ui::PictureButtons::kUpdate)->toolTip(),
              "CLICK here to update the instution balances");
    EXPECT_EQ(pictures->button(ui::PictureButtons::kReceivable)->toolTip(),
              "CLICK here to edit, add or delete an receivable");
}

TEST_F(MainWindowTest, ImagesComeFromTheWorkingFolderAndMayBeMissing) {
    auto before = std::filesystem::current_path();
    std::filesystem::current_path(TALLIX_BINARY_DIR);
    {
        ui::CTallixDlg window(session);
        for (int i = 0; i < ui::PictureButtons::kTaskCount; ++i) {
            QToolButton* b = window.pictureButtons()->button(ui::PictureButtons::Task(i));
            EXPECT_FALSE(b->icon().isNull()) << i;
            EXPECT_EQ(b->iconSize(), QSize(48, 48)) << i;
        }
    }
    std::filesystem::current_path(tmp.path());
    {
        ui::CTallixDlg window(session);
        EXPECT_TRUE(window.pictureButtons()->button(ui::PictureButtons::kBank)->icon().isNull());
    }
    std::filesystem::current_path(before);
}

TEST_F(MainWindowTest, ExitWritesBothBackupsAndCloses) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    window.show();
    window.OnBnClickedCancel();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(readFile(localBackup() / "tallix2026.xml"), readFile(session.filePath));
    EXPECT_EQ(readFile(cloudBackup() / "tallix2026.xml"), readFile(session.filePath));
}

TEST_F(MainWindowTest, ExitWithoutTheCloudFolderWarnsOnce) {
    std::filesystem::remove_all(tmp / "gdrive" / "My Drive");
    env.cloud.reset();
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    prompter.shown.clear();
    window.show();
    window.OnBnClickedCancel();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{backup_texts::kNoCloudFolderOnExit}));
    EXPECT_TRUE(std::filesystem::exists(localBackup() / "tallix2026.xml"));
}

TEST_F(MainWindowTest, AFailedBackupKeepsTheWindowOpen) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    std::filesystem::remove_all(tmp / "docs" / "tallix");
    window.show();
    window.OnBnClickedCancel();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{"runtime error in OnBnClickedCancel() "}));
}

TEST_F(MainWindowTest, EscapeRunsTheExitAndEnterDoesNotClose) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    window.show();
    QTest::keyClick(&window, Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_Enter);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(std::filesystem::exists(localBackup() / "tallix2026.xml"));

    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(std::filesystem::exists(localBackup() / "tallix2026.xml"));
}

TEST_F(MainWindowTest, SaveDataFileLeavesNoFileBehind) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    prompter.files = {tmp / "chosen.xml"};
    QMenu* data = window.menuBar()->actions()[5]->menu();
    data->actions()[0]->trigger();
    EXPECT_TRUE(prompter.files.empty());
    EXPECT_FALSE(std::filesystem::exists(tmp / "chosen.xml"));
    window.OnBnClickedCancel();
    EXPECT_FALSE(std::filesystem::exists(tmp / "chosen.xml"));
}

TEST_F(MainWindowTest, TheYearsMenuSwitchesYearsAndKeepsTheMonth) {
    std::filesystem::copy_file(env.root / "tallix" / "tallix2026.xml",
                               env.root / "tallix" / "tallix2025.xml");
    test::writeFile(env.root / "tallix" / "tallix.xml",
                    "<tallix><year year=\"2025\"><file>tallix2025.xml</file><status/></year>"
                    "<year year=\"2026\"><file>tallix2026.xml</file><status/></year></tallix>");
    ui::CTallixDlg window(session);
    window.OnInitDialog();
    window.menuBar()->actions()[3]->menu()->actions()[3]->trigger();  // "2025"
    EXPECT_EQ(window.windowTitle(), "November 2025");
    EXPECT_EQ(session.fileName, "tallix2025.xml");
    // The grid shows November of the year switched to.
    EXPECT_GT(session.view.lineCount, 0);
    EXPECT_EQ(window.gridModel()->rowCount(), session.view.lineCount + 1);
}

}  // namespace
}  // namespace tallix
