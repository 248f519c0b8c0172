// Writes a synthetic year as a year data file, in the shapes tallix-cli check
// expects (docs/structural-check.md) and the layout the program saves
// (two-space indent, one element per line, empty elements as <x></x>).
#include <string>
#include <string_view>
#include <vector>

#include "data/values.h"
#include "synthetic_model.h"
#include "xml_out.h"

namespace tallix::bench::model {
namespace {

void writeRegister(XmlOut& x, const Year& y) {
    x.open("register");
    for (int m = 1; m <= 12; ++m) {
        const std::string name = monthName(m);
        x.open("month", {{"month", name}, {"id", name}});
        for (const Line& l : y.months[static_cast<size_t>(m - 1)]) {
            x.open("item", {{"line", std::to_string(l.number)}});
            x.leaf("day", l.day);
            x.leaf("expense", l.expense);
            x.leaf("debit", money(l.cents));
            x.leaf("check", l.check);
            x.leaf("categoty", l.category);
            x.leaf("status", l.status);
            x.leaf("description", l.description);
            x.leaf("institution", l.place.institution);
            x.leaf("account", l.place.account);
            x.leaf("info", l.info);
            x.leaf("accumulate", l.accumulate);
            x.leaf("typeofentry", l.kind);
            x.close();
        }
        x.close();
    }
    x.close();
}

void writeColumns(XmlOut& x, const Year& y) {
    struct Column {
        std::string title;
        int width;
        std::string kind;
    };
    std::vector<Column> columns = {
        {"DAY", 4, "field"},          {"DATE", 4, "field"},     {"ITEM", 5, "field"},
        {"Expense", 22, "field"},     {"Amount", 10, "field"},  {"Check", 7, "field"},
        {"Category", 16, "field"},    {"Status", 11, "field"},  {"Description", 22, "field"},
        {"Institution", 14, "field"}, {"Account", 14, "field"}, {"B", 1, "field"}};
    for (const Bank& bank : y.banks)
        for (const Account& a : bank.accounts) {
            if (a.reg.title != "0")
                columns.push_back({a.reg.title, 12, "regcolumn"});
            if (a.bank.title != "0")
                columns.push_back({a.bank.title, 12, "bankcolumn"});
            if (a.outstanding.title != "0")
                columns.push_back({a.outstanding.title, 12, "outstanding check"});
        }
    for (const Card& card : y.cards)
        columns.push_back({card.name, 12, "creditcard"});
    for (const char* tail : {"Info", "Accumulate", "Typeofentry"})
        columns.push_back({tail, 12, "field"});

    x.open("registercolumns");
    for (size_t i = 0; i < columns.size(); ++i) {
        x.open("column", {{"column", columns[i].title}});
        x.leaf("title", columns[i].title);
        x.leaf("width", columns[i].width);
        x.leaf("kind", columns[i].kind);
        x.leaf("position", static_cast<long long>(i + 1));
        x.close();
    }
    x.close();
}

void writeGroup(XmlOut& x, std::string_view tag, const Group& g) {
    x.open(tag);
    x.leaf("title", g.title);
    x.leaf("lastyearclosing", g.title == "0" ? "0" : money(g.start));
    for (int m = 0; m < 12; ++m)
        x.leaf("closing", "0");
    x.close();
}

void writeInstitutions(XmlOut& x, const Year& y) {
    x.open("financial-institutions");
    x.open("financial-institution", {{"id", "banks"}});
    x.open("names");
    for (const Bank& bank : y.banks) {
        x.open("name", {{"id", bank.name}});
        for (const Account& a : bank.accounts) {
            x.open("bankaccount");
            x.leaf("account", a.name);
            writeGroup(x, "regcolumn", a.reg);
            writeGroup(x, "bankcolumn", a.bank);
            writeGroup(x, "outstanding", a.outstanding);
            x.close();
        }
        x.close();
    }
    x.close();
    x.close();
    x.open("financial-institution", {{"id", kCardsInstitution}});
    x.open("names");
    for (const Card& card : y.cards) {
        x.open("name", {{"id", card.name}});
        x.leaf("type", kCardsInstitution);
        x.leaf("columnname", card.name);
        x.leaf("lastyearclosing", money(card.start));
        x.leaf("apr", card.apr);
        x.leaf("closingday", card.closingDay);
        x.leaf("dueday", card.dueDay);
        for (int m = 0; m < 12; ++m)
            x.leaf("closing", "0");
        x.close();
    }
    x.close();
    x.close();
    x.close();
}

}  // namespace

std::string writeYear(const Year& y) {
    XmlOut x;
    x.open("tallix");
    writeRegister(x, y);
    writeColumns(x, y);
    writeInstitutions(x, y);
    writePlan(x, y);
    x.open("descriptions");
    for (const std::string& d : y.descriptions)
        x.leaf("description", d);
    x.close();
    x.close();
    return x.take();
}

}  // namespace tallix::bench::model
