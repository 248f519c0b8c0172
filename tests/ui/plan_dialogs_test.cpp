// The expense and category maintenance dialogs worked from the main window
// with real clicks and keys; what the operations do to the year is tested
// with the core.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QTreeWidget>

#include "reference/plan_messages.h"
#include "ui/category_dlg.h"
#include "ui/expense_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class PlanDialogsTest : public test::WindowTest {
  protected:
    std::vector<QStringList> gridRows() {
        std::vector<QStringList> rows;
        for (int r = 0; r < window.gridModel()->rowCount(); ++r) {
            QStringList row;
            for (int c = 0; c < window.gridModel()->columnCount(); ++c)
                row << QString::fromStdString(cell(r, c));
            rows.push_back(row);
        }
        return rows;
    }
    static void clickItem(QTreeWidget* tree, const QString& text) {
        const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        tree->scrollToItem(found.front());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(found.front()).center());
    }
};

TEST_F(PlanDialogsTest, ARenamedExpenseIsOnTheMonthsLinesAtOnceWithTheSameBalances) {
    start();
    const std::vector<QStringList> before = gridRows();
    int waterCells = 0;
    for (const QStringList& row : before)
        waterCells += static_cast<int>(row.count(QStringLiteral("Water")));
    ASSERT_GT(waterCells, 0);

    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CExpenseDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        // Every month row and column shows without scrolling.
        EXPECT_FALSE(dialog->monthTable()->verticalScrollBar()->isVisible());
        EXPECT_FALSE(dialog->monthTable()->horizontalScrollBar()->isVisible());
        clickItem(dialog->tree(), QStringLiteral("Water"));
        EXPECT_EQ(dialog->categoryLabel()->text(), "Housing");
        QTest::keyClick(dialog->nameEdit(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(dialog->nameEdit(), QStringLiteral("Water Bill"));
        prompter.answers = {Answer::Yes};
        QTest::mouseClick(dialog->saveChangesButton(), Qt::LeftButton);
        EXPECT_EQ(dialog->tree()->currentItem()->text(0), "Water Bill");
        QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
        dialog->reject();  // closed already, unless a check above failed
    });
    item(2, "Expense")->trigger();

    EXPECT_EQ(prompter.shown, std::vector<std::string>{kRenameExpenseQuestion});
    const std::vector<QStringList> after = gridRows();
    ASSERT_EQ(after.size(), before.size());
    for (size_t r = 0; r < before.size(); ++r)
        for (int c = 0; c < before[r].size(); ++c)
            EXPECT_EQ(after[r][c], before[r][c] == "Water" ? "Water Bill" : before[r][c])
                << r << "," << c;
    EXPECT_EQ(window.undoAction()->isEnabled(), true);
}

// Delete has no Cancel: Edit > Undo is the way back, to the file and the grid.
TEST_F(PlanDialogsTest, ADeletedExpenseComesBackWithEditUndo) {
    start();
    const std::vector<QStringList> before = gridRows();
    const std::string bytes = test::readFile(session.filePath);
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CExpenseDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        clickItem(dialog->tree(), QStringLiteral("Water"));
        dialog->deleteAction()->trigger();
        dialog->reject();  // closed already, unless the delete failed
    });
    item(2, "Expense")->trigger();
    // The month shown again reports the lines that name the deleted expense.
    ASSERT_EQ(prompter.shown.size(), 3u);
    EXPECT_EQ(prompter.shown[0], kDeleteExpenseNotice);
    EXPECT_EQ(prompter.shown[1], "Name of expense on line 19 not found ");
    ASSERT_EQ(expenseTree(session.data.node())[0].expenses.size(), 3u);
    ASSERT_TRUE(window.undoAction()->isEnabled());
    EXPECT_EQ(window.undoAction()->text(), "Undo delete expense Water");

    // The month worked out again after the delete belongs to it: no warning.
    window.undoAction()->trigger();
    EXPECT_EQ(test::readFile(session.filePath), bytes);
    EXPECT_EQ(gridRows(), before);
    EXPECT_FALSE(window.undoAction()->isEnabled());
    EXPECT_EQ(prompter.shown.size(), 3u);
}

TEST_F(PlanDialogsTest, EditingACategoryLabelRenamesTheCategory) {
    start();
    ui::CcategoryDlg dialog(session);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const auto found = dialog.tree()->findItems(QStringLiteral("Medical"), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    dialog.tree()->setCurrentItem(found.front());
    dialog.tree()->editItem(found.front());
    auto* editor = dialog.tree()->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, QStringLiteral("Health"));
    prompter.answers = {Answer::Yes};
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(prompter.shown.size(), 1u);
    EXPECT_EQ(prompter.shown[0], kRenameCategoryQuestion);
    QTRY_COMPARE(dialog.tree()->currentItem()->text(0), QStringLiteral("Health"));
    EXPECT_EQ(expenseTree(session.data.node())[2].category, "Health");
}

}  // namespace
}  // namespace tallix
