// tallix-cli bank and account: the bank dialog's operations without a
// display. The command itself is the Yes to the dialog's questions (the
// check for typing errors, the rename and delete questions); the options
// stand for its entry fields and check boxes.
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "cli/commands.h"
#include "cli/terminal.h"
#include "reference/bank_maintenance.h"

namespace tallix::cli {
namespace {

// FILE BANK ACCOUNT with the column options: a title given ticks the box
// of its column. Which columns that makes is the core's choice (columnsMade);
// a title that makes none is said on `err`.
int addAccountCommand(AccountPath path, Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> bankTitle =
        takeOption(arguments, "--bank-title", "a column title");
    const std::optional<std::string> registerTitle =
        takeOption(arguments, "--register-title", "a column title");
    const std::optional<std::string> outstandingTitle =
        takeOption(arguments, "--outstanding-title", "a column title");
    const std::optional<std::string> start = takeOption(arguments, "--start", "an amount");
    if (!bankTitle)
        throw UsageError("--bank-title must be given: the title of the bank balance column");
    const bool newBank = path == AccountPath::NewBank;
    return answeringYes(arguments, 3, out, err, [&](Session& session, Prompter& prompter) {
        const NewAccount fields{.bank = arguments[1],
                                .account = arguments[2],
                                .registerBox = registerTitle.has_value(),
                                .outstandingBox = outstandingTitle.has_value(),
                                .registerTitle = registerTitle.value_or(""),
                                .bankTitle = *bankTitle,
                                .outstandingTitle = outstandingTitle.value_or(""),
                                .startingBalance = start.value_or("")};
        const ColumnChanges columns(session);
        (newBank ? applyNewBank : applyNewAccount)(session, prompter, fields);
        if (fields.outstandingBox && !columnsMade(path, fields.registerBox, true).outstanding)
            err << "tallix-cli: a new bank gets an outstanding column only with a register "
                   "column; --outstanding-title was not used\n";
        return (newBank ? "added bank " + fields.bank + " with account " + fields.account
                        : "added account " + fields.account + " to bank " + fields.bank) +
               "; columns made: " + columns.made();
    });
}

int addBankCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    return addAccountCommand(AccountPath::NewBank, std::move(arguments), out, err);
}

int addToBankCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    return addAccountCommand(AccountPath::ExistingBank, std::move(arguments), out, err);
}

std::string placesChanged(std::optional<int> count) {
    return "; " + std::to_string(count.value_or(0)) + " other places changed";
}

int renameBankCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 3, out, err, [&](Session& session, Prompter& prompter) {
        return "renamed bank " + a[1] + " to " + a[2] +
               placesChanged(renameBank(session, prompter, a[1], a[2]));
    });
}

int renameAccountCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 4, out, err, [&](Session& session, Prompter& prompter) {
        return "renamed account " + a[2] + " of " + a[1] + " to " + a[3] +
               placesChanged(renameAccount(session, prompter, a[1], a[2], a[3]));
    });
}

int deleteBankCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 2, out, err, [&](Session& session, Prompter& prompter) {
        const ColumnChanges columns(session);
        deleteBank(session, prompter, a[1]);
        return "deleted bank " + a[1] + "; columns removed: " + columns.removed();
    });
}

int deleteAccountCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 3, out, err, [&](Session& session, Prompter& prompter) {
        const ColumnChanges columns(session);
        deleteAccount(session, prompter, a[1], a[2]);
        return "deleted account " + a[2] + " of " + a[1] +
               "; columns removed: " + columns.removed();
    });
}

}  // namespace

int runBank(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(
        arguments, out, err,
        {{"add", addBankCommand}, {"rename", renameBankCommand}, {"delete", deleteBankCommand}});
}

int runAccount(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(arguments, out, err,
                    {{"add", addToBankCommand},
                     {"rename", renameAccountCommand},
                     {"delete", deleteAccountCommand}});
}

}  // namespace tallix::cli
