#include "reference/institution_nodes.h"

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_paths.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

pugi::xml_node namedChild(pugi::xml_node list, const std::string& name) {
    for (pugi::xml_node entry : elementChildren(list))
        if (attributeText("id", entry) == name)
            return entry;
    return {};
}

pugi::xml_node findAccount(pugi::xml_node bank, const std::string& name) {
    for (pugi::xml_node account : elementChildren(bank))
        if (childTextOrEmpty(account, 0) == name)
            return account;
    return {};
}

}  // namespace

pugi::xml_node bankList(pugi::xml_node data) {
    return childAt(requireOne(data, paths::kBanks), 0);
}

pugi::xml_node cardNames(pugi::xml_node data) {
    return childAt(requireOne(data, paths::kCreditCards), 0);
}

pugi::xml_node bankNode(pugi::xml_node data, const std::string& name) {
    if (pugi::xml_node bank = namedChild(bankList(data), name))
        return bank;
    throw PlanRefusal("bank not found: " + name);
}

pugi::xml_node accountNode(pugi::xml_node bank, const std::string& name) {
    if (pugi::xml_node account = findAccount(bank, name))
        return account;
    throw PlanRefusal("account not found: " + attributeText("id", bank) + " " + name);
}

pugi::xml_node cardNode(pugi::xml_node data, const std::string& name) {
    if (pugi::xml_node card = namedChild(cardNames(data), name))
        return card;
    throw PlanRefusal("credit card not found: " + name);
}

void refuseTakenInstitution(pugi::xml_node data, const std::string& name) {
    if (name == "creditcards" || name == "creditcard")
        throw PlanRefusal("\"" + name + "\" is the word lines use for the credit cards");
    if (namedChild(bankList(data), name))
        throw PlanRefusal("there is already a bank named " + name);
    if (namedChild(cardNames(data), name))
        throw PlanRefusal("there is already a credit card named " + name);
}

void refuseTakenAccount(pugi::xml_node bank, const std::string& name) {
    if (findAccount(bank, name))
        throw PlanRefusal("the bank " + attributeText("id", bank) +
                          " already has an account named " + name);
}

}  // namespace tallix
