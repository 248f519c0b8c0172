#include "register/plan_index.h"

#include "data/node_text.h"
#include "data/query.h"

namespace tallix {

PlanIndex::PlanIndex(pugi::xml_node data) {
    fill(categories_, data, paths::kAllCategories);
    fill(expenses_, data, paths::kAllExpenses);
    fill(income_, data, paths::kAllIncome);
    fill(customers_, data, paths::kAllReceivables);
}

pugi::xml_node PlanIndex::find(const Map& map, const std::string& id) {
    auto it = map.find(id);
    return it == map.end() ? pugi::xml_node() : it->second;
}

void PlanIndex::fill(Map& map, pugi::xml_node data, std::string_view path) {
    for (pugi::xml_node node : selectAll(data, path))
        map.emplace(attributeText("id", node), node);  // keeps the first of a name
}

pugi::xml_node monthEntry(pugi::xml_node planEntry, size_t monthsChild, int month) {
    return childAt(childAt(planEntry, monthsChild), static_cast<size_t>(month - 1));
}

}  // namespace tallix
