#include "data/structure_shape.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <stdexcept>

#include "data/node_text.h"
#include "data/structure_check.h"
#include "data/values.h"

namespace tallix::structure {
namespace {

constexpr size_t kMonths = 12;

size_t countNamed(const std::vector<pugi::xml_node>& nodes, std::string_view name) {
    return static_cast<size_t>(std::count_if(nodes.begin(), nodes.end(), [&](pugi::xml_node n) {
        return std::string_view(n.name()) == name;
    }));
}

// "title, lastyearclosing, 12 x closing".
std::string describe(const Names& names) {
    std::string out;
    for (size_t i = 0; i < names.size();) {
        size_t run = 1;
        while (i + run < names.size() && names[i + run] == names[i])
            ++run;
        if (!out.empty())
            out += ", ";
        if (run > 1)
            out += std::to_string(run) + " x ";
        out += names[i];
        i += run;
    }
    return out;
}

// With the wrong number of children, compare names by how often they occur:
// positions after a missing child would all be reported otherwise.
void reportCountMismatch(Faults& faults, std::string_view where,
                         const std::vector<pugi::xml_node>& children, const Names& expected) {
    std::vector<std::string_view> seen;
    for (size_t i = 0; i < expected.size(); ++i) {
        std::string_view name = expected[i];
        if (std::find(seen.begin(), seen.end(), name) != seen.end())
            continue;
        seen.push_back(name);
        size_t want = static_cast<size_t>(std::count(expected.begin(), expected.end(), name));
        size_t have = countNamed(children, name);
        if (have == want)
            continue;
        if (have == 0 && want == 1)
            faults.add(where, "lacks child " + quote(name) + " (child " + std::to_string(i) + ")");
        else
            faults.add(where, "has " + std::to_string(have) + " " + quote(name) +
                                  " children, expected " + std::to_string(want));
    }
    for (size_t i = 0; i < children.size(); ++i) {
        std::string_view name = children[i].name();
        if (std::find(seen.begin(), seen.end(), name) != seen.end())
            continue;
        seen.push_back(name);
        faults.add(where, "unexpected child " + quote(name) + " (child " + std::to_string(i) + ")");
    }
}

}  // namespace

void Faults::add(std::string_view where, std::string_view what) {
    std::string line(where);
    line += ": ";
    line += what;
    lines_.push_back(std::move(line));
}

void Faults::notice(std::string_view where, std::string_view what) {
    lines_.push_back(std::string(kNoticePrefix) + std::string(where) + ": " + std::string(what));
}

std::string quote(std::string_view text) {
    return "'" + std::string(text) + "'";
}

bool expectChildren(Faults& faults, std::string_view where, pugi::xml_node node,
                    const Names& expected) {
    std::vector<pugi::xml_node> children = elementChildren(node);
    if (children.empty() && !expected.empty()) {
        faults.add(where, "holds no elements, expected " + describe(expected));
        return false;
    }
    if (children.size() != expected.size()) {
        reportCountMismatch(faults, where, children, expected);
        return false;
    }
    bool ok = true;
    for (size_t i = 0; i < children.size(); ++i) {
        std::string_view name = children[i].name();
        if (name == expected[i])
            continue;
        std::string what = "child " + std::to_string(i) + " is " + quote(name) + ", expected " +
                           quote(expected[i]);
        if (schema::isOneOf(name, expected)) {
            faults.add(where, what);
            ok = false;
        } else {
            faults.notice(where, what + " (read by its position)");
        }
    }
    return ok;
}

std::vector<pugi::xml_node> childrenNamed(Faults& faults, std::string_view where,
                                          pugi::xml_node node, std::string_view name) {
    std::vector<pugi::xml_node> out;
    std::vector<pugi::xml_node> children = elementChildren(node);
    for (size_t i = 0; i < children.size(); ++i) {
        if (std::string_view(children[i].name()) == name)
            out.push_back(children[i]);
        else
            faults.add(where, "child " + std::to_string(i) + " is " + quote(children[i].name()) +
                                  ", expected " + quote(name));
    }
    return out;
}

std::string label(pugi::xml_node node, std::string_view attribute, size_t index) {
    if (pugi::xml_attribute key = node.attribute(std::string(attribute).c_str()))
        return quote(key.value());
    return "#" + std::to_string(index + 1);
}

void expectUniqueKeys(Faults& faults, std::string_view where,
                      const std::vector<pugi::xml_node>& nodes, std::string_view attribute) {
    std::map<std::string, size_t> uses;
    std::vector<std::string> order;
    for (size_t i = 0; i < nodes.size(); ++i) {
        pugi::xml_attribute key = nodes[i].attribute(std::string(attribute).c_str());
        if (!key) {
            faults.add(where, std::string(nodes[i].name()) + " #" + std::to_string(i + 1) +
                                  " lacks attribute " + quote(attribute));
            continue;
        }
        if (uses[key.value()]++ == 1)
            order.push_back(key.value());
    }
    for (const std::string& key : order)
        faults.add(where, std::string(attribute) + " " + quote(key) + " is used " +
                              std::to_string(uses[key]) + " times");
}

std::optional<long long> wholeNumber(std::string_view text) {
    long long value = 0;
    const char* end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || text.front() == '-' || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

bool isAmount(std::string_view text) {
    try {
        textToAmount(text);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void expectAmount(Faults& faults, std::string_view where, pugi::xml_node node,
                  std::string_view what) {
    std::string text = nodeText(node);
    if (text.empty())
        faults.add(where, std::string(what) + " is empty, expected a number");
    else if (!isAmount(text))
        faults.add(where, std::string(what) + " " + quote(text) + " is not a number");
}

void expectAmountOrEmpty(Faults& faults, std::string_view where, pugi::xml_node node,
                         std::string_view what) {
    std::string text = nodeText(node);
    if (!text.empty() && !isAmount(text))
        faults.add(where, std::string(what) + " " + quote(text) + " is not a number");
}

void expectMonthEntries(Faults& faults, std::string_view where, pugi::xml_node months,
                        const Names& monthChildren) {
    std::string at = std::string(where) + " months";
    if (!expectChildren(faults, at, months, withRepeats({}, "month", kMonths)))
        return;
    std::vector<pugi::xml_node> entries = elementChildren(months);
    for (size_t m = 0; m < entries.size(); ++m) {
        std::string entryAt = std::string(where) + " month " + std::to_string(m + 1);
        if (!expectChildren(faults, entryAt, entries[m], monthChildren))
            continue;
        std::string name = childText(entries[m], 0);
        std::string expected = monthName(static_cast<int>(m + 1));
        if (name != expected)
            faults.add(entryAt, "name is " + quote(name) + ", expected " + quote(expected));
        expectAmountOrEmpty(faults, entryAt, childAt(entries[m], 1), "amount");
    }
}

}  // namespace tallix::structure
