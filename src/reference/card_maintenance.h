#pragma once
// The credit card dialog's operations: add, rename and delete a card and
// edit its column title, closing value, closing day and due day. Each checks
// what it is given first (an empty or taken name, a taken column title, an
// amount that is not one, a day outside 1-31, a card that is not in the file
// throw PlanRefusal and change nothing), changes the document as one step
// Edit > Undo can take back, and saves the year file once.
//
// A card's register column is keyed by the card's name, which is how the
// balance engine finds it; CREDIT CARD COLUMN TITLE is the header text the
// grid shows. A card is made whole: `type`, `columnname` (its name),
// `lastyearclosing`, `apr`, `closingday`, `dueday` and twelve `closing`
// values, each holding LAST YEAR CLOSING, so any month starts from it.
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

class Session;

struct NewCard {
    std::string name;             // CREDITCARD NAME
    std::string columnTitle;      // CREDIT CARD COLUMN TITLE; empty: the name
    std::string lastYearClosing;  // empty means 0
    std::string closingDay;       // empty or 1-31
    std::string dueDay;           // empty or 1-31
};

// SAVE of a new card: adds the card and its register column before "Info".
void addCard(Session& session, const NewCard& card);

// Gives the card `oldName` the name `newName` and carries it into its
// column's key, the expense named after it and the lines that name it (as
// the account of a charge, as the expense of a payment), into expenses that
// take it as their default card, and into income sources and receivables.
// Returns how many places were changed besides the card.
int renameCard(Session& session, const std::string& oldName, const std::string& newName);

// Removes the card's register column, the card, and the expense named after
// it. Lines that name the card keep the name.
void deleteCard(Session& session, const std::string& name);

enum class CardField { ColumnTitle, ClosingValue, ClosingDay, DueDay };
// Writes one edited value of a card's tree. A new closing value moves the
// twelve month values by the same difference (see setAccountStartingBalance).
void setCardField(Session& session, const std::string& card, CardField field,
                  const std::string& text);

struct CardView {
    std::string name, columnTitle, lastYearClosing, closingDay, dueDay;
};
std::vector<CardView> cardList(pugi::xml_node data);

}  // namespace tallix
