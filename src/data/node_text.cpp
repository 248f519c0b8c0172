#include "data/node_text.h"

#include "data/child_names.h"

#include <stdexcept>
#include <string>

namespace tallix {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Walks the subtree without recursion, so a hand-made file nested very
// deeply cannot exhaust the stack.
void collectText(pugi::xml_node top, std::string& out) {
    pugi::xml_node node = top.first_child();
    while (node) {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            out += node.value();
        if (node.type() == pugi::node_element && node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && node != top && !node.next_sibling())
            node = node.parent();
        if (!node || node == top)
            break;
        node = node.next_sibling();
    }
}

std::string_view trimmed(std::string_view text) {
    size_t begin = 0;
    size_t end = text.size();
    while (begin < end && isBlank(text[begin]))
        ++begin;
    while (end > begin && isBlank(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

std::string describe(pugi::xml_node node) {
    std::string name = node.name();
    if (pugi::xml_attribute id = node.attribute("id"))
        name += " '" + std::string(id.value()) + "'";
    return name.empty() ? "(document)" : name;
}

void requireNode(pugi::xml_node node, std::string_view what) {
    if (!node)
        throw std::runtime_error(std::string(what) + " on a node that does not exist");
}

}  // namespace

std::string nodeText(pugi::xml_node node) {
    auto isText = [](pugi::xml_node n) {
        return n.type() == pugi::node_pcdata || n.type() == pugi::node_cdata;
    };
    // A text node, or the usual element holding one text child or none, is
    // trimmed where it stands; gathering a copy first cost the register a
    // second string for every field of every line.
    pugi::xml_node only = node.first_child();
    if (isText(node))
        return std::string(trimmed(node.value()));
    if (node.type() == pugi::node_element && (!only || (isText(only) && !only.next_sibling())))
        return std::string(trimmed(only.value()));
    std::string out;
    collectText(node, out);
    return std::string(trimmed(out));
}

void setNodeText(pugi::xml_node node, std::string_view text) {
    requireNode(node, "setting text");
    while (pugi::xml_node child = node.first_child())
        node.remove_child(child);
    if (!text.empty())
        node.append_child(pugi::node_pcdata).set_value(std::string(text).c_str());
}

bool updateNodeText(pugi::xml_node node, std::string_view text) {
    if (nodeText(node) == text)
        return false;
    setNodeText(node, text);
    return true;
}

std::vector<pugi::xml_node> elementChildren(pugi::xml_node node) {
    std::vector<pugi::xml_node> out;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        if (child.type() == pugi::node_element)
            out.push_back(child);
    return out;
}

size_t elementPosition(pugi::xml_node node) {
    size_t position = 0;
    for (pugi::xml_node n = node.previous_sibling(); n; n = n.previous_sibling())
        if (n.type() == pugi::node_element)
            ++position;
    return position;
}

size_t elementChildCount(pugi::xml_node node) {
    size_t n = 0;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        if (child.type() == pugi::node_element)
            ++n;
    return n;
}

pugi::xml_node childAtOrNull(pugi::xml_node node, size_t index) {
    size_t i = 0;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() != pugi::node_element)
            continue;
        if (i++ == index)
            return child;
    }
    return {};
}

std::string childTextOrEmpty(pugi::xml_node node, size_t index) {
    pugi::xml_node child = childAtOrNull(node, index);
    return child ? nodeText(child) : std::string();
}

pugi::xml_node childAt(pugi::xml_node node, size_t index) {
    if (!node)
        throw std::out_of_range("child " + std::to_string(index) + " of a missing node");
    if (pugi::xml_node child = childAtOrNull(node, index))
        return child;
    throw std::out_of_range("child " + std::to_string(index) + " of " + describe(node) +
                            " is missing");
}

std::string childText(pugi::xml_node node, size_t index) {
    return nodeText(childAt(node, index));
}

void setChildText(pugi::xml_node node, size_t index, std::string_view text) {
    pugi::xml_node child = childAt(node, index);
    schema::refuseMisplaced(child);
    setNodeText(child, text);
}

pugi::xml_node appendTextElement(pugi::xml_node parent, std::string_view name,
                                 std::string_view text) {
    requireNode(parent, "appending an element");
    pugi::xml_node element = parent.append_child(std::string(name).c_str());
    setNodeText(element, text);
    return element;
}

std::string attributeText(std::string_view name, pugi::xml_node node) {
    requireNode(node, "reading an attribute");
    return node.attribute(std::string(name).c_str()).value();
}

void setAttributeText(std::string_view value, std::string_view name, pugi::xml_node node) {
    requireNode(node, "setting an attribute");
    pugi::xml_attribute attr = node.attribute(std::string(name).c_str());
    if (!attr)
        throw std::runtime_error("attribute '" + std::string(name) + "' does not exist on " +
                                 describe(node));
    attr.set_value(std::string(value).c_str());
}

}  // namespace tallix
