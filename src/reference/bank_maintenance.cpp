#include "reference/bank_maintenance.h"

#include <set>

#include "app/prompter.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/balance_values.h"
#include "reference/bank_messages.h"
#include "reference/column_definitions.h"
#include "reference/institution_nodes.h"
#include "reference/institution_places.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

constexpr const char* kNoColumn = "0";
constexpr size_t kAccountName = 0;
constexpr size_t kGroupTitle = 0;
constexpr size_t kGroupStart = 1;
constexpr size_t kGroupFirstClosing = 2;

// One balance group to make: its element, its column title ("0" for none)
// and the kind of column it gets.
struct GroupPlan {
    const char* element;
    std::string title;
    ColumnKind kind;
    const char* field;  // where the title is typed
};

// The account's groups as the fields and boxes ask for them, each title
// checked: a column that is made needs a title no column has yet.
std::vector<GroupPlan> plannedGroups(pugi::xml_node data, const NewAccount& fields,
                                     MadeColumns made) {
    std::vector<GroupPlan> groups = {
        {"regcolumn", made.reg ? trimmedText(fields.registerTitle) : kNoColumn,
         ColumnKind::Register, "CHECK REGISTER COLUMN NAME"},
        {"bankcolumn", trimmedText(fields.bankTitle), ColumnKind::Bank, "BANK BALANCE COLUMN NAME"},
        {"outstanding", made.outstanding ? trimmedText(fields.outstandingTitle) : kNoColumn,
         ColumnKind::Outstanding, "OUTSTANDING DOLLARS COLUMN NAME"}};
    std::set<std::string> titles;
    for (const GroupPlan& group : groups) {
        const bool wanted = group.kind == ColumnKind::Bank ||
                            (group.kind == ColumnKind::Register ? made.reg : made.outstanding);
        if (!wanted)
            continue;
        if (group.title.empty())
            throw PlanRefusal(std::string(group.field) +
                              " is empty: the account gets this column, so it needs a title");
        refuseTakenColumn(data, group.title);
        if (!titles.insert(group.title).second)
            throw PlanRefusal("two of the new columns are titled " + group.title);
    }
    return groups;
}

// Appends a whole account to `bank` and registers its columns: the made
// groups start from `start` in every month, the others hold "0".
void appendAccount(pugi::xml_node data, pugi::xml_node bank, const std::string& account,
                   const std::vector<GroupPlan>& groups, const std::string& start) {
    pugi::xml_node element = appendTextElement(bank, "bankaccount", "");
    appendTextElement(element, "account", account);
    for (const GroupPlan& group : groups) {
        pugi::xml_node node = appendTextElement(element, group.element, "");
        appendTextElement(node, "title", group.title);
        const bool made = group.title != kNoColumn;
        appendYearValues(node, made && group.kind != ColumnKind::Outstanding ? start : kNoColumn);
        if (made)
            addBalanceColumn(data, group.title, group.title, group.kind);
    }
}

// Removes the register columns an account's groups name.
void removeAccountColumns(pugi::xml_node data, pugi::xml_node account) {
    for (size_t g = 1; g < elementChildCount(account); ++g) {
        const std::string title = childTextOrEmpty(childAt(account, g), kGroupTitle);
        if (title != kNoColumn && !title.empty())
            removeColumn(data, title);
    }
}

bool applyAccount(Session& session, Prompter& prompter, const NewAccount& fields,
                  AccountPath path) {
    pugi::xml_node data = session.data.node();
    const std::string account = checkedName(fields.account, "account");
    const std::string start = checkedBalance("STARTING BANK BALANCE", fields.startingBalance);
    std::string bankName;
    if (path == AccountPath::NewBank) {
        bankName = checkedName(fields.bank, "bank");
        refuseTakenInstitution(data, bankName);
    } else {
        bankName = attributeText("id", bankNode(data, fields.bank));
        refuseTakenAccount(bankNode(data, bankName), account);
    }
    const MadeColumns made = columnsMade(path, fields.registerBox, fields.outstandingBox);
    const std::vector<GroupPlan> groups = plannedGroups(data, fields, made);
    if (prompter.askYesNo(kTypoQuestion) != Answer::Yes)
        return false;
    const std::string label = path == AccountPath::NewBank
                                  ? "Add bank " + bankName
                                  : "Add account " + account + " to " + bankName;
    recordedChange(session, label, [&] {
        pugi::xml_node bank;
        if (path == AccountPath::NewBank) {
            bank = appendTextElement(bankList(data), "name", "");
            bank.append_attribute("id") = bankName.c_str();
        } else {
            bank = bankNode(data, bankName);
        }
        appendAccount(data, bank, account, groups, start);
    });
    return true;
}

pugi::xml_node groupNode(pugi::xml_node data, const std::string& bank, const std::string& account,
                         BalanceGroupKind group) {
    return childAt(accountNode(bankNode(data, bank), account), static_cast<size_t>(group));
}

BalanceGroupView groupView(pugi::xml_node group) {
    return {childTextOrEmpty(group, kGroupTitle), childTextOrEmpty(group, kGroupStart)};
}

}  // namespace

MadeColumns columnsMade(AccountPath path, bool registerBox, bool outstandingBox) {
    if (path == AccountPath::NewBank)
        return {registerBox, registerBox};
    return {registerBox, outstandingBox};
}

bool applyNewBank(Session& session, Prompter& prompter, const NewAccount& fields) {
    return applyAccount(session, prompter, fields, AccountPath::NewBank);
}

bool applyNewAccount(Session& session, Prompter& prompter, const NewAccount& fields) {
    return applyAccount(session, prompter, fields, AccountPath::ExistingBank);
}

std::optional<int> renameBank(Session& session, Prompter& prompter, const std::string& oldName,
                              const std::string& newName) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node bank = bankNode(data, oldName);
    const std::string name = checkedName(newName, "bank");
    if (name == oldName)
        return 0;
    refuseTakenInstitution(data, name);
    if (prompter.askYesNo(kRenameBankQuestion) != Answer::Yes)
        return std::nullopt;
    int changed = 0;
    recordedChange(session, "Rename bank " + oldName + " to " + name, [&] {
        setAttributeText(name, "id", bank);
        changed = renameInstitutionPlaces(data, oldName, name);
    });
    return changed;
}

std::optional<int> renameAccount(Session& session, Prompter& prompter, const std::string& bank,
                                 const std::string& oldName, const std::string& newName) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node bankElement = bankNode(data, bank);
    pugi::xml_node account = accountNode(bankElement, oldName);
    const std::string name = checkedName(newName, "account");
    if (name == oldName)
        return 0;
    refuseTakenAccount(bankElement, name);
    if (prompter.askYesNo(kRenameAccountQuestion) != Answer::Yes)
        return std::nullopt;
    int changed = 0;
    recordedChange(session, "Rename account " + oldName + " of " + bank + " to " + name, [&] {
        setChildText(account, kAccountName, name);
        changed = renameAccountPlaces(data, bank, oldName, name);
    });
    return changed;
}

bool deleteBank(Session& session, Prompter& prompter, const std::string& bank) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node element = bankNode(data, bank);
    if (prompter.askYesNo(kDeleteBankQuestion) != Answer::Yes)
        return false;
    recordedChange(session, "Delete bank " + bank, [&] {
        for (pugi::xml_node account : elementChildren(element))
            removeAccountColumns(data, account);
        element.parent().remove_child(element);
    });
    return true;
}

bool deleteAccount(Session& session, Prompter& prompter, const std::string& bank,
                   const std::string& account) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node element = accountNode(bankNode(data, bank), account);
    if (prompter.askYesNo(kDeleteAccountQuestion) != Answer::Yes) {
        prompter.notify(kKeepAccountNotice);
        return false;
    }
    recordedChange(session, "Delete account " + account + " of " + bank, [&] {
        removeAccountColumns(data, element);
        element.parent().remove_child(element);
    });
    return true;
}

void setAccountColumnTitle(Session& session, const std::string& bank, const std::string& account,
                           BalanceGroupKind group, const std::string& title) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node node = groupNode(data, bank, account, group);
    const std::string oldTitle = childText(node, kGroupTitle);
    if (oldTitle == kNoColumn)
        throw PlanRefusal("the account " + account + " of " + bank +
                          " has no register column of this kind to give a title");
    const std::string newTitle = trimmedText(title);
    if (newTitle == oldTitle)
        return;
    refuseTakenColumn(data, newTitle);
    recordedChange(session, "Rename column " + oldTitle + " to " + newTitle, [&] {
        setChildText(node, kGroupTitle, newTitle);
        renameColumnKey(data, oldTitle, newTitle);
        setColumnTitle(data, newTitle, newTitle);
    });
}

void setAccountStartingBalance(Session& session, const std::string& bank,
                               const std::string& account, BalanceGroupKind group,
                               const std::string& amount) {
    pugi::xml_node node = groupNode(session.data.node(), bank, account, group);
    const std::string start = checkedBalance("CLOSING VALUES", amount);
    recordedChange(session, "Change the starting balance of " + account + " of " + bank,
                   [&] { moveStartingBalance(node, kGroupStart, kGroupFirstClosing, start); });
}

void setColumnWidth(Session& session, const std::string& key, const std::string& width) {
    pugi::xml_node column = selectOne(session.data.node(), paths::kColumn, key);
    if (!column)
        throw PlanRefusal("there is no register column titled " + key);
    const std::string text = trimmedText(width);
    const std::optional<int> value = numberWithin(text, 1, schema::kMostColumnWidth);
    if (!value || std::to_string(*value) != text)
        throw PlanRefusal("the width \"" + text + "\" is not a whole number from 1 to " +
                          std::to_string(schema::kMostColumnWidth));
    recordedChange(session, "Change the width of column " + key,
                   [&] { setChildText(column, 1, text); });
}

std::vector<BankView> bankTree(pugi::xml_node data) {
    std::vector<BankView> banks;
    for (pugi::xml_node bank : elementChildren(bankList(data))) {
        BankView view{attributeText("id", bank), {}};
        for (pugi::xml_node account : elementChildren(bank))
            view.accounts.push_back(
                {childTextOrEmpty(account, kAccountName), groupView(childAtOrNull(account, 1)),
                 groupView(childAtOrNull(account, 2)), groupView(childAtOrNull(account, 3))});
        banks.push_back(std::move(view));
    }
    return banks;
}

}  // namespace tallix
