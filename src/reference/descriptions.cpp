#include "reference/descriptions.h"

#include <stdexcept>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"

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

void offerDescription(Session& session, const std::string& text) {
    pugi::xml_node data = session.data.node();
    if (hasDescription(data, text))
        return;
    if (session.prompter().askYesNo(kDescriptionNotOnList) != Answer::Yes)
        return;
    if (addDescription(data, text))
        session.saveData();
}

}  // namespace tallix
