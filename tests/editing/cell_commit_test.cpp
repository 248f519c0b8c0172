// Typed cells committed on March of the sample year, with line 25 at the
// bottom naming no planned expense.
#include <sstream>

#include "editing/cell_commit.h"
#include "editing/check_lookup.h"
#include "editing/sample_march.h"
#include "reference/descriptions.h"

namespace tallix {
namespace {

using test::readFile;

class CellCommitTest : public test::SampleMarch {
  protected:
    void SetUp() override {
        SampleMarch::SetUp();
        addUnplannedLine();
    }
    std::string savedField(int line, size_t child) { return saved().field(line, child); }
    static int row(int line) { return line - 1; }
    bool type(int line, int column, const std::string& text) {
        return HideEditor(session(), row(line), column, text);
    }
};

TEST(CellText, BlanksAreNormalised) {
    EXPECT_EQ(normaliseBlanks("  two   words "), "two words");
    EXPECT_EQ(normaliseBlanks("   "), "");
}

TEST_F(CellCommitTest, ADescriptionIsStoredNormalisedAndOfferedForTheList) {
    year.prompter.answers = {Answer::No};
    EXPECT_TRUE(type(1, f().description, "  two   words "));
    EXPECT_EQ(savedField(1, schema::kDescription), "two words");
    EXPECT_EQ(year.prompter.shown, (std::vector<std::string>{kDescriptionNotOnList}));
    EXPECT_FALSE(hasDescription(session().data.node(), "two words"));

    year.prompter.answers = {Answer::Yes};
    EXPECT_TRUE(type(2, f().description, "Bonus"));
    Document saved = Document::load(year.path);
    EXPECT_TRUE(hasDescription(saved.node(), "Bonus"));

    // A description already on the list asks nothing.
    year.prompter.shown.clear();
    EXPECT_TRUE(type(3, f().description, "Bonus"));
    EXPECT_TRUE(year.prompter.shown.empty());
}

TEST_F(CellCommitTest, AmountsGetCentsOnlyWithoutAPointAndReachThePlan) {
    EXPECT_TRUE(type(1, f().amount, "12"));
    EXPECT_EQ(savedField(1, schema::kDebit), "12.00");
    EXPECT_TRUE(type(1, f().amount, "12.5"));
    EXPECT_EQ(savedField(1, schema::kDebit), "12.5");

    // Line 3 is the Water cheque: its plan entry for March gets the amount.
    EXPECT_TRUE(type(3, f().amount, "47"));
    EXPECT_EQ(saved().plan("Water", schema::kEntryAmount), "47.00");
    const std::string bytes = readFile(year.path);  // and no other month's entry
    EXPECT_EQ(bytes.find("<amount>47.00</amount>"), bytes.rfind("<amount>47.00</amount>"));
}

TEST_F(CellCommitTest, AReceivableAmountChangesThatLinesCustomerItemOfThisMonthOnly) {
    // Line 7 is Maple Street Bakery's March payment.
    Document before = Document::load(year.path);
    pugi::xml_node bakery = selectOne(before.node(), paths::kReceivable, "Maple Street Bakery");
    std::string april = nodeText(monthEntry(bakery, 4, 4));

    // The commit alone, without the update that follows it, writes the item.
    EXPECT_TRUE(commitCell(session(), row(7), f().amount, "650"));
    Document saved = Document::load(year.path);
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
    EXPECT_TRUE(type(1, f().amount, "$1,234.56"));
    EXPECT_EQ(savedField(1, schema::kDebit), "1234.56");
    EXPECT_EQ(session().view.table.cell(row(1), f().amount), "1234.56");
    // On a line outside the plan too, and it is no check number.
    EXPECT_TRUE(type(25, f().amount, "-$45.10"));
    EXPECT_EQ(savedField(25, schema::kDebit), "45.10");  // a payment is made positive
    EXPECT_TRUE(year.prompter.shown.empty());

    std::string before = readFile(year.path);
    for (const char* bad : {"abc", "12abc", "1.2.3", "1e40"}) {
        year.prompter.shown.clear();
        EXPECT_FALSE(type(1, f().amount, bad));
        EXPECT_EQ(year.prompter.shown,
                  (std::vector<std::string>{"\"" + std::string(bad) +
                                            "\" is not an amount. Type a number "
                                            "such as 1234.56, -45.10 or $1,234.56."}));
        EXPECT_EQ(readFile(year.path), before);
        EXPECT_EQ(session().view.table.cell(row(1), f().amount), "1234.56");
    }
}

TEST_F(CellCommitTest, ACheckNumberOnAnUnplannedLineMatchesTheMonthsCheque) {
    EXPECT_TRUE(type(25, f().check, "2046"));
    EXPECT_TRUE(year.prompter.shown.empty());
    EXPECT_EQ(savedField(25, schema::kCheck), "2046");
    EXPECT_EQ(savedField(25, schema::kTypeOfEntry), "posted check");
    EXPECT_EQ(savedField(25, schema::kDebit), "46.43");
    EXPECT_EQ(savedField(3, schema::kStatus), "cleared");

    EXPECT_TRUE(type(25, f().check, "9999"));
    EXPECT_EQ(year.prompter.shown, (std::vector<std::string>{kCheckNumberNotFound}));
    EXPECT_EQ(savedField(25, schema::kCheck), "9999");
}

// A typed status, and a check number on a check line, reach the plan's March
// entry of the line's expense; nothing else typed reaches the plan, and a line
// outside the plan (income, or naming no expense) changes the line only.
TEST_F(CellCommitTest, StatusAndCheckReachThePlanOnlyFromAPlannedLine) {
    auto plan = [&] {
        Document d = Document::load(year.path);
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
        EXPECT_TRUE(type(c.line, f().*c.column, c.text));
        EXPECT_EQ(savedField(c.line, c.child), c.text);
        EXPECT_EQ(plan(), before);
    }
    EXPECT_TRUE(type(3, f().status, "pending"));
    EXPECT_EQ(saved().plan("Water", schema::kEntryStatus), "pending");
    EXPECT_TRUE(type(3, f().check, "2099"));
    EXPECT_EQ(saved().plan("Water", schema::kEntryCheck), "2099");
    EXPECT_EQ(savedField(3, schema::kCheck), "2099");
    EXPECT_TRUE(year.prompter.shown.empty());
}

// A click that arrives while a commit waits for an answer is dropped.
TEST_F(CellCommitTest, ACommitDuringAnotherIsDropped) {
    bool nested = true;
    year.prompter.answers = {Answer::No};
    year.prompter.onQuestion = [&] { nested = type(1, f().amount, "5"); };
    EXPECT_TRUE(type(2, f().description, "A new one"));
    EXPECT_FALSE(nested);
    EXPECT_NE(savedField(1, schema::kDebit), "5.00");
    EXPECT_FALSE(session().view.committing);
    EXPECT_TRUE(type(1, f().amount, "5"));
    EXPECT_EQ(savedField(1, schema::kDebit), "5.00");

    // A row whose line is gone ends the commit: nothing is saved or updated.
    const std::string before = readFile(year.path);
    session().view.table.set(row(1), 3, "99");
    EXPECT_FALSE(type(1, f().amount, "6"));
    EXPECT_EQ(readFile(year.path), before);
    EXPECT_EQ(session().view.table.cell(row(1), 3), "99");  // no update redrew the row

    // A commit that fails (a receivable line naming no customer) is reported,
    // and neither saves nor updates.
    session().view.table.set(row(7), f().expense, "Nobody");
    year.prompter.shown.clear();
    EXPECT_FALSE(type(7, f().amount, "1"));
    EXPECT_EQ(year.prompter.shown, (std::vector<std::string>{"runtime error in HideEditor() "}));
    EXPECT_EQ(readFile(year.path), before);
    EXPECT_EQ(session().view.table.cell(row(7), f().expense), "Nobody");
}

}  // namespace
}  // namespace tallix
