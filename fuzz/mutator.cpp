#include "mutator.h"

#include <array>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix::fuzz {
namespace {

// Texts that amounts, days, positions and widths have tripped over, and a few
// that names and keys have.
const std::array<std::string_view, 34> kOddTexts = {"",
                                                    " ",
                                                    "nan",
                                                    "inf",
                                                    "-inf",
                                                    "Infinity",
                                                    "1e23",
                                                    "-1e300",
                                                    "2147483647",
                                                    "-2147483648",
                                                    "9223372036854775808",
                                                    "400000000",
                                                    "0",
                                                    "-0.-5",
                                                    "3.-",
                                                    "abc",
                                                    "'",
                                                    "Trader Joe's",
                                                    "&amp;",
                                                    "-1",
                                                    "32",
                                                    "13",
                                                    "1e-400",
                                                    "0x10",
                                                    "1,5",
                                                    "12.50",
                                                    "$",
                                                    "-3.-5",
                                                    " 12 ",
                                                    "3.999",
                                                    "DUMMY",
                                                    "creditcards",
                                                    "\t\n",
                                                    "-2147483649"};

const std::array<std::string_view, 8> kOddNames = {"zz",      "item",  "month",  "name",
                                                   "closing", "title", "column", "x-unknown"};

size_t pick(Random& random, size_t count) {
    return std::uniform_int_distribution<size_t>(0, count - 1)(random);
}

bool chance(Random& random, int percent) {
    return static_cast<int>(pick(random, 100)) < percent;
}

std::string oddText(Random& random, const std::vector<pugi::xml_node>& elements) {
    switch (pick(random, 6)) {
        case 0:
            return std::string(5000, "9a'"[pick(random, 3)]);
        case 1:  // another element's text
            return elements[pick(random, elements.size())].text().get();
        case 2:
            return std::to_string(static_cast<std::int64_t>(random()) >>
                                  pick(random, 63));  // any size
        default:
            return std::string(kOddTexts[pick(random, kOddTexts.size())]);
    }
}

void collect(pugi::xml_node node, std::vector<pugi::xml_node>& elements) {
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() != pugi::node_element)
            continue;
        elements.push_back(child);
        collect(child, elements);
    }
}

std::vector<pugi::xml_node> siblingsOf(pugi::xml_node node) {
    std::vector<pugi::xml_node> siblings;
    for (pugi::xml_node s = node.parent().first_child(); s; s = s.next_sibling())
        if (s.type() == pugi::node_element && s != node)
            siblings.push_back(s);
    return siblings;
}

bool isInside(pugi::xml_node node, pugi::xml_node ancestor) {
    for (; node; node = node.parent())
        if (node == ancestor)
            return true;
    return false;
}

// One structural change to the document; nothing when it had no element to
// change.
void mutateOnce(pugi::xml_document& doc, Random& random) {
    std::vector<pugi::xml_node> elements;
    collect(doc, elements);
    if (elements.empty())
        return;
    pugi::xml_node node = elements[pick(random, elements.size())];
    pugi::xml_node parent = node.parent();
    const std::vector<pugi::xml_node> siblings = siblingsOf(node);
    switch (pick(random, 11)) {
        case 0:  // swap with a sibling
            if (!siblings.empty()) {
                pugi::xml_node other = siblings[pick(random, siblings.size())];
                pugi::xml_node marker = parent.insert_child_before(pugi::node_pcdata, node);
                parent.insert_move_after(node, other);
                parent.insert_move_after(other, marker);
                parent.remove_child(marker);
            }
            break;
        case 1:
            parent.remove_child(node);
            break;
        case 2:
            parent.insert_copy_after(node, node);
            break;
        case 3: {  // move somewhere else
            pugi::xml_node target = elements[pick(random, elements.size())];
            if (!isInside(target, node))
                chance(random, 50) ? target.append_move(node)
                                   : target.parent().insert_move_after(node, target);
            break;
        }
        case 4:  // rename to a sibling's name or to one the file does not use
            if (!siblings.empty() && chance(random, 60))
                node.set_name(siblings[pick(random, siblings.size())].name());
            else
                node.set_name(kOddNames[pick(random, kOddNames.size())].data());
            break;
        case 5:
        case 6:
        case 7: {  // an odd text, mostly in a leaf
            pugi::xml_node leaf = node;
            while (leaf.first_child() && leaf.first_child().type() == pugi::node_element)
                leaf = leaf.first_child();
            leaf.text().set(oddText(random, elements).c_str());
            break;
        }
        case 8:  // an attribute removed, doubled or set oddly
            if (pugi::xml_attribute a = node.first_attribute()) {
                switch (pick(random, 3)) {
                    case 0:
                        node.remove_attribute(a);
                        break;
                    case 1:
                        node.append_attribute(a.name()).set_value(
                            oddText(random, elements).c_str());
                        break;
                    default:
                        a.set_value(oddText(random, elements).c_str());
                }
            }
            break;
        case 9:  // a second root
            if (chance(random, 50))
                doc.append_copy(doc.document_element());
            else
                doc.append_child(kOddNames[pick(random, kOddNames.size())].data());
            break;
        default:  // an element's children emptied
            while (node.first_child())
                node.remove_child(node.first_child());
            break;
    }
}

class StringWriter : public pugi::xml_writer {
  public:
    explicit StringWriter(std::string& out) : out_(out) {}
    void write(const void* data, size_t size) override {
        out_.append(static_cast<const char*>(data), size);
    }

  private:
    std::string& out_;
};

constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_declaration |
                                   pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype;

const std::array<std::string_view, 12> kOddBytes = {
    "<", ">", "&", "&amp;", "&#13;", "&bogus;", "'", "\"", "</item>", "<item>", "\xC3", "\0"};

}  // namespace

std::string mutateStructure(const std::string& original, Random& random) {
    pugi::xml_document doc;
    if (!doc.load_buffer(original.data(), original.size(), kParseOptions))
        return original;
    const size_t count = 1 + pick(random, 4);
    for (size_t i = 0; i < count; ++i)
        mutateOnce(doc, random);
    std::string out;
    StringWriter writer(out);
    // A declaration the input had is a node of the tree and written as one.
    doc.save(writer, "  ", pugi::format_default | pugi::format_no_declaration);
    return out;
}

std::string mutateBytes(const std::string& original, Random& random) {
    std::string out = original;
    const size_t count = 1 + pick(random, 3);
    for (size_t i = 0; i < count; ++i) {
        const size_t at = out.empty() ? 0 : pick(random, out.size() + 1);
        switch (pick(random, 5)) {
            case 0:
                if (at < out.size())
                    out[at] = static_cast<char>(out[at] ^ (1 << pick(random, 8)));
                break;
            case 1: {
                std::string_view bytes = kOddBytes[pick(random, kOddBytes.size())];
                out.insert(at, bytes.empty() ? std::string(1, '\0') : std::string(bytes));
                break;
            }
            case 2:
                out.erase(at, 1 + pick(random, 16));
                break;
            case 3:
                out.resize(at);
                break;
            default:  // a stretch repeated
                out.insert(at, out.substr(at, pick(random, 64)));
                break;
        }
    }
    return out;
}

std::string mutate(const std::string& original, Random& random) {
    std::string out = mutateStructure(original, random);
    if (out == original || chance(random, 20))
        out = mutateBytes(out, random);
    return out;
}

}  // namespace tallix::fuzz
