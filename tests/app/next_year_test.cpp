#include "app/next_year.h"

#include <gtest/gtest.h>

#include <set>

#include "app/first_run.h"
#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/values.h"
#include "data/year_lookup.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix {
namespace {

using test::readFile;

std::set<std::string> filesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

// A data folder holding a copy of the sample year as 2026's file, opened on
// 15 March 2026.
class NextYearTest : public ::testing::Test {
  protected:
    void SetUp() override {
        env.root = tmp / "root";
        env.documents = tmp / "docs";
        installMissingFiles(session.dataFolder(), env.documents);
        loadOrCreateIndex(session);
        std::filesystem::copy_file(test::sourceDir() / "examples/tallix2026.xml",
                                   session.inDataFolder("tallix2026.xml"));
        setChildText(yearEntry(session.index.node(), "2026"), 0, "tallix2026.xml");
        session.saveIndex();
        session.openDataFile("tallix2026.xml");
    }

    pugi::xml_node bankColumn(const Document& doc, size_t column) {
        return childAt(
            childAt(requireOne(doc.node(), paths::kInstitutionName, "First National"), 0), column);
    }
    pugi::xml_node planMonth(const Document& doc, const std::string& expense, int month) {
        return childAt(childAt(requireOne(doc.node(), paths::kExpense, expense), 7),
                       static_cast<size_t>(month - 1));
    }

    test::TempDir tmp;
    test::FixedEnvironment env;
    test::ScriptedPrompter prompter;
    Session session{env, prompter};
};

TEST_F(NextYearTest, DialogFieldsSuggestNextYearsDefaultName) {
    NextYearFields fields = nextYearFields(session);
    EXPECT_EQ(fields.currentYear, "2026");
    EXPECT_EQ(fields.currentFileName, "tallix2026.xml");
    EXPECT_EQ(fields.yearToMake, "2027");
    EXPECT_EQ(fields.nextFileName, "tallix2027.xml");
}

TEST_F(NextYearTest, TheCurrentFileNameIsRefusedAndNothingIsWritten) {
    const std::set<std::string> before = filesIn(session.dataFolder());
    const std::string index = readFile(session.indexPath());
    const std::string data = readFile(session.filePath);

    EXPECT_FALSE(OnToolsMakenextyear(session, "tallix2026.xml"));

    ASSERT_EQ(prompter.shown.size(), 1u);
    EXPECT_EQ(prompter.shown[0],
              "You are atempting to set next years tallix datafile to the same as the current "
              "filename.\nThis would overwrite your tallix's current data, or a previous years "
              "data,  so this has been prevented. Please select a differnt filenamwe");
    EXPECT_EQ(filesIn(session.dataFolder()), before);
    EXPECT_EQ(readFile(session.indexPath()), index);
    EXPECT_EQ(readFile(session.filePath), data);
    EXPECT_EQ(session.year, 2026);
    EXPECT_EQ(session.fileName, "tallix2026.xml");
}

TEST_F(NextYearTest, TheNewFileIsEnteredInTheIndexAndBecomesTheSessionsFile) {
    const std::string lastYear = readFile(session.filePath);
    ASSERT_TRUE(OnToolsMakenextyear(session, "home 2027.xml"))
        << ::testing::PrintToString(prompter.shown);

    Document index = Document::load(session.indexPath());
    EXPECT_EQ(yearLookup(index.node(), "2027"), "home 2027.xml");
    EXPECT_EQ(childText(yearEntry(index.node(), "2027"), 1), "initialized");
    EXPECT_EQ(yearLookup(index.node(), "2026"), "tallix2026.xml");
    EXPECT_EQ(session.year, 2027);
    EXPECT_EQ(session.yearText, "2027");
    EXPECT_EQ(session.fileName, "home 2027.xml");
    EXPECT_EQ(session.filePath, session.inDataFolder("home 2027.xml"));
    EXPECT_EQ(session.data.serialize(), readFile(session.filePath));
    EXPECT_EQ(readFile(session.inDataFolder("tallix2026.xml")), lastYear);
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(NextYearTest, AMissingIndexEntryIsAddedInYearOrder) {
    pugi::xml_node entry = yearEntry(session.index.node(), "2027");
    entry.parent().remove_child(entry);
    session.saveIndex();

    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));

    Document index = Document::load(session.indexPath());
    pugi::xml_node added = yearEntry(index.node(), "2027");
    ASSERT_TRUE(added);
    EXPECT_EQ(childText(added, 0), "tallix2027.xml");
    EXPECT_EQ(childText(added, 1), "initialized");
    EXPECT_EQ(attributeText("year", added.previous_sibling()), "2026");
    EXPECT_EQ(attributeText("year", added.next_sibling()), "2028");
}

TEST_F(NextYearTest, MakingNextYearTwiceWithOneNameOverwritesTheFirst) {
    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));
    session.openDataFile("tallix2026.xml");
    session.setYear(2026);
    setNodeText(elementChildren(bankColumn(session.data, 1)).back(), "777.77");
    session.saveData();

    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));

    Document made = Document::load(session.inDataFolder("tallix2027.xml"));
    EXPECT_EQ(childText(bankColumn(made, 1), 1), "777.77");
    EXPECT_EQ(yearLookup(Document::load(session.indexPath()).node(), "2027"), "tallix2027.xml");
}

TEST_F(NextYearTest, EveryMonthHoldsOnlyItsBlankLine) {
    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));
    Document made = Document::load(session.filePath);
    for (int m = 1; m <= 12; ++m) {
        std::vector<pugi::xml_node> lines =
            selectAll(made.node(), paths::kMonthByName, monthName(m), paths::kCloseChildren);
        ASSERT_EQ(lines.size(), 1u) << monthName(m);
        EXPECT_EQ(attributeText("line", lines[0]), "1");
        std::vector<pugi::xml_node> fields = elementChildren(lines[0]);
        ASSERT_EQ(fields.size(), 12u);
        EXPECT_STREQ(fields[0].name(), "day");
        EXPECT_STREQ(fields[4].name(), "categoty");
        EXPECT_STREQ(fields[11].name(), "typeofentry");
        for (size_t i = 0; i < fields.size(); ++i)
            EXPECT_EQ(nodeText(fields[i]), i == 0 ? "1" : i == 11 ? "debit" : "") << i;
    }
}

TEST_F(NextYearTest, ClosingsBecomeLastYearsClosingAndThePlanRollsOver) {
    // December's closings as a year's updates leave them.
    setNodeText(elementChildren(bankColumn(session.data, 1)).back(), "5120.40");
    setNodeText(elementChildren(bankColumn(session.data, 2)).back(), "5200.00");
    pugi::xml_node visa = requireOne(session.data.node(), paths::kInstitutionName, "Visa");
    setNodeText(elementChildren(visa).back(), "-310.15");
    setChildText(planMonth(session.data, "Mortgage", 4), 4, "no entry");

    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));
    Document made = Document::load(session.filePath);

    EXPECT_EQ(childText(bankColumn(made, 1), 1), "5120.40");
    EXPECT_EQ(childText(bankColumn(made, 2), 1), "5200.00");
    visa = requireOne(made.node(), paths::kInstitutionName, "Visa");
    EXPECT_EQ(childText(visa, 2), "-310.15");
    EXPECT_EQ(childText(visa, 3), "21.99");  // apr, closing and due day stay
    for (size_t i = 6; i < 18; ++i)
        EXPECT_EQ(childText(visa, i), "0");
    for (size_t i = 2; i < 14; ++i)
        EXPECT_EQ(childText(bankColumn(made, 1), i), "0");

    // Mortgage is an "auto" expense paid every month of 2026.
    pugi::xml_node january = planMonth(made, "Mortgage", 1);
    EXPECT_EQ(childText(january, 1), "0");
    EXPECT_EQ(childText(january, 2), "0");
    EXPECT_EQ(childText(january, 3), "1/1/2027");
    EXPECT_EQ(childText(january, 4), "notpaid");
    EXPECT_EQ(childText(january, 6), "0");
    pugi::xml_node april = planMonth(made, "Mortgage", 4);
    EXPECT_EQ(childText(april, 4), "no entry");
    EXPECT_EQ(childText(april, 3), "4/1/2026");  // a month left out keeps its date
}

// The carry-over rules on a small year, one of each kind of entry.
constexpr const char* kSmallYear = R"(<tallix>
  <financial-institutions>
    <financial-institution id="banks"><names><name id="B">
      <bankaccount><account>Checking</account>
        <regcolumn><title>R</title><lastyearclosing>1</lastyearclosing><closing>2</closing><closing>3</closing></regcolumn>
        <bankcolumn><title>0</title><lastyearclosing>4</lastyearclosing><closing>5</closing><closing>6</closing></bankcolumn>
        <outstanding><title>O</title><lastyearclosing>7</lastyearclosing><closing>8</closing><closing>9</closing></outstanding>
      </bankaccount></name></names></financial-institution>
    <financial-institution id="creditcards"><names><name id="Old">
      <type>creditcards</type><columnname>0</columnname><lastyearclosing>1</lastyearclosing><apr>2</apr><closingday>3</closingday><dueday>4</dueday><closing>5</closing>
    </name></names></financial-institution>
  </financial-institutions>
  <catagories><category id="C"><type>category</type><numberItems>2</numberItems><names>
    <name id="Gym"><category>C</category><type>recurring</type><account>a</account><closingday>1</closingday><institution>B</institution><reset>9</reset><amount>30</amount><months>
      <month><name>January</name><amount>30</amount><datepaid>1/3/2026</datepaid><duedate>1/5/2026</duedate><status>cleared</status><type>check</type><check>101</check></month>
      <month><name>February</name><amount>30</amount><datepaid>0</datepaid><duedate>0</duedate><status>pending</status><type>0</type><check>102</check></month>
      <month><name>March</name><amount>30</amount><datepaid>0</datepaid><duedate></duedate><status>no entry</status><type>0</type><check>103</check></month>
    </months></name>
    <name id="Food"><category>C</category><type>accumulate</type><account>a</account><closingday>1</closingday><institution>B</institution><reset>9</reset><amount>0</amount><months>
      <month><name>January</name><amount>410</amount><datepaid>1/9/2026</datepaid><duedate>1/9/2026</duedate><status>cleared</status><type>0</type><check>7</check></month>
    </months></name>
  </names></category></catagories>
  <income><name id="Job"><institution>B</institution><account>Checking</account><type>auto date</type><dayordate>25</dayordate><daynumber>3</daynumber><amount>100</amount><months>
    <month><name>January</name><amount>100</amount><date>1/25/2026</date><status>cleared</status></month>
  </months></name></income>
  <receivables><name id="Cust"><number>12</number><institution>B</institution><account>Checking</account><amount>50</amount><months>
    <month><revenue><line>3</line><amount>50</amount><datepaid>1/2/2026</datepaid><duedate>1/1/2026</duedate><status>cleared</status><type>receivable</type><check>5</check></revenue>
      <revenue><line>DUMMY</line><amount>0</amount><datepaid>0</datepaid><duedate>0</duedate><status>no entry</status><type>0</type><check>0</check></revenue></month>
  </months></name></receivables>
</tallix>)";

std::vector<std::string> textsOf(pugi::xml_node node) {
    std::vector<std::string> texts;
    for (pugi::xml_node child : elementChildren(node))
        texts.push_back(nodeText(child));
    return texts;
}

using Texts = std::vector<std::string>;

TEST(CarryOver, FollowsTheRulesForEachKindOfEntry) {
    Document doc = Document::parse(kSmallYear, "small year");
    ASSERT_FALSE(doc.loadFailed());
    carryOverToNextYear(doc.node(), 2027);
    pugi::xml_node root = doc.node();

    pugi::xml_node account = childAt(requireOne(root, paths::kInstitutionName, "B"), 0);
    EXPECT_EQ(textsOf(childAt(account, 1)), (Texts{"R", "3", "0", "0"}));
    EXPECT_EQ(textsOf(childAt(account, 2)), (Texts{"0", "4", "5", "6"}));  // no such column
    EXPECT_EQ(textsOf(childAt(account, 3)), (Texts{"O", "7", "8", "9"}));  // left as it was
    EXPECT_EQ(textsOf(requireOne(root, paths::kInstitutionName, "Old")),
              (Texts{"creditcards", "0", "1", "2", "3", "4", "5"}));

    pugi::xml_node gym = requireOne(root, paths::kExpense, "Gym");
    EXPECT_EQ(childText(gym, 5), "0");
    EXPECT_EQ(childText(gym, 6), "30");  // the repeating amount stays
    std::vector<pugi::xml_node> months = elementChildren(childAt(gym, 7));
    EXPECT_EQ(textsOf(months[0]),
              (Texts{"January", "0", "0", "1/5/2027", "notpaid", "check", "0"}));
    EXPECT_EQ(textsOf(months[1]), (Texts{"February", "0", "0", "0", "notpaid", "0", "0"}));
    EXPECT_EQ(textsOf(months[2]), (Texts{"March", "0", "0", "", "no entry", "0", "0"}));

    pugi::xml_node food = requireOne(root, paths::kExpense, "Food");
    EXPECT_EQ(childText(food, 5), "0");
    EXPECT_EQ(textsOf(childAt(childAt(food, 7), 0)),
              (Texts{"January", "0", "1/9/2026", "1/9/2026", "cleared", "0", "7"}));

    pugi::xml_node job = requireOne(root, paths::kIncome, "Job");
    Texts source = textsOf(job);
    source.pop_back();  // the months
    EXPECT_EQ(source, (Texts{"B", "Checking", "0", "0", "0", "100"}));
    EXPECT_EQ(textsOf(childAt(childAt(job, 6), 0)), (Texts{"January", "0", "0", "0"}));

    pugi::xml_node january = childAt(childAt(requireOne(root, paths::kReceivable, "Cust"), 4), 0);
    EXPECT_EQ(textsOf(childAt(january, 0)),
              (Texts{"3", "0", "0", "1/1/2027", "cleared", "receivable", "5"}));
    EXPECT_EQ(textsOf(childAt(january, 1)), (Texts{"DUMMY", "0", "0", "0", "no entry", "0", "0"}));
}

TEST(CarryOver, DatesMoveToTheNewYearOnlyWhenTheyAreDates) {
    EXPECT_EQ(dateInYear("12/31/2026", 2027), "12/31/2027");
    EXPECT_EQ(dateInYear("3/4", 2027), "3/4/2027");
    EXPECT_EQ(dateInYear("0", 2027), "0");
    EXPECT_EQ(dateInYear("", 2027), "");
    EXPECT_EQ(dateInYear("soon", 2027), "soon");
}

}  // namespace
}  // namespace tallix
