// Typing into the register and picking from its dialogs, driven with real
// clicks and keys; after every change the file is read back from disk.
#include <gtest/gtest.h>

#include <QBrush>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <deque>
#include <string>
#include <vector>

#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "editing/check_lookup.h"
#include "editing/typed_amount.h"
#include "reference/descriptions.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "register/plan_index.h"
#include "ui/grid_clicks.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/register_grid.h"
#include "ui/sample_year.h"
#include "ui/scripted_pickers.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

using test::readFile;
using test::writeFile;

// The sample year's November on screen, with one more line at the bottom
// that names no planned expense: a First National cheque to be matched by
// its number (line 22, row 21).
class RegisterEditTest : public test::SampleYearTest {
  protected:
    static constexpr int kUnplannedRow = 21;
    static constexpr int kPayRow = 0;         // Acme Payroll, Income
    static constexpr int kWaterRow = 1;       // Water, cheque 2062, pending
    static constexpr int kRiversideRow = 11;  // Riverside Garden Club, Receivables
    static constexpr int kGroceriesRow = 16;  // Groceries, a planned debit
    static constexpr int kAmount = 5, kCheck = 6, kStatus = 8, kDescription = 9, kInstitution = 10,
                         kAccount = 11, kFnRegister = 13, kFnBank = 14, kInfo = 21,
                         kTypeofentry = 23;

    void SetUp() override {
        test::SampleYearTest::SetUp();
        std::string xml = readFile(yearFile());
        const size_t december = xml.find("<month month=\"December\"");
        xml.insert(xml.rfind("</month>", december),
                   "<item line=\"22\"><day>1</day><expense></expense><debit></debit><check>"
                   "</check><categoty></categoty><status></status><description></description>"
                   "<institution>First National</institution><account>Checking</account><info>"
                   "</info><accumulate></accumulate><typeofentry>debit</typeofentry></item>");
        writeFile(yearFile(), xml);

        window.OnInitDialog();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        grid = window.findChild<ui::RegisterGrid*>();
        ASSERT_NE(grid, nullptr);
        auto owned = std::make_unique<test::ScriptedPickers>();
        pickers = owned.get();
        grid->setPickers(std::move(owned));
        ASSERT_EQ(session.view.lineCount, 22);
        ASSERT_EQ(cell(kRiversideRow, 4), "Riverside Garden Club");
        ASSERT_EQ(cell(kGroceriesRow, 4), "Groceries");
        prompter.shown.clear();
    }

    QTableView* view() { return window.grid(); }
    void click(int row, int column, Qt::MouseButton button = Qt::LeftButton) {
        test::clickCell(window, row, column, button);
    }
    // The editor on screen: a closed one may linger hidden.
    QLineEdit* visibleEditor() {
        for (QLineEdit* e : view()->viewport()->findChildren<QLineEdit*>())
            if (e->isVisible())
                return e;
        return nullptr;
    }
    QLineEdit* openOn(int row, int column) {
        test::doubleClickCell(window, row, column);
        return visibleEditor();
    }
    // Double-clicks the cell, types over its text and leaves with `key`.
    void type(int row, int column, const QString& text, Qt::Key key = Qt::Key_Return,
              Qt::KeyboardModifiers modifiers = {}) {
        QLineEdit* editor = openOn(row, column);
        ASSERT_NE(editor, nullptr) << row << "," << column;
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, key, modifiers);
    }
    std::string cell(int row, int column) {
        return window.gridModel()->index(row, column).data().toString().toStdString();
    }
    QColor background(int row, int column) {
        return window.gridModel()
            ->index(row, column)
            .data(Qt::BackgroundRole)
            .value<QBrush>()
            .color();
    }
    QColor foreground(int row, int column) {
        return window.gridModel()
            ->index(row, column)
            .data(Qt::ForegroundRole)
            .value<QBrush>()
            .color();
    }
    // The file as it is on disk now.
    Document saved() {
        Document d = Document::load(yearFile());
        EXPECT_FALSE(d.loadFailed());
        return d;
    }
    std::string savedField(int line, int child) {
        Document d = saved();
        return childText(monthLines(d.node(), "November").at(static_cast<size_t>(line - 1)),
                         static_cast<size_t>(child));
    }

    ui::CTallixDlg window{session};
    ui::RegisterGrid* grid = nullptr;
    test::ScriptedPickers* pickers = nullptr;
};

TEST_F(RegisterEditTest, TypedTextIsStoredWithSingleBlanksAndAmountsGetCents) {
    prompter.answers = {Answer::No};
    type(kPayRow, kDescription, "  two   words ");
    EXPECT_EQ(savedField(1, schema::kDescription), "two words");
    EXPECT_EQ(cell(kPayRow, kDescription), "two words");
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{kDescriptionNotOnList}));
    // Enter committed; the window is still open and no editor is left.
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_EQ(session.view.editorRow, -1);

    prompter.shown.clear();
    type(kWaterRow, kAmount, "12");
    EXPECT_EQ(savedField(2, schema::kDebit), "12.00");
    type(kWaterRow, kAmount, "12.5", Qt::Key_Tab);
    EXPECT_EQ(savedField(2, schema::kDebit), "12.5");
    EXPECT_EQ(cell(kWaterRow, kAmount), "12.5");
    // The planned Water expense of November follows the line.
    Document file = saved();
    pugi::xml_node water = selectOne(file.node(), paths::kExpense, "Water");
    EXPECT_EQ(childText(monthEntry(water, 7, 11), 1), "12.5");
    EXPECT_TRUE(prompter.shown.empty());

    // Tab left the editor open on the next cell, drawn in the editor's colour.
    ASSERT_NE(visibleEditor(), nullptr);
    EXPECT_EQ(session.view.editorRow, kWaterRow);
    EXPECT_EQ(session.view.editorColumn, kCheck);
    EXPECT_EQ(visibleEditor()->text(), "2062");
    EXPECT_EQ(background(kWaterRow, kCheck), QColor(253, 233, 217));
}

TEST_F(RegisterEditTest, AReceivableAmountChangesThatLinesCustomerEntryOfThisMonthOnly) {
    auto customerMonths = [](Document& d) {
        pugi::xml_node customer = selectOne(d.node(), paths::kReceivable, "Riverside Garden Club");
        std::vector<std::string> months;
        for (int m = 1; m <= 12; ++m)
            months.push_back(nodeText(monthEntry(customer, 4, m)));
        return std::pair{customer, months};
    };
    Document before = saved();
    auto [unused, monthsBefore] = customerMonths(before);

    type(kRiversideRow, kAmount, "140");
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(savedField(12, schema::kDebit), "140.00");
    Document after = saved();
    auto [customer, monthsAfter] = customerMonths(after);
    bool found = false;
    for (pugi::xml_node entry : elementChildren(monthEntry(customer, 4, 11)))
        if (childText(entry, 0) == "12") {
            EXPECT_EQ(childText(entry, 1), "140.00");
            found = true;
        }
    EXPECT_TRUE(found);
    for (int m = 1; m <= 12; ++m) {
        if (m == 11)
            continue;
        EXPECT_EQ(monthsAfter[m - 1], monthsBefore[m - 1]) << "month " << m;
    }
}

TEST_F(RegisterEditTest, NothingIsSavedWithoutAnOpenEditor) {
    type(kGroceriesRow, kAmount, "130");
    const std::string committed = readFile(yearFile());
    EXPECT_NE(committed.find("<debit>130.00</debit>"), std::string::npos);

    // The editor is already hidden: neither a commit nor a click saves.
    EXPECT_FALSE(grid->HideEditor());
    click(kGroceriesRow, kInfo);
    EXPECT_EQ(readFile(yearFile()), committed);

    // Escape closes the editor without keeping what was typed.
    QLineEdit* editor = openOn(kGroceriesRow, kAmount);
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "999");
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(grid->HideEditor());
    EXPECT_EQ(readFile(yearFile()), committed);
    EXPECT_EQ(cell(kGroceriesRow, kAmount), "130.00");

    // A click below the last row neither commits nor closes the open editor.
    editor = openOn(kGroceriesRow, kAmount);
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "5");
    const QRect last = view()->visualRect(window.gridModel()->index(session.view.lineCount, 5));
    ASSERT_LT(last.bottom() + 5, view()->viewport()->height());
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, last.center() + QPoint(0, 40));
    EXPECT_EQ(visibleEditor(), editor);
    EXPECT_EQ(readFile(yearFile()), committed);
    // A click on another cell commits it.
    click(kPayRow, kInfo);
    EXPECT_EQ(visibleEditor(), nullptr);
    EXPECT_EQ(savedField(17, schema::kDebit), "5.00");
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(RegisterEditTest, ACheckOnALineOutsideThePlanStandsOutUntilTheMonthIsShownAgain) {
    const QColor checkColour(228, 109, 10);
    type(kUnplannedRow, kCheck, "9999");
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{kCheckNumberNotFound}));
    EXPECT_EQ(savedField(22, schema::kCheck), "9999");
    for (int column : {kCheck, kInfo}) {
        EXPECT_EQ(background(kUnplannedRow, column), checkColour) << column;
        EXPECT_EQ(foreground(kUnplannedRow, column), QColor(Qt::white)) << column;
    }
    EXPECT_NE(background(kUnplannedRow, kDescription), checkColour);

    // Shown again, the line draws in its own colours.
    QTest::mouseClick(window.monthButtons()->button(11), Qt::LeftButton);
    EXPECT_NE(background(kUnplannedRow, kCheck), checkColour);

    // Water's cheque 2062 is matched: it is cleared and this line posts it.
    prompter.shown.clear();
    type(kUnplannedRow, kCheck, "2062");
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(savedField(22, schema::kTypeOfEntry), "posted check");
    EXPECT_EQ(savedField(22, schema::kDebit), "48.60");
    EXPECT_EQ(savedField(2, schema::kStatus), "cleared");
    EXPECT_EQ(background(kUnplannedRow, kInfo), checkColour);

    // A planned line keeps its colours and its type.
    const QColor groceries = background(kGroceriesRow, kCheck);
    type(kGroceriesRow, kCheck, "777");
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(savedField(17, schema::kCheck), "777");
    EXPECT_EQ(savedField(17, schema::kTypeOfEntry), "debit");
    EXPECT_EQ(background(kGroceriesRow, kCheck), groceries);
    EXPECT_NE(background(kGroceriesRow, kInfo), checkColour);
}

TEST_F(RegisterEditTest, TheStatusPickerWritesTheLineAndTheBalancesFollow) {
    const std::string bankBefore = cell(kPayRow, kFnBank);
    const std::string registerBefore = cell(kPayRow, kFnRegister);
    ASSERT_EQ(cell(kGroceriesRow, kStatus), "processing");  // not at the bank yet
    pickers->statuses = {std::nullopt};
    const std::string before = readFile(yearFile());
    click(kGroceriesRow, kStatus);
    EXPECT_EQ(readFile(yearFile()), before);

    pickers->statuses = {"cleared"};
    click(kGroceriesRow, kStatus);
    EXPECT_EQ(pickers->opened.size(), 2u);
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(cell(kGroceriesRow, kStatus), "cleared");
    EXPECT_EQ(savedField(17, schema::kStatus), "cleared");
    // The bank now takes the groceries off; the register had them already.
    EXPECT_EQ(cell(kPayRow, kFnRegister), registerBefore);
    EXPECT_LT(textToAmount(cell(kPayRow, kFnBank)), textToAmount(bankBefore) - 100);
    // The balances are those of the saved file shown afresh.
    test::ScriptedPrompter quiet;
    Session fresh(env, quiet);
    fresh.openDataPath(yearFile());
    prepareColumns(fresh);
    fresh.month = 11;
    ASSERT_TRUE(showMonth(fresh, "11"));
    for (int column = kFnRegister; column < kInfo; ++column)
        EXPECT_EQ(cell(kPayRow, column), fresh.view.table.cell(kPayRow, column)) << column;
}

TEST_F(RegisterEditTest, TheInstitutionPickerWritesBothFieldsOrNothing) {
    const std::string before = readFile(yearFile());
    pickers->banks = {{ui::BankChoice::Outcome::Canceled, "Credit Union", "Share Draft"}};
    click(kWaterRow, kInstitution);
    EXPECT_EQ(pickers->opened.size(), 1u);
    EXPECT_EQ(readFile(yearFile()), before);
    EXPECT_EQ(cell(kWaterRow, kInstitution), "First National");
    EXPECT_EQ(cell(kWaterRow, kAccount), "Checking");

    // The banks with their accounts, then the cards.
    ASSERT_GE(pickers->offeredInstitutions.size(), 2u);
    EXPECT_EQ(pickers->offeredInstitutions.front().name, "First National");
    EXPECT_EQ(pickers->offeredInstitutions.front().accounts,
              (std::vector<std::string>{"Checking", "Savings"}));
    EXPECT_EQ(pickers->offeredInstitutions.back().name, "creditcards");
    EXPECT_EQ(pickers->offeredInstitutions.back().accounts,
              (std::vector<std::string>{"Visa", "Mastercard"}));

    pickers->banks = {{ui::BankChoice::Outcome::Update, "Credit Union", "Share Draft"}};
    click(kWaterRow, kInstitution);
    EXPECT_EQ(savedField(2, schema::kInstitution), "Credit Union");
    EXPECT_EQ(savedField(2, schema::kAccount), "Share Draft");
    EXPECT_EQ(cell(kWaterRow, kInstitution), "Credit Union");
    EXPECT_EQ(cell(kWaterRow, kAccount), "Share Draft");

    pickers->banks = {{ui::BankChoice::Outcome::Clear, "", ""}};
    click(kWaterRow, kInstitution);
    EXPECT_EQ(savedField(2, schema::kInstitution), "");
    EXPECT_EQ(savedField(2, schema::kAccount), "");
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(RegisterEditTest, OnlyLineCellsRightOfTheExpenseOpenAnEditor) {
    for (int column = 0; column < 5; ++column) {
        EXPECT_EQ(openOn(kPayRow, column), nullptr) << column;
        EXPECT_EQ(session.view.editorRow, -1);
    }
    EXPECT_EQ(openOn(kPayRow, kFnBank), nullptr);                 // a balance
    EXPECT_EQ(openOn(session.view.lineCount, kAmount), nullptr);  // the starting row
    EXPECT_NE(openOn(kPayRow, kAmount), nullptr);
    EXPECT_EQ(session.view.editorColumn, kAmount);
    EXPECT_EQ(pickers->opened.size(), 0u);
}

TEST_F(RegisterEditTest, TabWrapsToTheNextAndPreviousLineAndSkipsTheBalances) {
    QLineEdit* editor = openOn(kPayRow, kAccount);
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Tab);
    EXPECT_EQ(session.view.editorColumn, kInfo);

    QTest::keyClick(visibleEditor(), Qt::Key_Tab);
    QTest::keyClick(visibleEditor(), Qt::Key_Tab);
    EXPECT_EQ(session.view.editorColumn, kTypeofentry);
    QTest::keyClick(visibleEditor(), Qt::Key_Tab);
    EXPECT_EQ(session.view.editorRow, kPayRow + 1);
    EXPECT_EQ(session.view.editorColumn, kAmount);
    EXPECT_EQ(visibleEditor()->text(), "48.60");

    QTest::keyClick(visibleEditor(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(session.view.editorRow, kPayRow);
    EXPECT_EQ(session.view.editorColumn, kTypeofentry);
    EXPECT_EQ(visibleEditor()->text(), "deposit");
    // Only one editor is on screen however often it moved.
    int shown = 0;
    for (QLineEdit* e : view()->viewport()->findChildren<QLineEdit*>())
        shown += e->isVisible() ? 1 : 0;
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(savedField(1, schema::kTypeOfEntry), "deposit");
}

TEST_F(RegisterEditTest, AnAmountThatIsNotANumberChangesNothing) {
    const std::string before = readFile(yearFile());
    for (const char* bad : {"abc", "1e40"}) {
        prompter.shown.clear();
        type(kWaterRow, kAmount, bad);
        EXPECT_EQ(prompter.shown,
                  (std::vector<std::string>{"\"" + std::string(bad) + kNotAnAmountEnd}))
            << bad;
        EXPECT_EQ(readFile(yearFile()), before) << bad;
        EXPECT_EQ(cell(kWaterRow, kAmount), "48.60") << bad;
    }
    EXPECT_EQ(savedField(2, schema::kDebit), "48.60");
}

TEST_F(RegisterEditTest, ARightClickOnADescriptionPicksOneFromTheList) {
    // Elsewhere a right click opens the row operations; CANCEL changes nothing.
    const std::string untouched = readFile(yearFile());
    pickers->rowOperations = {{"cancel", ""}};
    click(kGroceriesRow, kAmount, Qt::RightButton);
    EXPECT_EQ(pickers->opened, (std::vector<std::string>{"row operations"}));
    EXPECT_EQ(readFile(yearFile()), untouched);
    EXPECT_EQ(session.view.markedRow, -1);

    pickers->descriptionAnswers = {"Corner Market"};
    click(kGroceriesRow, kDescription, Qt::RightButton);
    EXPECT_EQ(pickers->offeredDescriptions, descriptions(session.data.node()));
    EXPECT_EQ(savedField(17, schema::kDescription), "Corner Market");
    EXPECT_EQ(cell(kGroceriesRow, kDescription), "Corner Market");

    const std::string before = readFile(yearFile());
    pickers->descriptionAnswers = {"cancel"};
    click(kGroceriesRow, kDescription, Qt::RightButton);
    EXPECT_EQ(readFile(yearFile()), before);

    pickers->descriptionAnswers = {"clear"};
    click(kGroceriesRow, kDescription, Qt::RightButton);
    EXPECT_EQ(savedField(17, schema::kDescription), "");
    EXPECT_TRUE(isBlankCell(cell(kGroceriesRow, kDescription)));
    EXPECT_TRUE(prompter.shown.empty());
}

}  // namespace
}  // namespace tallix
