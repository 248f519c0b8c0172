#include "app/next_year.h"

#include <stdexcept>

#include "app/guard.h"
#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/text_utils.h"
#include "data/year_lookup.h"

namespace tallix {
namespace {

using schema::kCustomerMonths;
using schema::kExpenseMonths;
using schema::kIncomeMonths;

// Positions of the children the carry-over touches (from 0).
constexpr size_t kAccountRegColumn = 1;
constexpr size_t kAccountBankColumn = 2;
constexpr size_t kColumnTitle = 0;
constexpr size_t kColumnLastYearClosing = 1;
constexpr size_t kColumnFirstClosing = 2;

constexpr size_t kCardColumnName = 1;
constexpr size_t kCardLastYearClosing = 2;
constexpr size_t kCardFirstClosing = 6;

constexpr size_t kExpenseType = 1;
constexpr size_t kExpenseReset = 5;
constexpr size_t kPlanAmount = 1;
constexpr size_t kPlanDatePaid = 2;
constexpr size_t kPlanDueDate = 3;
constexpr size_t kPlanStatus = 4;
constexpr size_t kPlanCheck = 6;

void setChildrenFrom(pugi::xml_node node, size_t first, std::string_view text) {
    std::vector<pugi::xml_node> children = elementChildren(node);
    for (size_t i = first; i < children.size(); ++i)
        setNodeText(children[i], text);
}

// The year's final balance becomes last year's closing; the months start over.
void rollBalance(pugi::xml_node values, size_t lastYearClosing, size_t firstClosing) {
    std::vector<pugi::xml_node> children = elementChildren(values);
    if (children.empty())
        throw std::out_of_range("no closing values under " + attributeText("id", values));
    setChildText(values, lastYearClosing, nodeText(children.back()));
    setChildrenFrom(values, firstClosing, "0");
}

void carryOverBanks(pugi::xml_node document) {
    pugi::xml_node banks = selectOne(document, paths::kBanks);
    if (!banks)
        return;
    for (pugi::xml_node bank : elementChildren(childAt(banks, 0))) {
        for (pugi::xml_node account : elementChildren(bank)) {
            for (size_t column : {kAccountRegColumn, kAccountBankColumn}) {
                pugi::xml_node values = childAt(account, column);
                if (childText(values, kColumnTitle) != "0")
                    rollBalance(values, kColumnLastYearClosing, kColumnFirstClosing);
            }
        }
    }
}

void carryOverCards(pugi::xml_node document) {
    pugi::xml_node cards = selectOne(document, paths::kCreditCards);
    if (!cards)
        return;
    for (pugi::xml_node card : elementChildren(childAt(cards, 0))) {
        if (childText(card, kCardColumnName) != "0")
            rollBalance(card, kCardLastYearClosing, kCardFirstClosing);
    }
}

bool rollsOver(const std::string& expenseType) {
    return expenseType == "recurring" || expenseType == "auto";
}

void carryOverExpenses(pugi::xml_node document, int newYear) {
    for (pugi::xml_node expense : selectAll(document, paths::kAllExpenses)) {
        setChildText(expense, kExpenseReset, "0");
        const bool recurring = rollsOver(childText(expense, kExpenseType));
        for (pugi::xml_node month : elementChildren(childAt(expense, kExpenseMonths))) {
            setChildText(month, kPlanAmount, "0");
            if (!recurring)
                continue;
            setChildText(month, kPlanDatePaid, "0");
            setChildText(month, kPlanCheck, "0");
            if (childText(month, kPlanStatus) == "no entry")
                continue;
            setChildText(month, kPlanStatus, "notpaid");
            setChildText(month, kPlanDueDate, dateInYear(childText(month, kPlanDueDate), newYear));
        }
    }
}

void carryOverIncome(pugi::xml_node document) {
    for (pugi::xml_node source : selectAll(document, paths::kAllIncome)) {
        for (size_t child : {2, 3, 4})
            setChildText(source, child, "0");
        for (pugi::xml_node month : elementChildren(childAt(source, kIncomeMonths))) {
            for (size_t child : {1, 2, 3})
                setChildText(month, child, "0");
        }
    }
}

void carryOverCustomers(pugi::xml_node document, int newYear) {
    for (pugi::xml_node customer : selectAll(document, paths::kAllReceivables)) {
        for (pugi::xml_node month : elementChildren(childAt(customer, kCustomerMonths))) {
            for (pugi::xml_node item : elementChildren(month)) {
                setChildText(item, kPlanAmount, "0");
                setChildText(item, kPlanDatePaid, "0");
                setChildText(item, kPlanDueDate,
                             dateInYear(childText(item, kPlanDueDate), newYear));
            }
        }
    }
}

void appendBlankLine(pugi::xml_node month) {
    pugi::xml_node line = month.append_child("item");
    line.append_attribute("line").set_value("1");
    for (size_t i = 0; i < schema::kLineChildren.size(); ++i) {
        std::string_view text = i == schema::kDay ? "1" : i == schema::kTypeOfEntry ? "debit" : "";
        appendTextElement(line, schema::kLineChildren[i], text);
    }
}

// The index entry of `year`, made (file and status, in year order) when the
// index has none.
pugi::xml_node indexEntryFor(pugi::xml_node indexDocument, const std::string& year) {
    if (pugi::xml_node entry = yearEntry(indexDocument, year))
        return entry;
    pugi::xml_node root = requireOne(indexDocument, paths::kRoot);
    pugi::xml_node before;
    for (pugi::xml_node other : elementChildren(root)) {
        if (attributeText("year", other) > year) {
            before = other;
            break;
        }
    }
    pugi::xml_node entry =
        before ? root.insert_child_before("year", before) : root.append_child("year");
    entry.append_attribute("year").set_value(year.c_str());
    appendTextElement(entry, "file", "");
    appendTextElement(entry, "status", "");
    return entry;
}

void recordNextYear(Session& session, const std::string& year, const std::string& name) {
    if (!selectOne(session.index.node(), paths::kRoot))
        session.index = Document::load(session.indexPath());
    pugi::xml_node entry = indexEntryFor(session.index.node(), year);
    setChildText(entry, 0, name);
    if (elementChildCount(entry) > 1)
        setChildText(entry, 1, schema::kInitialized);
    else
        appendTextElement(entry, "status", schema::kInitialized);
    session.saveIndex();
}

Document loadOrThrow(const std::filesystem::path& path) {
    Document loaded = Document::load(path);
    if (loaded.loadFailed())
        throw std::runtime_error(path.string() + ": " + loaded.loadError());
    return loaded;
}

}  // namespace

NextYearFields nextYearFields(const Session& session) {
    return {session.yearText, session.fileName, std::to_string(session.year + 1),
            defaultYearFileName(session.year + 1)};
}

std::string defaultYearFileName(int year) {
    return "tallix" + std::to_string(year) + ".xml";
}

std::string dateInYear(const std::string& date, int year) {
    std::vector<std::string> parts = split(date, "/");
    if (parts.size() < 2 || parts[0].empty() || parts[1].empty())
        return date;
    return parts[0] + "/" + parts[1] + "/" + std::to_string(year);
}

void carryOverToNextYear(pugi::xml_node document, int newYear) {
    carryOverBanks(document);
    carryOverCards(document);
    carryOverExpenses(document, newYear);
    carryOverIncome(document);
    carryOverCustomers(document, newYear);
}

void resetRegister(pugi::xml_node document) {
    for (pugi::xml_node month : selectAll(document, paths::kAllMonths)) {
        while (pugi::xml_node child = month.first_child())
            month.remove_child(child);
        appendBlankLine(month);
    }
}

bool makeNextYear(Session& session, const std::string& nextFileName) {
    if (nextFileName == session.fileName) {
        session.prompter().notify(next_year_texts::kSameFileName);
        return false;
    }
    const int newYear = session.year + 1;
    if (session.data.loadFailed())
        throw std::runtime_error("the current data file could not be read: " +
                                 session.data.loadError());
    recordNextYear(session, std::to_string(newYear), nextFileName);

    const std::filesystem::path target = session.inDataFolder(nextFileName);
    session.data.save(target);
    Document next = loadOrThrow(target);
    carryOverToNextYear(next.node(), newYear);
    resetRegister(next.node());
    next.save(target);

    session.data = loadOrThrow(target);
    session.fileName = nextFileName;
    session.filePath = target;
    session.setYear(newYear);
    return true;
}

bool OnToolsMakenextyear(Session& session, const std::string& nextFileName) {
    bool made = false;
    guarded(session.prompter(), "OnToolsMakenextyear",
            [&] { made = makeNextYear(session, nextFileName); });
    return made;
}

}  // namespace tallix
