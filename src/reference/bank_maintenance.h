#pragma once
// The bank dialog's operations: add a bank with its first account, add an
// account to a bank, rename and delete them, and edit an account's column
// titles and starting balances. Each checks what it is given first (an empty
// or taken name, a taken column title, a balance that is not an amount, a
// bank or account that is not in the file throw PlanRefusal and change
// nothing), asks its question through the prompter, changes the document as
// one step Edit > Undo can take back, and saves the year file once.
//
// Every group an account gets has the whole shape the balance engine reads:
// a title ("0" for a column that is not made), `lastyearclosing` and twelve
// `closing` values. A new account's starting balance stands in
// `lastyearclosing` and in all twelve `closing` values, so whichever month is
// on screen starts from it.
#include <optional>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

class Prompter;
class Session;

// What the entry fields and check boxes of the bank dialog hold.
struct NewAccount {
    std::string bank;
    std::string account;
    bool registerBox = false;     // ADD A CHECK REGISTER COLUMN
    bool outstandingBox = false;  // ADD A OUTSTANDING DOLLARS COLUMN
    std::string registerTitle;
    std::string bankTitle;
    std::string outstandingTitle;
    std::string startingBalance;  // empty means 0
};

// Which columns an account gets (the bank-balance column always). A new
// bank's first account follows the register box for both of the others; an
// account added to an existing bank follows each box for its own column.
enum class AccountPath { NewBank, ExistingBank };
struct MadeColumns {
    bool reg = false;
    bool outstanding = false;
};
MadeColumns columnsMade(AccountPath path, bool registerBox, bool outstandingBox);

// APPLY of a new bank: asks kTypoQuestion; Yes adds the bank `fields.bank`
// with the account and the columns columnsMade(NewBank, ...) gives, the new
// columns before "Info". False after a No (nothing changes then).
bool applyNewBank(Session& session, Prompter& prompter, const NewAccount& fields);
// APPLY of a new account of the existing bank `fields.bank`, the same way.
bool applyNewAccount(Session& session, Prompter& prompter, const NewAccount& fields);

// Asks kRenameBankQuestion; Yes renames the bank and every place that names
// it: expenses, the register lines of the twelve months (and the receiving
// side of a transfer), income sources and receivables. Returns how many
// places were changed besides the bank; nothing after a No.
std::optional<int> renameBank(Session& session, Prompter& prompter, const std::string& oldName,
                              const std::string& newName);
// The same for an account of `bank` (kRenameAccountQuestion), matching the
// bank and the account together.
std::optional<int> renameAccount(Session& session, Prompter& prompter, const std::string& bank,
                                 const std::string& oldName, const std::string& newName);

// Asks kDeleteBankQuestion; Yes removes the bank and its accounts' register
// columns. Expenses, lines, income and receivables keep the name. False
// after a No.
bool deleteBank(Session& session, Prompter& prompter, const std::string& bank);
// Asks kDeleteAccountQuestion; Yes removes the account and its columns, No
// shows kKeepAccountNotice and returns false.
bool deleteAccount(Session& session, Prompter& prompter, const std::string& bank,
                   const std::string& account);

// The balance groups of an account, by their position in it.
enum class BalanceGroupKind : size_t { Register = 1, Bank = 2, Outstanding = 3 };

// COLUMN TITLE edited: the group's title and its register column's key and
// header text become `title`. Refused for a group without a column.
void setAccountColumnTitle(Session& session, const std::string& bank, const std::string& account,
                           BalanceGroupKind group, const std::string& title);
// CLOSING VALUES edited: the group's `lastyearclosing` becomes `amount`, and
// the twelve month values move by the same difference, so every month that
// was carried on from the old start is carried on from the new one.
void setAccountStartingBalance(Session& session, const std::string& bank,
                               const std::string& account, BalanceGroupKind group,
                               const std::string& amount);

// The register column width dialog's UPDATE: the column keyed `key` gets the
// width `width`, a whole number of characters from 1 to 1000.
void setColumnWidth(Session& session, const std::string& key, const std::string& width);

// The banks as the dialog's tree shows them.
struct BalanceGroupView {
    std::string title;    // "0" when the account has no such column
    std::string closing;  // lastyearclosing
};
struct AccountView {
    std::string name;
    BalanceGroupView reg, bank, outstanding;
};
struct BankView {
    std::string name;
    std::vector<AccountView> accounts;
};
std::vector<BankView> bankTree(pugi::xml_node data);

}  // namespace tallix
