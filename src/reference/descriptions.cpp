#include "reference/descriptions.h"

#include <stdexcept>

#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "reference/plan_input.h"

namespace tallix {

std::vector<std::string> descriptions(pugi::xml_node data) {
    std::vector<std::string> texts;
    for (pugi::xml_node d : elementChildren(selectOne(data, paths::kDescriptions)))
        texts.push_back(nodeText(d));
    return texts;
}

bool hasDescription(pugi::xml_node data, const std::string& text) {
    for (const std::string& d : descriptions(data))
        if (d == text)
            return true;
    return false;
}

bool addDescription(pugi::xml_node data, const std::string& text) {
    if (hasDescription(data, text))
        return false;
    pugi::xml_node list = selectOne(data, paths::kDescriptions);
    if (!list)
        throw std::runtime_error("the year file has no descriptions");
    appendTextElement(list, "description", text);
    return true;
}

namespace {

std::string checkedDescription(const std::string& typed) {
    const std::string text = checkedName(typed, "description");
    if (text.size() > kLongestDescription)
        throw PlanRefusal("a description may be at most " + std::to_string(kLongestDescription) +
                          " characters long; this one has " + std::to_string(text.size()));
    return text;
}

pugi::xml_node descriptionNode(pugi::xml_node data, const std::string& text) {
    for (pugi::xml_node d : elementChildren(selectOne(data, paths::kDescriptions)))
        if (nodeText(d) == text)
            return d;
    throw PlanRefusal("description not found: " + text);
}

}  // namespace

bool saveNewDescription(Session& session, const std::string& typed) {
    const std::string text = checkedDescription(typed);
    if (hasDescription(session.data.node(), text))
        return false;
    recordedChange(session, "Add description " + text,
                   [&] { addDescription(session.data.node(), text); });
    return true;
}

void renameDescription(Session& session, const std::string& oldText, const std::string& newText) {
    pugi::xml_node node = descriptionNode(session.data.node(), oldText);
    const std::string text = checkedDescription(newText);
    if (text == oldText)
        return;
    if (hasDescription(session.data.node(), text))
        throw PlanRefusal("the description \"" + text + "\" is on the list already");
    recordedChange(session, "Change description " + oldText, [&] { setNodeText(node, text); });
}

void deleteDescription(Session& session, const std::string& text) {
    pugi::xml_node node = descriptionNode(session.data.node(), text);
    recordedChange(session, "Delete description " + text,
                   [&] { node.parent().remove_child(node); });
}

void offerDescription(Session& session, const std::string& text) {
    pugi::xml_node data = session.data.node();
    if (hasDescription(data, text))
        return;
    if (session.prompter().askYesNo(kDescriptionNotOnList) != Answer::Yes)
        return;
    if (addDescription(data, text))
        session.saveChange("Add description " + text);
}

}  // namespace tallix
