#include "reference/rmd_maintenance.h"

#include "app/prompter.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/values.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

constexpr const char* kNewIndividual = "new indiv";
constexpr const char* kNewName = "new name";
constexpr const char* kNewAccount = "account";
constexpr size_t kHolderName = 0;
constexpr size_t kHolderAccounts = 1;
constexpr size_t kAccountName = 0;
constexpr int kFirstValue = 1;
constexpr int kLastValue = 3;

void requireLevel(const RmdPlace& place, RmdLevel level, const char* message) {
    if (place.level != level)
        throw PlanRefusal(message);
}

pugi::xml_node individualNode(pugi::xml_node data, const std::string& name) {
    pugi::xml_node individual = selectOne(data, paths::kRmd, name);
    if (!individual)
        throw PlanRefusal("RMD individual not found: " + name);
    return individual;
}

// The element at place `index` of `list`, refusing a place that is not there.
pugi::xml_node placeIn(pugi::xml_node list, int index, const char* what) {
    pugi::xml_node node =
        index < 0 ? pugi::xml_node() : childAtOrNull(list, static_cast<size_t>(index));
    if (!node)
        throw PlanRefusal(std::string("the RMD ") + what + " is not in the file");
    return node;
}

pugi::xml_node holderNode(pugi::xml_node data, const RmdPlace& place) {
    return placeIn(individualNode(data, place.individual), place.name, "name");
}

pugi::xml_node accountNode(pugi::xml_node data, const RmdPlace& place) {
    return placeIn(childAt(holderNode(data, place), kHolderAccounts), place.account, "account");
}

void appendNewAccount(pugi::xml_node accounts) {
    pugi::xml_node account = appendTextElement(accounts, "account", "");
    appendTextElement(account, "name", kNewAccount);
    for (const char* value : {"lastyearbalance", "rmdamount", "currentdraw"})
        appendTextElement(account, value, "0");
}

void appendNewName(pugi::xml_node individual) {
    pugi::xml_node holder = appendTextElement(individual, "holder", "");
    appendTextElement(holder, "name", kNewName);
    appendNewAccount(appendTextElement(holder, "accounts", ""));
}

std::string unusedIndividualName(pugi::xml_node data) {
    std::string name = kNewIndividual;
    for (int n = 2; selectOne(data, paths::kRmd, name); ++n)
        name = std::string(kNewIndividual) + " " + std::to_string(n);
    return name;
}

void removeNode(Session& session, pugi::xml_node node, const std::string& label) {
    recordedChange(session, label, [&] { node.parent().remove_child(node); });
}

double amountOrZero(const std::string& text) {
    return text.empty() ? 0 : textToAmount(text);
}

struct Sums {
    double lastYear = 0, rmdAmount = 0, currentDraw = 0;
    void add(const RmdValues& v) {
        lastYear += amountOrZero(v.lastYear);
        rmdAmount += amountOrZero(v.rmdAmount);
        currentDraw += amountOrZero(v.currentDraw);
    }
    RmdValues text() const {
        return {amountToText(lastYear), amountToText(rmdAmount), amountToText(currentDraw)};
    }
};

}  // namespace

std::string addIndividual(Session& session, Prompter& prompter, const RmdPlace& selected) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node list = requireOne(data, paths::kRmds);
    if (elementChildCount(list) > 0)
        requireLevel(selected, RmdLevel::Individual, kNotAnIndividual);
    prompter.notify(kNewIndividualNotice);
    const std::string name = unusedIndividualName(data);
    recordedChange(session, "Add RMD individual " + name, [&] {
        pugi::xml_node individual = appendTextElement(list, "rmd", "");
        individual.append_attribute("id") = name.c_str();
        appendNewName(individual);
    });
    return name;
}

void addRmdName(Session& session, const RmdPlace& selected) {
    requireLevel(selected, RmdLevel::Name, kNotAName);
    holderNode(session.data.node(), selected);
    pugi::xml_node individual = individualNode(session.data.node(), selected.individual);
    recordedChange(session, "Add a name to " + selected.individual,
                   [&] { appendNewName(individual); });
}

void addRmdAccount(Session& session, const RmdPlace& selected) {
    requireLevel(selected, RmdLevel::Name, kNotAName);
    pugi::xml_node holder = holderNode(session.data.node(), selected);
    recordedChange(session, "Add an account to " + selected.individual,
                   [&] { appendNewAccount(childAt(holder, kHolderAccounts)); });
}

void deleteRmdAccount(Session& session, const RmdPlace& selected) {
    requireLevel(selected, RmdLevel::Account, kNotAnAccount);
    removeNode(session, accountNode(session.data.node(), selected),
               "Delete an account of " + selected.individual);
}

void deleteRmdName(Session& session, const RmdPlace& selected) {
    requireLevel(selected, RmdLevel::Name, kNotAName);
    removeNode(session, holderNode(session.data.node(), selected),
               "Delete a name of " + selected.individual);
}

void deleteIndividual(Session& session, const RmdPlace& selected) {
    requireLevel(selected, RmdLevel::Individual, kNotAnIndividual);
    removeNode(session, individualNode(session.data.node(), selected.individual),
               "Delete RMD individual " + selected.individual);
}

void editRmdLabel(Session& session, const RmdPlace& place, const std::string& typed) {
    pugi::xml_node data = session.data.node();
    const std::string text = trimmedText(typed);
    const std::string label = "Change RMD " + place.individual;
    switch (place.level) {
        case RmdLevel::Individual: {
            pugi::xml_node individual = individualNode(data, place.individual);
            const std::string name = checkedName(text, "RMD individual");
            if (name == place.individual)
                return;
            if (selectOne(data, paths::kRmd, name))
                throw PlanRefusal("there is already an RMD individual named " + name);
            recordedChange(session, label, [&] { setAttributeText(name, "id", individual); });
            return;
        }
        case RmdLevel::Name: {
            pugi::xml_node holder = holderNode(data, place);
            recordedChange(session, label, [&] { setChildText(holder, kHolderName, text); });
            return;
        }
        case RmdLevel::Account: {
            pugi::xml_node account = accountNode(data, place);
            recordedChange(session, label, [&] { setChildText(account, kAccountName, text); });
            return;
        }
        case RmdLevel::Value: {
            pugi::xml_node account = accountNode(data, place);
            if (place.value < kFirstValue || place.value > kLastValue)
                throw PlanRefusal("the RMD value is not in the file");
            if (!typedAmountText(text))
                throw PlanRefusal("invalid stof argument");
            const std::string amount = amountToText(textToAmount(*typedAmountText(text)));
            recordedChange(session, label, [&] {
                setChildText(account, static_cast<size_t>(place.value), amount);
            });
            return;
        }
        case RmdLevel::None:
        case RmdLevel::Totals:
            break;
    }
    throw PlanRefusal("the totals are worked out and cannot be edited");
}

RmdTree rmdTree(pugi::xml_node data) {
    RmdTree tree;
    Sums all;
    for (pugi::xml_node individual : selectAll(data, paths::kAllRmds)) {
        RmdIndividualView view{attributeText("id", individual), {}, {}};
        Sums sums;
        for (pugi::xml_node holder : elementChildren(individual)) {
            RmdNameView name{childTextOrEmpty(holder, kHolderName), {}};
            for (pugi::xml_node account : elementChildren(childAtOrNull(holder, kHolderAccounts))) {
                RmdAccountView a{childTextOrEmpty(account, kAccountName),
                                 {childTextOrEmpty(account, 1), childTextOrEmpty(account, 2),
                                  childTextOrEmpty(account, 3)}};
                sums.add(a.values);
                name.accounts.push_back(std::move(a));
            }
            view.names.push_back(std::move(name));
        }
        view.totals = sums.text();
        all.add(view.totals);
        tree.individuals.push_back(std::move(view));
    }
    tree.totals = all.text();
    return tree;
}

}  // namespace tallix
