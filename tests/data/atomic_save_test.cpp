#include <gtest/gtest.h>

#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/stat.h>
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
#include "support/thrown.h"

namespace tallix {
namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::TempDir;
using test::thrown;
using test::writeFile;

const std::string kOldBytes = "<?xml version=\"1.0\"?>\n<tallix><descriptions/></tallix>\n";

// Exit codes of the child processes below.
enum : int {
    kPassed = 0,
    kCannotSetUp = 2,
    kSaved = 3,
    kOldBytesLost = 4,
    kTempLeft = 5,
    kLeftOpen = 6
};

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

// Runs `body` as the user "nobody" when the test runs as the super-user, who
// may write anywhere; kCannotSetUp when it cannot switch.
int asOrdinaryUser(const std::function<int()>& body) {
    return inChild([&] {
        if (::geteuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setresgid(65534, 65534, 65534) != 0 ||
             ::setresuid(65534, 65534, 65534) != 0))
            return int(kCannotSetUp);
        return body();
    });
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

// Started without standard input, the save's files and folder get
// descriptor 0; none stays open after the save.
TEST(AtomicSave, LeavesNoDescriptorOpenEvenDescriptorZero) {
    TempDir dir;
    writeFile(dir / "tallix.xml", kOldBytes);
    const Document doc = largeDocument();
    EXPECT_EQ(inChild([&] {
                  ::close(0);
                  doc.save(dir / "tallix.xml");
                  return ::fcntl(0, F_GETFD) == -1 && errno == EBADF ? kPassed : kLeftOpen;
              }),
              kPassed);
    EXPECT_EQ(readFile(dir / "tallix.xml"), doc.serialize());
}

TEST(AtomicSave, AFailedWriteLeavesTheOldFileAndNoTemporary) {
    TempDir dir;
    writeFile(dir / "tallix.xml", kOldBytes);
    Document doc = largeDocument();
    testing::failNthWrite(1, ENOSPC);
    EXPECT_NE(thrown<std::runtime_error>([&] {
                  doc.save(dir / "tallix.xml");
              }).find(std::strerror(ENOSPC)),
              std::string::npos);
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
    EXPECT_NE(thrown<std::runtime_error>([&] {
                  largeDocument().save(link);
              }).find("which does not exist"),
              std::string::npos);
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

    int result =
        asOrdinaryUser([&] { return saveMustFail(doc, folder / "tallix.xml", kOldBytes); });
    fs::permissions(folder, fs::perms::owner_all);
    if (result == kCannotSetUp)
        GTEST_SKIP() << "cannot run the save as another user";
    EXPECT_EQ(result, kPassed);
}

// The rename would replace a file the user may not write as easily as any
// other (only the folder's permissions count), so the save looks first.
TEST(AtomicSave, AFileTheUserMayNotWriteIsRefusedBeforeAnythingIsWritten) {
    TempDir dir;
    const fs::path file = dir / "tallix.xml";
    writeFile(file, kOldBytes);
    Document doc = largeDocument();

    // Read-only for everyone: refused even for the super-user.
    fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_EQ(
        thrown<std::runtime_error>([&] { doc.save(file); }),
        "could not save " + file.string() + ": the file is read-only: " + std::strerror(EACCES));
    EXPECT_EQ(readFile(file), kOldBytes);
    EXPECT_EQ(entriesIn(dir.path()), 1u);

    // Writable by its owner only, in a folder everyone may write: another
    // user is refused too.
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the super-user can make a file of another user";
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
    fs::permissions(dir.path(), fs::perms::all);
    int result = asOrdinaryUser([&] { return saveMustFail(doc, file, kOldBytes); });
    if (result == kCannotSetUp)
        GTEST_SKIP() << "cannot run the save as another user";
    EXPECT_EQ(result, kPassed);
}

TEST(AtomicSave, ATargetThatIsNotARegularFileIsLeftAsItIs) {
    TempDir dir;
    const fs::path pipe = dir / "pipe.xml";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0644), 0);
    fs::create_symlink("pipe.xml", dir / "link.xml");
    fs::create_directory(dir / "folder.xml");
    const std::pair<const char*, const char*> cases[] = {
        {"pipe.xml", "pipe.xml: it is a named pipe, not a regular file"},
        {"link.xml", "pipe.xml: it is a named pipe, not a regular file"},
        {"folder.xml", "folder.xml: it is a folder, not a regular file"}};
    for (const auto& [name, message] : cases) {
        EXPECT_NE(
            thrown<std::runtime_error>([&] { largeDocument().save(dir / name); }).find(message),
            std::string::npos)
            << name;
    }
    EXPECT_TRUE(fs::is_fifo(fs::symlink_status(pipe)));
    EXPECT_TRUE(fs::is_symlink(dir / "link.xml"));
    EXPECT_TRUE(fs::is_empty(dir / "folder.xml"));
    EXPECT_EQ(entriesIn(dir.path()), 3u);
}

// A killed save leaves its temporary behind; the next save in the folder
// removes it, but never the temporary of a save that is still writing, which
// holds a lock on it, nor a file that only looks similar.
TEST(AtomicSave, TemporariesOfKilledSavesAreRemovedByTheNextSave) {
    TempDir dir;
    writeFile(dir / "tallix.xml", kOldBytes);
    const char* stale[] = {".tallix.xml.tmp-a1B2c3", ".tallix2025.xml.tmp-ZZZZZZ"};
    const char* kept[] = {".tallix.xml.tmp-ab", "tallix.xml.tmp-abcdef", ".tallix.xml.tmp-abc-ef",
                          ".x.tmp-abcdefg", "notes.txt"};
    for (const char* name : stale)
        writeFile(dir / name, "<tallix>half");
    for (const char* name : kept)
        writeFile(dir / name, "mine");
    const fs::path running = dir / ".index.xml.tmp-Run123";
    writeFile(running, "<tallix>being written");
    const int held = ::open(running.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);

    Document doc = largeDocument();
    doc.save(dir / "tallix.xml");
    EXPECT_EQ(readFile(dir / "tallix.xml"), doc.serialize());
    for (const char* name : stale)
        EXPECT_FALSE(fs::exists(dir / name)) << name;
    for (const char* name : kept)
        EXPECT_EQ(readFile(dir / name), "mine") << name;
    EXPECT_TRUE(fs::exists(running));

    ::close(held);  // the save that held it was killed
    removeStaleTempFiles(dir.path());
    EXPECT_FALSE(fs::exists(running));
    EXPECT_EQ(entriesIn(dir.path()), 1u + std::size(kept));
}

}  // namespace
}  // namespace tallix
