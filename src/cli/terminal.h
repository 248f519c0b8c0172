#pragma once
// The seams of the core for the terminal: notices go to standard error, one
// per line; questions are answered No (tallix-cli never waits for input); the
// date is the real one unless --today names another.
#include <deque>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/environment.h"
#include "app/instance_lock.h"
#include "app/prompter.h"
#include "app/session.h"
#include "cli/commands.h"

namespace tallix::cli {

class TerminalPrompter : public Prompter {
  public:
    explicit TerminalPrompter(std::ostream& err) : err_(err) {}
    void notify(const std::string& text) override;
    Answer askYesNo(const std::string& text) override;
    Answer askYesNoCancel(const std::string& text) override;
    std::optional<std::filesystem::path> pickFileToOpen(const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> pickFileToSave(const std::filesystem::path&) override {
        return std::nullopt;
    }
    // True once a command handler reported a runtime error.
    bool failed() const { return failed_; }
    // The answers to the next questions, in order (a command's options give
    // them); a question beyond them is answered No.
    std::deque<Answer> answers;

  private:
    Answer next(const std::string& text);

    std::ostream& err_;
    bool failed_ = false;
};

class TerminalEnvironment : public Environment {
  public:
    TerminalEnvironment(Date today, std::filesystem::path dataRoot)
        : today_(today), dataRoot_(std::move(dataRoot)) {}
    Date today() const override { return today_; }
    std::filesystem::path dataRoot() const override { return dataRoot_; }
    std::filesystem::path documentsFolder() const override;
    std::optional<std::filesystem::path> cloudDriveRoot() const override { return std::nullopt; }
    bool openWithViewer(const std::filesystem::path&) override { return false; }

  private:
    Date today_;
    std::filesystem::path dataRoot_;
};

// FILE opened in a session on the terminal whose year is the file's working
// year (today's). A file that cannot be read leaves session.data failed.
struct OpenedFile {
    OpenedFile(const std::string& file, Date today, std::ostream& err)
        : prompter(err),
          env(today, std::filesystem::path(file).parent_path()),
          session(env, prompter) {
        session.openDataPath(file);
    }
    TerminalPrompter prompter;
    TerminalEnvironment env;
    Session session;
};

// The real date.
Date localToday();

// Takes "--today YYYY-MM-DD" out of `arguments`; the real date when absent.
// Throws UsageError when the option has no date or one that does not exist.
Date takeToday(Arguments& arguments);

// Takes "NAME VALUE" out of `arguments`: VALUE, or nothing when NAME is not
// there. Throws UsageError "NAME must be followed by WHAT" when VALUE is
// missing.
std::optional<std::string> takeOption(Arguments& arguments, const std::string& name,
                                      const std::string& what = "a value");
// Takes the flag NAME out of `arguments`; whether it was there.
bool takeFlag(Arguments& arguments, const std::string& name);

// The month an argument names: 1-12 or an English month name. Throws
// UsageError for anything else.
int monthArgument(const std::string& text);

// Takes, into `held`, the lock a Tallix window holds on its data folder, on
// the folder that holds `file` and, when `file` is a link, on the folder of
// the file it leads to. False, after the window's own message on `err`, when
// another program holds one of them. A `file` that is not a regular file is
// refused by its load, so no lock is taken for it.
bool lockFolderOf(const std::filesystem::path& file, std::vector<InstanceLock>& held,
                  std::ostream& err);

// Runs `body` on FILE, opened with the folder's lock held: the maintenance
// commands' frame. A refusal (a name that is not in the file or is taken, a
// value that is refused) ends with its message and kFaultsFound; the file is
// not written then.
using FileBody = std::function<void(Session&, TerminalPrompter&)>;
int onYearFile(const std::string& file, std::ostream& err, const FileBody& body);

// A command that names FILE and `count - 1` more arguments and says Yes to
// the question its operation asks: runs `action` on FILE (see onYearFile) and prints the line
// it returns. kUsage for another number of arguments.
using YesAction = std::function<std::string(Session&, Prompter&)>;
int answeringYes(const Arguments& arguments, size_t count, std::ostream& out, std::ostream& err,
                 const YesAction& action);

// The header texts of the register columns, taken when it is made, to say
// which columns a command made or removed: their texts joined by ", ", or
// "none".
class ColumnChanges {
  public:
    explicit ColumnChanges(const Session& session);
    std::string made() const;
    std::string removed() const;

  private:
    const Session& session_;
    std::vector<std::string> before_;
};

// Runs the subcommand `arguments[0]` names with the arguments after it;
// kUsage for a name that is not among `subcommands`.
using Subcommand = int (*)(Arguments, std::ostream&, std::ostream&);
int dispatch(const Arguments& arguments, std::ostream& out, std::ostream& err,
             std::initializer_list<std::pair<std::string_view, Subcommand>> subcommands);

}  // namespace tallix::cli
