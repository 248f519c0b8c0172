#include "register/receivable_items.h"

#include <algorithm>
#include <stdexcept>

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "register/plan_index.h"

namespace tallix {

std::vector<pugi::xml_node> itemsNamingLine(pugi::xml_node data, int month,
                                            const std::string& lineNumber) {
    std::vector<pugi::xml_node> items;
    for (pugi::xml_node customer : selectAll(data, paths::kAllReceivables))
        for (pugi::xml_node item :
             elementChildren(monthEntry(customer, schema::kCustomerMonths, month)))
            if (childText(item, 0) == lineNumber)
                items.push_back(item);
    return items;
}

pugi::xml_node settleReceivableItem(pugi::xml_node data, pugi::xml_node customer, int month,
                                    const std::string& lineNumber, bool* changed) {
    pugi::xml_node monthNode = monthEntry(customer, schema::kCustomerMonths, month);
    std::vector<pugi::xml_node> items = itemsNamingLine(data, month, lineNumber);
    auto own = std::find_if(items.begin(), items.end(),
                            [&](pugi::xml_node item) { return item.parent() == monthNode; });
    if (changed)
        *changed = items.size() != 1 || own == items.end();
    pugi::xml_node kept;
    if (own != items.end()) {
        kept = *own;
    } else if (!items.empty()) {
        kept = monthNode.append_move(items.front());
        items.front() = kept;
        own = items.begin();
    } else {
        pugi::xml_node templ = selectOne(data, paths::kRevenue);
        if (!templ)
            throw std::runtime_error("the year file has no receivable item template");
        kept = monthNode.append_copy(templ);
        setChildText(kept, 0, lineNumber);
        return kept;
    }
    for (auto it = items.begin(); it != items.end(); ++it)
        if (it != own)
            it->parent().remove_child(*it);
    return kept;
}

}  // namespace tallix
