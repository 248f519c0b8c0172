#include <gtest/gtest.h>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "data/atomic_file.h"
#include "data/document.h"
#include "data/node_text.h"
#include "support/temp_dir.h"

namespace tallix {
namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::TempDir;
using test::writeFile;

const std::string kOldBytes = "<?xml version=\"1.0\"?>\n<tallix><descriptions/></tallix>\n";

// Exit codes of the child processes below.
enum : int { kPassed = 0, kCannotSetUp = 2, kSaved = 3, kOldBytesLost = 4, kTempLeft = 5 };

size_t entriesIn(const fs::path& folder) {
    return static_cast<size_t>(std::distance(fs::directory_iterator(folder), {}));
}

// Runs `body` in a forked child and returns its exit status (-1 when it died).
int inChild(const std::function<int()>& body) {
    pid_t pid = ::fork();
    if (pid == 0) {
        int code = kCannotSetUp;
        try {
            code = body();
        } catch (...) {
        }
        ::_exit(code);
    }
    int status = 0;
    if (pid < 0 || ::waitpid(pid, &status, 0) != pid || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

// Saves `doc` over `file`, which holds `oldBytes`, and says how it went.
int saveMustFail(const Document& doc, const fs::path& file, const std::string& oldBytes) {
    try {
        doc.save(file);
        return kSaved;
    } catch (const std::runtime_error&) {
    }
    if (!fs::exists(file) || readFile(file) != oldBytes)
        return kOldBytesLost;
    return entriesIn(file.parent_path()) == 1 ? kPassed : kTempLeft;
}

Document largeDocument() {
    Document doc = Document::load(test::sourceDir() / "res" / "blank_tallix.xml");
    pugi::xml_node list = doc.xml().child("tallix").child("descriptions");
    for (int i = 0; i < 500; ++i)
        appendTextElement(list, "description", "a description long enough to fill a disk");
    return doc;
}

TEST(AtomicSave, ReplacesTheFileKeepingItsPermissions) {
    TempDir dir;
    writeFile(dir / "tallix.xml", kOldBytes);
    const fs::perms mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(dir / "tallix.xml", mode);
    Document doc = largeDocument();
    doc.save(dir / "tallix.xml");
    EXPECT_EQ(readFile(dir / "tallix.xml"), doc.serialize());
    EXPECT_EQ(fs::status(dir / "tallix.xml").permissions() & fs::perms::all, mode);
    EXPECT_EQ(entriesIn(dir.path()), 1u);
}

TEST(AtomicSave, AFailedWriteLeavesTheOldFileAndNoTemporary) {
    TempDir dir;
    writeFile(dir / "tallix.xml", kOldBytes);
    Document doc = largeDocument();
    testing::failNthWrite(1, ENOSPC);
    try {
        doc.save(dir / "tallix.xml");
        ADD_FAILURE() << "the save did not fail";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find(std::strerror(ENOSPC)), std::string::npos) << e.what();
    }
    testing::failNthWrite(0, 0);
    EXPECT_EQ(readFile(dir / "tallix.xml"), kOldBytes);
    EXPECT_EQ(entriesIn(dir.path()), 1u);
    EXPECT_THROW(doc.save(dir / "no such folder" / "tallix.xml"), std::runtime_error);
}

TEST(AtomicSave, WritesThroughALinkChainAndKeepsTheLinks) {
    TempDir dir;
    fs::create_directories(dir / "real");
    fs::create_directories(dir / "data");
    writeFile(dir / "real" / "tallix2026.xml", kOldBytes);
    // data/tallix2026.xml -> data/middle.xml -> ../real/tallix2026.xml (relative).
    fs::create_symlink("../real/tallix2026.xml", dir / "data" / "middle.xml");
    fs::create_symlink("middle.xml", dir / "data" / "tallix2026.xml");
    Document doc = largeDocument();
    for (int save = 0; save < 2; ++save) {
        doc.save(dir / "data" / "tallix2026.xml");
        EXPECT_TRUE(fs::is_symlink(dir / "data" / "tallix2026.xml"));
        EXPECT_TRUE(fs::is_symlink(dir / "data" / "middle.xml"));
        EXPECT_TRUE(readFile(dir / "real" / "tallix2026.xml") == doc.serialize());
        EXPECT_EQ(entriesIn(dir / "real"), 1u);
        EXPECT_EQ(entriesIn(dir / "data"), 2u);
        appendTextElement(doc.xml().child("tallix").child("descriptions"), "description", "more");
    }
}

TEST(AtomicSave, ADanglingLinkIsRefusedAndLeftAsItIs) {
    TempDir dir;
    const fs::path link = dir / "tallix2026.xml";
    fs::create_symlink(dir / "moved" / "tallix2026.xml", link);
    try {
        largeDocument().save(link);
        ADD_FAILURE() << "the save did not fail";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("which does not exist"), std::string::npos)
            << e.what();
    }
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_FALSE(fs::exists(dir / "moved"));
    EXPECT_EQ(entriesIn(dir.path()), 1u);
}

TEST(AtomicSave, AReadOnlyFolderRaisesAndKeepsTheOldFile) {
    TempDir dir;
    const fs::path folder = dir / "data";
    fs::create_directory(folder);
    writeFile(folder / "tallix.xml", kOldBytes);
    const fs::perms readAndEnter = fs::perms::owner_read | fs::perms::owner_exec |
                                   fs::perms::group_read | fs::perms::group_exec |
                                   fs::perms::others_read | fs::perms::others_exec;
    fs::permissions(dir.path(), readAndEnter | fs::perms::owner_write);
    fs::permissions(folder, readAndEnter);
    // The file itself could be overwritten in place: only a save that goes
    // through a new file in the folder is refused.
    fs::permissions(
        folder / "tallix.xml",
        fs::perms::all & ~(fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec));
    Document doc = largeDocument();

    // The super-user writes anywhere, so the save runs as "nobody".
    int result = inChild([&] {
        if (::geteuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setresgid(65534, 65534, 65534) != 0 ||
             ::setresuid(65534, 65534, 65534) != 0))
            return int(kCannotSetUp);
        return saveMustFail(doc, folder / "tallix.xml", kOldBytes);
    });
    fs::permissions(folder, fs::perms::owner_all);
    if (result == kCannotSetUp)
        GTEST_SKIP() << "cannot run the save as another user";
    EXPECT_EQ(result, kPassed);
}

}  // namespace
}  // namespace tallix
