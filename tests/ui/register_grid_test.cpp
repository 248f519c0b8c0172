#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <memory>
#include <string>

#include "data/node_text.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/picture_buttons.h"
#include "ui/sample_year.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

using test::readFile;
using test::writeFile;

// Runs Qt's model checks on the grid model while it lives and fails the test
// on any complaint.
class ModelCheck {
  public:
    explicit ModelCheck(QAbstractItemModel* model) {
        complaints_.clear();
        previous_ = qInstallMessageHandler(&ModelCheck::record);
        tester_ = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::Warning);
    }
    ~ModelCheck() {
        tester_.reset();
        qInstallMessageHandler(previous_);
        EXPECT_TRUE(complaints_.isEmpty()) << complaints_.join('\n').toStdString();
    }

  private:
    static void record(QtMsgType, const QMessageLogContext& context, const QString& text) {
        if (QByteArray(context.category ? context.category : "").startsWith("qt.modeltest"))
            complaints_ << text;
    }
    static inline QStringList complaints_;
    QtMessageHandler previous_ = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester_;
};

class RegisterGridTest : public test::SampleYearTest {
  protected:
    static QAction* toolsItem(ui::CTallixDlg& window, const QString& text) {
        for (QAction* a : window.menuBar()->actions()[2]->menu()->actions())
            if (a->text() == text)
                return a;
        ADD_FAILURE() << "no Tools item " << text.toStdString();
        return nullptr;
    }
    static QString text(ui::CTallixDlg& window, int row, int column) {
        return window.gridModel()->index(row, column).data().toString();
    }
    static QVariant background(ui::CTallixDlg& window, int row, int column) {
        return window.gridModel()->index(row, column).data(Qt::BackgroundRole);
    }
    static QColor colour(const QVariant& brush) { return brush.value<QBrush>().color(); }

    int linesOf(const char* month) const {
        return static_cast<int>(monthLines(session.data.node(), month).size());
    }
    // The first row of the displayed month whose Typeofentry is `type`.
    int rowOfType(const std::string& type) const {
        for (int r = 0; r < session.view.lineCount; ++r)
            if (session.view.table.cell(r, session.view.fields.typeofentry) == type)
                return r;
        ADD_FAILURE() << "no " << type << " line";
        return 0;
    }
    // The file with `from` replaced by `to` after the given month's start.
    void editFileOnDisk(const std::string& month, const std::string& from, const std::string& to) {
        std::string xml = readFile(yearFile());
        size_t at = xml.find(from, xml.find("month=\"" + month + "\""));
        ASSERT_NE(at, std::string::npos) << from;
        xml.replace(at, from.size(), to);
        writeFile(yearFile(), xml);
    }
};

TEST_F(RegisterGridTest, StartUpShowsTheCurrentMonthWithItsBalances) {
    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    EXPECT_TRUE(prompter.shown.empty());

    ui::GridModel* model = window.gridModel();
    ASSERT_GT(linesOf("November"), 0);
    EXPECT_EQ(model->rowCount(), linesOf("November") + 1);
    EXPECT_EQ(model->columnCount(), 24);
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), "DAY");
    EXPECT_EQ(model->headerData(13, Qt::Horizontal).toString(), "FN Register");
    EXPECT_EQ(model->headerData(23, Qt::Horizontal).toString(), "Typeofentry");
    EXPECT_EQ(text(window, 0, 4), "Acme Payroll");
    EXPECT_EQ(text(window, 0, 3), "1");
    for (int column : {13, 14, 16, 17, 18})
        EXPECT_NE(text(window, 0, column).trimmed(), "") << column;

    QTableView* grid = window.grid();
    // Columns are as many characters wide as their definitions say.
    EXPECT_EQ(grid->columnWidth(0), 1);
    QFontMetrics metrics(grid->font());
    for (auto [column, widest] : std::vector<std::pair<int, QString>>{
             {1, "Wed"}, {9, "Riverside Garden Club"}, {10, "First National"}, {13, "-1943.-60"}})
        EXPECT_GE(grid->columnWidth(column), metrics.horizontalAdvance(widest) + 6) << column;
    EXPECT_GT(grid->columnWidth(4), grid->columnWidth(5));  // 22 characters against 10
    EXPECT_TRUE(grid->showGrid());
    EXPECT_TRUE(grid->verticalHeader()->isHidden());
    EXPECT_EQ(grid->font().family(), "Courier New");
    EXPECT_EQ(grid->font().pointSize(), 9);
}

TEST_F(RegisterGridTest, AMonthButtonShowsThatMonth) {
    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    window.show();
    QTest::mouseClick(window.monthButtons()->button(3), Qt::LeftButton);

    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "March 2026");
    EXPECT_EQ(session.view.rememberedRow, 31);
    EXPECT_EQ(window.gridModel()->rowCount(), linesOf("March") + 1);
    pugi::xml_node first = monthLines(session.data.node(), "March").front();
    EXPECT_EQ(text(window, 0, 4).toStdString(), childText(first, 1));
    EXPECT_NE(text(window, 0, 13).trimmed(), "");

    QTest::mouseClick(window.monthButtons()->button(11), Qt::LeftButton);
    EXPECT_EQ(window.windowTitle(), "November 2026");
    EXPECT_EQ(window.gridModel()->rowCount(), linesOf("November") + 1);
}

TEST_F(RegisterGridTest, AMonthWithoutLinesIsRefusedAndTheGridKeepsItsMonth) {
    std::string xml = readFile(yearFile());
    size_t from = xml.find("<month month=\"December\" id=\"December\">");
    size_t to = xml.find("</month>", from);
    xml.replace(from, to - from, "<month month=\"December\" id=\"December\">");
    writeFile(yearFile(), xml);

    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    window.show();
    const int rows = window.gridModel()->rowCount();
    QTest::mouseClick(window.monthButtons()->button(12), Qt::LeftButton);

    EXPECT_EQ(prompter.shown,
              (std::vector<std::string>{"You tying to load the month of December which has no "
                                        "entries and its not the current calendar month"}));
    EXPECT_EQ(window.windowTitle(), "November 2026");
    EXPECT_EQ(window.gridModel()->rowCount(), rows);
    EXPECT_EQ(text(window, 0, 4), "Acme Payroll");
    // The starting row is still the last row.
    EXPECT_EQ(colour(background(window, rows - 1, 4)), QColor(253, 233, 217));
    EXPECT_NE(colour(background(window, 0, 4)), QColor(253, 233, 217));
    // The green button and the month that commands act on stay November.
    EXPECT_EQ(face(window.monthButtons()->button(11)), ui::MonthButtons::kPressedFace);
    EXPECT_NE(face(window.monthButtons()->button(12)), ui::MonthButtons::kPressedFace);
    EXPECT_EQ(session.month, 11);
}

TEST_F(RegisterGridTest, UpdateAllMonthsLeavesDecemberDisplayed) {
    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    window.show();
    toolsItem(window, "Update all months")->trigger();

    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "December 2026");
    EXPECT_EQ(session.month, 12);
    EXPECT_EQ(window.gridModel()->rowCount(), linesOf("December") + 1);
    EXPECT_NE(text(window, 0, 13).trimmed(), "");  // November's closing carried in
    // The month buttons still show November pressed.
    EXPECT_EQ(window.monthButtons()->pressed(), 11);
    EXPECT_EQ(face(window.monthButtons()->button(11)), ui::MonthButtons::kPressedFace);
    EXPECT_EQ(face(window.monthButtons()->button(12)), ui::MonthButtons::kFace);
}

TEST_F(RegisterGridTest, TheGridDrawsTheRegisterColours) {
    ui::CTallixDlg window(session);
    window.OnInitDialog();

    struct Spot {
        std::string type;
        int column;
        QColor background;
    };
    for (const Spot& s :
         {Spot{"deposit", 4, QColor(0, 176, 80)}, Spot{"check", 9, QColor(255, 0, 0)},  // pending
          Spot{"posted check", 4, QColor(228, 109, 10)}, Spot{"deposit", 13, QColor(204, 255, 204)},
          Spot{"deposit", 15, QColor(253, 233, 217)}}) {
        int row = rowOfType(s.type);
        EXPECT_EQ(colour(background(window, row, s.column)), s.background)
            << s.type << " column " << s.column;
    }
    const int pendingCheck = rowOfType("check");
    EXPECT_EQ(window.gridModel()->index(pendingCheck, 5).data(Qt::ForegroundRole).value<QBrush>(),
              QBrush(Qt::white));
    EXPECT_FALSE(background(window, 0, 2).isValid());
}

TEST_F(RegisterGridTest, RefreshShowsTheFileAsItIsOnDisk) {
    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    ASSERT_EQ(text(window, 0, 9), "Payroll");

    editFileOnDisk("November", "<description>Payroll</description>",
                   "<description>Payroll and bonus</description>");
    toolsItem(window, "Refresh")->trigger();
    EXPECT_EQ(text(window, 0, 9), "Payroll and bonus");

    editFileOnDisk("November", "<expense>Water</expense>", "<expense>Electric</expense>");
    window.pictureButtons()->button(ui::PictureButtons::kRefresh)->click();
    EXPECT_EQ(text(window, 1, 4), "Electric");
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(window.windowTitle(), "November 2026");
}

TEST_F(RegisterGridTest, TheUpdateButtonRecomputesTheMonthFromTheDocument) {
    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    const double before = text(window, 0, 13).toDouble();

    // The pay line brings 100.00 more into the checking register.
    pugi::xml_node pay = monthLines(session.data.node(), "November").front();
    ASSERT_EQ(childText(pay, 1), "Acme Payroll");
    setChildText(pay, 2, "3344.50");
    window.resize(800, 400);
    window.show();
    QScrollBar* scroll = window.grid()->verticalScrollBar();
    ASSERT_GT(scroll->maximum(), 0);
    scroll->setValue(scroll->maximum());
    window.pictureButtons()->button(ui::PictureButtons::kUpdate)->click();
    EXPECT_EQ(scroll->value(), scroll->maximum());  // the grid stays where it was

    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(text(window, 0, 5), "3344.50");
    EXPECT_NEAR(text(window, 0, 13).toDouble() - before, 100.0, 1e-6);
    EXPECT_NE(readFile(yearFile()).find("<debit>3344.50</debit>"), std::string::npos);
}

TEST_F(RegisterGridTest, AYearWhoseMonthHasNoLinesShowsAnEmptyGrid) {
    std::string xml = readFile(yearFile());
    size_t from = xml.find("<month month=\"November\" id=\"November\">");
    size_t to = xml.find("</month>", from);
    xml.replace(from, to - from, "<month month=\"November\" id=\"November\">");
    writeFile(env.root / "tallix" / "tallix2025.xml", xml);
    writeFile(env.root / "tallix" / "tallix.xml",
              "<tallix><year year=\"2025\"><file>tallix2025.xml</file><status/></year>"
              "<year year=\"2026\"><file>tallix2026.xml</file><status/></year></tallix>");

    ui::CTallixDlg window(session);
    ModelCheck check(window.gridModel());
    window.OnInitDialog();
    ASSERT_GT(window.gridModel()->rowCount(), 0);
    window.menuBar()->actions()[3]->menu()->actions()[3]->trigger();  // "2025"

    EXPECT_EQ(prompter.shown,
              (std::vector<std::string>{"You tying to load the month of November which has no "
                                        "entries and its not the current calendar month"}));
    EXPECT_EQ(window.windowTitle(), "November 2025");
    EXPECT_EQ(window.gridModel()->rowCount(), 0);
}

}  // namespace
}  // namespace tallix
