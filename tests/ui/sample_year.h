#pragma once
// The sample year attached to 2026 in a fresh data folder, on 21 November
// 2026, with a cloud drive whose backup folder exists: the setting of the
// main window's tests. WindowTest adds the main window on it, with scripted
// pickers and the clicks, keys and reads the tests work it with.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QColor>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStringList>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>

#include "app/session.h"
#include "data/document.h"
#include "data/node_text.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "support/scripted.h"
#include "support/temp_dir.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/register_grid.h"
#include "ui/scripted_pickers.h"
#include "ui/tallix_dlg.h"

namespace tallix::test {

class SampleYearTest : public ::testing::Test {
  protected:
    static FixedEnvironment onTheTwentyFirstOfNovember() {
        FixedEnvironment e;
        e.date = {2026, 11, 21};
        return e;
    }

    void SetUp() override {
        env.root = tmp / "root";
        env.documents = tmp / "docs";
        env.cloud = tmp / "gdrive";
        std::filesystem::create_directories(cloudBackup());
        std::filesystem::create_directories(env.root / "tallix");
        std::filesystem::copy_file(sourceDir() / "examples" / "tallix2026.xml", yearFile());
        writeFile(env.root / "tallix" / "tallix.xml",
                  "<tallix><year year=\"2026\"><file>tallix2026.xml</file>"
                  "<status>initialized</status></year></tallix>");
    }
    std::filesystem::path yearFile() const { return env.root / "tallix" / "tallix2026.xml"; }
    std::filesystem::path cloudBackup() const {
        return tmp / "gdrive" / "My Drive" / "tallix" / "backup";
    }
    std::filesystem::path localBackup() const { return tmp / "docs" / "tallix" / "backup"; }

    // The face colour the button is drawn with, read from its pixels.
    static QColor face(QPushButton* button) {
        QImage image = button->grab().toImage();
        return image.pixelColor(image.width() / 2, 3);
    }
    static QStringList itemTexts(QMenu* menu) {
        QStringList texts;
        for (QAction* a : menu->actions())
            texts << a->text();
        return texts;
    }

    TempDir tmp;
    FixedEnvironment env = onTheTwentyFirstOfNovember();
    ScriptedPrompter prompter;
    Session session{env, prompter};
};

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

class WindowTest : public SampleYearTest {
  protected:
    // Opens the window on the year as its file now stands.
    void start() {
        window.OnInitDialog();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        grid = window.findChild<ui::RegisterGrid*>();
        ASSERT_NE(grid, nullptr);
        auto owned = std::make_unique<ScriptedPickers>();
        pickers = owned.get();
        grid->setPickers(std::move(owned));
    }

    QMenu* menu(int position) { return window.menuBar()->actions()[position]->menu(); }
    QAction* item(int menuPosition, const QString& text) {
        for (QAction* a : menu(menuPosition)->actions())
            if (a->text() == text)
                return a;
        ADD_FAILURE() << "no menu item " << text.toStdString();
        return nullptr;
    }
    void clickMonth(int month) {
        QTest::mouseClick(window.monthButtons()->button(month), Qt::LeftButton);
    }
    QColor monthFace(int month) { return face(window.monthButtons()->button(month)); }

    // The centre of a grid cell, scrolled into view first.
    QPoint centre(int row, int column) {
        const QModelIndex index = window.gridModel()->index(row, column);
        window.grid()->scrollTo(index);
        return window.grid()->visualRect(index).center();
    }
    void click(int row, int column, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(window.grid()->viewport(), button, {}, centre(row, column));
    }
    // The editor on screen: a closed one may linger hidden.
    QLineEdit* visibleEditor() {
        for (QLineEdit* e : window.grid()->viewport()->findChildren<QLineEdit*>())
            if (e->isVisible())
                return e;
        return nullptr;
    }
    QLineEdit* openOn(int row, int column) {
        QTest::mouseDClick(window.grid()->viewport(), Qt::LeftButton, {}, centre(row, column));
        return visibleEditor();
    }
    // Double-clicks the cell, types over its text and leaves with `key`.
    void type(int row, int column, const QString& text, Qt::Key key = Qt::Key_Return) {
        QLineEdit* editor = openOn(row, column);
        ASSERT_NE(editor, nullptr) << row << "," << column;
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, key);
    }

    std::string cell(int row, int column) {
        return window.gridModel()->index(row, column).data().toString().toStdString();
    }
    QColor colour(int row, int column, Qt::ItemDataRole role = Qt::BackgroundRole) {
        return window.gridModel()->index(row, column).data(role).value<QBrush>().color();
    }
    int linesOf(const char* month) const {
        return static_cast<int>(monthLines(session.data.node(), month).size());
    }
    // A field of a line of November as saved on disk.
    std::string savedField(int line, int child) {
        Document d = Document::load(yearFile());
        return childText(monthLines(d.node(), "November").at(static_cast<size_t>(line - 1)),
                         static_cast<size_t>(child));
    }
    // Every cell of the grid against `month` as a new session shows it from
    // the open year's file on disk.
    void expectGridShowsTheFile(int month = 11) {
        ScriptedPrompter quiet;
        Session fresh(env, quiet);
        fresh.openDataPath(session.filePath);
        fresh.setYear(session.year);
        prepareColumns(fresh);
        fresh.month = month;
        ASSERT_TRUE(showMonth(fresh, std::to_string(month)));
        ASSERT_EQ(window.gridModel()->rowCount(), fresh.view.table.rowCount());
        for (int r = 0; r < fresh.view.table.rowCount(); ++r)
            for (int c = 1; c < window.gridModel()->columnCount(); ++c)
                EXPECT_EQ(cell(r, c), fresh.view.table.cell(r, c)) << r << "," << c;
    }

    ui::CTallixDlg window{session};
    ModelCheck check{window.gridModel()};
    ui::RegisterGrid* grid = nullptr;
    ScriptedPickers* pickers = nullptr;
};

}  // namespace tallix::test
