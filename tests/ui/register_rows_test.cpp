// One sitting at the main window on November of the sample year, with real
// clicks and keys: insert a check line, pick its expense, type its amount,
// record a transfer, delete a line. Then every balance cell of the month and
// the saved file are checked against sums worked out here.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <cmath>

#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "register/plan_index.h"
#include "ui/grid_clicks.h"
#include "ui/grid_model.h"
#include "ui/register_grid.h"
#include "ui/sample_year.h"
#include "ui/scripted_pickers.h"
#include "ui/tallix_dlg.h"

namespace tallix {
namespace {

// The sample's balance columns.
constexpr int kFnRegister = 13, kFnBank = 14, kFnOutstanding = 15, kFnSavings = 16;
constexpr double kStart = 10000.00, kCardStart = 5000.00;

class RegisterRowsTest : public test::SampleYearTest {
  protected:
    void SetUp() override {
        test::SampleYearTest::SetUp();
        startNovemberFrom(kStart, kCardStart);
        window.OnInitDialog();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        auto owned = std::make_unique<test::ScriptedPickers>();
        pickers = owned.get();
        window.findChild<ui::RegisterGrid*>()->setPickers(std::move(owned));
        ASSERT_EQ(session.view.lineCount, 21);
        prompter.shown.clear();
    }

    // Every account and card starts November in credit, so that no balance
    // of the month is negative.
    void startNovemberFrom(double bank, double card) {
        Document d = Document::load(yearFile());
        for (pugi::xml_node b : elementChildren(childAt(selectOne(d.node(), paths::kBanks), 0)))
            for (pugi::xml_node account : elementChildren(b))
                for (size_t group : {1, 2})
                    if (childText(childAt(account, group), 0) != "0")
                        setChildText(childAt(account, group), 11, amountToText(bank));
        for (pugi::xml_node c :
             elementChildren(childAt(selectOne(d.node(), paths::kCreditCards), 0)))
            setChildText(c, 15, amountToText(card));
        d.save(yearFile());
    }

    QTableView* view() { return window.grid(); }
    void click(int row, int column, Qt::MouseButton button = Qt::LeftButton) {
        test::clickCell(window, row, column, button);
    }
    void rightClick(int row, RowOperationChoice choice) {
        pickers->rowOperations.push_back(std::move(choice));
        click(row, f().amount, Qt::RightButton);
    }
    void type(int row, int column, const QString& text) {
        test::doubleClickCell(window, row, column);
        QLineEdit* editor = window.findChild<ui::RegisterGrid*>()->openEditorWidget();
        ASSERT_NE(editor, nullptr);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
    const FieldColumns& f() { return session.view.fields; }
    std::string cell(int row, int column) { return session.view.table.cell(row, column); }
    std::vector<std::vector<std::string>> balanceCells() {
        std::vector<std::vector<std::string>> rows;
        for (int r = 0; r <= session.view.lineCount; ++r) {
            rows.emplace_back();
            for (int c = f().account + 1; c < f().info; ++c)
                rows.back().push_back(cell(r, c));
        }
        return rows;
    }

    ui::CTallixDlg window{session};
    test::ScriptedPickers* pickers = nullptr;
};

TEST_F(RegisterRowsTest, ASittingOfRowChangesLeavesBalancesAndFileAsWorkedOut) {
    const auto before = balanceCells();
    auto was = [&](int row, int column) {
        return textToAmount(
            before[static_cast<size_t>(row)][static_cast<size_t>(column - f().account - 1)]);
    };

    // 1. A check line before Resturants (line 3, the 23rd), filled from the
    //    plan and given its amount.
    rightClick(2, {"insert", "check"});
    EXPECT_EQ(session.view.lineCount, 22);
    pickers->expensePicks = {{"Groceries", "Living"}};
    click(2, f().expense);
    type(2, f().amount, "25.50");
    EXPECT_EQ(cell(2, f().status), "pending");
    EXPECT_EQ(cell(2, f().institution), "First National");

    // 2. A transfer of 200.00 from Checking to Savings on a new deposit line
    //    at the top.
    rightClick(0, {"insert", "deposit"});
    pickers->expensePicks = {{"Savings Transfer", ""}};
    pickers->transfers = {
        TransferAnswer{"First National", "Checking", "First National", "Savings", "200.00"}};
    click(0, f().expense);

    // 3. The Water check (48.60, now line 3) deleted.
    ASSERT_EQ(cell(2, f().expense), "Water");
    rightClick(2, {"delete", ""});

    EXPECT_EQ(pickers->opened,
              (std::vector<std::string>{"row operations", "expense 3", "row operations",
                                        "expense 4", "transfer", "row operations"}));
    EXPECT_TRUE(prompter.shown.empty()) << prompter.shown.front();
    ASSERT_EQ(session.view.lineCount, 22);

    // Worked out from the balances before: the lines below the new check keep
    // theirs (one row further down); the check takes 25.50 off the register;
    // Acme Payroll adds 3244.50 to both; the transfer moves 200.00.
    auto expected = before;
    expected.insert(expected.begin(), 2, {});
    expected.erase(expected.begin() + 2);  // the Water check is gone
    auto set = [&](int row, int column, double value) {
        expected[static_cast<size_t>(row)][static_cast<size_t>(column - f().account - 1)] =
            amountToText(value);
    };
    for (int row : {0, 1, 2})
        expected[static_cast<size_t>(row)] = before[2];
    const double checkRegister = was(2, kFnRegister) - 25.50, checkBank = was(2, kFnBank);
    const double payRegister = checkRegister + 3244.50, payBank = checkBank + 3244.50;
    const double moveRegister = payRegister - 200.00, moveBank = payBank - 200.00;
    set(2, kFnRegister, checkRegister);
    set(2, kFnOutstanding, std::fabs(checkRegister - checkBank));
    set(1, kFnRegister, payRegister);
    set(1, kFnBank, payBank);
    set(1, kFnOutstanding, std::fabs(payRegister - payBank));
    set(0, kFnRegister, moveRegister);
    set(0, kFnBank, moveBank);
    set(0, kFnOutstanding, std::fabs(moveRegister - moveBank));
    set(0, kFnSavings, was(2, kFnSavings) + 200.00);
    EXPECT_EQ(balanceCells(), expected);

    // The file: 22 lines numbered in order, the transfer and the check as
    // written, the customers' items one line further down, and December
    // starting from the new first row.
    Document saved = Document::load(yearFile());
    std::vector<pugi::xml_node> lines =
        elementChildren(selectOne(saved.node(), paths::kMonthByName, "November"));
    ASSERT_EQ(lines.size(), 22u);
    for (size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(attributeText("line", lines[i]), std::to_string(i + 1));
    auto fields = [&](size_t line) {
        std::vector<std::string> texts;
        for (pugi::xml_node child : elementChildren(lines[line - 1]))
            texts.push_back(nodeText(child));
        return texts;
    };
    EXPECT_EQ(fields(1), (std::vector<std::string>{"25", "Savings Transfer", "200.00", "", "", "",
                                                   "", "First National", "Checking",
                                                   "First National", "Savings", "deposit"}));
    EXPECT_EQ(fields(3),
              (std::vector<std::string>{"23", "Groceries", "25.50", "", "Living", "pending", "",
                                        "First National", "Checking", "", "accumulate", "check"}));
    EXPECT_EQ(fields(2)[schema::kExpense], "Acme Payroll");
    EXPECT_EQ(fields(4)[schema::kExpense], "Resturants");
    auto firstItem = [&](const char* customer) {
        pugi::xml_node c = requireOne(saved.node(), paths::kReceivable, customer);
        return childText(childAt(monthEntry(c, schema::kCustomerMonths, 11), 0), 0);
    };
    EXPECT_EQ(firstItem("Riverside Garden Club"), "13");
    EXPECT_EQ(firstItem("Maple Street Bakery"), "17");
    pugi::xml_node checking =
        childAt(requireOne(saved.node(), paths::kInstitutionName, "First National"), 0);
    EXPECT_EQ(childText(childAt(checking, 1), 12), amountToText(moveRegister));
    EXPECT_EQ(childText(childAt(checking, 2), 12), amountToText(moveBank));
    pugi::xml_node transfers = requireOne(saved.node(), paths::kIncome, "Savings Transfer");
    EXPECT_EQ(childText(monthEntry(transfers, schema::kIncomeMonths, 11), 1), "500.00");
}

}  // namespace
}  // namespace tallix
