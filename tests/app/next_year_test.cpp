#include "app/next_year.h"

#include <gtest/gtest.h>

#include <map>

#include "app/data_folder.h"
#include "data/query.h"
#include "data/structure_check.h"
#include "data/values.h"
#include "register/month_display.h"

namespace tallix {
namespace {

using test::readFile;

// Every file of `folder` with its bytes.
std::map<std::string, std::string> filesIn(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] = readFile(entry.path());
    return files;
}

// The sample year as 2026's file, opened.
class NextYearTest : public test::DataFolderTest {
  protected:
    void SetUp() override {
        test::DataFolderTest::SetUp();
        addYearFile("tallix2026.xml", "examples/tallix2026.xml");
        setEntry("2026", "tallix2026.xml", "initialized");
        session.openDataFile("tallix2026.xml");
    }
    pugi::xml_node bankColumn(const Document& doc, size_t column) {
        return childAt(
            childAt(requireOne(doc.node(), paths::kInstitutionName, "First National"), 0), column);
    }
};

using Texts = std::vector<std::string>;

std::vector<std::string> textsOf(pugi::xml_node node) {
    std::vector<std::string> texts;
    for (pugi::xml_node child : elementChildren(node))
        texts.push_back(nodeText(child));
    return texts;
}

TEST_F(NextYearTest, DialogFieldsSuggestNextYearsDefaultName) {
    NextYearFields f = nextYearFields(session);
    EXPECT_EQ((Texts{f.currentYear, f.currentFileName, f.yearToMake, f.nextFileName}),
              (Texts{"2026", "tallix2026.xml", "2027", "tallix2027.xml"}));
}

// No name can replace the current year, another year, the index or a
// template, and none can leave the data folder.
TEST_F(NextYearTest, ANameThatCouldReplaceAFileOrLeaveTheFolderIsRefusedAndNothingIsWritten) {
    setEntry("2025", "old2025.xml", "initialized");  // named, not on disk
    test::writeFile(session.inDataFolder("notes.xml"), "<notes/>");
    const std::string same = next_year_texts::kSameFileName;
    const std::string bad = next_year_texts::badFileName(2027);
    // clang-format off
    const std::pair<const char*, std::string> cases[] = {
        {"tallix2026.xml", same}, {"./tallix2026.xml", same}, {"a/../tallix2026.xml", same},
        {"Tallix2026.XML", same}, {"tallix.xml", same}, {"first_tallix.xml", same},
        {"blank_tallix.xml", same}, {"old2025.xml", same}, {"notes.xml", same}, {"../x.xml", bad},
        {"a/x.xml", bad}, {"/tmp/x.xml", bad}, {"\\x.xml", bad}, {"c:x.xml", bad},
        {"tallix2027", bad}, {".xml", bad}, {"", bad}};
    // clang-format on
    const auto before = filesIn(session.dataFolder());
    for (const auto& [name, message] : cases) {
        prompter.shown.clear();
        EXPECT_FALSE(OnToolsMakenextyear(session, name)) << name;
        EXPECT_EQ(prompter.shown, Texts{message}) << name;
        EXPECT_EQ(filesIn(session.dataFolder()), before) << name;
        EXPECT_EQ(session.year, 2026);
        EXPECT_EQ(session.fileName, "tallix2026.xml");
    }
    EXPECT_FALSE(std::filesystem::exists(session.dataFolder().parent_path() / "x.xml"));
}

// A year file that cannot be written leaves the index as it was: the entry
// of the year to make still names its file.
TEST_F(NextYearTest, ANewFileThatCannotBeWrittenLeavesTheIndexAsItWas) {
    setEntry("2027", "tallix2027.xml", "initialized");
    const std::string index = readFile(session.indexPath());
    testing::internal::CaptureStderr();
    // A name the folder takes, but not the temporary file a save writes first.
    EXPECT_FALSE(OnToolsMakenextyear(session, std::string(251, 'n') + ".xml"));
    testing::internal::GetCapturedStderr();
    ASSERT_FALSE(prompter.shown.empty());
    EXPECT_EQ(prompter.shown.back(), "runtime error in OnToolsMakenextyear() ");
    EXPECT_EQ(readFile(session.indexPath()), index);
    EXPECT_EQ(session.year, 2026);
}

// The closings carried are the ones the year's lines make, worked out month
// by month, whatever the file held; the current year is saved with them and
// nothing due is posted into it.
TEST_F(NextYearTest, TheClosingsCarriedAreTheOnesTheYearsLinesMake) {
    const std::filesystem::path copy = tmp / "worked.xml";
    std::filesystem::copy_file(session.filePath, copy);
    Session worked(env, prompter);
    worked.openDataPath(copy);
    worked.setYear(2026);
    for (int m = 1; m <= 12; ++m) {
        worked.month = m;
        ASSERT_TRUE(Refresh(worked)) << m;  // the month's lines, nothing posted
    }
    const std::string closing = nodeText(elementChildren(bankColumn(worked.data, 1)).back());
    pugi::xml_node visa = requireOne(worked.data.node(), paths::kInstitutionName, "Visa");
    const std::string visaClosing = nodeText(elementChildren(visa).back());
    ASSERT_NE(closing, "0");

    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));

    EXPECT_EQ(childText(bankColumn(session.data, 1), 1), closing);
    EXPECT_EQ(childText(requireOne(session.data.node(), paths::kInstitutionName, "Visa"), 2),
              visaClosing);
    EXPECT_EQ(readFile(session.inDataFolder("tallix2026.xml")), readFile(copy));

    // Worked out already, the year is not written again.
    session.openDataFile("tallix2026.xml");
    session.setYear(2026);
    const auto written = std::filesystem::last_write_time(session.filePath);
    ASSERT_TRUE(OnToolsMakenextyear(session, "again.xml"));
    EXPECT_EQ(std::filesystem::last_write_time(session.inDataFolder("tallix2026.xml")), written);
}

TEST_F(NextYearTest, AFailureIsReportedAndTheSessionKeepsItsYear) {
    testing::internal::CaptureStderr();
    session.openDataFile("gone.xml");
    testing::internal::GetCapturedStderr();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(OnToolsMakenextyear(session, "tallix2027.xml"));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(prompter.shown, Texts{"runtime error in OnToolsMakenextyear() "});
    EXPECT_EQ(session.year, 2026);
    EXPECT_FALSE(std::filesystem::exists(session.inDataFolder("tallix2027.xml")));
}

TEST_F(NextYearTest, TheNewFileIsCarriedOverEnteredInTheIndexAndBecomesTheSessionsFile) {
    ASSERT_TRUE(OnToolsMakenextyear(session, "home 2027.xml"))
        << ::testing::PrintToString(prompter.shown);
    EXPECT_TRUE(prompter.shown.empty());

    Document index = Document::load(session.indexPath());
    EXPECT_EQ(textsOf(yearEntry(index.node(), "2027")), (Texts{"home 2027.xml", "initialized"}));
    EXPECT_EQ(yearLookup(index.node(), "2026"), "tallix2026.xml");
    EXPECT_EQ(session.year, 2027);
    EXPECT_EQ(session.yearText, "2027");
    EXPECT_EQ(session.fileName, "home 2027.xml");
    EXPECT_EQ(session.filePath, session.inDataFolder("home 2027.xml"));
    EXPECT_EQ(session.data.serialize(), readFile(session.filePath));

    // Carried over, and every month holds only its blank line.
    Document made = Document::load(session.filePath);
    EXPECT_EQ(checkStructure(made.node()), Texts{});
    for (int m = 1; m <= 12; ++m) {
        std::vector<pugi::xml_node> lines =
            selectAll(made.node(), paths::kMonthByName, monthName(m), paths::kCloseChildren);
        ASSERT_EQ(lines.size(), 1u) << monthName(m);
        EXPECT_EQ(attributeText("line", lines[0]), "1");
        EXPECT_EQ(textsOf(lines[0]), (Texts{"1", "", "", "", "", "", "", "", "", "", "", "debit"}));
    }
}

TEST_F(NextYearTest, AnIndexEntryIsCompletedOrAddedInYearOrder) {
    removeEntry("2027");
    ASSERT_TRUE(OnToolsMakenextyear(session, "tallix2027.xml"));

    Document index = Document::load(session.indexPath());
    pugi::xml_node added = yearEntry(index.node(), "2027");
    EXPECT_EQ(textsOf(added), (Texts{"tallix2027.xml", "initialized"}));
    EXPECT_EQ(attributeText("year", added.previous_sibling()), "2026");
    EXPECT_EQ(attributeText("year", added.next_sibling()), "2028");

    // An entry that lacks its status gains one.
    session.openDataFile("tallix2026.xml");
    session.setYear(2026);
    pugi::xml_node bare = yearEntry(session.index.node(), "2027");
    bare.remove_child("status");
    session.saveIndex();
    ASSERT_TRUE(OnToolsMakenextyear(session, "next.xml"));
    EXPECT_EQ(textsOf(yearEntry(Document::load(session.indexPath()).node(), "2027")),
              (Texts{"next.xml", "initialized"}));
}

// The carry-over rules on a small year, one of each kind of entry, leave
// tests/fixtures/carry_over_expected.xml: a register column's and a card's
// last closing starts the year and the closings are zeroed (a group without a
// column and a card without a column name stay as they were); a bill's month
// keeps its type, is not paid and its due date moves on a year; an
// accumulated expense's month keeps its dates; an income source forgets its
// schedule; a customer's item keeps its line, status and type.
TEST(CarryOver, FollowsTheRulesForEachKindOfEntry) {
    Document doc = Document::load(test::sourceDir() / "tests/fixtures/carry_over.xml");
    ASSERT_FALSE(doc.loadFailed());
    carryOverToNextYear(doc.node(), 2027);
    EXPECT_EQ(
        doc.serialize(),
        Document::load(test::sourceDir() / "tests/fixtures/carry_over_expected.xml").serialize());
}

TEST(CarryOver, DatesMoveToTheNewYearOnlyWhenTheyAreDates) {
    const std::pair<const char*, const char*> cases[] = {{"12/31/2026", "12/31/2027"},
                                                         {"3/4", "3/4/2027"},
                                                         {"0", "0"},
                                                         {"", ""},
                                                         {"soon", "soon"},
                                                         {"/5/2026", "/5/2026"},
                                                         {"12//2026", "12//2026"}};
    for (const auto& [date, moved] : cases)
        EXPECT_EQ(dateInYear(date, 2027), moved) << date;
}

}  // namespace
}  // namespace tallix
