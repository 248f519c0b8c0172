// Banks with their accounts, and credit cards.
#include <set>

#include "data/child_names.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/schema_paths.h"
#include "data/structure_shape.h"
#include "data/values.h"

namespace tallix::structure {
namespace {

constexpr size_t kMonths = 12;
// The title of a balance group or card that has no register column.
constexpr std::string_view kNoColumn = "0";

// A register-column title named by a bank group or a card must be the key of
// a register column, found the way the program finds it.
void expectColumn(Faults& faults, std::string_view where, std::string_view what,
                  const std::string& title, pugi::xml_node document) {
    if (title == kNoColumn)
        return;
    if (title.empty())
        faults.add(where, std::string(what) + " is empty (write '0' when there is no column)");
    else if (!selectOne(document, paths::kColumn, title))
        faults.add(where, std::string(what) + " " + quote(title) + " has no register column");
}

void expectClosings(Faults& faults, std::string_view where,
                    const std::vector<pugi::xml_node>& children, size_t first) {
    for (size_t m = 0; m < kMonths; ++m)
        expectAmount(faults, where, children[first + m],
                     "closing of " + monthName(static_cast<int>(m + 1)));
}

// regcolumn, bankcolumn or outstanding of a bank account.
void checkBalanceGroup(Faults& faults, const std::string& where, pugi::xml_node group,
                       pugi::xml_node document) {
    if (!expectChildren(faults, where, group, schema::kBalanceGroupChildren))
        return;
    std::vector<pugi::xml_node> children = elementChildren(group);
    expectColumn(faults, where, "title", nodeText(children[0]), document);
    expectAmount(faults, where, children[1], "lastyearclosing");
    expectClosings(faults, where, children, 2);
}

void checkBank(Faults& faults, const std::string& where, pugi::xml_node bank,
               pugi::xml_node document) {
    std::vector<pugi::xml_node> accounts = childrenNamed(faults, where, bank, "bankaccount");
    for (size_t i = 0; i < accounts.size(); ++i) {
        std::vector<pugi::xml_node> children = elementChildren(accounts[i]);
        bool named = !children.empty() && std::string_view(children[0].name()) == "account";
        std::string accountWhere =
            where + " account " +
            (named ? quote(nodeText(children[0])) : "#" + std::to_string(i + 1));
        if (!expectChildren(faults, accountWhere, accounts[i], schema::kAccountChildren))
            continue;
        for (size_t g = 1; g < children.size(); ++g)
            checkBalanceGroup(faults, accountWhere + " " + children[g].name(), children[g],
                              document);
    }
}

void checkCard(Faults& faults, const std::string& where, pugi::xml_node card,
               pugi::xml_node document) {
    if (!expectChildren(faults, where, card, schema::kCardChildren))
        return;
    std::vector<pugi::xml_node> children = elementChildren(card);
    std::string type = nodeText(children[0]);
    if (type != schema::kCreditCardsId)
        faults.add(where, "type is " + quote(type) + ", expected " + quote(schema::kCreditCardsId));
    expectColumn(faults, where, "columnname", nodeText(children[1]), document);
    expectAmount(faults, where, children[2], "lastyearclosing");
    expectClosings(faults, where, children, 6);
}

// The bank or card `name` elements of one financial-institution.
std::vector<pugi::xml_node> checkInstitution(Faults& faults, pugi::xml_node institution,
                                             std::string_view id, pugi::xml_node document) {
    std::string where = "financial-institution " + quote(id);
    if (!expectChildren(faults, where, institution, {"names"}))
        return {};
    std::vector<pugi::xml_node> names =
        childrenNamed(faults, where + " names", institution.child("names"), "name");
    expectUniqueKeys(faults, where + " names", names, "id");
    bool banks = id == schema::kBanksId;
    for (size_t i = 0; i < names.size(); ++i) {
        std::string nameWhere = (banks ? "bank " : "card ") + label(names[i], "id", i);
        if (banks)
            checkBank(faults, nameWhere, names[i], document);
        else
            checkCard(faults, nameWhere, names[i], document);
    }
    return names;
}

}  // namespace

void checkInstitutions(Faults& faults, pugi::xml_node container, pugi::xml_node document) {
    const std::string where = "financial-institutions";
    std::vector<pugi::xml_node> institutions =
        childrenNamed(faults, where, container, "financial-institution");
    std::vector<pugi::xml_node> banks;
    std::vector<pugi::xml_node> cards;
    int bankUses = 0;
    int cardUses = 0;
    for (size_t i = 0; i < institutions.size(); ++i) {
        pugi::xml_attribute id = institutions[i].attribute("id");
        if (!id) {
            faults.add(where,
                       "financial-institution #" + std::to_string(i + 1) + " lacks attribute 'id'");
        } else if (id.value() == schema::kBanksId) {
            if (bankUses++ == 0)
                banks = checkInstitution(faults, institutions[i], id.value(), document);
        } else if (id.value() == schema::kCreditCardsId) {
            if (cardUses++ == 0)
                cards = checkInstitution(faults, institutions[i], id.value(), document);
        } else {
            faults.add(where, "unexpected financial-institution " + quote(id.value()) +
                                  " (only 'banks' and 'creditcards')");
        }
    }
    for (auto [id, uses] :
         {std::pair{schema::kBanksId, bankUses}, {schema::kCreditCardsId, cardUses}}) {
        if (uses == 0)
            faults.add(where, "lacks financial-institution " + quote(id));
        else if (uses > 1)
            faults.add(where, "financial-institution " + quote(id) + " appears " +
                                  std::to_string(uses) + " times");
    }

    // One lookup finds a bank or a card by name, so a name may not be both.
    std::set<std::string> bankNames;
    for (pugi::xml_node bank : banks)
        bankNames.insert(bank.attribute("id").value());
    for (pugi::xml_node card : cards) {
        pugi::xml_attribute id = card.attribute("id");
        if (id && bankNames.count(id.value()))
            faults.add(where, "name " + quote(id.value()) + " is both a bank and a card");
    }
}

}  // namespace tallix::structure
