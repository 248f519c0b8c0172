#pragma once
// The banks, their accounts and the cards in the year document, found by
// name (a name is compared as it stands: apostrophes, quotes and letters of
// any alphabet are just characters).
#include <string>

#include <pugixml.hpp>

namespace tallix {

// The list of banks and the list of cards (the `names` of each institution).
pugi::xml_node bankList(pugi::xml_node data);
pugi::xml_node cardNames(pugi::xml_node data);

// Throws PlanRefusal "bank not found: NAME", "account not found: BANK
// ACCOUNT", "credit card not found: NAME".
pugi::xml_node bankNode(pugi::xml_node data, const std::string& name);
pugi::xml_node accountNode(pugi::xml_node bank, const std::string& name);
pugi::xml_node cardNode(pugi::xml_node data, const std::string& name);

// Refuses a name that a bank or a card already has, or one of the words a
// line uses for the cards ("creditcards", "creditcard"): lines name an
// institution by name alone.
void refuseTakenInstitution(pugi::xml_node data, const std::string& name);
// Refuses an account name the bank already has.
void refuseTakenAccount(pugi::xml_node bank, const std::string& name);

}  // namespace tallix
