#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/structure_check.h"
#include "support/temp_dir.h"

namespace tallix {
namespace {

using Faults = std::vector<std::string>;
const std::string kPositionsRun = " (positions run 1, 2, 3 ... in file order)";

pugi::xml_node at(pugi::xml_node doc, const std::string& path) {
    return requireOne(doc, path);
}

// A register column appended after the last one, in sequence.
void addColumn(pugi::xml_node doc, const std::string& title) {
    pugi::xml_node columns = at(doc, paths::kRegisterColumns);
    pugi::xml_node column = columns.append_copy(childAt(columns, elementChildCount(columns) - 1));
    column.attribute("column").set_value(title.c_str());
    setChildText(column, 0, title);
    setChildText(column, 3, std::to_string(elementChildCount(columns)));
}

void appendAll(pugi::xml_node parent, std::vector<std::pair<std::string, std::string>> children) {
    for (int m = 0; m < 12; ++m)
        children.emplace_back("closing", "0");
    for (const auto& [name, text] : children)
        appendTextElement(parent, name, text);
}

// A card in shape, with its register column.
void addCard(pugi::xml_node doc, const std::string& id) {
    pugi::xml_node card = at(doc, paths::kCreditCards).child("names").append_child("name");
    card.append_attribute("id").set_value(id.c_str());
    appendAll(card, {{"type", "creditcards"},
                     {"columnname", id},
                     {"lastyearclosing", "-120.50"},
                     {"apr", "0"},
                     {"closingday", "20"},
                     {"dueday", "15"}});
    addColumn(doc, id);
}

// A bank in shape: one account with a register column and no other columns.
void addBank(pugi::xml_node doc, const std::string& id) {
    pugi::xml_node bank = at(doc, paths::kBanks).child("names").append_child("name");
    bank.append_attribute("id").set_value(id.c_str());
    pugi::xml_node account = bank.append_child("bankaccount");
    appendTextElement(account, "account", "Checking");
    for (const char* group : {"regcolumn", "bankcolumn", "outstanding"}) {
        std::string title = std::string(group) == "regcolumn" ? id + " Register" : "0";
        appendAll(account.append_child(group), {{"title", title}, {"lastyearclosing", "100.00"}});
    }
    addColumn(doc, id + " Register");
}

// The faults of the blank year after `edit`.
template <class Edit>
Faults blankAfter(Edit edit) {
    Document blank = Document::parse(test::readFile(test::sourceDir() / "res/blank_tallix.xml"),
                                     "blank_tallix.xml");
    edit(blank.node());
    return checkStructure(blank.node());
}

TEST(StructureCheck, BundledTemplatesAndTheSampleYearHaveNoFaults) {
    for (const char* file :
         {"res/blank_tallix.xml", "res/first_tallix.xml", "examples/tallix2026.xml"})
        EXPECT_EQ(checkFile(test::sourceDir() / file), Faults{}) << file;
}

TEST(StructureCheck, InShapeBanksCardsCommentsAndProgramAmountsPass) {
    EXPECT_EQ(blankAfter([](pugi::xml_node doc) {
                  addBank(doc, "Chase");
                  addCard(doc, "Visa");
                  pugi::xml_node line = at(doc, "//tallix/register/month[@month='May']/item");
                  line.prepend_child(pugi::node_comment).set_value("hand-edited");
                  setChildText(line, 0, " ");      // a blank day
                  setChildText(line, 2, "-3.-5");  // the program's own negative amount
                  setChildText(line, 5, "no entry");
              }),
              Faults{});
}

TEST(StructureCheck, RegisterFaults) {
    const std::string march = "//tallix/register/month[@month='March']";
    EXPECT_EQ(blankAfter([&](pugi::xml_node doc) {
                  at(doc, paths::kRegister).remove_child(at(doc, march));
              }),
              Faults{"register: lacks month 'March'"});
    EXPECT_EQ(blankAfter([&](pugi::xml_node doc) {
                  at(doc, paths::kRegister).append_copy(at(doc, march));
                  at(doc, march + "/item").attribute("line").set_value("2");
                  at(doc, march).attribute("id").set_value("Mar");
              }),
              (Faults{"register: month 'March' appears 2 times",
                      "register month 'March': attribute id is 'Mar', expected 'March'",
                      "register month 'March' line 1: attribute line is '2', expected '1'"}));
    // The first month is checked too, and the last day of a month is a day.
    EXPECT_EQ(
        blankAfter([&](pugi::xml_node doc) {
            at(doc, "//tallix/register/month[@month='January']").attribute("id").set_value("Jan");
            setChildText(at(doc, march + "/item"), 0, "31");
        }),
        (Faults{"register month 'January': attribute id is 'Jan', expected 'January'"}));
    EXPECT_EQ(blankAfter([&](pugi::xml_node doc) {
                  pugi::xml_node line = at(doc, march + "/item");
                  at(doc, march).append_copy(line).append_child("note");
                  line.remove_child("categoty");
                  at(doc, march).append_child("comment");
              }),
              (Faults{"register month 'March' line 1: lacks child 'categoty' (child 4)",
                      "register month 'March' line 2: attribute line is '1', expected '2'",
                      "register month 'March' line 2: unexpected child 'note' (child 12)",
                      "register month 'March' line 3: is 'comment', expected 'item'"}));
    EXPECT_EQ(blankAfter([&](pugi::xml_node doc) {
                  pugi::xml_node line = at(doc, march + "/item");
                  line.insert_move_before(line.child("status"), line.child("categoty"));
                  pugi::xml_node second = at(doc, march).append_copy(line);
                  second.attribute("line").set_value("2");
                  setChildText(second, 0, "32");
                  setChildText(second, 2, "abc");
                  // A name the program does not use is read by its position.
                  second.child("description").set_name("memo");
              }),
              (Faults{"register month 'March' line 1: child 4 is 'status', expected 'categoty'",
                      "register month 'March' line 1: child 5 is 'categoty', expected 'status'",
                      "register month 'March' line 2: child 4 is 'status', expected 'categoty'",
                      "register month 'March' line 2: child 5 is 'categoty', expected 'status'",
                      "notice: register month 'March' line 2: child 6 is 'memo', expected "
                      "'description' (read by its position)",
                      "register month 'March' line 2: day '32' is not a whole number from 1 to 31",
                      "register month 'March' line 2: debit 'abc' is not a number"}));
}

TEST(StructureCheck, RegisterColumnFaults) {
    auto column = [](const std::string& key) {
        return "//tallix/registercolumns/column[@column='" + key + "']";
    };
    EXPECT_EQ(
        blankAfter([&](pugi::xml_node doc) {
            at(doc, column("Amount")).remove_child("kind");
            setChildText(at(doc, column("Check")), 1, "400000000");
            setChildText(at(doc, column("DATE")), 1, "-5");
            setChildText(at(doc, column("Info")), 3, "9223372036854775808");
            at(doc, paths::kRegisterColumns).remove_child(at(doc, column("Status")));
        }),
        (Faults{"registercolumns column 'DATE': width '-5' is not a whole number from 0 to 1000",
                "registercolumns column 'Amount': lacks child 'kind' (child 2)",
                "registercolumns column 'Check': width '400000000' is not a whole number from 0 "
                "to 1000",
                "registercolumns column 'Description': position is 9, expected 8" + kPositionsRun,
                "registercolumns column 'Info': position '9223372036854775808' is not a whole "
                "number from 0 to 1000",
                "registercolumns: lacks the 'Status' column"}));
    EXPECT_EQ(blankAfter([&](pugi::xml_node doc) {
                  pugi::xml_node amount = at(doc, column("Amount"));
                  amount.parent().insert_move_before(amount, at(doc, column("Expense")));
                  setChildText(amount, 3, "4");
                  setChildText(at(doc, column("Expense")), 3, "5");
                  setChildText(at(doc, column("Info")), 0, "Notes");
              }),
              (Faults{"registercolumns column 'Info': title 'Notes' differs from its key 'Info'",
                      "registercolumns column 'Expense': stands at position 5, the program "
                      "expects it at 4",
                      "registercolumns column 'Amount': stands at position 4, the program "
                      "expects it at 5"}));
}

TEST(StructureCheck, InstitutionFaults) {
    EXPECT_EQ(blankAfter([](pugi::xml_node doc) {
                  addCard(doc, "Visa");
                  pugi::xml_node card = at(doc, paths::kCreditCards).child("names").child("name");
                  card.remove_child("apr");
                  addCard(doc, "Amex");
                  pugi::xml_node amex = card.next_sibling();
                  setChildText(amex, 0, "creditcard");
                  setChildText(amex, 1, "Amex Card");
                  setChildText(amex, 8, "x");
              }),
              (Faults{"card 'Visa': lacks child 'apr' (child 3)",
                      "card 'Amex': type is 'creditcard', expected 'creditcards'",
                      "card 'Amex': columnname 'Amex Card' has no register column",
                      "card 'Amex': closing of March 'x' is not a number"}));
    EXPECT_EQ(blankAfter([](pugi::xml_node doc) {
                  addBank(doc, "Chase");
                  addCard(doc, "Chase");
                  pugi::xml_node account =
                      at(doc, paths::kBanks).child("names").child("name").child("bankaccount");
                  account.child("bankcolumn").remove_child("closing");
                  setChildText(account.child("outstanding"), 0, "Chase Out");
                  setChildText(account.child("regcolumn"), 1, "");
              }),
              (Faults{"bank 'Chase' account 'Checking' regcolumn: lastyearclosing is empty, "
                      "expected a number",
                      "bank 'Chase' account 'Checking' bankcolumn: has 11 'closing' children, "
                      "expected 12",
                      "bank 'Chase' account 'Checking' outstanding: title 'Chase Out' has no "
                      "register column",
                      "financial-institutions: name 'Chase' is both a bank and a card"}));
    EXPECT_EQ(
        blankAfter([](pugi::xml_node doc) {
            at(doc, "//tallix/financial-institutions").remove_child(at(doc, paths::kCreditCards));
        }),
        Faults{"financial-institutions: lacks financial-institution 'creditcards'"});
}

TEST(StructureCheck, PlanFaults) {
    EXPECT_EQ(
        blankAfter([](pugi::xml_node doc) {
            pugi::xml_node months = at(doc, "//tallix/catagories/category/names/name/months");
            months.remove_child(childAt(months, 11));
            pugi::xml_node income = at(doc, "//tallix/income/name/months");
            setChildText(childAt(income, 2), 0, "April");
            childAt(income, 5).remove_child("date");
            at(doc, "//tallix/receivables").remove_child("revenue");
            at(doc, "//tallix/receivables/name/months/month").append_child("revenue");
            at(doc, "//tallix/rmds/rmd/holder").remove_child("accounts");
            at(doc, "//tallix/rmds")
                .append_copy(at(doc, "//tallix/rmds/rmd"))
                .remove_child("holder");
            appendTextElement(at(doc, paths::kDescriptions), "text", "rent");
        }),
        (Faults{"category 'xxxx' expense 'xxxx' months: has 11 'month' children, expected 12",
                "income 'xxxx' month 3: name is 'April', expected 'March'",
                "income 'xxxx' month 6: lacks child 'date' (child 2)",
                "receivables customer 'xxxx' month 1 item 2: holds no elements, expected "
                "line, amount, datepaid, duedate, status, type, check",
                "receivables: lacks the 'revenue' template", "rmds: id 'xxxx' is used 2 times",
                "rmd 'xxxx' holder 1: lacks child 'accounts' (child 1)",
                "descriptions: child 0 is 'text', expected 'description'"}));
}

TEST(StructureCheck, WholeFileFaults) {
    EXPECT_EQ(blankAfter([](pugi::xml_node doc) {
                  pugi::xml_node root = doc.child("tallix");
                  root.remove_child("rmds");
                  root.append_copy(root.child("descriptions"));
                  root.append_child("notes");
                  at(doc, "//tallix/register/month").append_attribute("id").set_value("x");
                  doc.append_child("extra");
              }),
              (Faults{"file: holds 2 root elements ('tallix', 'extra'), expected one",
                      "/tallix/register/month[@month='January']: attribute 'id' appears more "
                      "than once",
                      "tallix: unexpected element 'notes'", "tallix: lacks container 'rmds'",
                      "tallix: container 'descriptions' appears 2 times"}));
    EXPECT_EQ(checkText("<html><tallix/></html>", "page.xml"),
              Faults{"file: root element is 'html', expected 'tallix': not a Tallix file"});
    EXPECT_EQ(checkText("<tallix>\n  <register>\n</tallix>", "cut.xml"),
              Faults{"cut.xml: not well-formed XML: Start-end tags mismatch at line 3, column 3"});
    EXPECT_EQ(checkText("<tallix></register>", "one.xml"),
              Faults{"one.xml: not well-formed XML: Start-end tags mismatch at line 1, column 11"});
    std::string nest;
    for (int i = 0; i < 100000; ++i)
        nest += "<d>";
    for (int i = 0; i < 100000; ++i)
        nest += "</d>";
    EXPECT_EQ(checkText("<tallix><descriptions>" + nest + "</descriptions></tallix>", "deep.xml"),
              Faults{"/tallix/descriptions/d/d/d/d/d/d/d: nested deeper than any element of a "
                     "Tallix file"})
        << "reported, and the check stops before reading the nest's text";
    test::TempDir dir;
    EXPECT_EQ(checkFile(dir / "gone.xml"), Faults{(dir / "gone.xml").string() + ": no such file"});
}

TEST(StructureCheck, IndexFileFaults) {
    EXPECT_EQ(
        checkText("<tallix><year year='2026'><file>old/tallix2026.xml</file><status/></year>"
                  "<year year='2026'><file>tallix2026.xml</file><status/></year>"
                  "<year year='26'><file/></year><note/></tallix>",
                  "tallix.xml"),
        (Faults{"index: child 3 is 'note', expected 'year'", "index: year '2026' is used 2 times",
                "index year '2026': file 'old/tallix2026.xml' is a path; the index holds "
                "bare file names",
                "index year '26': is not a four-digit year",
                "index year '26': lacks child 'status' (child 1)"}));
}

}  // namespace
}  // namespace tallix
