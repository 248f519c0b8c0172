// Edit > Undo and Redo with their keys, and File > History, on the main
// window: every change goes back to the file's bytes before it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTableWidget>
#include <QTimer>
#include <QTreeWidget>

#include "app/undo_history.h"
#include "reference/plan_messages.h"
#include "ui/expense_dlg.h"
#include "ui/history_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

using test::readFile;
using Texts = std::vector<std::string>;

class UndoHistoryTest : public test::WindowTest {
  protected:
    static constexpr int kWaterRow = 1;  // Water, 48.60
    static constexpr int kResturantsRow = 2;
    static constexpr int kAmount = 5;

    // A key on the grid, as the user presses it with the grid focused in the
    // active window (a closed dialog may leave no window active here).
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.grid(), key, modifiers);
    }
    void undoKey() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redoKey() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    std::string saved() { return readFile(yearFile()); }
};

TEST_F(UndoHistoryTest, CtrlZTakesBackEachChangeToTheByteAndCtrlShiftZMakesThemAgain) {
    start();
    const std::string original = saved();
    EXPECT_FALSE(window.undoAction()->isEnabled());

    // Typed on the selected cell, Enter commits.
    click(kWaterRow, kAmount);
    QTest::keyClicks(window.grid(), "55");
    press(Qt::Key_Return, Qt::NoModifier);
    ASSERT_EQ(cell(kWaterRow, kAmount), "55.00");
    // The labels follow each change without the menu being opened.
    EXPECT_EQ(window.undoAction()->text().toStdString(), "Undo amount of line 2, November");

    pickers->rowOperations = {{"delete", ""}};
    click(kResturantsRow, kAmount, Qt::RightButton);
    ASSERT_EQ(session.view.lineCount, 20);
    EXPECT_EQ(window.undoAction()->text().toStdString(), "Undo deletion of line 3, November");
    const std::string afterDelete = saved();

    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CExpenseDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto found = dialog->tree()->findItems("Water", Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1);
        dialog->tree()->scrollToItem(found.front());
        QTest::mouseClick(dialog->tree()->viewport(), Qt::LeftButton, {},
                          dialog->tree()->visualItemRect(found.front()).center());
        QTest::keyClick(dialog->nameEdit(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(dialog->nameEdit(), "Water Bill");
        prompter.answers = {Answer::Yes};
        QTest::mouseClick(dialog->saveChangesButton(), Qt::LeftButton);
        QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
        dialog->reject();  // closed already, unless a step above failed
    });
    item(2, "Expense")->trigger();
    ASSERT_EQ(cell(kWaterRow, session.view.fields.expense), "Water Bill");
    const std::string afterRename = saved();
    EXPECT_EQ(window.undoAction()->text().toStdString(), "Undo rename expense Water to Water Bill");
    EXPECT_FALSE(window.redoAction()->isEnabled());

    for (int i = 0; i < 3; ++i)
        undoKey();
    EXPECT_EQ(saved(), original);
    EXPECT_EQ(cell(kWaterRow, kAmount), "48.60");
    EXPECT_FALSE(window.undoAction()->isEnabled());
    EXPECT_EQ(window.redoAction()->text().toStdString(), "Redo amount of line 2, November");

    redoKey();
    redoKey();
    EXPECT_EQ(saved(), afterDelete);
    expectGridShowsTheFile();
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(saved(), afterRename);
    EXPECT_EQ(prompter.shown, Texts{kRenameExpenseQuestion});
}

TEST_F(UndoHistoryTest, HistoryOpensAnOlderVersionReadOnlyAndRestoresIt) {
    start();
    const std::string original = saved();
    type(kWaterRow, kAmount, "55");
    const std::string changed = saved();
    const std::vector<VersionLine> lines = versionLines(session);
    ASSERT_EQ(lines.size(), 2u);

    QTimer::singleShot(0, [&] {
        auto* history = qobject_cast<ui::CHistoryDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(history, nullptr);
        QTableWidget* list = history->list();
        ASSERT_EQ(list->rowCount(), 2);  // newest first
        EXPECT_EQ(list->item(0, 2)->text(), "Amount of line 2, November  \u2190 current");
        EXPECT_TRUE(list->item(0, 0)->font().bold());
        EXPECT_FALSE(history->restoreButton()->isEnabled());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(1, 0)).center());
        ASSERT_EQ(list->item(1, 0)->text(), "1");
        ASSERT_TRUE(history->restoreButton()->isEnabled());

        QTimer::singleShot(0, [&] {
            auto* view = qobject_cast<ui::CVersionDlg*>(QApplication::activeModalWidget());
            ASSERT_NE(view, nullptr);
            EXPECT_EQ(view->gridModel()->index(kWaterRow, kAmount).data().toString(), "48.60");
            QTest::mouseClick(view->monthButtons()->button(3), Qt::LeftButton);
            EXPECT_EQ(view->version().view.shownMonth, 3);
            EXPECT_GT(view->gridModel()->rowCount(), 1);
            view->reject();
        });
        QTest::mouseClick(history->openButton(), Qt::LeftButton);
        EXPECT_EQ(saved(), changed);  // looking saves nothing

        prompter.answers = {Answer::Yes};
        QTest::mouseClick(history->restoreButton(), Qt::LeftButton);
        history->reject();  // closed already, unless the restore failed
    });
    item(0, "History")->trigger();

    EXPECT_EQ(prompter.shown, Texts{"Make version 1 of " + lines[0].time +
                                    " the current version? Edit > Undo takes this back."});
    EXPECT_EQ(saved(), original);
    EXPECT_EQ(cell(kWaterRow, kAmount), "48.60");
    undoKey();
    EXPECT_EQ(saved(), changed);
    EXPECT_EQ(cell(kWaterRow, kAmount), "55.00");
}

}  // namespace
}  // namespace tallix
