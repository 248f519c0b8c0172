// The pickers a register line is filled or reshaped with, worked through
// their own trees, lists, combos, buttons and menus, partly over the small
// year of tests/fixtures/plan_year.xml.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include "reference/plan_year.h"
#include "ui/bank_select.h"
#include "ui/description_dlg.h"
#include "ui/expense_dlg.h"
#include "ui/move_row_dlg.h"
#include "ui/receivables_dlg.h"
#include "ui/row_operations_dlg.h"
#include "ui/status_dlg.h"
#include "ui/transfer_dlg.h"

namespace tallix {
namespace {

class PickerDialogsTest : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(test::loadPlanYear(doc)); }
    pugi::xml_node data() const { return doc; }
    pugi::xml_document doc;
};

QTreeWidgetItem* findItem(QTreeWidget* tree, const QString& text) {
    const QList<QTreeWidgetItem*> found =
        tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.front();
}

QString cell(QTableWidget* table, int row, int column) {
    const QTableWidgetItem* item = table->item(row, column);
    return item ? item->text() : QString();
}

QStringList rowTexts(QTableWidget* table, int row) {
    QStringList texts;
    for (int c = 0; c < table->columnCount(); ++c)
        texts << cell(table, row, c);
    return texts;
}

QStringList comboTexts(QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

TEST_F(PickerDialogsTest, ExpensePickerShowsTheSelectedExpenseAndAnswersItWithItsCategory) {
    ui::CExpenseDlg dialog(data(), kPickExpenseMode);
    EXPECT_EQ(dialog.windowTitle(), "SELECT AN EXPENSE");
    QTreeWidget* tree = dialog.tree();
    ASSERT_EQ(tree->topLevelItemCount(), 3);
    EXPECT_EQ(tree->topLevelItem(0)->childCount(), 2);
    EXPECT_EQ(tree->topLevelItem(1)->text(0), "Gifts");
    EXPECT_EQ(tree->topLevelItem(1)->childCount(), 0);

    QTableWidget* months = dialog.monthTable();
    ASSERT_EQ(months->rowCount(), 13);
    EXPECT_EQ(cell(months, 12, 0), "December");

    tree->setCurrentItem(findItem(tree, "Trader Joe's"));
    EXPECT_EQ((QStringList{dialog.nameEdit()->text(), dialog.categoryLabel()->text(),
                           dialog.typeBox()->currentText(), dialog.institutionBox()->currentText(),
                           dialog.accountBox()->currentText(), dialog.repeatingAmountEdit()->text(),
                           dialog.closingDayEdit()->text()}),
              (QStringList{"Trader Joe's", "Food", "recurring", "First National", "Savings",
                           "120.00", "15"}));
    EXPECT_EQ(comboTexts(dialog.accountBox()), (QStringList{"Checking", "Savings"}));
    EXPECT_EQ(rowTexts(months, 1),
              (QStringList{"January", "100.00", "1/3", "1/5", "paid", "auto", "1042"}));
    EXPECT_EQ(cell(months, 2, 1), "90.00");

    // Another expense replaces every field, including months it lacks.
    tree->setCurrentItem(findItem(tree, "Bakery"));
    EXPECT_EQ(dialog.typeBox()->currentText(), "accumulate");
    EXPECT_EQ(dialog.institutionBox()->currentIndex(), -1);
    EXPECT_EQ(dialog.repeatingAmountEdit()->text(), "");
    EXPECT_EQ(rowTexts(months, 1), (QStringList{"January", "", "", "", "", "", ""}));

    tree->setCurrentItem(findItem(tree, "Trader Joe's"));
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.pick().name, "Trader Joe's");
    EXPECT_EQ(dialog.pick().category, "Food");
}

TEST_F(PickerDialogsTest, ExpensePickerAnswersNoSelectionUnlessAnExpenseIsPicked) {
    // OK on a category or on nothing, Cancel or closing on an expense.
    const struct {
        const char* selected;
        bool ok;
    } cases[] = {{"Food", true}, {"", true}, {"Bakery", false}};
    for (const auto& c : cases) {
        ui::CExpenseDlg dialog(data(), kPickExpenseMode);
        dialog.show();
        if (*c.selected)
            dialog.tree()->setCurrentItem(findItem(dialog.tree(), c.selected));
        if (c.ok)
            QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
        else
            QTest::mouseClick(dialog.cancelButton(), Qt::LeftButton);
        EXPECT_EQ(dialog.pick().name, kNoSelection) << c.selected;
        EXPECT_EQ(dialog.pick().category, "") << c.selected;
    }
    ui::CExpenseDlg closed(data(), kPickExpenseMode);
    closed.show();
    closed.tree()->setCurrentItem(findItem(closed.tree(), "Bakery"));
    closed.close();
    EXPECT_EQ(closed.pick().name, kNoSelection);
}

TEST_F(PickerDialogsTest, ADoubleClickOnAnExpensePicksItButNotOnACategory) {
    ui::CExpenseDlg dialog(data(), kPickExpenseMode);
    dialog.show();
    QTreeWidget* tree = dialog.tree();
    const QPoint food = tree->visualItemRect(findItem(tree, "Food")).center();
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, food);
    EXPECT_TRUE(dialog.isVisible());
    const QPoint bakery = tree->visualItemRect(findItem(tree, "Bakery")).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, bakery);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, bakery);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.pick().name, "Bakery");
    EXPECT_EQ(dialog.pick().category, "Food");
}

TEST_F(PickerDialogsTest, IncomePickerListsTheSourcesAndAnswersTheName) {
    ui::CExpenseDlg dialog(data(), kPickIncomeMode);
    EXPECT_EQ(dialog.windowTitle(), "SELECT AN INCOME SOURCE");
    QTreeWidget* tree = dialog.tree();
    ASSERT_EQ(tree->topLevelItemCount(), 2);
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "Salary");
    EXPECT_EQ(tree->topLevelItem(1)->text(0), "Pat's pension");
    EXPECT_EQ(tree->topLevelItem(1)->childCount(), 0);

    tree->setCurrentItem(tree->topLevelItem(1));
    EXPECT_EQ(
        (QStringList{dialog.nameEdit()->text(), dialog.institutionBox()->currentText(),
                     dialog.accountBox()->currentText(), dialog.repeatingAmountEdit()->text()}),
        (QStringList{"Pat's pension", "First National", "Checking", "800.00"}));
    EXPECT_EQ(rowTexts(dialog.monthTable(), 5).join(""), "May");

    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.pick().name, "Pat's pension");
    EXPECT_EQ(dialog.pick().category, "");
}

TEST_F(PickerDialogsTest, CustomerPickerPromptsByModeAndListsTheItemsOfTheSelectedCustomer) {
    ui::CReceivablesDlg forCell(data(), true);
    EXPECT_EQ(forCell.prompt()->text(),
              "SELECT A CUSTOMER TO ADD TO THE EXPENSE ITEM CELL SELECTED");
    ui::CReceivablesDlg maintain(data(), false);
    EXPECT_EQ(maintain.prompt()->text(),
              "SELECT A CUSTOMER TO EDIT OR SELECT ADD NEW TO ADD A NEW CUSTOMER");

    QTreeWidget* tree = forCell.tree();
    ASSERT_EQ(tree->topLevelItemCount(), 2);  // the revenue template is no customer
    tree->setCurrentItem(findItem(tree, "O'Neil"));
    EXPECT_EQ(
        (QStringList{forCell.numberEdit()->text(), forCell.institutionBox()->currentText(),
                     forCell.accountBox()->currentText(), forCell.repeatingAmountEdit()->text()}),
        (QStringList{"C-7", "Credit Union", "Share Draft", "45.00"}));
    QTableWidget* items = forCell.itemTable();
    ASSERT_EQ(items->rowCount(), 3);
    EXPECT_EQ(rowTexts(items, 0),
              (QStringList{"January", "4", "45.00", "1/9", "1/10", "paid", "receivable", "88"}));
    EXPECT_EQ(rowTexts(items, 2), (QStringList{"March", "9", "35.00", "", "", "", "", ""}));

    tree->setCurrentItem(findItem(tree, "Acme"));
    EXPECT_EQ(items->rowCount(), 0);
    EXPECT_EQ(forCell.institutionBox()->currentIndex(), -1);
    tree->setCurrentItem(findItem(tree, "O'Neil"));
    QTest::mouseClick(forCell.okButton(), Qt::LeftButton);
    EXPECT_EQ(forCell.selectedCustomer(), "O'Neil");

    maintain.tree()->setCurrentItem(findItem(maintain.tree(), "Acme"));
    QTest::mouseClick(maintain.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(maintain.selectedCustomer(), kNoSelection);
}

const std::vector<InstitutionChoice> kBanks = {{"First National", {"Checking", "Savings"}},
                                               {"Credit Union", {"Share Draft"}},
                                               {"creditcards", {"Visa", "Mastercard"}}};

std::vector<std::string> texts(const TransferAnswer& a) {
    return {a.fromInstitution, a.fromAccount, a.toInstitution, a.toAccount, a.amount};
}

TEST(TransferDialog, FillsOnlyTheMatchingAccountListAndAnswersWhatWasChosen) {
    ui::CtransferDlg dialog(kBanks);
    for (QComboBox* box : {dialog.fromInstitutionBox(), dialog.toInstitutionBox()}) {
        EXPECT_EQ(comboTexts(box), (QStringList{"First National", "Credit Union", "creditcards"}));
        EXPECT_EQ(box->currentIndex(), -1);
    }
    EXPECT_EQ(dialog.fromAccountBox()->count() + dialog.toAccountBox()->count(), 0);
    dialog.toInstitutionBox()->setCurrentIndex(1);
    EXPECT_EQ(comboTexts(dialog.toAccountBox()), (QStringList{"Share Draft"}));
    dialog.fromInstitutionBox()->setCurrentIndex(0);
    EXPECT_EQ(comboTexts(dialog.fromAccountBox()), (QStringList{"Checking", "Savings"}));
    EXPECT_EQ(comboTexts(dialog.toAccountBox()), (QStringList{"Share Draft"}));
    dialog.fromAccountBox()->setCurrentIndex(1);
    QTest::keyClicks(dialog.amountEdit(), "250.00");
    QTest::mouseClick(dialog.performButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(texts(dialog.answer()),
              (std::vector<std::string>{"First National", "Savings", "Credit Union", "Share Draft",
                                        "250.00"}));
    // Cancel answers empty texts whatever was chosen, and so does an empty PERFORM.
    for (bool cancel : {true, false}) {
        ui::CtransferDlg other(kBanks);
        other.fromInstitutionBox()->setCurrentIndex(cancel ? 0 : -1);
        QTest::mouseClick(cancel ? other.cancelButton() : other.performButton(), Qt::LeftButton);
        EXPECT_EQ(other.result(), cancel ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_EQ(texts(other.answer()), std::vector<std::string>(5)) << cancel;
    }
}

void expectChoice(const char* menu, const char* item, const char* operation, const char* kind) {
    ui::CRowOperations popup;
    QAction* action = popup.findAction(menu, item);
    ASSERT_NE(action, nullptr) << menu << "/" << item;
    action->trigger();
    EXPECT_EQ(popup.result(), QDialog::Accepted) << item;
    EXPECT_EQ(popup.choice().operation, operation) << menu << "/" << item;
    EXPECT_EQ(popup.choice().kind, kind) << menu << "/" << item;
}

TEST(RowOperationsPopup, EveryItemAnswersItsOperationAndKindAndClosingAnswersCancel) {
    const char* kinds[] = {"debit", "check", "deposit", "medication", "credit card", "receivable"};
    const char* insert[] = {"Blank", "Check", "Deposit", "Medication", "Credicard", "Receivable"};
    const char* make[] = {"Blank", "Check", "Deposit", "Medication", "Creditcard", "Receivable"};
    for (int i = 0; i < 6; ++i) {
        expectChoice("Insert", insert[i], "insert", kinds[i]);
        expectChoice("Make", make[i], "make", kinds[i]);
    }
    expectChoice("", "Delete", "delete", "");
    expectChoice("", "Move", "move", "");
    expectChoice("", "CANCEL", "cancel", "");
    ui::CRowOperations popup;
    EXPECT_EQ(popup.findAction("Insert", "Creditcard"), nullptr);
    EXPECT_EQ(popup.menuBar()->actions().size(), 5);

    EXPECT_TRUE(popup.windowFlags().testFlag(Qt::FramelessWindowHint));
    popup.show();
    popup.reject();
    EXPECT_EQ(popup.choice().operation, "cancel");
    EXPECT_EQ(popup.choice().kind, "");
    popup.placeNear(QPoint(40, 100), 55);  // beside the click
    EXPECT_EQ(popup.pos(), QPoint(340, 165));
}

TEST(MoveRowDialog, AnswersTheTypedNumberOrZero) {
    // OK, or Enter in the field, answers.
    const std::pair<const char*, int> typed[] = {{"12", 12}, {" 7 ", 7}, {"abc", 0}, {"", 0}};
    for (bool enter : {false, true})
        for (const auto& [text, expected] : typed) {
            ui::CMoveRowDlg dialog;
            dialog.show();
            QTest::keyClicks(dialog.lineEdit(), text);
            if (enter)
                QTest::keyClick(dialog.lineEdit(), Qt::Key_Return);
            else
                QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
            EXPECT_EQ(dialog.result(), QDialog::Accepted) << text;
            EXPECT_EQ(dialog.target(), expected) << text;
        }
    ui::CMoveRowDlg canceled;
    QTest::keyClicks(canceled.lineEdit(), "12");
    QTest::mouseClick(canceled.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(canceled.result(), QDialog::Rejected);
    EXPECT_EQ(canceled.target(), 0);
}

TEST(BankSelect, OpensOnTheLinesAccountAndAnswersUpdateClearOrCancel) {
    ui::CBankselect dialog(kBanks, "First National", "Savings");
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

    using Outcome = ui::BankChoice::Outcome;
    for (auto [button, outcome] : {std::pair{&ui::CBankselect::cancelButton, Outcome::Canceled},
                                   std::pair{&ui::CBankselect::clearButton, Outcome::Clear}}) {
        ui::CBankselect other(kBanks, "Credit Union", "Share Draft");
        QTest::mouseClick((other.*button)(), Qt::LeftButton);
        EXPECT_EQ(other.choice().outcome, outcome);
        EXPECT_EQ(other.choice().institution, "");
    }
    // Closed any other way, the picker counts as canceled.
    ui::CBankselect escaped(kBanks, "Credit Union", "Share Draft");
    escaped.reject();
    EXPECT_EQ(escaped.choice().outcome, Outcome::Canceled);
}

// Double-clicks the list's row `row`.
void doubleClickRow(QListWidget* list, int row) {
    const QPoint at = list->visualItemRect(list->item(row)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

TEST(StatusDialog, ADoubleClickPicksAWordAndCancelPicksNone) {
    const QStringList words = {"notpaid", "pending", "cleared"};
    ui::CStatusdlg dialog(words, "pending");
    dialog.show();
    EXPECT_EQ(dialog.list()->currentItem()->text(), "pending");
    doubleClickRow(dialog.list(), 2);
    EXPECT_EQ(dialog.status(), "cleared");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);

    ui::CStatusdlg canceled(words, "pending");
    canceled.reject();
    EXPECT_EQ(canceled.status(), "");
}

TEST(DescriptionDialog, PickingForACellAnswersTheDescriptionClearOrCancel) {
    const QStringList list = {"Zoo", "Corner Market"};
    ui::CDescriptionDlg pick(ui::CDescriptionDlg::kPickForCell, list, "");
    EXPECT_TRUE(pick.question()->isHidden());
    EXPECT_EQ(pick.list()->item(0)->text(), "Corner Market");  // sorted
    pick.show();
    doubleClickRow(pick.list(), 1);
    EXPECT_EQ(pick.answer(), "Zoo");
    EXPECT_EQ(pick.result(), QDialog::Accepted);

    ui::CDescriptionDlg clear(ui::CDescriptionDlg::kPickForCell, list, "Zoo");
    QTest::mouseClick(clear.firstButton(), Qt::LeftButton);
    EXPECT_EQ(clear.answer(), "clear");
    EXPECT_EQ(clear.result(), QDialog::Accepted);
    ui::CDescriptionDlg cancel(ui::CDescriptionDlg::kPickForCell, list, "Zoo");
    QTest::mouseClick(cancel.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(cancel.answer(), "cancel");
    EXPECT_EQ(cancel.result(), QDialog::Rejected);

    // Asked about a description not on the list, it shows the question.
    ui::CDescriptionDlg ask(ui::CDescriptionDlg::kNotOnList, list, "Bonus");
    EXPECT_EQ(ask.firstButton()->text(), "YES");
    EXPECT_FALSE(ask.question()->isHidden());
}

}  // namespace
}  // namespace tallix
