// The main window on the sample year: its start-up, month buttons, grid,
// menus, picture buttons, exit and the dialogs of its Tools menu. What each
// command does to the year is the core's business; here each must reach the
// core and show its result.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <string>

#include "app/backups.h"
#include "app/next_year.h"
#include "app/program_files.h"
#include "app/year_files.h"
#include "data/query.h"
#include "data/values.h"
#include "register/cell_colours.h"
#include "reports/reports.h"
#include "ui/find_dlg.h"
#include "ui/nextyear_dlg.h"
#include "ui/picture_buttons.h"
#include "ui/receivables_dlg.h"
#include "ui/recurring_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

using test::readFile;
using test::writeFile;
using Texts = std::vector<std::string>;

class MainWindowTest : public test::WindowTest {
  protected:
    // The year file with the lines of `month` taken out, written to `file`.
    void emptyMonth(const std::string& month, const std::filesystem::path& file) {
        std::string xml = readFile(yearFile());
        const std::string open = "<month month=\"" + month + "\" id=\"" + month + "\">";
        size_t from = xml.find(open);
        xml.replace(from, xml.find("</month>", from) - from, open);
        writeFile(file, xml);
    }
    static std::string noLines(const std::string& month) {
        return "You tying to load the month of " + month +
               " which has no entries and its not the current calendar month";
    }
};

TEST_F(MainWindowTest, StartUpShowsTheCurrentMonthWithItsBalances) {
    start();
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "November 2026");
    EXPECT_EQ(window.monthButtons()->pressed(), 11);
    EXPECT_EQ(monthFace(11), ui::MonthButtons::kPressedFace);

    ui::GridModel* model = window.gridModel();
    EXPECT_EQ(model->rowCount(), linesOf("November") + 1);
    EXPECT_EQ(model->columnCount(), 24);
    EXPECT_EQ(model->headerData(13, Qt::Horizontal).toString(), "FN Register");
    expectGridShowsTheFile();

    // Every cell in the colours the register rules give it.
    for (int r = 0; r < model->rowCount(); ++r)
        for (int c = 0; c < model->columnCount(); ++c) {
            const CellColours want = cellColours(r, c, session.view);
            for (auto [role, rgb] : {std::pair{Qt::BackgroundRole, want.background},
                                     std::pair{Qt::ForegroundRole, want.text}}) {
                const QVariant got = model->index(r, c).data(role);
                if (rgb)
                    EXPECT_EQ(got.value<QBrush>().color(), QColor(rgb->red, rgb->green, rgb->blue))
                        << r << "," << c;
                else
                    EXPECT_FALSE(got.isValid()) << r << "," << c;
            }
        }

    // Columns are as many characters wide as their definitions say.
    QTableView* view = window.grid();
    EXPECT_EQ(view->columnWidth(0), 1);
    QFontMetrics metrics(view->font());
    for (auto [column, widest] : std::vector<std::pair<int, QString>>{
             {1, "Wed"}, {9, "Riverside Garden Club"}, {10, "First National"}, {13, "-1943.60"}})
        EXPECT_GE(view->columnWidth(column), metrics.horizontalAdvance(widest) + 6) << column;
    EXPECT_GT(view->columnWidth(4), view->columnWidth(5));  // 22 characters against 10
    EXPECT_TRUE(view->verticalHeader()->isHidden());
}

TEST_F(MainWindowTest, AMonthButtonShowsThatMonthAndTurnsGreen) {
    start();
    clickMonth(3);
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "March 2026");
    EXPECT_EQ(session.view.rememberedRow, 31);
    expectGridShowsTheFile(3);
    EXPECT_EQ(monthFace(3), ui::MonthButtons::kPressedFace);
    EXPECT_EQ(monthFace(11), ui::MonthButtons::kFace);

    clickMonth(11);
    EXPECT_EQ(window.windowTitle(), "November 2026");
    EXPECT_EQ(window.gridModel()->rowCount(), linesOf("November") + 1);
}

TEST_F(MainWindowTest, AMonthWithoutLinesIsRefusedAndTheGridKeepsItsMonth) {
    emptyMonth("December", yearFile());
    start();
    const int rows = window.gridModel()->rowCount();
    clickMonth(12);

    EXPECT_EQ(prompter.shown, Texts{noLines("December")});
    EXPECT_EQ(window.windowTitle(), "November 2026");
    EXPECT_EQ(window.gridModel()->rowCount(), rows);
    EXPECT_EQ(cell(0, 4), "Acme Payroll");
    EXPECT_EQ(monthFace(11), ui::MonthButtons::kPressedFace);
    EXPECT_NE(monthFace(12), ui::MonthButtons::kPressedFace);
}

TEST_F(MainWindowTest, UpdateAllMonthsLeavesDecemberDisplayedWithItsButtonPressed) {
    start();
    item(3, "Update all months")->trigger();
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "December 2026");
    EXPECT_EQ(window.gridModel()->rowCount(), linesOf("December") + 1);
    EXPECT_EQ(window.monthButtons()->pressed(), 12);
    EXPECT_EQ(monthFace(12), ui::MonthButtons::kPressedFace);
    EXPECT_EQ(monthFace(11), ui::MonthButtons::kFace);
}

TEST_F(MainWindowTest, RefreshFromTheMenuOrTheButtonShowsTheFileAsItIsOnDisk) {
    start();
    ASSERT_EQ(cell(0, 9), "Payroll");
    auto replaceOnDisk = [&](const std::string& from, const std::string& to) {
        std::string xml = readFile(yearFile());
        xml.replace(xml.find(from, xml.find("month=\"November\"")), from.size(), to);
        writeFile(yearFile(), xml);
    };
    replaceOnDisk("<description>Payroll</description>", "<description>Bonus</description>");
    item(3, "Refresh")->trigger();
    EXPECT_EQ(cell(0, 9), "Bonus");

    replaceOnDisk("<expense>Water</expense>", "<expense>Electric</expense>");
    window.pictureButtons()->button(ui::PictureButtons::kRefresh)->click();
    EXPECT_EQ(cell(1, 4), "Electric");
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(MainWindowTest, TheUpdateButtonRecomputesTheMonthFromTheDocumentAndKeepsTheScroll) {
    start();
    const double before = std::stod(cell(0, 13));
    // The pay line brings 100.00 more into the checking register.
    pugi::xml_node pay = monthLines(session.data.node(), "November").front();
    setChildText(pay, 2, "3344.50");
    window.resize(800, 400);
    QScrollBar* scroll = window.grid()->verticalScrollBar();
    ASSERT_GT(scroll->maximum(), 0);
    scroll->setValue(scroll->maximum());
    window.pictureButtons()->button(ui::PictureButtons::kUpdate)->click();
    EXPECT_EQ(scroll->value(), scroll->maximum());

    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(cell(0, 5), "3344.50");
    EXPECT_NEAR(std::stod(cell(0, 13)) - before, 100.0, 1e-6);
    EXPECT_NE(readFile(yearFile()).find("<debit>3344.50</debit>"), std::string::npos);
}

TEST_F(MainWindowTest, TheYearsMenuSwitchesToThatYearsMonth) {
    emptyMonth("November", env.root / "tallix" / "tallix2025.xml");
    writeFile(env.root / "tallix" / "tallix.xml",
              "<tallix><year year=\"2025\"><file>tallix2025.xml</file><status/></year>"
              "<year year=\"2026\"><file>tallix2026.xml</file><status/></year></tallix>");
    start();
    ASSERT_GT(window.gridModel()->rowCount(), 0);
    item(4, "2025")->trigger();
    EXPECT_EQ(session.fileName, "tallix2025.xml");
    EXPECT_EQ(window.windowTitle(), "November 2025");
    EXPECT_EQ(prompter.shown, Texts{noLines("November")});
    EXPECT_EQ(window.gridModel()->rowCount(), 0);
    EXPECT_EQ(session.view.lineCount, 0);  // nothing of 2026's November is left to edit
}

TEST_F(MainWindowTest, TheMenusHoldEveryCommandAndACustomerChangesNothing) {
    start();
    QStringList bar;
    for (QAction* a : window.menuBar()->actions())
        bar << a->text();
    EXPECT_EQ(bar, (QStringList{"File", "Edit", "Manage", "Tools", "Years", "Help", "Data",
                                "Customers"}));
    EXPECT_EQ(itemTexts(menu(2)),
              (QStringList{"Expense", "Category", "Income", "Bank or Institution", "Credit Card",
                           "New Bank or Institution", "New Bank Account", "New Credit Card",
                           "Description", "RMD", "Receivables"}));
    EXPECT_EQ(itemTexts(menu(3)), (QStringList{"Refresh", "Recurring expenses", "Reports",
                                               "Make next year", "Update all months"}));
    EXPECT_EQ(itemTexts(menu(4)).size(), 9);
    QMenu* reports = menu(3)->actions()[2]->menu();
    ASSERT_NE(reports, nullptr);
    EXPECT_EQ(reports->actions().size(), 4);
    EXPECT_EQ(itemTexts(window.customersMenu()),
              (QStringList{"Maple Street Bakery", "Riverside Garden Club"}));

    // A customer opens the receivables dialog at that customer (closed
    // unchanged); Save data file writes a copy elsewhere.
    const std::string before = readFile(session.filePath);
    QString shown;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CReceivablesDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        shown = dialog->nameEdit()->text();
        dialog->reject();
    });
    window.customersMenu()->actions()[1]->trigger();
    EXPECT_EQ(shown, "Riverside Garden Club");
    prompter.files = {tmp / "chosen.xml"};
    menu(6)->actions()[0]->trigger();
    EXPECT_TRUE(prompter.files.empty());
    EXPECT_EQ(readFile(tmp / "chosen.xml"), before);
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(readFile(session.filePath), before);
}

TEST_F(MainWindowTest, TheCustomersMenuStaysWithoutCustomers) {
    std::string xml = readFile(yearFile());
    size_t from = xml.find("<receivables>");
    xml.replace(from, xml.find("</receivables>") - from, "<receivables>");
    writeFile(yearFile(), xml);
    start();
    ASSERT_NE(window.customersMenu(), nullptr);
    EXPECT_TRUE(window.customersMenu()->actions().isEmpty());
    EXPECT_EQ(window.menuBar()->actions().back()->text(), "Customers");
}

TEST_F(MainWindowTest, PictureButtonImagesComeFromTheProgramsFolderAndMayBeMissing) {
    // The build folder holds the executable and res/ beside it.
    ui::PictureButtons found(programFilesFor(TALLIX_BINARY_DIR).imageFolder);
    for (int i = 0; i < ui::PictureButtons::kTaskCount; ++i) {
        QToolButton* b = found.button(ui::PictureButtons::Task(i));
        EXPECT_FALSE(b->icon().isNull()) << i;
        EXPECT_EQ(b->iconSize(), QSize(48, 48)) << i;
    }
    ui::PictureButtons missing(tmp.path());
    EXPECT_TRUE(missing.button(ui::PictureButtons::kBank)->icon().isNull());
}

TEST_F(MainWindowTest, EscapeRunsTheExitWithItsBackupsAndEnterDoesNotClose) {
    start();
    QTest::keyClick(&window, Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_Enter);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(std::filesystem::exists(localBackup() / "tallix2026.xml"));

    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(readFile(localBackup() / "tallix2026.xml"), readFile(session.filePath));
    EXPECT_EQ(readFile(cloudBackup() / "tallix2026.xml"), readFile(session.filePath));
}

TEST_F(MainWindowTest, AFailedBackupKeepsTheWindowOpen) {
    start();
    std::filesystem::remove_all(tmp / "docs" / "tallix");
    window.OnBnClickedCancel();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(prompter.shown, Texts{"runtime error in OnBnClickedCancel() "});
}

TEST_F(MainWindowTest, TheRecurringListEndsWithItsTotalsAndColoursWhatIsNotPaid) {
    start();
    // December's bills are all still "notpaid".
    ui::CRecurringDlg dialog(session, buildReport(session.data.node(), ReportKind::Recurring, 12));
    QTableWidget* list = dialog.list();
    QStringList firstCells;
    bool redSeen = false;
    for (int r = 0; r < list->rowCount(); ++r) {
        firstCells << (list->item(r, 1) ? list->item(r, 1)->text() : QString());
        for (int c = 0; c < list->columnCount(); ++c)
            if (QTableWidgetItem* item = list->item(r, c))
                redSeen |= item->background().color() == QColor(255, 0, 0);
    }
    EXPECT_TRUE(firstCells.contains("TOTAL"));
    EXPECT_TRUE(firstCells.contains("LEFT TO PAY"));
    EXPECT_TRUE(redSeen);
}

TEST_F(MainWindowTest, ReportFilesGoToDocumentsAndTheDialogNamesThem) {
    start();
    const std::filesystem::path reports = tmp / "docs" / "tallix" / "reports";
    QString named;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CRecurringDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        named = dialog->fileLabel()->text();
        dialog->accept();
    });
    window.OnReport(static_cast<int>(ReportKind::MonthlyExpenses));
    EXPECT_EQ(named.toStdString(), "Written to " + (reports / "monthendreport.csv").string());
    EXPECT_TRUE(std::filesystem::exists(reports / "monthendreport.csv"));

    // PRINT of a list without a file of its own: written there too, and
    // named when no viewer starts.
    env.viewerWorks = false;
    ui::CRecurringDlg dialog(session, buildReport(session.data.node(), ReportKind::Recurring, 12));
    QTest::mouseClick(dialog.printButton(), Qt::LeftButton);
    const std::filesystem::path printed = reports / "recurringreport.csv";
    EXPECT_TRUE(std::filesystem::exists(printed));
    EXPECT_EQ(
        prompter.shown,
        Texts{"No program to show this file could be started. The report is " + printed.string()});
}

// The dialog offers the next name, refuses the current one and stays open;
// the year made opens at January, starting from December's closings.
TEST_F(MainWindowTest, MakeNextYearRefusesTheCurrentNameThenOpensJanuaryOfTheNewYear) {
    start();
    const std::string before = readFile(yearFile());
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CNextyearDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->nextFileNameEdit()->text(), "tallix2027.xml");
        dialog->nextFileNameEdit()->setText("tallix2026.xml");
        QTest::mouseClick(dialog->createButton(), Qt::LeftButton);
        EXPECT_EQ(prompter.shown, Texts{next_year_texts::kSameFileName});
        EXPECT_EQ(readFile(yearFile()), before);
        ASSERT_TRUE(dialog->isVisible());
        dialog->nextFileNameEdit()->setText("tallix2027.xml");
        QTest::mouseClick(dialog->createButton(), Qt::LeftButton);
    });
    item(3, "Make next year")->trigger();
    EXPECT_EQ(session.fileName, "tallix2027.xml");
    EXPECT_EQ(window.windowTitle(), "January 2027");
    EXPECT_EQ(window.monthButtons()->pressed(), 1);
    EXPECT_EQ(monthFace(1), ui::MonthButtons::kPressedFace);
    ASSERT_EQ(prompter.shown.size(), 2u);
    EXPECT_EQ(prompter.shown.back().rfind(ui::kNewYearOpened + std::string("2027 is open"), 0), 0u);
    expectGridShowsTheFile(1);
}

// Edit > Find with Ctrl+F: the results of the year, and a double click that
// shows the line in its month.
TEST_F(MainWindowTest, CtrlFListsTheYearsLinesAndADoubleClickShowsOne) {
    start();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    ui::CFindDlg* find = window.findDialog();
    ASSERT_NE(find, nullptr);
    ASSERT_TRUE(find->isVisible());
    QTest::keyClicks(find->textEdit(), "$1,850");
    QTest::mouseClick(find->findButton(), Qt::LeftButton);
    QTableWidget* results = find->results();
    ASSERT_EQ(results->rowCount(), 11);  // the mortgage, January to November
    EXPECT_EQ(results->item(2, 0)->text(), "March");
    EXPECT_EQ(results->item(2, 3)->text(), "Mortgage");

    const QRect march = results->visualItemRect(results->item(2, 3));
    QTest::mouseClick(results->viewport(), Qt::LeftButton, {}, march.center());
    QTest::mouseDClick(results->viewport(), Qt::LeftButton, {}, march.center());
    EXPECT_EQ(window.windowTitle(), "March 2026");
    const int line = results->item(2, 2)->text().toInt();
    EXPECT_EQ(window.grid()->currentIndex().row(), line - 1);
    EXPECT_EQ(cell(line - 1, session.view.fields.expense), "Mortgage");
}

}  // namespace
}  // namespace tallix
