#include "reference/receivable_maintenance.h"

#include <vector>

#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_input.h"
#include "reference/plan_nodes.h"
#include "register/month_lines.h"

namespace tallix {
namespace {

enum CustomerChild : size_t { kNumber = 0, kInstitution, kAccount, kAmount, kMonths };
constexpr size_t kItemLine = 0;
constexpr int kLastMonth = 12;

pugi::xml_node customerNode(pugi::xml_node data, const std::string& name) {
    pugi::xml_node customer = selectOne(data, paths::kReceivable, name);
    if (!customer)
        throw PlanRefusal(kReceivableNotFound + name);
    return customer;
}

void refuseTakenCustomer(pugi::xml_node data, const std::string& name) {
    if (selectOne(data, paths::kReceivable, name))
        throw PlanRefusal("there is already a customer named " + name);
}

CustomerFields checkedFields(const CustomerFields& typed) {
    return {trimmedText(typed.number), trimmedText(typed.institution), trimmedText(typed.account),
            checkedAmount("REPEATING AMOUNT", typed.repeatingAmount)};
}

void writeFields(pugi::xml_node customer, const CustomerFields& fields) {
    setChildText(customer, kNumber, fields.number);
    setChildText(customer, kInstitution, fields.institution);
    setChildText(customer, kAccount, fields.account);
    setChildText(customer, kAmount, fields.repeatingAmount);
}

pugi::xml_node monthOf(pugi::xml_node customer, int month) {
    return childAt(childAt(customer, kMonths), static_cast<size_t>(checkedMonth(month) - 1));
}

// The item at place `item` of each month from `month` to `last` (null for a
// month with fewer items); the first month must have it.
std::vector<pugi::xml_node> itemsFrom(pugi::xml_node customer, int month, int last, int item) {
    std::vector<pugi::xml_node> items;
    for (int m = month; m <= last; ++m)
        items.push_back(childAtOrNull(monthOf(customer, m), static_cast<size_t>(item)));
    if (item < 0 || !items.front())
        throw PlanRefusal(monthName(month) + " of " + attributeText("id", customer) +
                          " has no item " + std::to_string(item + 1));
    return items;
}

void applyItems(Session& session, const std::string& customer, int month, int last, int item,
                const MonthValues& values) {
    const MonthValues checked = checkedMonthValues(values);
    const std::vector<pugi::xml_node> items =
        itemsFrom(customerNode(session.data.node(), customer), month, last, item);
    const std::string label = (last == month ? "Apply " : "Apply to all months from ") +
                              monthName(month) + " of " + customer;
    recordedChange(session, label, [&] {
        if (last == month)
            writeEntry(items.front(), kReceivableItemSlots, checked);
        else
            writeFromMonthOn(items, kReceivableItemSlots, checked);
    });
}

bool namesCustomer(pugi::xml_node line, const std::string& customer) {
    return childTextOrEmpty(line, schema::kExpense) == customer &&
           (childTextOrEmpty(line, schema::kCategoty) == "Receivables" ||
            childTextOrEmpty(line, schema::kTypeOfEntry) == "receivable");
}

}  // namespace

void keepNewCustomerItems(pugi::xml_node month) {
    const size_t count = elementChildCount(month);
    if (count == 0)
        return;
    pugi::xml_node first = childAt(month, 0);
    setChildText(first, kItemLine, kPlaceholderItem);
    for (size_t field = kItemLine + 1; field < elementChildCount(first); ++field)
        setChildText(first, field, "0");
    for (size_t position = 1; position + 2 <= count; ++position)
        if (pugi::xml_node item = childAtOrNull(month, position))
            month.remove_child(item);
}

void saveNewCustomer(Session& session, const std::string& before, const std::string& name,
                     const CustomerFields& fields) {
    pugi::xml_node data = session.data.node();
    const std::string newName = checkedName(name, "customer");
    pugi::xml_node model = customerNode(data, before);
    refuseTakenCustomer(data, newName);
    const CustomerFields checked = checkedFields(fields);
    recordedChange(session, "New customer " + newName, [&] {
        pugi::xml_node copy = model.parent().insert_copy_before(model, model);
        setAttributeText(newName, "id", copy);
        writeFields(copy, checked);
        for (pugi::xml_node month : elementChildren(childAt(copy, kMonths)))
            keepNewCustomerItems(month);
    });
}

int saveCustomerChanges(Session& session, const std::string& customer, const std::string& newName,
                        const CustomerFields& fields) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node node = customerNode(data, customer);
    const std::string name = checkedName(newName, "customer");
    if (name != customer)
        refuseTakenCustomer(data, name);
    const CustomerFields checked = checkedFields(fields);
    int renamed = 0;
    const std::string label = name == customer ? "Change customer " + customer
                                               : "Rename customer " + customer + " to " + name;
    recordedChange(session, label, [&] {
        if (name != customer) {
            setAttributeText(name, "id", node);
            for (int month = 1; month <= kLastMonth; ++month)
                for (pugi::xml_node line : monthLines(data, monthName(month)))
                    if (namesCustomer(line, customer)) {
                        setChildText(line, schema::kExpense, name);
                        ++renamed;
                    }
        }
        writeFields(node, checked);
    });
    return renamed;
}

bool moveCustomerUp(Session& session, const std::string& customer) {
    return moveOnePlace(session, customerNode(session.data.node(), customer), false,
                        "Move customer " + customer + " up");
}

bool moveCustomerDown(Session& session, const std::string& customer) {
    return moveOnePlace(session, customerNode(session.data.node(), customer), true,
                        "Move customer " + customer + " down");
}

void applyToItem(Session& session, const std::string& customer, int month, int item,
                 const MonthValues& values) {
    applyItems(session, customer, month, month, item, values);
}

void applyItemToAllMonths(Session& session, const std::string& customer, int month, int item,
                          const MonthValues& values) {
    applyItems(session, customer, month, kLastMonth, item, values);
}

int addReceivableItem(Session& session, const std::string& customer, int month) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node entries = monthOf(customerNode(data, customer), month);
    pugi::xml_node revenue = selectOne(data, paths::kRevenue);
    if (!revenue)
        throw PlanRefusal(
            "the year file has no receivables template (revenue) to copy an item from");
    const int place = static_cast<int>(elementChildCount(entries));
    recordedChange(session, "Add an item to " + monthName(month) + " of " + customer,
                   [&] { entries.append_copy(revenue); });
    return place;
}

void deleteCustomer(Session& session, const std::string& customer) {
    pugi::xml_node node = customerNode(session.data.node(), customer);
    recordedChange(session, "Delete customer " + customer,
                   [&] { node.parent().remove_child(node); });
}

}  // namespace tallix
