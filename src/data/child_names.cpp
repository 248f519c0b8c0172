#include "data/child_names.h"

#include <algorithm>
#include <array>

#include "data/document.h"
#include "data/node_text.h"
#include "data/schema_names.h"

namespace tallix::schema {
namespace {

constexpr size_t kMonths = 12;

std::string_view nameOf(pugi::xml_node node) {
    return node.name();
}

bool isCardList(pugi::xml_node names) {
    pugi::xml_node institution = names.parent();
    return nameOf(institution) == "financial-institution" &&
           std::string_view(institution.attribute("id").value()) == kCreditCardsId;
}

// The month entries of an expense, an income source or a customer.
const ChildNames* monthEntryChildren(pugi::xml_node months) {
    pugi::xml_node owner = months.parent();
    std::string_view list = nameOf(owner.parent());
    if (nameOf(owner) != "name")
        return nullptr;
    if (list == "names")
        return &kExpenseMonthChildren;
    if (list == "income")
        return &kIncomeMonthChildren;
    return nullptr;  // a customer's month is a list of items
}

// The attributes that tell elements of one list apart.
constexpr std::array<std::string_view, 5> kKeyAttributes = {"month", "line", "column", "year",
                                                            "id"};

// "[@id='Pay']" for an element with a key attribute, "[n]" for one of several
// alike without one, nothing for an element that stands alone.
std::string keyOf(pugi::xml_node element) {
    for (std::string_view key : kKeyAttributes)
        if (pugi::xml_attribute attribute = element.attribute(key.data()))
            return "[@" + std::string(key) + "='" + attribute.value() + "']";
    if (!element.previous_sibling(element.name()) && !element.next_sibling(element.name()))
        return {};
    size_t n = 1;
    for (pugi::xml_node s = element.previous_sibling(element.name()); s;
         s = s.previous_sibling(element.name()))
        ++n;
    return "[" + std::to_string(n) + "]";
}

}  // namespace

ChildNames withRepeats(ChildNames names, std::string_view repeated, size_t count) {
    names.insert(names.end(), count, repeated);
    return names;
}

const ChildNames kColumnChildren = {"title", "width", "kind", "position"};
const ChildNames kAccountChildren = {"account", "regcolumn", "bankcolumn", "outstanding"};
const ChildNames kBalanceGroupChildren =
    withRepeats({"title", "lastyearclosing"}, "closing", kMonths);
const ChildNames kCardChildren = withRepeats(
    {"type", "columnname", "lastyearclosing", "apr", "closingday", "dueday"}, "closing", kMonths);
const ChildNames kCategoryChildren = {"type", "numberItems", "names"};
const ChildNames kExpenseChildren = {"category",    "type",  "account", "closingday",
                                     "institution", "reset", "amount",  "months"};
const ChildNames kExpenseMonthChildren = {"name",   "amount", "datepaid", "duedate",
                                          "status", "type",   "check"};
const ChildNames kIncomeChildren = {"institution", "account", "type",  "dayordate",
                                    "daynumber",   "amount",  "months"};
const ChildNames kIncomeMonthChildren = {"name", "amount", "date", "status"};
const ChildNames kCustomerChildren = {"number", "institution", "account", "amount", "months"};
const ChildNames kReceivableItemChildren = {"line",   "amount", "datepaid", "duedate",
                                            "status", "type",   "check"};
const ChildNames kHolderChildren = {"name", "accounts"};
const ChildNames kRmdAccountChildren = {"name", "lastyearbalance", "rmdamount", "currentdraw"};
const ChildNames kIndexEntryChildren = {"file", "status"};

const ChildNames& lineChildNames() {
    static const ChildNames names(kLineChildren.begin(), kLineChildren.end());
    return names;
}

const ChildNames* childNamesOf(pugi::xml_node parent) {
    const std::string_view name = nameOf(parent);
    const std::string_view above = nameOf(parent.parent());
    if (name == "item" && above == "month")
        return &lineChildNames();
    if (name == "column" && above == "registercolumns")
        return &kColumnChildren;
    if (name == "bankaccount")
        return &kAccountChildren;
    if ((name == "regcolumn" || name == "bankcolumn" || name == "outstanding") &&
        above == "bankaccount")
        return &kBalanceGroupChildren;
    if (name == "category" && above == "catagories")
        return &kCategoryChildren;
    if (name == "name" && above == "names") {
        if (nameOf(parent.parent().parent()) == "category")
            return &kExpenseChildren;
        return isCardList(parent.parent()) ? &kCardChildren : nullptr;
    }
    if (name == "month" && above == "months")
        return monthEntryChildren(parent.parent());
    if (name == "name" && above == "income")
        return &kIncomeChildren;
    if (name == "name" && above == "receivables")
        return &kCustomerChildren;
    if (name == "revenue")
        return &kReceivableItemChildren;
    if (name == "holder")
        return &kHolderChildren;
    if (name == "account" && above == "accounts")
        return &kRmdAccountChildren;
    if (name == "year" && above == kRootElement)
        return &kIndexEntryChildren;
    return nullptr;
}

bool isOneOf(std::string_view name, const ChildNames& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void refuseMisplaced(pugi::xml_node element) {
    const ChildNames* names = childNamesOf(element.parent());
    if (!names)
        return;
    const size_t position = elementPosition(element);
    const std::string_view name = nameOf(element);
    const bool inPlace = position < names->size() && (*names)[position] == name;
    if (inPlace || !isOneOf(name, *names))
        return;
    std::string message;
    if (std::filesystem::path file = documentSource(element); !file.empty())
        message = file.string() + ": ";
    message += elementPath(element.parent()) + ": child " + std::to_string(position) + " is '" +
               std::string(name) + "'";
    if (position < names->size())
        message += " where '" + std::string((*names)[position]) + "' belongs";
    message += ", so it is not written";
    throw MisplacedElement(message);
}

std::string elementPath(pugi::xml_node element) {
    std::string path;
    for (pugi::xml_node n = element; n && n.type() == pugi::node_element; n = n.parent())
        path.insert(0, "/" + std::string(nameOf(n)) + keyOf(n));
    return path;
}

}  // namespace tallix::schema
