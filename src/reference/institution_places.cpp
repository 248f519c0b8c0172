#include "reference/institution_places.h"

#include <functional>

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_nodes.h"
#include "register/month_lines.h"

namespace tallix {
namespace {

// Where one kind of entry keeps the institution and the account it names.
struct Slots {
    size_t institution;
    size_t account;
};

constexpr Slots kExpenseSlots{kExpenseInstitution, kExpenseAccount};
constexpr Slots kLineSlots{schema::kInstitution, schema::kAccount};
constexpr Slots kTransferTargetSlots{schema::kInfo, schema::kAccumulate};
constexpr Slots kIncomeSlots{0, 1};
constexpr Slots kCustomerSlots{1, 2};

using Visit = std::function<int(pugi::xml_node, Slots)>;

int forEachPlace(pugi::xml_node data, const Visit& visit) {
    int changed = 0;
    for (pugi::xml_node expense : selectAll(data, paths::kAllExpenses))
        changed += visit(expense, kExpenseSlots);
    for (int month = 1; month <= 12; ++month) {
        for (pugi::xml_node line : monthLines(data, monthName(month))) {
            changed += visit(line, kLineSlots);
            changed += visit(line, kTransferTargetSlots);
        }
    }
    for (pugi::xml_node source : selectAll(data, paths::kAllIncome))
        changed += visit(source, kIncomeSlots);
    for (pugi::xml_node customer : selectAll(data, paths::kAllReceivables))
        changed += visit(customer, kCustomerSlots);
    return changed;
}

}  // namespace

int renameInstitutionPlaces(pugi::xml_node data, const std::string& oldName,
                            const std::string& newName) {
    return forEachPlace(data, [&](pugi::xml_node entry, Slots slots) {
        if (childTextOrEmpty(entry, slots.institution) != oldName)
            return 0;
        setChildText(entry, slots.institution, newName);
        return 1;
    });
}

int renameAccountPlaces(pugi::xml_node data, const std::string& institution,
                        const std::string& oldName, const std::string& newName) {
    return forEachPlace(data, [&](pugi::xml_node entry, Slots slots) {
        if (childTextOrEmpty(entry, slots.institution) != institution ||
            childTextOrEmpty(entry, slots.account) != oldName)
            return 0;
        setChildText(entry, slots.account, newName);
        return 1;
    });
}

}  // namespace tallix
