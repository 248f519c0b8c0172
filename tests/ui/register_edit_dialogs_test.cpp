// The picker dialogs themselves, worked with their own buttons and lists.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "ui/bank_select.h"
#include "ui/description_dlg.h"
#include "ui/status_dlg.h"

namespace tallix {
namespace {

const std::vector<InstitutionChoice> kChoices = {{"First National", {"Checking", "Savings"}},
                                                 {"Credit Union", {"Share Draft"}},
                                                 {"creditcards", {"Visa", "Mastercard"}}};

QStringList comboTexts(QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

TEST(BankSelect, OpensOnTheLinesAccountAndListsTheChosenInstitutionsAccounts) {
    ui::CBankselect dialog(kChoices, "First National", "Savings");
    EXPECT_EQ(comboTexts(dialog.institutionBox()),
              (QStringList{"First National", "Credit Union", "creditcards"}));
    EXPECT_EQ(dialog.accountBox()->currentText(), "Savings");

    dialog.institutionBox()->setCurrentIndex(2);
    EXPECT_EQ(comboTexts(dialog.accountBox()), (QStringList{"Visa", "Mastercard"}));
    dialog.accountBox()->setCurrentIndex(1);
    QTest::mouseClick(dialog.updateButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.choice().outcome, ui::BankChoice::Outcome::Update);
    EXPECT_EQ(dialog.choice().institution, "creditcards");
    EXPECT_EQ(dialog.choice().account, "Mastercard");
}

TEST(BankSelect, CancelAndClearAnswerWithoutNames) {
    ui::CBankselect canceled(kChoices, "Credit Union", "Share Draft");
    QTest::mouseClick(canceled.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(canceled.choice().outcome, ui::BankChoice::Outcome::Canceled);
    EXPECT_EQ(canceled.choice().institution, "");

    ui::CBankselect cleared(kChoices, "Credit Union", "Share Draft");
    QTest::mouseClick(cleared.clearButton(), Qt::LeftButton);
    EXPECT_EQ(cleared.choice().outcome, ui::BankChoice::Outcome::Clear);
    EXPECT_EQ(cleared.result(), QDialog::Accepted);

    // Closed any other way, the picker counts as canceled.
    ui::CBankselect escaped(kChoices, "Credit Union", "Share Draft");
    escaped.reject();
    EXPECT_EQ(escaped.choice().outcome, ui::BankChoice::Outcome::Canceled);
}

TEST(StatusDialog, ADoubleClickPicksAWordAndCancelPicksNone) {
    const QStringList words = {"notpaid", "pending", "cleared"};
    ui::CStatusdlg dialog(words, "pending");
    dialog.show();
    EXPECT_EQ(dialog.list()->currentItem()->text(), "pending");
    QListWidgetItem* cleared = dialog.list()->item(2);
    const QPoint at = dialog.list()->visualItemRect(cleared).center();
    QTest::mouseClick(dialog.list()->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(dialog.list()->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(dialog.status(), "cleared");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);

    ui::CStatusdlg canceled(words, "pending");
    canceled.reject();
    EXPECT_EQ(canceled.status(), "");
}

TEST(DescriptionDialog, PickingForACellAnswersTheDescriptionClearOrCancel) {
    const QStringList list = {"Zoo", "Corner Market"};
    ui::CDescriptionDlg pick(ui::CDescriptionDlg::kPickForCell, list, "");
    EXPECT_EQ(pick.windowTitle(), "EDIT OR DELETE A DESCRIPTION");
    EXPECT_EQ(pick.firstButton()->text(), "CLEAR");
    EXPECT_EQ(pick.cancelButton()->text(), "Cancel");
    EXPECT_TRUE(pick.question()->isHidden());
    EXPECT_EQ(pick.list()->item(0)->text(), "Corner Market");  // sorted
    pick.show();
    const QPoint at = pick.list()->visualItemRect(pick.list()->item(1)).center();
    QTest::mouseClick(pick.list()->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(pick.list()->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(pick.answer(), "Zoo");
    EXPECT_EQ(pick.result(), QDialog::Accepted);

    ui::CDescriptionDlg clear(ui::CDescriptionDlg::kPickForCell, list, "Zoo");
    QTest::mouseClick(clear.firstButton(), Qt::LeftButton);
    EXPECT_EQ(clear.answer(), "clear");
    ui::CDescriptionDlg cancel(ui::CDescriptionDlg::kPickForCell, list, "Zoo");
    QTest::mouseClick(cancel.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(cancel.answer(), "cancel");
    EXPECT_EQ(cancel.result(), QDialog::Rejected);

    ui::CDescriptionDlg ask(ui::CDescriptionDlg::kNotOnList, list, "Bonus");
    EXPECT_EQ(ask.firstButton()->text(), "YES");
    EXPECT_EQ(ask.cancelButton()->text(), "NO");
    EXPECT_EQ(ask.question()->text(), "Description in not on list...Do you want to add it");
    EXPECT_FALSE(ask.question()->isHidden());
}

}  // namespace
}  // namespace tallix
