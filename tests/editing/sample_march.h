#pragma once
// March of the sample year shown in a session on 21 November 2026, where the
// editing tests start, and March read back from the saved file. Its 24 lines
// include 1 Gasoline (Living, a debit), 2 Acme Payroll (Income), 3 the Water
// check 2046, 7 and 20 Maple Street Bakery's receivables, 11 Social Security
// (into the Credit Union) and 15 Riverside Garden Club's receivable.
#include <gtest/gtest.h>

#include "data/schema_names.h"
#include "register/plan_index.h"
#include "register/year_file.h"
#include "support/scripted_choices.h"

namespace tallix::test {

using Fields = std::vector<std::string>;

struct SavedMarch {
    Document doc;
    std::vector<pugi::xml_node> lines;

    Fields fields(int line) const {
        Fields texts;
        for (pugi::xml_node child : elementChildren(lines.at(static_cast<size_t>(line - 1))))
            texts.push_back(nodeText(child));
        return texts;
    }
    std::string field(int line, size_t child) const { return fields(line).at(child); }
    Fields numbers() const {
        Fields out;
        for (pugi::xml_node line : lines)
            out.push_back(attributeText("line", line));
        return out;
    }
    // The line numbers of a customer's March items, in file order.
    Fields items(const std::string& customer) const {
        Fields out;
        pugi::xml_node c = requireOne(doc.node(), paths::kReceivable, customer);
        for (pugi::xml_node item : elementChildren(monthEntry(c, schema::kCustomerMonths, 3)))
            out.push_back(childText(item, 0));
        return out;
    }
    // A field of the March entry of a planned expense.
    std::string plan(const std::string& expense, size_t child) const {
        pugi::xml_node entry = requireOne(doc.node(), paths::kExpense, expense);
        return childText(monthEntry(entry, schema::kExpenseMonths, 3), child);
    }
};

class SampleMarch : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(year.show(3));
        year.prompter.shown.clear();
    }
    Session& session() { return year.session(); }
    const FieldColumns& f() { return session().view.fields; }
    SavedMarch saved() {
        SavedMarch s{Document::load(year.path), {}};
        s.lines = elementChildren(selectOne(s.doc.node(), paths::kMonthByName, "March"));
        return s;
    }
    // Line 25 at the bottom, on the 1st, naming no planned expense (a cheque to
    // be matched by its number); March is shown again.
    void addUnplannedLine() {
        pugi::xml_node line = year.month("March").append_copy(childAt(year.month("March"), 0));
        line.attribute("line").set_value("25");
        for (size_t child = schema::kDay; child <= schema::kTypeOfEntry; ++child)
            setChildText(line, child, "");
        setChildText(line, schema::kDay, "1");
        setChildText(line, schema::kInstitution, "First National");
        setChildText(line, schema::kAccount, "Checking");
        setChildText(line, schema::kTypeOfEntry, "debit");
        year.session().saveSettled();
        ASSERT_TRUE(year.show(3));
        year.prompter.shown.clear();
    }
    static Fields oneTo(int n) {
        Fields out;
        for (int i = 1; i <= n; ++i)
            out.push_back(std::to_string(i));
        return out;
    }
    static Fields emptyLine(const std::string& day, const std::string& kind) {
        Fields texts(12);
        texts[schema::kDay] = day;
        texts[schema::kTypeOfEntry] = kind;
        return texts;
    }

    YearFile year{{2026, 11, 21}, sourceDir() / "examples" / "tallix2026.xml"};
    ScriptedLineChoices<> choices;
};

}  // namespace tallix::test
