#pragma once
// The banks with their accounts and the credit cards, as the balance engine
// sees them for one month: each balance group with its register column, its
// grid position and the value the month starts from.
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

struct BalanceGroup {
    pugi::xml_node node;  // regcolumn, bankcolumn or outstanding
    std::string title = "0";
    int column = -1;
    double startValue = 0;
    // "0" as title means the account has no column of this kind.
    bool bound() const { return title != "0"; }
};

struct BankAccount {
    std::string name;
    BalanceGroup reg;
    BalanceGroup bank;
    BalanceGroup outstanding;
};

struct Bank {
    std::string name;
    std::vector<BankAccount> accounts;
};

struct CreditCard {
    pugi::xml_node node;
    std::string name;
    int column = -1;
    double startValue = 0;
};

struct Institutions {
    std::vector<Bank> banks;
    std::vector<CreditCard> cards;

    bool isBank(const std::string& name) const;
};

// The card child holding the value month m starts from: 2 for January, m + 4
// for the other months (so month m's closing goes to child m + 5).
int cardStartChild(int month);

// Reads the banks and cards for `month` (1-12). Cards whose column name is "0"
// are left out. Throws when a bound column has no definition or a value is
// not a number.
Institutions readInstitutions(pugi::xml_node data, int month);

}  // namespace tallix
