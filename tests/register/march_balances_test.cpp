// The hand-computed March: every balance cell, every next-month slot and the
// plan totals after showing March of march_register.xml, compared with
// march_register_expected.txt byte for byte.
#include <gtest/gtest.h>

#include <clocale>
#include <sstream>

#include "register/year_file.h"

namespace tallix {
namespace {

using test::col::kAmex;
using test::col::kCkRegister;

std::string bracket(const std::string& text) {
    return "[" + text + "]";
}

// The expected file without its comment lines.
std::string expected() {
    std::istringstream in(test::readFile(test::fixture("march_register_expected.txt")));
    std::string line, result;
    while (std::getline(in, line))
        if (line.empty() || line[0] != '#')
            result += line + "\n";
    return result;
}

void renderSlots(pugi::xml_node data, std::ostream& out) {
    out << "slots\n";
    for (pugi::xml_node bank : elementChildren(selectOne(data, paths::kBanks).child("names")))
        for (pugi::xml_node account : elementChildren(bank))
            for (size_t group = 1; group <= 3; ++group)
                out << attributeText("id", bank) << '/' << childText(account, 0) << '/'
                    << childAt(account, group).name() << "/4\t"
                    << bracket(childText(childAt(account, group), 4)) << '\n';
    for (pugi::xml_node card : elementChildren(selectOne(data, paths::kCreditCards).child("names")))
        out << attributeText("id", card) << "/8\t" << bracket(childText(card, 8)) << '\n';
}

void renderOther(pugi::xml_node data, const GridTable& table, std::ostream& out) {
    auto march = [&](const char* prefix, const char* id, size_t monthsChild) {
        return childText(childAt(childAt(requireOne(data, prefix, id), monthsChild), 2), 1);
    };
    auto draw = [&](size_t account) {
        pugi::xml_node accounts = childAt(childAt(requireOne(data, paths::kRmd, "IRA Draw"), 0), 1);
        return childText(childAt(accounts, account), 3);
    };
    std::string items;
    for (pugi::xml_node item : elementChildren(
             childAt(childAt(requireOne(data, paths::kReceivable, "Oak Cafe"), 4), 2))) {
        items += items.empty() ? "" : " | ";
        for (size_t k = 0; k < 7; ++k)
            items += (k ? " " : "") + childText(item, k);
    }
    pugi::xml_node line13 = requireOne(data, paths::kMonthByName, "March", "']/item[@line='13']");
    pugi::xml_node line5 = requireOne(data, paths::kMonthByName, "March", "']/item[@line='5']");
    out << "other\n"
        << "Groceries/March\t" << bracket(march(paths::kExpense, "Groceries", 7)) << '\n'
        << "Resturants/March\t" << bracket(march(paths::kExpense, "Resturants", 7)) << '\n'
        << "Fuel/March\t" << bracket(march(paths::kExpense, "Fuel", 7)) << '\n'
        << "Payroll/March\t" << bracket(march(paths::kIncome, "Payroll", 6)) << '\n'
        << "Side Gig/March\t" << bracket(march(paths::kIncome, "Side Gig", 6)) << '\n'
        << "IRA Draw/March\t" << bracket(march(paths::kIncome, "IRA Draw", 6)) << '\n'
        << "IRA Draw/current draw\t" << bracket(draw(0)) << '\n'
        << "Oak Cafe/March\t" << bracket(items) << '\n'
        << "IRA Draw/second account's draw\t" << bracket(draw(1)) << '\n'
        << "line 13/debit\t" << bracket(childText(line13, 2)) << '\n'
        << "row 12/Amount\t" << bracket(table.cell(12, test::col::kAmount)) << '\n'
        << "line 5/account\t" << bracket(childText(line5, 8)) << '\n'
        << "row 4/Account\t" << bracket(table.cell(4, test::col::kAccount)) << '\n'
        << "row 4/Accumulate\t" << bracket(table.cell(4, test::col::kAccumulate)) << '\n';
}

// What the engine produced: the messages and balance cells of the session,
// the slots and plan values of the file as saved.
std::string render(test::YearFile& year) {
    std::ostringstream out;
    out << "messages\n";
    for (const std::string& message : year.prompter.shown)
        out << message << '\n';
    out << "rows";
    for (int c = kCkRegister; c <= kAmex; ++c)
        out << '\t' << year.session().view.grid.columns[c].title;
    out << '\n';
    for (int r = 0; r < year.table().rowCount(); ++r) {
        out << r;
        for (int c = kCkRegister; c <= kAmex; ++c)
            out << '\t' << bracket(year.cell(r, c));
        out << '\n';
    }
    Document saved = Document::load(year.path);
    renderSlots(saved.node(), out);
    renderOther(saved.node(), year.table(), out);
    return out.str();
}

// A German desktop session reads and prints numbers with a decimal comma; the
// balances must not change with it.
class MarchBalances : public ::testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        if (!std::setlocale(LC_ALL, GetParam()))
            GTEST_SKIP() << "locale " << GetParam() << " is not installed";
    }
    void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

TEST_P(MarchBalances, MatchTheHandComputedMarch) {
    test::YearFile year({2026, 3, 15});
    ASSERT_TRUE(year.show(3));
    EXPECT_EQ(render(year), expected());
    for (int r = 0; r < year.table().rowCount(); ++r)
        EXPECT_EQ(year.cell(r, test::col::kB), " ") << "row " << r;

    // Shown again, the month gives the same cells and the file the same bytes.
    std::string bytes = test::readFile(year.path);
    year.prompter.shown.clear();
    ASSERT_TRUE(year.show(3));
    EXPECT_EQ(render(year), expected());
    EXPECT_EQ(test::readFile(year.path), bytes);
}

INSTANTIATE_TEST_SUITE_P(Locales, MarchBalances, ::testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& param) { return param.index == 0 ? "C" : "DecimalComma"; });

}  // namespace
}  // namespace tallix
