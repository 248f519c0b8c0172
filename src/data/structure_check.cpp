#include "data/structure_check.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>

#include "data/child_names.h"
#include "data/document.h"
#include "data/encoding.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/structure_shape.h"

namespace tallix {
namespace {

using structure::Faults;
using structure::quote;

using schema::elementPath;

// The parser keeps both copies of a repeated attribute and lookups see only
// the first, so the second would be ignored without a word.
class DuplicateAttributes : public pugi::xml_tree_walker {
  public:
    explicit DuplicateAttributes(Faults& faults) : faults_(faults) {}

    bool for_each(pugi::xml_node& node) override {
        if (node.type() != pugi::node_element)
            return true;
        std::map<std::string_view, int> uses;
        for (pugi::xml_attribute attribute : node.attributes())
            if (++uses[attribute.name()] == 2)
                faults_.add(elementPath(node),
                            "attribute " + quote(attribute.name()) + " appears more than once");
        return true;
    }

  private:
    Faults& faults_;
};

// The deepest element of any Tallix shape (tallix = 0 ... the child of an
// expense's month entry = 7). Anything deeper is out of shape, and reading the
// text of a very deep nest could exhaust the stack, so such a file is
// reported and checked no further.
constexpr int kDeepestElement = 7;

class TooDeep : public pugi::xml_tree_walker {
  public:
    explicit TooDeep(Faults& faults) : faults_(faults) {}

    bool for_each(pugi::xml_node& node) override {
        if (node.type() == pugi::node_element && depth() == kDeepestElement + 1)
            faults_.add(elementPath(node), "nested deeper than any element of a Tallix file");
        return true;
    }

  private:
    Faults& faults_;
};

using ContainerCheck = void (*)(Faults&, pugi::xml_node container, pugi::xml_node document);

struct Container {
    std::string_view name;
    ContainerCheck check;
};

constexpr std::array<Container, 8> kContainerChecks = {{
    {"register", [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkRegister(f, c); }},
    {"registercolumns",
     [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkRegisterColumns(f, c); }},
    {"financial-institutions",
     [](Faults& f, pugi::xml_node c, pugi::xml_node d) { checkInstitutions(f, c, d); }},
    {"catagories", [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkCategories(f, c); }},
    {"income", [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkIncome(f, c); }},
    {"receivables", [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkReceivables(f, c); }},
    {"rmds", [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkRmds(f, c); }},
    {"descriptions", [](Faults& f, pugi::xml_node c, pugi::xml_node) { checkDescriptions(f, c); }},
}};
static_assert(kContainerChecks.size() == schema::kContainers.size());

bool isContainer(std::string_view name) {
    return std::find(schema::kContainers.begin(), schema::kContainers.end(), name) !=
           schema::kContainers.end();
}

void checkYearFile(Faults& faults, pugi::xml_node root, pugi::xml_node document) {
    const std::string where(schema::kRootElement);
    std::map<std::string_view, std::vector<pugi::xml_node>> found;
    for (pugi::xml_node child : elementChildren(root)) {
        if (isContainer(child.name()))
            found[child.name()].push_back(child);
        else
            faults.add(where, "unexpected element " + quote(child.name()));
    }
    for (const Container& container : kContainerChecks) {
        const std::vector<pugi::xml_node>& copies = found[container.name];
        if (copies.empty()) {
            faults.add(where, "lacks container " + quote(container.name));
            continue;
        }
        if (copies.size() > 1)
            faults.add(where, "container " + quote(container.name) + " appears " +
                                  std::to_string(copies.size()) + " times");
        container.check(faults, copies.front(), document);
    }
}

void checkIndexFile(Faults& faults, pugi::xml_node root) {
    const std::string where = "index";
    std::vector<pugi::xml_node> years = structure::childrenNamed(faults, where, root, "year");
    structure::expectUniqueKeys(faults, where, years, "year");
    for (size_t i = 0; i < years.size(); ++i) {
        std::string yearWhere = where + " year " + structure::label(years[i], "year", i);
        pugi::xml_attribute year = years[i].attribute("year");
        std::string_view text = year.value();
        if (year && (text.size() != 4 || !structure::wholeNumber(text)))
            faults.add(yearWhere, "is not a four-digit year");
        if (!structure::expectChildren(faults, yearWhere, years[i], {"file", "status"}))
            continue;
        std::string file = childText(years[i], 0);
        if (file.find_first_of("/\\") != std::string::npos)
            faults.add(yearWhere,
                       "file " + quote(file) + " is a path; the index holds bare file names");
    }
}

// "line 5, column 12" for a byte offset.
std::string lineAndColumn(std::string_view bytes, size_t offset) {
    offset = std::min(offset, bytes.size());
    std::string_view before = bytes.substr(0, offset);
    size_t line = 1 + static_cast<size_t>(std::count(before.begin(), before.end(), '\n'));
    size_t lineStart = before.rfind('\n');
    size_t column = lineStart == std::string_view::npos ? offset + 1 : offset - lineStart;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

}  // namespace

std::vector<std::string> checkStructure(pugi::xml_node document) {
    Faults faults;
    std::vector<pugi::xml_node> roots = elementChildren(document);
    if (roots.empty()) {
        faults.add("file", "holds no root element");
        return faults.take();
    }
    if (roots.size() > 1) {
        std::string names;
        for (pugi::xml_node root : roots)
            names += (names.empty() ? "" : ", ") + quote(root.name());
        faults.add("file", "holds " + std::to_string(roots.size()) + " root elements (" + names +
                               "), expected one");
    }
    pugi::xml_node root = roots.front();
    if (root.name() != schema::kRootElement) {
        faults.add("file", "root element is " + quote(root.name()) + ", expected " +
                               quote(schema::kRootElement) + ": not a Tallix file");
        return faults.take();
    }
    size_t before = faults.size();
    TooDeep tooDeep(faults);
    document.traverse(tooDeep);
    if (faults.size() > before)
        return faults.take();
    DuplicateAttributes duplicates(faults);
    document.traverse(duplicates);

    std::vector<pugi::xml_node> children = elementChildren(root);
    bool hasContainer = std::any_of(children.begin(), children.end(),
                                    [](pugi::xml_node n) { return isContainer(n.name()); });
    bool hasYear = std::any_of(children.begin(), children.end(), [](pugi::xml_node n) {
        return std::string_view(n.name()) == "year";
    });
    if (!hasContainer && hasYear)
        checkIndexFile(faults, root);
    else if (children.empty())
        faults.add(schema::kRootElement,
                   "is empty: it holds neither the containers of a year file nor the year "
                   "entries of an index file");
    else
        checkYearFile(faults, root, document);
    return faults.take();
}

std::vector<std::string> checkText(std::string_view bytes, std::string_view label) {
    // Read as the program reads: windows-1252 text is decoded first.
    std::string converted;
    pugi::xml_encoding encoding = pugi::encoding_auto;
    if (isWindows1252(declaredEncoding(bytes))) {
        converted = windows1252ToUtf8(bytes);
        bytes = converted;
        encoding = pugi::encoding_utf8;
    }
    pugi::xml_document document;
    pugi::xml_parse_result result =
        document.load_buffer(bytes.data(), bytes.size(), pugi::parse_default, encoding);
    if (!result) {
        return {std::string(label) + ": not well-formed XML: " + result.description() + " at " +
                lineAndColumn(bytes, static_cast<size_t>(result.offset))};
    }
    return checkStructure(document);
}

std::vector<std::string> checkFile(const std::filesystem::path& path) {
    std::error_code error;
    std::string label = path.string();
    if (!std::filesystem::exists(path, error))
        return {label + ": no such file"};
    if (std::filesystem::is_directory(path, error))
        return {label + ": is a folder, not a file"};
    std::string bytes;
    try {
        bytes = readFileBytes(path);  // a pipe, a device or a huge file is refused
    } catch (const std::runtime_error& e) {
        return {e.what()};
    }
    return checkText(bytes, label);
}

}  // namespace tallix
