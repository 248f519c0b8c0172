#include <gtest/gtest.h>

#include "app/data_folder.h"
#include "app/startup.h"
#include "app/year_files.h"
#include "data/query.h"

namespace tallix {
namespace {

using test::readFile;
using test::writeFile;

using YearFilesTest = test::DataFolderTest;

TEST_F(YearFilesTest, FirstRunInstallsTemplatesAndCreatesTheIndexFromTheFirstTemplate) {
    EXPECT_TRUE(std::filesystem::exists(session.inDataFolder("blank_tallix.xml")));
    EXPECT_TRUE(std::filesystem::is_directory(env.documents / "tallix" / "backup"));
    EXPECT_EQ(readFile(session.indexPath()), readFile(session.inDataFolder("first_tallix.xml")));
    for (const std::string& year : yearsMenuItems())
        EXPECT_EQ(yearLookup(session.index.node(), year), "no file for this year") << year;

    // A second run neither replaces the templates nor the index.
    writeFile(session.inDataFolder("blank_tallix.xml"), "<tallix>mine</tallix>");
    setEntry("2026", "tallix2026.xml", "initialized");
    installMissingFiles(session.dataFolder(), env.documents);
    loadOrCreateIndex(session);
    EXPECT_EQ(readFile(session.inDataFolder("blank_tallix.xml")), "<tallix>mine</tallix>");
    EXPECT_EQ(yearLookup(session.index.node(), "2026"), "tallix2026.xml");
}

TEST_F(YearFilesTest, AnUnreadableIndexIsKeptAsideWhenTheFirstTemplateReplacesIt) {
    writeFile(session.indexPath(), "<tallix><year year='2026'>");
    testing::internal::CaptureStderr();
    loadOrCreateIndex(session);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Failed to load DOM from stocks.xml."),
              std::string::npos);
    EXPECT_FALSE(session.index.loadFailed());
    auto aside = session.indexPath();
    aside += ".unreadable";
    EXPECT_EQ(readFile(aside), "<tallix><year year='2026'>");
}

TEST_F(YearFilesTest, StartupTakesTheIndexedFileOrTheLookupTextWithoutAsking) {
    setEntry("2026", "tallix2026.xml", "initialized");
    EXPECT_EQ(chooseStartupFile(session), "tallix2026.xml");
    removeEntry("2026");
    EXPECT_EQ(chooseStartupFile(session), "no entry for year 2026");
    EXPECT_TRUE(prompter.shown.empty());
    EXPECT_EQ(session.year, 2026);
}

TEST_F(YearFilesTest, StartupWithoutAFileOffersThePreviousYear) {
    addYearFile("tallix2025.xml");
    setEntry("2025", "tallix2025.xml", "initialized");
    for (Answer answer : {Answer::Yes, Answer::Cancel}) {
        session.setYear(2026);
        prompter.shown.clear();
        prompter.answers = {answer};
        EXPECT_EQ(chooseStartupFile(session), "tallix2025.xml");
        EXPECT_EQ(session.year, 2025);
        EXPECT_EQ(session.yearText, "2025");
        ASSERT_EQ(prompter.shown.size(), 2u);
        EXPECT_EQ(prompter.shown[0], year_texts::kNoFileForCurrentYear);
        EXPECT_EQ(prompter.shown[1], "Do you want to load the previous years data file or");
    }
}

// The notice that ends a start-up where no year file was chosen.
constexpr const char* kCloses =
    "No data file was chosen for this year, so Tallix closes. Start Tallix again to choose an "
    "existing data file or to begin the year with a blank one.";

// Every answer to the start-up questions on a fresh data folder (on 15 March
// 2026) ends with a year file open and indexed, or with the closing notice and
// the index as it was.
TEST_F(YearFilesTest, EveryStartupAnswerOnAFreshFolderOpensAYearOrSaysWhyItCloses) {
    using enum Answer;
    std::filesystem::copy_file(session.inDataFolder("blank_tallix.xml"), tmp / "mine.xml");
    const std::optional<std::filesystem::path> cancelled;
    const struct {
        std::vector<Answer> answers;
        std::vector<std::optional<std::filesystem::path>> picks;
        std::string file;  // "" when start-up closes
        int year;
    } cases[] = {
        {{Yes, Yes}, {tmp / "mine.xml"}, "mine.xml", 2025},
        {{Cancel, Yes}, {tmp / "mine.xml"}, "mine.xml", 2025},
        {{Yes, Yes}, {cancelled}, "", 2025},
        {{Yes, No}, {}, "tallix2026.xml", 2026},
        {{Cancel, No}, {}, "tallix2026.xml", 2026},
        {{No, Yes}, {}, "tallix2026.xml", 2026},
        {{No, No}, {}, "", 2026},
        {{No, Cancel}, {}, "", 2026},
    };
    int run = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(run);
        env.root = tmp / ("run" + std::to_string(++run));
        test::ScriptedPrompter asked;
        asked.answers = {c.answers.begin(), c.answers.end()};
        asked.files = {c.picks.begin(), c.picks.end()};
        Session fresh(env, asked);
        testing::internal::CaptureStderr();
        installMissingFiles(fresh.dataFolder(), env.documents);
        loadOrCreateIndex(fresh);
        const std::string index = readFile(fresh.indexPath());
        EXPECT_EQ(openYearAtStartup(fresh), !c.file.empty());
        testing::internal::GetCapturedStderr();

        EXPECT_TRUE(asked.answers.empty() && asked.files.empty());
        EXPECT_EQ(fresh.year, c.year);
        EXPECT_EQ(fresh.fileName, c.file);
        if (c.file.empty()) {
            EXPECT_EQ(asked.shown.back(), kCloses);
            EXPECT_EQ(readFile(fresh.indexPath()), index);
            continue;
        }
        EXPECT_FALSE(fresh.data.loadFailed());
        Document onDisk = Document::load(fresh.indexPath());
        EXPECT_EQ(yearLookup(onDisk.node(), std::to_string(c.year)), c.file);
    }
}

// A blank year is the template copied to the year's own file: what the user
// enters lands there, never in the template or in another year's file.
TEST_F(YearFilesTest, ABlankYearIsCopiedToTheYearsOwnFile) {
    const std::string blank = readFile(session.inDataFolder("blank_tallix.xml"));
    for (int year : {2026, 2027}) {
        session.setYear(year);
        prompter.answers = {Answer::No, Answer::Yes};
        openYearAtStartup(session);
        const std::string name = "tallix" + std::to_string(year) + ".xml";
        EXPECT_EQ(session.fileName, name);
        EXPECT_EQ(readFile(session.filePath), blank);
        EXPECT_EQ(indexEntryText(std::to_string(year), 0), name);
        appendTextElement(session.data.node().child("tallix"), "note", name);
        session.saveSettled();
    }
    EXPECT_EQ(readFile(session.inDataFolder("blank_tallix.xml")), blank);
    EXPECT_EQ(indexEntryText("2026", 0), "tallix2026.xml");

    // A file of the year's name already there is opened, never replaced, and
    // the user is told so.
    session.index = Document::load(session.indexPath());
    setEntry("2027", "", "not initialized");
    const std::string kept = readFile(session.inDataFolder("tallix2027.xml"));
    prompter.shown.clear();
    prompter.answers = {Answer::No, Answer::Yes};
    openYearAtStartup(session);
    EXPECT_EQ(session.fileName, "tallix2027.xml");
    EXPECT_EQ(readFile(session.filePath), kept);
    EXPECT_EQ(prompter.shown.back(),
              "tallix2027.xml is already in the data folder, so Tallix opens it for 2027 instead "
              "of a blank data file. Nothing was overwritten.");
}

TEST_F(YearFilesTest, GetfileRecordsThePickedFileInTheIndexOrNothingWhenCancelled) {
    std::string before = readFile(session.indexPath());
    prompter.files = {std::nullopt};
    EXPECT_EQ(getfile(session, "2024"), "");
    EXPECT_EQ(readFile(session.indexPath()), before);

    addYearFile("household.xml");
    prompter.files = {session.inDataFolder("household.xml")};
    EXPECT_EQ(getfile(session, "2024"), "household.xml");
    EXPECT_EQ(indexEntryText("2024", 0), "household.xml");
    EXPECT_EQ(indexEntryText("2024", 1), "initialized");
    EXPECT_FALSE(session.data.loadFailed());
    EXPECT_TRUE(prompter.shown.empty());
}

// The index, a template, the open year's file or another year's file is
// never taken for a year: two years on one file would overwrite each other.
TEST_F(YearFilesTest, GetfileRefusesAFileThatBelongsToAnotherYearOrTheProgram) {
    addYearFile("tallix2025.xml");
    setEntry("2025", "tallix2025.xml", "initialized");
    session.fileName = "open.xml";
    const std::string before = readFile(session.indexPath());
    for (const char* name :
         {"tallix.xml", "blank_tallix.xml", "FIRST_tallix.xml", "tallix2025.xml", "open.xml"}) {
        prompter.shown.clear();
        prompter.files = {session.inDataFolder(name)};
        EXPECT_EQ(getfile(session, "2024"), "") << name;
        EXPECT_EQ(prompter.shown,
                  std::vector<std::string>{year_texts::pickedFileInUse(name, "2024")});
        EXPECT_EQ(readFile(session.indexPath()), before) << name;
    }
    // Through the Years menu nothing changes either.
    prompter.answers = {Answer::Yes};
    prompter.files = {session.inDataFolder("blank_tallix.xml")};
    EXPECT_FALSE(processprevyearrequest(session, "2024"));
    EXPECT_EQ(session.year, 2026);
    EXPECT_EQ(session.fileName, "open.xml");
}

TEST_F(YearFilesTest, GetfileCopiesAFileFromElsewhereIntoTheDataFolder) {
    std::filesystem::copy_file(session.inDataFolder("blank_tallix.xml"), tmp / "away.xml");
    prompter.files = {tmp / "away.xml"};
    EXPECT_EQ(getfile(session, "2023"), "away.xml");
    EXPECT_EQ(readFile(session.inDataFolder("away.xml")), readFile(tmp / "away.xml"));

    // A different file of the same name in the data folder is never replaced.
    writeFile(tmp / "away.xml", "<tallix/>");
    prompter.files = {tmp / "away.xml"};
    EXPECT_EQ(getfile(session, "2023"), "0");
    EXPECT_EQ(prompter.shown.back(), "runtime error in getfile() ");
    EXPECT_NE(readFile(session.inDataFolder("away.xml")), "<tallix/>");
}

TEST_F(YearFilesTest, TheYearsMenuSwitchesToAnIndexedYear) {
    addYearFile("tallix2024.xml");
    setEntry("2024", "tallix2024.xml", "initialized");
    EXPECT_TRUE(processprevyearrequest(session, "2024"));
    EXPECT_EQ(session.year, 2024);
    EXPECT_EQ(session.fileName, "tallix2024.xml");
    EXPECT_EQ(session.filePath, session.inDataFolder("tallix2024.xml"));
    EXPECT_EQ(session.title(), "March 2024");
    EXPECT_FALSE(session.data.loadFailed());
    EXPECT_TRUE(prompter.shown.empty());
}

TEST_F(YearFilesTest, TheYearsMenuAsksForAFileWhereTheYearHasNone) {
    setEntry("2023", "not initialized", "");
    prompter.answers = {Answer::No};
    EXPECT_FALSE(processprevyearrequest(session, "2023"));
    EXPECT_EQ(prompter.shown.back(), year_texts::kNoDataFileForSelectedYear);
    EXPECT_EQ(session.year, 2026);

    // An entry without a file asks the same question; Yes picks one.
    addYearFile("picked.xml");
    prompter.answers = {Answer::Yes};
    prompter.files = {session.inDataFolder("picked.xml")};
    EXPECT_TRUE(processprevyearrequest(session, "2027"));
    EXPECT_EQ(session.fileName, "picked.xml");
    EXPECT_EQ(session.year, 2027);
    EXPECT_EQ(indexEntryText("2027", 0), "picked.xml");
}

TEST_F(YearFilesTest, TheYearsMenuOpensTheLookupTextOrReportsAnError) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(processprevyearrequest(session, "2031"));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(session.fileName, "no entry for year 2031");
    EXPECT_TRUE(session.data.loadFailed());

    session.setYear(2026);
    EXPECT_FALSE(processprevyearrequest(session, "twenty"));
    EXPECT_EQ(prompter.shown,
              (std::vector<std::string>{"runtime error in processprevyearrequest() "}));
    EXPECT_EQ(session.year, 2026);
}

TEST(YearsMenu, ListsTheYears2022To2030) {
    EXPECT_EQ(yearsMenuItems(), (std::vector<std::string>{"2022", "2023", "2024", "2025", "2026",
                                                          "2027", "2028", "2029", "2030"}));
}

// Today's date is only trusted when it is a real calendar date.
TEST(SessionToday, IsValidOnlyForCalendarDates) {
    const std::pair<Date, bool> cases[] = {
        {{2026, 1, 1}, true},   {{2026, 12, 31}, true}, {{2026, 1, 31}, true},
        {{2024, 2, 29}, true},  {{2000, 2, 29}, true},  {{2026, 2, 29}, false},
        {{1900, 2, 29}, false}, {{2026, 4, 31}, false}, {{2026, 0, 5}, false},
        {{2026, 13, 1}, false}, {{2026, 5, 0}, false},
    };
    for (const auto& [date, valid] : cases) {
        test::FixedEnvironment env;
        env.date = date;
        test::ScriptedPrompter prompter;
        Session session(env, prompter);
        EXPECT_EQ(session.todayValid, valid) << date.year << "-" << date.month << "-" << date.day;
    }
}

}  // namespace
}  // namespace tallix
