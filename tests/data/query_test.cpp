#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_paths.h"
#include "data/year_lookup.h"
#include "support/temp_dir.h"
#include "support/thrown.h"

namespace tallix {
namespace {

// Keys with apostrophes and quotes in every keyed container.
Document yearFile() {
    return Document::load(test::sourceDir() / "tests/fixtures/query_year.xml");
}

std::string keyOf(pugi::xml_node node) {
    for (const char* name : {"id", "month", "column", "line"})
        if (pugi::xml_attribute a = node.attribute(name))
            return a.value();
    return "";
}

TEST(Query, KeyedPathsSelectTheirNodeWhateverTheKeyHolds) {
    Document doc = yearFile();
    const std::pair<const char*, const char*> cases[] = {
        {paths::kMonthByName, "February"},          {paths::kMonthById, "January"},
        {paths::kColumn, "Joe's Checking"},         {paths::kColumnSpaced, "Amount"},
        {paths::kInstitutionSpaced, "creditcards"}, {paths::kInstitutionName, "Joe's Credit Union"},
        {paths::kCategory, "Kids' Stuff"},          {paths::kExpense, "Trader Joe's"},
        {paths::kIncome, "Mom's pension"},          {paths::kReceivable, "O'Brien"},
        {paths::kReceivable, "Joe's \"Deli\""},     {paths::kRmd, "Ann's IRA"},
    };
    for (const auto& [prefix, key] : cases) {
        pugi::xml_node node = selectOne(doc.node(), prefix, key);
        EXPECT_EQ(keyOf(node), key) << prefix;
        auto all = selectAll(doc.node(), prefix, key);
        EXPECT_TRUE(!all.empty() && all.front() == node) << key;
        EXPECT_FALSE(selectOne(doc.node(), prefix, std::string(key) + "x")) << key;
    }
    // From an element as context, and as one query text.
    pugi::xml_node descriptions = selectOne(doc.node(), paths::kDescriptions);
    EXPECT_EQ(keyOf(selectOne(descriptions, paths::kIncome, "Salary")), "Salary");
    EXPECT_EQ(keyOf(selectOne(doc.node(), buildQuery(paths::kIncome, "Salary"))), "Salary");
    EXPECT_TRUE(selectOne(doc.node(), paths::kCreditCards).child("names").child("name"));

    // An expense in any category, or in one.
    EXPECT_EQ(selectAll(doc.node(), paths::kExpense, "Trader Joe's").size(), 2u);
    EXPECT_EQ(childText(selectOne(doc.node(), paths::kExpense, "Trader Joe's"), 0), "Food");
    pugi::xml_node kids = requireOne(doc.node(), paths::kCategory, "Kids' Stuff");
    EXPECT_EQ(childText(selectOne(kids, paths::kExpenseInCategory, "Trader Joe's"), 0), "Kids");
    EXPECT_FALSE(selectOne(kids, paths::kExpenseInCategory, "Safeway"));
}

TEST(Query, ListsComeInDocumentOrderAndMissingNodesGiveNothing) {
    Document doc = yearFile();
    auto lines = selectAll(doc.node(), paths::kMonthByName, "January", paths::kCloseChildren);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(keyOf(lines[1]), "2");
    EXPECT_TRUE(
        selectAll(doc.node(), paths::kMonthByName, "February", paths::kCloseChildren).empty());
    auto containers = selectAll(doc.node(), paths::kAllContainers);
    ASSERT_EQ(containers.size(), 8u);
    EXPECT_STREQ(containers[3].name(), "catagories");
    EXPECT_EQ(keyOf(selectAll(doc.node(), paths::kAllExpenses).at(1)), "Trader Joe's");

    EXPECT_FALSE(selectOne(doc.node(), paths::kMonthByName, "Smarch"));
    EXPECT_NE(test::thrown<std::runtime_error>([&] {
                  requireOne(doc.node(), paths::kReceivable, "Nobody's");
              }).find("Nobody's"),
              std::string::npos);
    EXPECT_THROW(requireOne(doc.node(), "//tallix/nothing"), std::runtime_error);
}

TEST(YearLookup, GivesTheFileNameOrTheFixedTexts) {
    Document index = Document::parse(R"(<tallix>
  <year year="2022"><file>tallix2022.xml</file><status>initialized</status></year>
  <year year="2023"><file></file><status>not initialized</status></year>
  <year year="2024"><file>not initialized</file><status/></year>
  <year year="2025"><!-- moved --><file> tallix2025.xml </file><status/></year>
  <year year="2026"/></tallix>)",
                                     "tallix.xml");
    const std::pair<const char*, const char*> cases[] = {
        {"2021", "no entry for year 2021"},  {"2022", "tallix2022.xml"},
        {"2023", "no file for this year"},   {"2024", "not initialized"},
        {"2025", "tallix2025.xml"},          {"2026", "no file for this year"},
        {"2022'", "no entry for year 2022'"}};
    for (const auto& [year, result] : cases)
        EXPECT_EQ(yearLookup(index.node(), year), result) << year;

    Document first = Document::load(test::sourceDir() / "res" / "first_tallix.xml");
    EXPECT_EQ(yearLookup(first.node(), "2026"), "no file for this year");
    EXPECT_EQ(yearLookup(first.node(), "2031"), "no entry for year 2031");
}

}  // namespace
}  // namespace tallix
