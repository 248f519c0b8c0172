// The RMD and description maintenance dialogs worked with real clicks and
// keys on the sample year; what the operations do to the file is tested with
// the core.
#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <algorithm>

#include "reference/descriptions.h"
#include "reference/rmd_maintenance.h"
#include "ui/description_dlg.h"
#include "ui/rmd_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class RmdDescriptionDialogsTest : public test::SampleYearTest {
  protected:
    void SetUp() override {
        SampleYearTest::SetUp();
        session.openDataPath(yearFile());
    }
    static void open(QDialog& dialog) {
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    }
    static void click(QDialog& dialog, const QString& text) {
        for (QPushButton* b : dialog.findChildren<QPushButton*>())
            if (b->text() == text)
                return QTest::mouseClick(b, Qt::LeftButton);
        ADD_FAILURE() << "no button " << text.toStdString();
    }
    static QTreeWidgetItem* item(QTreeWidget* tree, const QString& text) {
        const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.size() == 1 ? found.front() : nullptr;
    }
    static void select(QTreeWidget* tree, QTreeWidgetItem* item) {
        ASSERT_NE(item, nullptr);
        tree->scrollToItem(item);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(item).center());
    }
    Document saved() const { return Document::load(yearFile()); }
};

TEST_F(RmdDescriptionDialogsTest, AnAccountIsAddedToANameAndItsEditedValueIsSavedAndTotalled) {
    ui::CDialogrmd dialog(session);
    open(dialog);
    QTreeWidget* tree = dialog.tree();
    const std::string bytes = test::readFile(yearFile());
    select(tree, item(tree, "IRA Distribution"));
    click(dialog, "ADD A NAME");
    EXPECT_EQ(prompter.shown, std::vector<std::string>{kNotAName});
    EXPECT_EQ(test::readFile(yearFile()), bytes);
    EXPECT_EQ(tree->topLevelItem(0)->childCount(), 2);  // the name and the totals

    select(tree, item(tree, "Margaret Ellis"));
    click(dialog, "ADD AN ACCOUNT");
    QTreeWidgetItem* added = item(tree, "Margaret Ellis")->child(1);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->text(0), "account");
    EXPECT_EQ(tree->currentItem(), added);
    ASSERT_EQ(added->childCount(), 3);

    select(tree, added->child(1));
    click(dialog, "EDIT");
    auto* editor = tree->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, QStringLiteral("$1,000.05"));
    click(dialog, "SAVE EDIT");
    // The edit is taken once its editor has closed.
    QTest::qWait(0);
    EXPECT_EQ(rmdTree(saved().node()).individuals[0].names[0].accounts.at(1).values.rmdAmount,
              "1000.05");
    // The totals over all show it: 6355.47 + 1000.05.
    EXPECT_EQ(tree->topLevelItem(1)->child(1)->text(1).toStdString(), "7355.52");
    EXPECT_EQ(prompter.shown.size(), 1u);
}

TEST_F(RmdDescriptionDialogsTest, AnAppliedDescriptionIsListedInOrderAndSavedUntilDeleted) {
    ui::CDescriptionDlg dialog(session);
    open(dialog);
    QListWidget* list = dialog.list();
    auto apply = [&](const QString& text) {
        QTest::keyClicks(dialog.newDescription(), text);
        QTest::mouseClick(dialog.firstButton(), Qt::LeftButton);
    };
    apply(QStringLiteral("  Elm Street Books "));
    QStringList shown;
    for (int i = 0; i < list->count(); ++i)
        shown << list->item(i)->text();
    QStringList sorted = shown;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(shown, sorted);
    EXPECT_EQ(list->currentItem()->text(), "Elm Street Books");
    EXPECT_TRUE(hasDescription(saved().node(), "Elm Street Books"));

    QTest::mouseClick(dialog.deleteButton(), Qt::LeftButton);
    EXPECT_TRUE(list->findItems(QStringLiteral("Elm Street Books"), Qt::MatchExactly).isEmpty());
    EXPECT_FALSE(hasDescription(saved().node(), "Elm Street Books"));
    EXPECT_TRUE(prompter.shown.empty());
}

}  // namespace
}  // namespace tallix
