#pragma once
// The RMD dialog's operations on the required minimum distributions: each
// individual (whose distribution is drawn through the income source of the
// same name) holds names, each name accounts, each account last year's
// balance, the amount required this year and what has been drawn.
//
// A place in the dialog's tree is given as an RmdPlace. Every add and
// delete first checks the level of the selected place and refuses the
// wrong one with the dialog's own message (PlanRefusal); every change is
// one step Edit > Undo can take back, saved at once.
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

class Prompter;
class Session;

enum class RmdLevel { None, Individual, Name, Account, Value, Totals };

// A tree place: the individual, the name and account by their place among
// their like (from 0), and the value (1 last year's balance, 2 rmd amount,
// 3 current draw).
struct RmdPlace {
    // A place names as much as its level needs: {Name, "Pat", 0}.
    RmdPlace(RmdLevel atLevel = RmdLevel::None, std::string ofIndividual = {}, int nameAt = -1,
             int accountAt = -1, int valueAt = -1)
        : level(atLevel),
          individual(std::move(ofIndividual)),
          name(nameAt),
          account(accountAt),
          value(valueAt) {}

    RmdLevel level;
    std::string individual;
    int name;
    int account;
    int value;
};

// ADD INDIVIDUAL (an individual selected; allowed with nothing selected
// when there is none yet): shows kNewIndividualNotice, then appends
// "new indiv" (numbered on when taken: "new indiv 2") holding one name
// "new name" with one account "account", "0", "0", "0". Nothing else is
// carried over from another individual. Returns the new individual's name.
std::string addIndividual(Session& session, Prompter& prompter, const RmdPlace& selected);
// ADD A NAME (a name selected): appends "new name" with one account to the
// selected name's individual.
void addRmdName(Session& session, const RmdPlace& selected);
// ADD AN ACCOUNT (a name selected): appends "account", "0", "0", "0".
void addRmdAccount(Session& session, const RmdPlace& selected);
void deleteRmdAccount(Session& session, const RmdPlace& selected);
void deleteRmdName(Session& session, const RmdPlace& selected);
void deleteIndividual(Session& session, const RmdPlace& selected);

// A label edited in place: an individual's (its name; refused when another
// individual has it), a name's or an account's text, or a value, which must
// be an amount (else "invalid stof argument"). Totals cannot be edited.
void editRmdLabel(Session& session, const RmdPlace& place, const std::string& text);

struct RmdValues {
    std::string lastYear, rmdAmount, currentDraw;
};
struct RmdAccountView {
    std::string name;
    RmdValues values;
};
struct RmdNameView {
    std::string name;
    std::vector<RmdAccountView> accounts;
};
struct RmdIndividualView {
    std::string name;
    std::vector<RmdNameView> names;
    RmdValues totals;  // over the individual's accounts
};
struct RmdTree {
    std::vector<RmdIndividualView> individuals;
    RmdValues totals;  // over every individual
};
// The tree with its "Totals", exact to the cent (an empty value counts as
// 0; one that is not a number throws the conversion error).
RmdTree rmdTree(pugi::xml_node data);

inline constexpr const char* kNotAnIndividual = "you have a item selected that is not a individual";
inline constexpr const char* kNotAName = "you have a item selected that is not a name";
inline constexpr const char* kNotAnAccount = "you have a item selected that is not an account";
inline constexpr const char* kNewIndividualNotice =
    "You have selected to add a new indiviual. The new entry will be created a the end of the "
    "current display and you willneed to edit the entries in this new item to reflect your "
    "needs";

}  // namespace tallix
