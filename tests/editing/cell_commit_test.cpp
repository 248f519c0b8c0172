#include <gtest/gtest.h>

#include <sstream>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "editing/cell_commit.h"
#include "editing/check_lookup.h"
#include "reference/descriptions.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "register/plan_index.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix {
namespace {

using test::readFile;

// March of the sample year, shown, with one extra line that names no planned
// expense (a cheque to be matched by number) at the bottom.
class CellCommitTest : public ::testing::Test {
  protected:
    static test::FixedEnvironment inNovember() {
        test::FixedEnvironment e;
        e.date = {2026, 11, 21};
        return e;
    }
    void SetUp() override {
        std::string xml = readFile(test::sourceDir() / "examples" / "tallix2026.xml");
        const std::string unplanned =
            "<item line=\"25\"><day>1</day><expense></expense><debit></debit><check></check>"
            "<categoty></categoty><status></status><description></description>"
            "<institution>First National</institution><account>Checking</account><info></info>"
            "<accumulate></accumulate><typeofentry>debit</typeofentry></item>";
        size_t april = xml.find("<month month=\"April\"");
        xml.insert(xml.rfind("</month>", april), unplanned);
        test::writeFile(file(), xml);
        session.openDataPath(file());
        prepareColumns(session);
        session.month = 3;
        ASSERT_TRUE(showMonth(session, "3"));
        prompter.shown.clear();
    }
    std::filesystem::path file() const { return tmp / "tallix2026.xml"; }
    // The line's field as saved on disk.
    std::string savedField(int line, int child) {
        Document d = Document::load(file());
        return childText(monthLines(d.node(), "March").at(static_cast<size_t>(line - 1)),
                         static_cast<size_t>(child));
    }
    int row(int line) const { return line - 1; }
    const FieldColumns& f() const { return session.view.fields; }

    test::TempDir tmp;
    test::FixedEnvironment env = inNovember();
    test::ScriptedPrompter prompter;
    Session session{env, prompter};
};

TEST(CellText, BlanksAreNormalised) {
    EXPECT_EQ(normaliseBlanks("  two   words "), "two words");
    EXPECT_EQ(normaliseBlanks("   "), "");
}

TEST_F(CellCommitTest, ADescriptionIsStoredNormalisedAndOfferedForTheList) {
    prompter.answers = {Answer::No};
    EXPECT_TRUE(HideEditor(session, row(1), f().description, "  two   words "));
    EXPECT_EQ(savedField(1, schema::kDescription), "two words");
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{kDescriptionNotOnList}));
    EXPECT_FALSE(hasDescription(session.data.node(), "two words"));

    prompter.answers = {Answer::Yes};
    EXPECT_TRUE(HideEditor(session, row(2), f().description, "Bonus"));
    Document saved = Document::load(file());
    EXPECT_TRUE(hasDescription(saved.node(), "Bonus"));

    // A description already on the list asks nothing.
    prompter.shown.clear();
    EXPECT_TRUE(HideEditor(session, row(3), f().description, "Bonus"));
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(CellCommitTest, AmountsGetCentsOnlyWithoutAPointAndReachThePlan) {
    EXPECT_TRUE(HideEditor(session, row(1), f().amount, "12"));
    EXPECT_EQ(savedField(1, schema::kDebit), "12.00");
    EXPECT_TRUE(HideEditor(session, row(1), f().amount, "12.5"));
    EXPECT_EQ(savedField(1, schema::kDebit), "12.5");

    // Line 3 is the Water cheque: its plan entry for March gets the amount.
    EXPECT_TRUE(HideEditor(session, row(3), f().amount, "47"));
    Document saved = Document::load(file());
    pugi::xml_node water = selectOne(saved.node(), paths::kExpense, "Water");
    EXPECT_EQ(childText(monthEntry(water, 7, 3), 1), "47.00");
    EXPECT_NE(childText(monthEntry(water, 7, 4), 1), "47.00");
}

TEST_F(CellCommitTest, AReceivableAmountChangesThatLinesCustomerItemOfThisMonthOnly) {
    // Line 7 is Maple Street Bakery's March payment.
    Document before = Document::load(file());
    pugi::xml_node bakery = selectOne(before.node(), paths::kReceivable, "Maple Street Bakery");
    std::string april = nodeText(monthEntry(bakery, 4, 4));

    // The commit alone, without the update that follows it, writes the item.
    EXPECT_TRUE(commitCell(session, row(7), f().amount, "650"));
    Document saved = Document::load(file());
    pugi::xml_node customer = selectOne(saved.node(), paths::kReceivable, "Maple Street Bakery");
    bool found = false;
    for (pugi::xml_node item : elementChildren(monthEntry(customer, 4, 3)))
        if (childText(item, 0) == "7") {
            EXPECT_EQ(childText(item, 1), "650.00");
            found = true;
        }
    EXPECT_TRUE(found);
    EXPECT_EQ(nodeText(monthEntry(customer, 4, 4)), april);
    EXPECT_EQ(savedField(7, schema::kDebit), "650.00");
}

TEST_F(CellCommitTest, AnAmountIsTakenOnlyWhenTheWholeTextIsOneAmount) {
    EXPECT_TRUE(HideEditor(session, row(1), f().amount, "$1,234.56"));
    EXPECT_EQ(savedField(1, schema::kDebit), "1234.56");
    EXPECT_EQ(session.view.table.cell(row(1), f().amount), "1234.56");
    // On a line outside the plan too, and it is no check number.
    EXPECT_TRUE(HideEditor(session, row(25), f().amount, "-$45.10"));
    EXPECT_EQ(savedField(25, schema::kDebit), "45.10");  // a payment is made positive
    EXPECT_TRUE(prompter.shown.empty());

    std::string before = readFile(file());
    for (const char* bad : {"abc", "12abc", "1.2.3", "1e40"}) {
        prompter.shown.clear();
        EXPECT_FALSE(HideEditor(session, row(1), f().amount, bad));
        EXPECT_EQ(prompter.shown,
                  (std::vector<std::string>{"\"" + std::string(bad) +
                                            "\" is not an amount. Type a number "
                                            "such as 1234.56, -45.10 or $1,234.56."}));
        EXPECT_EQ(readFile(file()), before);
        EXPECT_EQ(session.view.table.cell(row(1), f().amount), "1234.56");
    }
}

TEST_F(CellCommitTest, ACheckNumberOnAnUnplannedLineMatchesTheMonthsCheque) {
    const int last = row(25);
    EXPECT_TRUE(HideEditor(session, last, f().check, "2046"));
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(savedField(25, schema::kCheck), "2046");
    EXPECT_EQ(savedField(25, schema::kTypeOfEntry), "posted check");
    EXPECT_EQ(savedField(25, schema::kDebit), "46.43");
    EXPECT_EQ(savedField(3, schema::kStatus), "cleared");

    EXPECT_TRUE(HideEditor(session, last, f().check, "9999"));
    EXPECT_EQ(prompter.shown, (std::vector<std::string>{kCheckNumberNotFound}));
    EXPECT_EQ(savedField(25, schema::kCheck), "9999");
}

// A typed status, and a check number on a check line, reach the plan's March
// entry of the line's expense; nothing else typed reaches the plan, and a line
// outside the plan (income, or naming no expense) changes the line only.
TEST_F(CellCommitTest, StatusAndCheckReachThePlanOnlyFromAPlannedLine) {
    auto water = [&](size_t child) {
        Document d = Document::load(file());
        return childText(monthEntry(requireOne(d.node(), paths::kExpense, "Water"), 7, 3), child);
    };
    auto plan = [&] {
        Document d = Document::load(file());
        std::ostringstream xml;
        for (pugi::xml_node entry : selectAll(d.node(), paths::kAllExpenses))
            entry.print(xml);
        return xml.str();
    };
    const struct {
        int line;
        int FieldColumns::*column;
        const char* text;
        size_t child;
    } outside[] = {{2, &FieldColumns::status, "pending", schema::kStatus},  // Acme Payroll
                   {25, &FieldColumns::status, "pending", schema::kStatus},
                   {3, &FieldColumns::account, "Savings", schema::kAccount},  // Water
                   {1, &FieldColumns::check, "77", schema::kCheck}};          // Gasoline, debit
    for (const auto& c : outside) {
        SCOPED_TRACE(c.line);
        const std::string before = plan();
        EXPECT_TRUE(HideEditor(session, row(c.line), f().*c.column, c.text));
        EXPECT_EQ(savedField(c.line, static_cast<int>(c.child)), c.text);
        EXPECT_EQ(plan(), before);
    }
    EXPECT_TRUE(HideEditor(session, row(3), f().status, "pending"));
    EXPECT_EQ(water(schema::kEntryStatus), "pending");
    EXPECT_TRUE(HideEditor(session, row(3), f().check, "2099"));
    EXPECT_EQ(water(schema::kEntryCheck), "2099");
    EXPECT_EQ(savedField(3, schema::kCheck), "2099");
    EXPECT_TRUE(prompter.shown.empty());
}

// A click that arrives while a commit waits for an answer is dropped.
TEST_F(CellCommitTest, ACommitDuringAnotherIsDropped) {
    bool nested = true;
    prompter.answers = {Answer::No};
    prompter.onQuestion = [&] { nested = HideEditor(session, row(1), f().amount, "5"); };
    EXPECT_TRUE(HideEditor(session, row(2), f().description, "A new one"));
    EXPECT_FALSE(nested);
    EXPECT_NE(savedField(1, schema::kDebit), "5.00");
    EXPECT_FALSE(session.view.committing);
    EXPECT_TRUE(HideEditor(session, row(1), f().amount, "5"));
    EXPECT_EQ(savedField(1, schema::kDebit), "5.00");

    // A row whose line is gone ends the commit: nothing is saved or updated.
    const std::string before = readFile(file());
    session.view.table.set(row(1), 3, "99");
    EXPECT_FALSE(HideEditor(session, row(1), f().amount, "6"));
    EXPECT_EQ(readFile(file()), before);
    EXPECT_EQ(session.view.table.cell(row(1), 3), "99");  // no update redrew the row
}

}  // namespace
}  // namespace tallix
