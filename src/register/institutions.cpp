#include "register/institutions.h"

#include "data/node_text.h"
#include "data/query.h"
#include "data/values.h"
#include "register/register_columns.h"

namespace tallix {
namespace {

// A group's value for `month` is child `month` (child 1, lastyearclosing, is
// January's start).
BalanceGroup readGroup(pugi::xml_node data, pugi::xml_node account, size_t index, int month,
                       bool withValue) {
    BalanceGroup group;
    std::vector<pugi::xml_node> children = elementChildren(account);
    if (index >= children.size())
        return group;  // an account without this group has no such column
    group.node = children[index];
    group.title = childText(group.node, 0);
    if (!group.bound())
        return group;
    group.column = columnPosition(data, group.title);
    if (withValue) {
        std::string text = childText(group.node, static_cast<size_t>(month));
        group.startValue = text.empty() ? 0 : textToAmount(text);
    }
    return group;
}

pugi::xml_node namesOf(pugi::xml_node data, const char* institutionPath) {
    pugi::xml_node institution = selectOne(data, institutionPath);
    return institution ? institution.child("names") : pugi::xml_node();
}

}  // namespace

bool Institutions::isBank(const std::string& name) const {
    for (const Bank& b : banks)
        if (b.name == name)
            return true;
    return false;
}

int cardStartChild(int month) {
    return month == 1 ? 2 : month + 4;
}

Institutions readInstitutions(pugi::xml_node data, int month) {
    Institutions result;
    for (pugi::xml_node bankNode : elementChildren(namesOf(data, paths::kBanks))) {
        Bank bank;
        bank.name = attributeText("id", bankNode);
        for (pugi::xml_node accountNode : elementChildren(bankNode)) {
            BankAccount account;
            account.name = childText(accountNode, 0);
            account.reg = readGroup(data, accountNode, 1, month, true);
            account.bank = readGroup(data, accountNode, 2, month, true);
            account.outstanding = readGroup(data, accountNode, 3, month, false);
            bank.accounts.push_back(std::move(account));
        }
        result.banks.push_back(std::move(bank));
    }
    for (pugi::xml_node cardNode : elementChildren(namesOf(data, paths::kCreditCards))) {
        if (childText(cardNode, 1) == "0")
            continue;
        CreditCard card;
        card.node = cardNode;
        card.name = attributeText("id", cardNode);
        card.column = columnPosition(data, card.name);
        std::string text = childText(cardNode, static_cast<size_t>(cardStartChild(month)));
        card.startValue = text.empty() ? 0 : textToAmount(text);
        result.cards.push_back(std::move(card));
    }
    return result;
}

}  // namespace tallix
