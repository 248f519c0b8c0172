// The plan and reference lists: categories with their expenses, income
// sources, customers, RMD individuals and stored descriptions.
#include "data/child_names.h"
#include "data/node_text.h"
#include "data/structure_shape.h"

namespace tallix::structure {
namespace {

constexpr size_t kMonths = 12;

using schema::kCustomerChildren;
using schema::kExpenseChildren;
using schema::kExpenseMonthChildren;
using schema::kHolderChildren;
using schema::kIncomeChildren;
using schema::kIncomeMonthChildren;
using schema::kReceivableItemChildren;
using schema::kRmdAccountChildren;

// The elements of a list container, each keyed by a unique `id`.
std::vector<pugi::xml_node> keyedList(Faults& faults, std::string_view where,
                                      pugi::xml_node container, std::string_view name) {
    std::vector<pugi::xml_node> entries = childrenNamed(faults, where, container, name);
    expectUniqueKeys(faults, where, entries, "id");
    return entries;
}

void checkCustomer(Faults& faults, const std::string& where, pugi::xml_node customer) {
    if (!expectChildren(faults, where, customer, kCustomerChildren))
        return;
    expectAmountOrEmpty(faults, where, childAt(customer, 3), "amount");
    pugi::xml_node months = childAt(customer, 4);
    if (!expectChildren(faults, where + " months", months, withRepeats({}, "month", kMonths)))
        return;
    std::vector<pugi::xml_node> entries = elementChildren(months);
    for (size_t m = 0; m < entries.size(); ++m) {
        std::string monthWhere = where + " month " + std::to_string(m + 1);
        std::vector<pugi::xml_node> items =
            childrenNamed(faults, monthWhere, entries[m], "revenue");
        for (size_t k = 0; k < items.size(); ++k) {
            std::string itemWhere = monthWhere + " item " + std::to_string(k + 1);
            if (expectChildren(faults, itemWhere, items[k], kReceivableItemChildren))
                expectAmountOrEmpty(faults, itemWhere, childAt(items[k], 1), "amount");
        }
    }
}

}  // namespace

void checkCategories(Faults& faults, pugi::xml_node container) {
    std::vector<pugi::xml_node> categories = keyedList(faults, "catagories", container, "category");
    for (size_t i = 0; i < categories.size(); ++i) {
        std::string where = "category " + label(categories[i], "id", i);
        if (!expectChildren(faults, where, categories[i], schema::kCategoryChildren))
            continue;
        std::vector<pugi::xml_node> expenses =
            keyedList(faults, where + " names", childAt(categories[i], 2), "name");
        for (size_t j = 0; j < expenses.size(); ++j) {
            std::string expenseWhere = where + " expense " + label(expenses[j], "id", j);
            if (!expectChildren(faults, expenseWhere, expenses[j], kExpenseChildren))
                continue;
            expectAmountOrEmpty(faults, expenseWhere, childAt(expenses[j], 6), "amount");
            expectMonthEntries(faults, expenseWhere, childAt(expenses[j], 7),
                               kExpenseMonthChildren);
        }
    }
}

void checkIncome(Faults& faults, pugi::xml_node container) {
    std::vector<pugi::xml_node> sources = keyedList(faults, "income", container, "name");
    for (size_t i = 0; i < sources.size(); ++i) {
        std::string where = "income " + label(sources[i], "id", i);
        if (!expectChildren(faults, where, sources[i], kIncomeChildren))
            continue;
        expectAmountOrEmpty(faults, where, childAt(sources[i], 5), "amount");
        expectMonthEntries(faults, where, childAt(sources[i], 6), kIncomeMonthChildren);
    }
}

void checkReceivables(Faults& faults, pugi::xml_node container) {
    const std::string where = "receivables";
    std::vector<pugi::xml_node> customers;
    std::vector<pugi::xml_node> templates;
    std::vector<pugi::xml_node> children = elementChildren(container);
    for (size_t i = 0; i < children.size(); ++i) {
        std::string_view name = children[i].name();
        if (name == "name")
            customers.push_back(children[i]);
        else if (name == "revenue")
            templates.push_back(children[i]);
        else
            faults.add(where, "child " + std::to_string(i) + " is " + quote(name) +
                                  ", expected 'name' or 'revenue'");
    }
    expectUniqueKeys(faults, where, customers, "id");
    for (size_t i = 0; i < customers.size(); ++i)
        checkCustomer(faults, where + " customer " + label(customers[i], "id", i), customers[i]);

    // New receivable items are copied from this one.
    if (templates.empty())
        faults.add(where, "lacks the 'revenue' template");
    else if (templates.size() > 1)
        faults.add(where,
                   "has " + std::to_string(templates.size()) + " 'revenue' templates, expected 1");
    else
        expectChildren(faults, where + " revenue template", templates[0], kReceivableItemChildren);
}

void checkRmds(Faults& faults, pugi::xml_node container) {
    std::vector<pugi::xml_node> individuals = keyedList(faults, "rmds", container, "rmd");
    for (size_t i = 0; i < individuals.size(); ++i) {
        std::string where = "rmd " + label(individuals[i], "id", i);
        std::vector<pugi::xml_node> holders =
            childrenNamed(faults, where, individuals[i], "holder");
        for (size_t h = 0; h < holders.size(); ++h) {
            std::string holderWhere = where + " holder " + std::to_string(h + 1);
            if (!expectChildren(faults, holderWhere, holders[h], kHolderChildren))
                continue;
            std::vector<pugi::xml_node> accounts =
                childrenNamed(faults, holderWhere + " accounts", childAt(holders[h], 1), "account");
            for (size_t a = 0; a < accounts.size(); ++a) {
                std::string accountWhere = holderWhere + " account " + std::to_string(a + 1);
                if (!expectChildren(faults, accountWhere, accounts[a], kRmdAccountChildren))
                    continue;
                for (size_t v = 1; v < kRmdAccountChildren.size(); ++v)
                    expectAmountOrEmpty(faults, accountWhere, childAt(accounts[a], v),
                                        kRmdAccountChildren[v]);
            }
        }
    }
}

void checkDescriptions(Faults& faults, pugi::xml_node container) {
    childrenNamed(faults, "descriptions", container, "description");
}

}  // namespace tallix::structure
