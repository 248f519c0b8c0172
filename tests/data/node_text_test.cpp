#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/child_names.h"
#include "data/document.h"
#include "data/node_text.h"
#include "data/text_utils.h"
#include "support/temp_dir.h"
#include "support/thrown.h"

namespace tallix {
namespace {

constexpr const char* kXml =
    "<tallix><description>\n  Rent <b>for</b><!-- who? --> May <![CDATA[& June]]> \t\n"
    "</description><item line=\"3\" id=\"\"><!-- first --><day>3</day><?note x?>Loose"
    "<expense>Gas</expense><!-- last --></item></tallix>";

TEST(NodeText, ReadsJoinedTrimmedTextAndWritesOneTextChild) {
    Document doc = Document::parse(kXml, "text.xml");
    pugi::xml_node root = doc.node().child("tallix");
    pugi::xml_node item = root.child("item");
    EXPECT_EQ(nodeText(root.child("description")), "Rent for May & June");
    EXPECT_EQ(nodeText(item), "3LooseGas");
    EXPECT_EQ(nodeText(pugi::xml_node()), "");

    setNodeText(item, "  Rent  ");
    EXPECT_EQ(elementChildCount(item), 0u);
    EXPECT_EQ(nodeText(item), "Rent");
    EXPECT_EQ(attributeText("line", item), "3");
    setNodeText(item, "");
    EXPECT_FALSE(item.first_child());
    EXPECT_FALSE(appendTextElement(item, "status", "").first_child());
    EXPECT_THROW(setNodeText(pugi::xml_node(), "x"), std::runtime_error);
}

TEST(NodeText, PositionsCountElementsOnly) {
    Document doc = Document::parse(kXml, "text.xml");
    pugi::xml_node item = doc.node().child("tallix").child("item");
    EXPECT_EQ(elementChildCount(item), 2u);
    EXPECT_EQ(elementChildren(item).size(), 2u);
    EXPECT_STREQ(childAt(item, 0).name(), "day");
    EXPECT_EQ(childText(item, 1), "Gas");
    EXPECT_THROW(childAt(item, 2), std::out_of_range);
    EXPECT_THROW(childAt(pugi::xml_node(), 0), std::out_of_range);

    setChildText(item, 1, "Rent");
    EXPECT_EQ(childText(item, 1), "Rent");
    EXPECT_EQ(item.first_child().type(), pugi::node_comment);
    EXPECT_EQ(item.last_child().type(), pugi::node_comment);
}

TEST(NodeText, AttributesAreReadAndReplacedButNeverCreated) {
    Document doc = Document::parse(kXml, "text.xml");
    pugi::xml_node item = doc.node().child("tallix").child("item");
    EXPECT_EQ(attributeText("line", item), "3");
    setAttributeText("4", "line", item);
    setAttributeText("Trader Joe's", "id", item);
    EXPECT_EQ(attributeText("line", item), "4");
    EXPECT_EQ(attributeText("id", item), "Trader Joe's");

    EXPECT_THROW(setAttributeText("x", "month", item), std::runtime_error);
    EXPECT_FALSE(item.attribute("month"));
    EXPECT_EQ(std::distance(item.attributes_begin(), item.attributes_end()), 2);
    EXPECT_THROW(setAttributeText("x", "line", pugi::xml_node()), std::runtime_error);
    EXPECT_THROW(attributeText("line", pugi::xml_node()), std::runtime_error);
}

TEST(TextUtils, SplitAndNumberToText) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(split("1/15/2026", "/"), (Pieces{"1", "15", "2026"}));
    EXPECT_EQ(split("a, b, c", ", "), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(split("/x//", "/"), (Pieces{"", "x", "", ""}));
    EXPECT_EQ(split("", "/"), (Pieces{""}));
    EXPECT_THROW(split("a", ""), std::invalid_argument);

    EXPECT_EQ(numberToText(0), "0");
    EXPECT_EQ(numberToText(13), "13");
    EXPECT_EQ(numberToText(-7), "-7");
    EXPECT_EQ(numberToText(1234567890123LL), "1234567890123");
}

// Writes go by position, guarded by names: an element that carries another
// child's name (two children swapped by hand) is refused, one whose name the
// program does not use is written by its position.
TEST(NodeText, AWriteByPositionRefusesAnotherChildsElement) {
    Document doc = Document::parse(
        "<tallix><income><name id=\"Pay\"><months><month><name>January</name>"
        "<date>1/15/2026</date><amount>5.00</amount><status>cleared</status></month>"
        "<month><name>February</name><amt>7.00</amt><date>2/15/2026</date><status>x</status>"
        "</month></months></name></income></tallix>",
        "year.xml");
    pugi::xml_node months =
        doc.node().child("tallix").child("income").child("name").child("months");
    pugi::xml_node january = childAt(months, 0);
    EXPECT_EQ(test::thrown<schema::MisplacedElement>([&] { setChildText(january, 1, "530.00"); }),
              "year.xml: /tallix/income/name[@id='Pay']/months/month[1]: child 1 is "
              "'date' where 'amount' belongs, so it is not written");
    EXPECT_EQ(nodeText(january.child("date")), "1/15/2026");
    EXPECT_THROW(setChildText(january, 2, "0"), schema::MisplacedElement);
    setChildText(january, 3, "notpaid");  // in its place
    appendTextElement(january, "status", "surplus");
    EXPECT_THROW(setChildText(january, 4, "0"), schema::MisplacedElement);

    pugi::xml_node february = childAt(months, 1);
    setChildText(february, 1, "9.00");
    EXPECT_EQ(nodeText(february.child("amt")), "9.00");
}

// Every element of a well-formed year file and index whose children the
// program reads by position is recognised, and its children stand exactly
// where the names say; every kind of such element occurs.
TEST(ChildNames, DescribeEveryPositionalElementOfTheTemplatesAndTheFixture) {
    std::map<const schema::ChildNames*, int> seen;
    for (const char* file :
         {"tests/fixtures/march_register.xml", "res/blank_tallix.xml", "res/first_tallix.xml"}) {
        Document doc = Document::load(test::sourceDir() / file);
        ASSERT_FALSE(doc.loadFailed()) << file;
        struct Walker : pugi::xml_tree_walker {
            std::map<const schema::ChildNames*, int>* seen;
            bool for_each(pugi::xml_node& node) override {
                const schema::ChildNames* names = schema::childNamesOf(node);
                if (!names)
                    return true;
                ++(*seen)[names];
                std::vector<pugi::xml_node> children = elementChildren(node);
                EXPECT_EQ(children.size(), names->size()) << schema::elementPath(node);
                for (size_t i = 0; i < children.size() && i < names->size(); ++i) {
                    EXPECT_EQ(children[i].name(), (*names)[i]) << schema::elementPath(node);
                    EXPECT_NO_THROW(schema::refuseMisplaced(children[i]));
                }
                return true;
            }
        } walker;
        walker.seen = &seen;
        doc.node().traverse(walker);
    }
    EXPECT_EQ(seen.size(), 15u);
    // Lists and containers have no positions of their own.
    Document doc = Document::parse(
        "<tallix><register><month month=\"May\"/></register><receivables><name id=\"C\">"
        "<number/><institution/><account/><amount/><months><month/></months></name>"
        "</receivables></tallix>",
        "lists.xml");
    pugi::xml_node root = doc.node().child("tallix");
    EXPECT_EQ(schema::childNamesOf(root), nullptr);
    EXPECT_EQ(schema::childNamesOf(root.child("register").child("month")), nullptr);
    pugi::xml_node customer = root.child("receivables").child("name");
    EXPECT_EQ(schema::childNamesOf(customer), &schema::kCustomerChildren);
    EXPECT_EQ(schema::childNamesOf(customer.child("months").child("month")), nullptr);
}

}  // namespace
}  // namespace tallix
