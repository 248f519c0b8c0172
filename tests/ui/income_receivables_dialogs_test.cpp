// The income and receivables dialogs opened from the main window on the
// sample year and worked with real clicks and keys; what their operations do
// to the year is tested with the core.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include "reference/plan_lists.h"
#include "ui/income_dlg.h"
#include "ui/picture_buttons.h"
#include "ui/receivables_dlg.h"
#include "ui/sample_year.h"

namespace tallix {
namespace {

class IncomeReceivablesDialogsTest : public test::WindowTest {
  protected:
    static void clickItem(QTreeWidget* tree, const QString& text) {
        const auto found = tree->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(found.front()).center());
    }
    static void clickRow(QTableWidget* table, int row) {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(table->item(row, 0)).center());
    }
    static void retype(QLineEdit* edit, const QString& text) {
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(edit, text);
    }
    // The NAME rows' totals summed, and the TOTAL row's.
    static std::pair<double, double> totals(QTreeWidget* list) {
        const int last = list->topLevelItemCount() - 1;
        double sum = 0;
        for (int i = 0; i < last; ++i)
            sum += list->topLevelItem(i)->text(1).toDouble();
        EXPECT_EQ(list->topLevelItem(last)->text(0), "TOTAL");
        return {sum, list->topLevelItem(last)->text(1).toDouble()};
    }
};

TEST_F(IncomeReceivablesDialogsTest, AnAutoDaySourceGetsTheSecondFridayOfEveryMonth) {
    start();
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CIncomedlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        clickItem(dialog->sourceList(), QStringLiteral("Acme Payroll"));
        QTest::keyClicks(dialog->typeBox(), QStringLiteral("auto day"));
        QTest::keyClicks(dialog->dayOrDateBox(), QStringLiteral("Friday"));
        EXPECT_EQ(dialog->dayOrDateBox()->currentText(), "Friday");
        retype(dialog->dayNumberEdit(), QStringLiteral("2"));
        QTest::mouseClick(dialog->saveValuesButton(), Qt::LeftButton);

        // Every month's date is the core's; the table shows them.
        QTableWidget* months = dialog->monthTable();
        EXPECT_EQ(months->item(0, 3)->text(), "1/9/2026");
        EXPECT_EQ(months->item(11, 3)->text(), "12/11/2026");

        // December's amount applied: Acme's total and the TOTAL row follow.
        const auto [sumBefore, totalBefore] = totals(dialog->sourceList());
        EXPECT_NEAR(totalBefore, sumBefore, 0.001);
        const double december = months->item(11, 1)->text().toDouble();
        clickRow(months, 11);
        retype(dialog->monthFields().amount, QStringLiteral("1000"));
        QTest::mouseClick(dialog->monthFields().apply, Qt::LeftButton);
        EXPECT_EQ(months->item(11, 1)->text().toStdString(), "1000.00");
        const auto [sum, total] = totals(dialog->sourceList());
        EXPECT_NEAR(total, sum, 0.001);
        EXPECT_NEAR(total, totalBefore - december + 1000, 0.001);

        // A transfer source keeps its kind through a save.
        clickItem(dialog->sourceList(), QStringLiteral("Savings Transfer"));
        EXPECT_EQ(dialog->typeBox()->currentText(), "transfer");
        QTest::mouseClick(dialog->saveValuesButton(), Qt::LeftButton);
        EXPECT_EQ(dialog->typeBox()->currentText(), "transfer");
        QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
        dialog->reject();  // closed already, unless a check above failed
    });
    item(2, "Income")->trigger();
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(IncomeReceivablesDialogsTest, ACustomerSavedIsInTheFileAndTheCustomersMenu) {
    start();
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<ui::CReceivablesDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        clickItem(dialog->tree(), QStringLiteral("Maple Street Bakery"));
        retype(dialog->nameEdit(), QStringLiteral("Maple Bakery"));
        retype(dialog->numberEdit(), QStringLiteral("2001"));
        QTest::mouseClick(dialog->saveChangesButton(), Qt::LeftButton);
        QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
        dialog->reject();  // closed already, unless a check above failed
    });
    window.pictureButtons()->button(ui::PictureButtons::kReceivable)->click();
    EXPECT_TRUE(prompter.shown.empty());
    const Customer saved = customers(Document::load(yearFile()).node()).at(0);
    EXPECT_EQ(saved.name + " " + saved.number, "Maple Bakery 2001");
    EXPECT_EQ(itemTexts(window.customersMenu()),
              (QStringList{"Maple Bakery", "Riverside Garden Club"}));
}

}  // namespace
}  // namespace tallix
