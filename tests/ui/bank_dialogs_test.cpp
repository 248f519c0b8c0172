// The bank, credit card and column-width dialogs worked from the main window
// with real clicks and keys; what the operations do to the year is tested
// with the core.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>

#include "reference/bank_messages.h"
#include "ui/bank_dlg.h"
#include "ui/column_dlg.h"
#include "ui/credit_cards_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class BankDialogsTest : public test::WindowTest {
  protected:
    static void fill(QWidget* dialog, const char* edit, const QString& text) {
        auto* field = dialog->findChild<QLineEdit*>(QString::fromLatin1(edit));
        ASSERT_NE(field, nullptr) << edit;
        ASSERT_TRUE(field->isVisible()) << edit;
        QTest::keyClicks(field, text);
    }
    QStringList headers() {
        QStringList titles;
        for (int c = 0; c < window.gridModel()->columnCount(); ++c)
            titles << window.gridModel()->headerData(c, Qt::Horizontal).toString();
        return titles;
    }
    static QTreeWidgetItem* find(QTreeWidget* tree, const QString& text) {
        const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.front();
    }
};

TEST_F(BankDialogsTest, ANewBanksColumnsStandBeforeInfoAndStartEveryLineFromItsBalance) {
    start();
    ASSERT_EQ(session.month, 11);
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CBankdlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(dialog->applyButton()->isVisible());
        dialog->addBankAction()->trigger();
        EXPECT_EQ(dialog->instructions()->toPlainText(), kNewBankInstructions);
        auto* box = dialog->findChild<QCheckBox*>(QStringLiteral("registerBox"));
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
        EXPECT_TRUE(box->isChecked());
        fill(dialog, "bankNameEdit", QStringLiteral("Harbor Bank"));
        fill(dialog, "accountNameEdit", QStringLiteral("Checking"));
        fill(dialog, "registerTitleEdit", QStringLiteral("HB Register"));
        fill(dialog, "bankTitleEdit", QStringLiteral("HB Bank"));
        fill(dialog, "outstandingTitleEdit", QStringLiteral("HB Outstanding"));
        fill(dialog, "startingBalanceEdit", QStringLiteral("1234.56"));
        prompter.answers = {Answer::Yes};
        QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
        EXPECT_FALSE(dialog->applyButton()->isVisible());
        EXPECT_NE(find(dialog->tree(), QStringLiteral("Harbor Bank")), nullptr);
        EXPECT_TRUE(dialog->columnList()
                        ->findItems(QStringLiteral("HB Outstanding"), Qt::MatchExactly)
                        .size() == 1);
        QTest::mouseClick(dialog->saveAndExitButton(), Qt::LeftButton);
        dialog->reject();  // closed already, unless a check above failed
    });
    item(2, "Bank or Institution")->trigger();

    EXPECT_EQ(prompter.shown, std::vector<std::string>{kTypoQuestion});
    const QStringList titles = headers();
    const int info = static_cast<int>(titles.indexOf(QStringLiteral("Info")));
    ASSERT_GE(info, 3);
    EXPECT_EQ(titles.mid(info - 3, 3), QStringList({"HB Register", "HB Bank", "HB Outstanding"}));
    // The month is shown again with them: no line names the new bank.
    EXPECT_EQ(cell(0, info - 3), "1234.56");
    EXPECT_EQ(cell(0, info - 2), "1234.56");
    EXPECT_EQ(cell(0, info - 1), " ");
}

TEST_F(BankDialogsTest, TheCardDialogAddsAndDeletesACardColumnAndKeepsItsFixedRows) {
    start();
    ui::CDialogCreditCards dialog(session, false);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_FALSE(dialog.saveButton()->isVisible());
    dialog.addNewAction()->trigger();
    EXPECT_EQ(dialog.saveButton()->text(), "SAVE");
    fill(&dialog, "cardNameEdit", QStringLiteral("Discover"));
    fill(&dialog, "cardColumnTitleEdit", QStringLiteral("Discover Card"));
    fill(&dialog, "cardClosingDayEdit", QStringLiteral("5"));
    QTest::mouseClick(dialog.saveButton(), Qt::LeftButton);
    QTreeWidgetItem* card = find(dialog.tree(), QStringLiteral("Discover"));
    ASSERT_NE(card, nullptr);
    window.Refresh();
    EXPECT_TRUE(headers().contains(QStringLiteral("Discover Card")));

    // A double click on a fixed row opens no editor.
    QTreeWidgetItem* closingDay = card->child(2);
    ASSERT_EQ(closingDay->text(0), kClosingDayRow);
    dialog.tree()->scrollToItem(closingDay);
    // The press and release of a real double click come first.
    const QPoint at = dialog.tree()->visualItemRect(closingDay).center();
    QTest::mouseClick(dialog.tree()->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(dialog.tree()->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(prompter.shown, std::vector<std::string>{kCannotEditFixedRow});
    EXPECT_EQ(dialog.tree()->viewport()->findChild<QLineEdit*>(), nullptr);

    // Delete takes the card of the selected row.
    dialog.tree()->setCurrentItem(closingDay->child(0));
    dialog.deleteAction()->trigger();
    EXPECT_EQ(find(dialog.tree(), QStringLiteral("Discover")), nullptr);
    window.Refresh();
    EXPECT_FALSE(headers().contains(QStringLiteral("Discover Card")));
}

TEST_F(BankDialogsTest, ADoubleClickOnAColumnHeaderSetsThatColumnsWidth) {
    start();
    const int amount = static_cast<int>(headers().indexOf(QStringLiteral("Amount")));
    ASSERT_GT(amount, 0);
    const int before = window.grid()->columnWidth(amount);
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CColumnDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->widthEdit()->text(), "10");
        QTest::keyClick(dialog->widthEdit(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(dialog->widthEdit(), QStringLiteral("40"));
        QTest::mouseClick(dialog->updateButton(), Qt::LeftButton);
        dialog->reject();  // closed already, unless a check above failed
    });
    QHeaderView* header = window.grid()->horizontalHeader();
    const int middle = header->sectionViewportPosition(amount) + header->sectionSize(amount) / 2;
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {},
                       QPoint(middle, header->height() / 2));
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_GT(window.grid()->columnWidth(amount), before);
}

}  // namespace
}  // namespace tallix
