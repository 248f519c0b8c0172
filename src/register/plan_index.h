#pragma once
// The plan's entries by name, built once per run so that looking up the
// expense of every line does not scan the plan again and again. The first
// entry of a name in file order wins, as a path query would find it.
#include <string>
#include <string_view>
#include <unordered_map>

#include <pugixml.hpp>

namespace tallix {

class PlanIndex {
  public:
    explicit PlanIndex(pugi::xml_node data);

    pugi::xml_node category(const std::string& id) const { return find(categories_, id); }
    pugi::xml_node expense(const std::string& id) const { return find(expenses_, id); }
    pugi::xml_node income(const std::string& id) const { return find(income_, id); }
    pugi::xml_node customer(const std::string& id) const { return find(customers_, id); }

  private:
    using Map = std::unordered_map<std::string, pugi::xml_node>;
    static pugi::xml_node find(const Map& map, const std::string& id);
    static void fill(Map& map, pugi::xml_node data, std::string_view path);

    Map categories_;
    Map expenses_;
    Map income_;
    Map customers_;
};

// The entry of `month` (1-12) in the twelve month entries held by child
// `monthsChild` of a plan entry.
pugi::xml_node monthEntry(pugi::xml_node planEntry, size_t monthsChild, int month);

}  // namespace tallix
