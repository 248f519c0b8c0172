// The version history of a year file: deltas, undo and redo of every kind of
// change byte for byte, what survives a restart, a damaged history, changes
// made elsewhere, pruning, and a save killed at any moment.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <map>

#include "app/data_folder.h"
#include "app/history_files.h"
#include "app/next_year.h"
#include "app/text_delta.h"
#include "app/undo_history.h"
#include "app/version_history.h"
#include "editing/cell_choices.h"
#include "editing/cell_commit.h"
#include "editing/line_day.h"
#include "editing/row_operations.h"
#include "editing/transfers.h"
#include "reference/expense_maintenance.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "register/year_file.h"
#include "support/scripted_choices.h"

namespace tallix {
namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;
using test::YearFile;

// Equal texts, or where they first differ (a year file is too long to print).
::testing::AssertionResult sameText(const std::string& a, const std::string& b) {
    if (a == b)
        return ::testing::AssertionSuccess();
    const size_t at = static_cast<size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<long>(std::min(a.size(), b.size())),
                      b.begin())
            .first -
        a.begin());
    return ::testing::AssertionFailure()
           << "texts of " << a.size() << " and " << b.size() << " bytes differ at " << at << ": \""
           << a.substr(at, 40) << "\" against \"" << b.substr(at, 40) << "\"";
}

std::string numberedLines(int count, const std::function<std::string(int)>& line) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += line(i) + "\n";
    return text;
}

TEST(TextDelta, TurnsEachTextIntoTheOtherAndBackAndKeepsOnlyWhatDiffers) {
    const std::string lines =
        numberedLines(400, [](int i) { return "<line>" + std::to_string(i) + "</line>"; });
    std::string scattered = lines;  // three lines far apart, same line count
    for (const char* from : {"<line>7<", "<line>200<", "<line>399<"})
        scattered.replace(scattered.find(from), 6, "<LINE>");
    std::string longer = lines;
    longer.insert(longer.find("<line>100<"), "<line>new</line>\n");
    const struct {
        const char* name;
        std::string older, newer;
        size_t hunks;
    } cases[] = {
        {"same", lines, lines, 0},
        {"empty to text", "", "abc\n", 1},
        {"text to empty", "abc\n", "", 1},
        {"no last newline", "a\nb", "a\nc", 1},
        {"first byte", "x" + lines, "y" + lines, 1},
        {"last byte", lines + "x", lines + "y", 1},
        {"scattered lines", lines, scattered, 3},
        {"line inserted", lines, longer, 1},
        {"line removed", longer, lines, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const TextDelta delta = diffTexts(c.older, c.newer);
        EXPECT_EQ(delta.hunks.size(), c.hunks);
        EXPECT_EQ(applyForward(delta, c.older), c.newer);
        EXPECT_EQ(applyBackward(delta, c.newer), c.older);
        const TextDelta read = deltaFromBytes(deltaToBytes(delta));
        EXPECT_EQ(applyForward(read, c.older), c.newer);
        EXPECT_EQ(applyBackward(read, c.newer), c.older);
    }
    // Three changed lines cost three lines, not the stretch between them.
    EXPECT_LT(diffTexts(lines, scattered).payloadSize(), 200u);
    // A text the delta was not made from is refused, never patched.
    const TextDelta delta = diffTexts(lines, scattered);
    std::string other = lines;
    other[other.find("<line>200<") + 1] = 'X';
    EXPECT_THROW(applyForward(delta, other), std::runtime_error);
    EXPECT_THROW(applyBackward(delta, lines + "x"), std::runtime_error);
    const std::string bytes = deltaToBytes(delta);
    EXPECT_THROW(deltaFromBytes(bytes.substr(0, bytes.size() - 1)), std::runtime_error);
    EXPECT_THROW(deltaFromBytes(bytes + "x"), std::runtime_error);
}

TEST(HistoryFiles, ReadWhatTheyWroteAndRefuseADamagedFile) {
    HistoryEntry entry;
    entry.number = 12;
    entry.time = 1790000000;
    entry.label = "amount of line 7,\nMarch";
    entry.changes = 3;
    entry.before = fingerprint("a");
    entry.after = fingerprint("b");
    entry.payload = std::string(5000, 'z') + "end";
    const std::string bytes = entryToBytes(entry);
    EXPECT_LT(bytes.size(), 400u);  // compressed
    const HistoryEntry read = entryFromBytes(bytes);
    EXPECT_EQ(read.label, "amount of line 7, March");
    EXPECT_EQ((std::vector<long long>{read.number, read.time, read.changes}),
              (std::vector<long long>{12, 1790000000, 3}));
    EXPECT_EQ(read.before + read.after + read.payload, entry.before + entry.after + entry.payload);
    EXPECT_FALSE(read.whole);
    EXPECT_THROW(entryFromBytes(bytes.substr(0, bytes.size() - 4)), std::runtime_error);
    EXPECT_THROW(entryFromBytes("x" + bytes), std::runtime_error);
    for (const char* misnamedField : {"\nnumber_", "\nnumbex "}) {
        std::string misnamed = bytes;
        misnamed.replace(misnamed.find("\nnumber "), 8, misnamedField);
        EXPECT_THROW(entryFromBytes(misnamed), std::runtime_error) << misnamedField;
    }
    EXPECT_NE(fingerprint("ab"), fingerprint("ba"));
    EXPECT_NE(fingerprint(std::string(1, '\0')), fingerprint(""));
}

int historyNotices(const test::ScriptedPrompter& prompter) {
    return static_cast<int>(std::count_if(
        prompter.shown.begin(), prompter.shown.end(),
        [](const std::string& text) { return text.starts_with("The change history of "); }));
}

// March of the register fixture, shown as the main window shows it.
class Changes : public ::testing::Test {
  public:
    Changes() { year.show(3); }
    Session& session() { return year.session(); }
    std::string file() { return readFile(year.path); }

    YearFile year{{2026, 3, 15}};
    test::ScriptedLineChoices<> choices;
};

// Every kind of change is one version: Undo gives the file before it and
// Redo the file after it, byte for byte, and the month shown again saves
// nothing new.
TEST_F(Changes, UndoAndRedoGiveTheFileBeforeAndAfterEveryKindOfChange) {
    const struct {
        const char* label;
        std::function<void(Changes&)> change;
    } kinds[] = {
        {"Undo amount of line 2, March",
         [](Changes& t) { HideEditor(t.session(), 1, test::col::kAmount, "12.34"); }},
        {"Undo status of line 3, March",
         [](Changes& t) { writeStatus(t.session(), 2, "pending"); }},
        {"Undo transfer of line 1, March",
         [](Changes& t) {
             applyTransfer(t.session(), 0, test::col::kExpense, "Transfer",
                           {"Checking", "Register", "Savings", "Bank", "25"});
         }},
        {"Undo insertion of line 2, March", [](Changes& t) { InsertRow(t.session(), 1, "debit"); }},
        {"Undo deletion of line 4, March", [](Changes& t) { deleteLine(t.session(), 3); }},
        {"Undo type of line 2, March", [](Changes& t) { makeLine(t.session(), 1, "check"); }},
        {"Undo move of line 2, March to line 6",
         [](Changes& t) {
             t.choices.moveTargets = {6};
             t.year.prompter.answers = {Answer::Yes, Answer::Yes, Answer::Yes, Answer::Yes,
                                        Answer::Yes, Answer::Yes, Answer::Yes, Answer::Yes};
             moveLine(t.session(), 1, t.choices);
         }},
        {"Undo day of line 1, March", [](Changes& t) { setLineDay(t.session(), 0, "20"); }},
        {"Undo update of April",
         [](Changes& t) {
             t.session().today = {2026, 4, 15};  // April's plan is due: Update posts it
             t.session().month = 4;
             OnToolsUpdate(t.session());
         }},
        {"Undo update of all months",
         [](Changes& t) {
             // An amount in the document, not saved yet: the months after
             // March close differently.
             setChildText(monthLines(t.session().data.node(), "March")[11], 2, "1.00");
             OnToolsUpdateallmonths(t.session());
         }},
        {"Undo delete expense Rent",
         [](Changes& t) { deleteExpense(t.session(), t.year.prompter, "Housing", "Rent"); }},
    };
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.label);
        const std::string before = file();
        const size_t versions = session().versions()->versions().size();
        kind.change(*this);
        year.show(3);
        const std::string after = file();
        ASSERT_FALSE(sameText(after, before));
        // One version, the balances worked out after the change included.
        EXPECT_EQ(session().versions()->versions().size(), versions + 1);
        EXPECT_EQ(undoText(session()), kind.label);
        ASSERT_TRUE(undo(session()));
        EXPECT_TRUE(sameText(file(), before));
        EXPECT_TRUE(sameText(session().data.serialize(), session().savedBytes()));
        year.show(3);
        EXPECT_TRUE(sameText(file(), before));
        ASSERT_TRUE(redo(session()));
        EXPECT_TRUE(sameText(file(), after));
        EXPECT_EQ(redoText(session()), std::nullopt);
        year.show(3);
    }
    // All the way back, then the first change made again.
    const std::string last = file();
    while (undo(session()))
        ;
    EXPECT_EQ(session().versions()->current(), 0u);
    EXPECT_EQ(redoText(session()), "Redo amount of line 2, March");
    ASSERT_TRUE(redo(session()));
    // A new change drops what Undo took back.
    commitCell(session(), 2, test::col::kAmount, "1.00");
    EXPECT_EQ(redoText(session()), std::nullopt);
    EXPECT_FALSE(sameText(file(), last));
}

TEST_F(Changes, TheHistoryOutlivesTheSessionAndRestoreIsAChangeOfItsOwn) {
    const std::string first = file();
    commitCell(session(), 1, test::col::kAmount, "10.00");
    const std::string second = file();
    commitCell(session(), 1, test::col::kAmount, "20.00");
    ASSERT_TRUE(undo(session()));

    year.session().openDataPath(year.path);  // as after a restart
    EXPECT_EQ(undoText(session()), "Undo amount of line 2, March");
    EXPECT_EQ(redoText(session()), "Redo amount of line 2, March");
    const std::vector<VersionLine> lines = versionLines(session());
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].what, "The file as it was opened");
    EXPECT_TRUE(lines[1].current);
    EXPECT_TRUE(sameText(versionText(session(), lines[0].number), first));
    EXPECT_THROW(versionText(session(), 99), std::invalid_argument);

    restoreVersion(session(), lines[0].number);
    EXPECT_TRUE(sameText(file(), first));
    EXPECT_EQ(redoText(session()), std::nullopt);
    EXPECT_EQ(undoText(session())->rfind("Undo restore of version 1 of ", 0), 0u);
    ASSERT_TRUE(undo(session()));
    EXPECT_TRUE(sameText(file(), second));
    EXPECT_EQ(historyNotices(year.prompter), 0);
}

class NextYearHistory : public test::DataFolderTest {};

TEST_F(NextYearHistory, MakeNextYearsClosingsAreAChangeOfTheYearItClosed) {
    addYearFile("tallix2026.xml", "examples/tallix2026.xml");
    setEntry("2026", "tallix2026.xml", "initialized");
    session.openDataFile("tallix2026.xml");
    session.setYear(2026);
    setChildText(monthLines(session.data.node(), "March")[0], 2, "99999.00");
    session.saveChange("amount");  // December now closes differently
    const fs::path yearFile = session.filePath;
    const std::string before = readFile(yearFile);
    ASSERT_TRUE(makeNextYear(session, "tallix2027.xml"));
    ASSERT_FALSE(sameText(readFile(yearFile), before));

    Session closed(env, prompter);
    closed.openDataFile("tallix2026.xml");
    EXPECT_EQ(undoText(closed), "Undo closings worked out for next year");
    ASSERT_TRUE(undo(closed));
    EXPECT_TRUE(sameText(readFile(yearFile), before));
}

// A history that cannot be read never stops the year: it is set aside,
// reported once, and starts again from the file.
TEST_F(Changes, ADamagedHistoryIsReportedOnceAndStartsAgain) {
    commitCell(session(), 1, test::col::kAmount, "10.00");
    commitCell(session(), 1, test::col::kAmount, "20.00");
    const fs::path folder = VersionHistory::folderOf(year.path);
    for (const auto& e : fs::recursive_directory_iterator(folder))
        if (e.path().extension() == ".step")
            writeFile(e.path(), readFile(e.path()).substr(0, 60));
    const std::string held = file();

    year.session().openDataPath(year.path);
    EXPECT_EQ(undoText(session()), std::nullopt);
    ASSERT_EQ(historyNotices(year.prompter), 1);
    EXPECT_EQ(year.prompter.shown.back().rfind(
                  "The change history of march_register.xml could not be read (", 0),
              0u);
    EXPECT_TRUE(fs::exists(folder.string() + ".damaged"));
    EXPECT_TRUE(sameText(file(), held));

    year.session().openDataPath(year.path);
    commitCell(session(), 1, test::col::kAmount, "30.00");
    ASSERT_TRUE(undo(session()));
    EXPECT_TRUE(sameText(file(), held));
    EXPECT_EQ(historyNotices(year.prompter), 1);
}

TEST_F(Changes, AChangeMadeElsewhereBecomesAVersionOfItsOwn) {
    commitCell(session(), 1, test::col::kAmount, "10.00");
    const std::string ours = file();
    std::string theirs = ours;
    theirs.replace(theirs.find("10.00"), 5, "11.00");
    writeFile(year.path, theirs);

    ASSERT_TRUE(Refresh(session()));  // the month worked out again belongs to their change
    const std::string settled = file();
    EXPECT_NE(settled.find("11.00"), std::string::npos);
    EXPECT_EQ(undoText(session()), std::string("Undo ") + VersionHistory::kChangedElsewhereLabel);
    ASSERT_TRUE(undo(session()));
    EXPECT_TRUE(sameText(file(), ours));
    ASSERT_TRUE(redo(session()));
    EXPECT_TRUE(sameText(file(), settled));
}

// A history on a clock of its own: three versions a day for 45 days.
TEST(Pruning, KeepsTheNewestFiftyAndTheLastOfEachOfThirtyDaysAndEveryKeptTextIsWhole) {
    setenv("TZ", "UTC", 1);  // days as the expectations below count them
    tzset();
    test::TempDir dir;
    const fs::path file = dir / "tallix2026.xml";
    long long now = 1'780'000'000;
    VersionHistory history(file, [&] { return now; });
    const std::string start =
        numberedLines(300, [](int i) { return "<amount>" + std::to_string(i) + "</amount>"; });
    history.open(start);
    std::map<long long, std::string> texts{{1, start}};
    std::string text = start;
    int prunings = 0;
    for (int step = 1; step <= 135; ++step) {
        now += 8 * 60 * 60;  // three a day
        std::string next = text;
        const std::string line = "<amount>" + std::to_string(step % 300) + "</amount>";
        next.replace(next.find(line), line.size(),
                     "<amount>" + std::to_string(step) + "x</amount>");
        const size_t before = history.versions().size();
        history.record("step " + std::to_string(step), text, next);
        text = next;
        texts[step + 1] = text;
        const std::vector<Version>& listed = history.versions();
        ASSERT_LE(listed.size(), VersionHistory::kMostVersions);
        if (listed.size() <= before) {  // pruned: the newest fifty are all there
            ++prunings;
            EXPECT_EQ(listed[listed.size() - VersionHistory::kRecentKept].number,
                      step + 2 - static_cast<long long>(VersionHistory::kRecentKept));
        }
    }
    EXPECT_GT(prunings, 0);
    const std::vector<Version>& kept = history.versions();
    ASSERT_GE(kept.size(), VersionHistory::kRecentKept);
    // The newest fifty, one after the other.
    for (size_t i = kept.size() - VersionHistory::kRecentKept; i < kept.size(); ++i)
        EXPECT_EQ(kept[i].number, 136 - static_cast<long long>(kept.size() - 1 - i));
    // Each of the last thirty days keeps its last version; nothing older is kept.
    for (long long day = 0; day < VersionHistory::kDaysKept; ++day) {
        const long long lastOfDay = 136 - 3 * day;
        SCOPED_TRACE(lastOfDay);
        EXPECT_TRUE(std::any_of(kept.begin(), kept.end(),
                                [&](const Version& v) { return v.number == lastOfDay; }));
    }
    EXPECT_GT(kept.front().number, 1);  // the oldest went
    long long changes = 0;
    for (size_t i = 0; i < kept.size(); ++i) {
        SCOPED_TRACE(kept[i].number);
        EXPECT_TRUE(sameText(history.textOf(i), texts[kept[i].number]));
        changes += kept[i].changes;
    }
    EXPECT_EQ(changes, 136);  // every change is counted in the version that holds it
    // The pruned history is what a restart reads.
    VersionHistory again(file, [&] { return now; });
    EXPECT_EQ(again.open(text), std::nullopt);
    EXPECT_EQ(again.versions().size(), kept.size());
    ASSERT_NE(again.undoable(), nullptr);
    EXPECT_TRUE(sameText(again.undoneText(text), texts[135]));
}

// A save killed at any moment leaves a file that loads and a history that
// holds it: either version is current, the history opens without a word, and
// Undo works from there.
TEST(KilledSave, LeavesTheFileAndItsHistoryConsistent) {
    YearFile year({2026, 3, 15});
    year.show(3);
    const fs::path path = year.path;
    for (int attempt = 0; attempt < 12; ++attempt) {
        SCOPED_TRACE(attempt);
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            test::ScriptedPrompter quiet;
            Session s(year.env, quiet);
            s.openDataPath(path);
            for (int i = 0;; ++i) {
                setChildText(monthLines(s.data.node(), "March")[1], 2, std::to_string(i) + ".00");
                s.saveChange("amount " + std::to_string(i));
                if (i == 0 && write(ready[1], "x", 1) != 1)
                    _exit(1);
            }
        }
        close(ready[1]);
        char byte = 0;
        ASSERT_EQ(read(ready[0], &byte, 1), 1);  // one change saved
        close(ready[0]);
        usleep(static_cast<useconds_t>(attempt * 3'000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);

        test::ScriptedPrompter prompter;
        Session s(year.env, prompter);
        s.openDataPath(path);
        ASSERT_FALSE(s.data.loadFailed());
        VersionHistory* history = s.versions();
        ASSERT_NE(history, nullptr);
        EXPECT_EQ(historyNotices(prompter), 0) << prompter.shown.front();
        const std::string held = readFile(path);
        const Version& current = history->versions()[history->current()];
        EXPECT_EQ(current.fingerprint, fingerprint(held));
        EXPECT_EQ(current.label.rfind("amount ", 0), 0u) << current.label;
        const std::string label = current.label;
        ASSERT_EQ(undo(s), label);
        EXPECT_EQ(redo(s), label);
        EXPECT_TRUE(sameText(readFile(path), held));
    }
}

}  // namespace
}  // namespace tallix
