#include "reference/card_maintenance.h"

#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "reference/balance_values.h"
#include "reference/column_definitions.h"
#include "reference/institution_nodes.h"
#include "reference/institution_places.h"
#include "reference/plan_input.h"
#include "reference/plan_nodes.h"

namespace tallix {
namespace {

enum CardChild : size_t {
    kType = 0,
    kColumnName,
    kLastYearClosing,
    kApr,
    kClosingDay,
    kDueDay,
    kFirstClosing
};
constexpr const char* kNoColumn = "0";
// The category of the lines that pay a card; such a line names the card as
// its expense.
constexpr const char* kCardPayments = "Credit Cards";

std::string checkedCardName(pugi::xml_node data, const std::string& typed) {
    const std::string name = checkedName(typed, "credit card");
    refuseTakenInstitution(data, name);
    refuseTakenColumn(data, name);
    return name;
}

// The column header of a card: its register column's title, or the card's
// column name when the file has no such column.
std::string headerOf(pugi::xml_node data, pugi::xml_node card) {
    const std::string key = attributeText("id", card);
    if (pugi::xml_node column = selectOne(data, paths::kColumn, key))
        return childTextOrEmpty(column, 0);
    return childTextOrEmpty(card, kColumnName);
}

// Gives the payments of the card (and the lines of the expense named after
// it) the card's new name as their expense.
int renamePaymentLines(pugi::xml_node data, pugi::xml_node cardExpense, const std::string& oldName,
                       const std::string& newName) {
    int changed = rewriteLines(data, oldName, kCardPayments, schema::kExpense, newName);
    if (cardExpense) {
        const std::string category = childTextOrEmpty(cardExpense, kExpenseCategory);
        if (category != kCardPayments)
            changed += rewriteLines(data, oldName, category, schema::kExpense, newName);
    }
    return changed;
}

}  // namespace

void addCard(Session& session, const NewCard& fields) {
    pugi::xml_node data = session.data.node();
    const std::string name = checkedCardName(data, fields.name);
    std::string title = trimmedText(fields.columnTitle);
    if (title.empty())
        title = name;
    else if (title != name)
        refuseTakenColumn(data, title);
    const std::string start = checkedBalance("LAST YEAR CLOSING", fields.lastYearClosing);
    const std::string closingDay = checkedDay("CLOSING DAY", fields.closingDay);
    const std::string dueDay = checkedDay("DUE DAY", fields.dueDay);
    recordedChange(session, "Add credit card " + name, [&] {
        pugi::xml_node card = appendTextElement(cardNames(data), "name", "");
        card.append_attribute("id") = name.c_str();
        appendTextElement(card, "type", schema::kCreditCardsId);
        appendTextElement(card, "columnname", name);
        appendTextElement(card, "lastyearclosing", start);
        appendTextElement(card, "apr", "0");
        appendTextElement(card, "closingday", closingDay);
        appendTextElement(card, "dueday", dueDay);
        appendClosings(card, start);
        addBalanceColumn(data, name, title, ColumnKind::Card);
    });
}

int renameCard(Session& session, const std::string& oldName, const std::string& newName) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node card = cardNode(data, oldName);
    const std::string name = checkedName(newName, "credit card");
    if (name == oldName)
        return 0;
    checkedCardName(data, name);
    pugi::xml_node cardExpense = selectOne(data, paths::kExpense, oldName);
    if (cardExpense && selectOne(data, paths::kExpense, name))
        throw PlanRefusal("there is already an expense named " + name);
    int changed = 0;
    recordedChange(session, "Rename credit card " + oldName + " to " + name, [&] {
        setAttributeText(name, "id", card);
        if (childText(card, kColumnName) == oldName)
            setChildText(card, kColumnName, name);
        renameColumnKey(data, oldName, name);
        changed = renamePaymentLines(data, cardExpense, oldName, name);
        if (cardExpense) {
            setAttributeText(name, "id", cardExpense);
            ++changed;
        }
        changed += renameAccountPlaces(data, std::string(schema::kCreditCardsId), oldName, name);
    });
    return changed;
}

void deleteCard(Session& session, const std::string& name) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node card = cardNode(data, name);
    recordedChange(session, "Delete credit card " + name, [&] {
        removeColumn(data, name);
        card.parent().remove_child(card);
        if (pugi::xml_node expense = selectOne(data, paths::kExpense, name)) {
            pugi::xml_node category = expense.parent().parent();
            expense.parent().remove_child(expense);
            recountExpenses(category);
        }
    });
}

void setCardField(Session& session, const std::string& cardName, CardField field,
                  const std::string& text) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node card = cardNode(data, cardName);
    const std::string label = "Change credit card " + cardName;
    switch (field) {
        case CardField::ColumnTitle: {
            const std::string title = trimmedText(text);
            if (title == headerOf(data, card))
                return;
            if (title != cardName)
                refuseTakenColumn(data, title);
            if (!selectOne(data, paths::kColumn, cardName))
                throw PlanRefusal("the credit card " + cardName + " has no register column");
            recordedChange(session, label, [&] { setColumnTitle(data, cardName, title); });
            return;
        }
        case CardField::ClosingValue: {
            const std::string start = checkedBalance("CLOSING VALUES", text);
            recordedChange(session, label, [&] {
                moveStartingBalance(card, kLastYearClosing, kFirstClosing, start);
            });
            return;
        }
        case CardField::ClosingDay:
        case CardField::DueDay: {
            const bool closing = field == CardField::ClosingDay;
            const std::string day = checkedDay(closing ? "CLOSING DAY" : "DUE DAY", text);
            recordedChange(session, label,
                           [&] { setChildText(card, closing ? kClosingDay : kDueDay, day); });
            return;
        }
    }
}

std::vector<CardView> cardList(pugi::xml_node data) {
    std::vector<CardView> cards;
    for (pugi::xml_node card : elementChildren(cardNames(data)))
        cards.push_back({attributeText("id", card), headerOf(data, card),
                         childTextOrEmpty(card, kLastYearClosing),
                         childTextOrEmpty(card, kClosingDay), childTextOrEmpty(card, kDueDay)});
    return cards;
}

}  // namespace tallix
