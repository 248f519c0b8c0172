// RMDs and stored descriptions on the sample year: which tree level each
// button needs, what an add makes, the totals, the draw the balance update
// books after an edit, and what is refused.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "data/values.h"
#include "reference/descriptions.h"
#include "reference/plan_input.h"
#include "reference/rmd_maintenance.h"
#include "reference/sample_year_file.h"

namespace tallix {
namespace {

using Texts = std::vector<std::string>;
using test::SampleYear;
const std::string kIra = "IRA Distribution";
const RmdPlace kIndividual{RmdLevel::Individual, kIra};
const RmdPlace kName{RmdLevel::Name, kIra, 0};
const RmdPlace kAccount{RmdLevel::Account, kIra, 0, 0};
const RmdPlace kDraw{RmdLevel::Value, kIra, 0, 0, 3};

Texts flattened(const RmdIndividualView& individual) {
    Texts texts{individual.name};
    for (const RmdNameView& name : individual.names) {
        texts.push_back(name.name);
        for (const RmdAccountView& a : name.accounts)
            texts.insert(texts.end(),
                         {a.name, a.values.lastYear, a.values.rmdAmount, a.values.currentDraw});
    }
    return texts;
}

TEST(RmdMaintenance, EachButtonRefusesAnotherLevelAndChangesNothing) {
    using Button = std::function<void(Session&, Prompter&, const RmdPlace&)>;
    // clang-format off
    const std::tuple<const char*, Button, RmdPlace, const char*> refusals[] = {
        {"add individual", [](Session& s, Prompter& p, const RmdPlace& at) { addIndividual(s, p, at); }, kName, kNotAnIndividual},
        {"add name", [](Session& s, Prompter&, const RmdPlace& at) { addRmdName(s, at); }, kIndividual, kNotAName},
        {"add account", [](Session& s, Prompter&, const RmdPlace& at) { addRmdAccount(s, at); }, kAccount, kNotAName},
        {"delete account", [](Session& s, Prompter&, const RmdPlace& at) { deleteRmdAccount(s, at); }, kName, kNotAnAccount},
        {"delete name", [](Session& s, Prompter&, const RmdPlace& at) { deleteRmdName(s, at); }, kDraw, kNotAName},
        {"delete individual", [](Session& s, Prompter&, const RmdPlace& at) { deleteIndividual(s, at); }, kAccount, kNotAnIndividual},
        {"value", [](Session& s, Prompter&, const RmdPlace& at) { editRmdLabel(s, at, "12x"); }, kDraw, "invalid stof argument"},
        {"a fourth value", [](Session& s, Prompter&, const RmdPlace&) { editRmdLabel(s, {RmdLevel::Value, kIra, 0, 0, 4}, "1"); }, kDraw, "the RMD value is not in the file"},
        {"totals", [](Session& s, Prompter&, const RmdPlace&) { editRmdLabel(s, {RmdLevel::Totals, {}}, "1"); }, kDraw, "the totals are worked out and cannot be edited"},
    };
    // clang-format on
    for (const auto& [name, button, place, message] : refusals) {
        SCOPED_TRACE(name);
        SampleYear year;
        const std::string bytes = year.fileBytes();
        EXPECT_EQ(test::thrown<PlanRefusal>([&] { button(year.session(), year.prompter, place); }),
                  message);
        EXPECT_EQ(year.fileBytes(), bytes);
        EXPECT_TRUE(year.prompter.shown.empty());
    }
}

TEST(RmdMaintenance, AddsMakeFreshEntriesAndDeletesTakeWhatTheyHold) {
    SampleYear year;
    EXPECT_EQ(addIndividual(year.session(), year.prompter, kIndividual), "new indiv");
    EXPECT_EQ(addIndividual(year.session(), year.prompter, kIndividual), "new indiv 2");
    EXPECT_EQ(year.prompter.shown, Texts(2, kNewIndividualNotice));
    addRmdName(year.session(), kName);
    addRmdAccount(year.session(), {RmdLevel::Name, kIra, 1});
    const RmdTree tree = rmdTree(year.data());
    EXPECT_EQ(flattened(tree.individuals.at(1)),
              (Texts{"new indiv", "new name", "account", "0", "0", "0"}));
    EXPECT_EQ(tree.individuals.at(0).names.at(1).accounts.size(), 2u);
    EXPECT_EQ(flattened(tree.individuals.at(0)).at(1), "Margaret Ellis");
    deleteRmdAccount(year.session(), {RmdLevel::Account, kIra, 1, 0});
    deleteRmdName(year.session(), kName);
    deleteIndividual(year.session(), {RmdLevel::Individual, "new indiv 2"});
    EXPECT_EQ(flattened(rmdTree(year.data()).individuals.at(0)),
              (Texts{kIra, "new name", "account", "0", "0", "0"}));
    EXPECT_EQ(year.faults(), Texts{});
}

TEST(RmdMaintenance, TotalsSumEachIndividualAndAllToTheCent) {
    SampleYear year;
    addIndividual(year.session(), year.prompter, kIndividual);
    const std::vector<std::pair<RmdPlace, std::string>> edits = {
        {{RmdLevel::Value, "new indiv", 0, 0, 1}, "100000.10"},
        {{RmdLevel::Value, "new indiv", 0, 0, 2}, "0.20"},
        {{RmdLevel::Value, "new indiv", 0, 0, 3}, "$1,000.05"},
    };
    for (const auto& [place, text] : edits)
        editRmdLabel(year.session(), place, text);
    const RmdTree tree = rmdTree(year.data());
    EXPECT_EQ(tree.individuals.at(1).totals.currentDraw, "1000.05");
    // Margaret Ellis: 168420.00, 6355.47 and 5830.00.
    EXPECT_EQ(tree.totals.lastYear, "268420.10");
    EXPECT_EQ(tree.totals.rmdAmount, "6355.67");
    EXPECT_EQ(tree.totals.currentDraw, "6830.05");
}

TEST(RmdMaintenance, TheBalanceUpdateBooksTheDrawAfterAnEdit) {
    SampleYear year;
    editRmdLabel(year.session(), kDraw, "1");
    editRmdLabel(year.session(), {RmdLevel::Individual, kIra}, "Roth Draw");
    editRmdLabel(year.session(), {RmdLevel::Individual, "Roth Draw"}, kIra);
    year.grid(3);
    double total = 0;
    for (pugi::xml_node month :
         elementChildren(childAt(requireOne(year.data(), paths::kIncome, kIra), 6)))
        total += textToAmount(childText(month, 1));
    EXPECT_NEAR(
        textToAmount(
            rmdTree(year.data()).individuals.at(0).names.at(0).accounts.at(0).values.currentDraw),
        total, 0.001);
    EXPECT_GT(total, 1);
}

TEST(Descriptions, AddRenameAndDeleteKeepTheLinesAndRefuseWhatCannotBeStored) {
    SampleYear year;
    const std::string bytes = year.fileBytes();
    EXPECT_FALSE(saveNewDescription(year.session(), " Shell Station "));
    EXPECT_THROW(saveNewDescription(year.session(), "  "), PlanRefusal);
    EXPECT_THROW(saveNewDescription(year.session(), std::string(10000, 'x')), PlanRefusal);
    EXPECT_EQ(year.fileBytes(), bytes);
    EXPECT_TRUE(saveNewDescription(year.session(), "Joe's \"Diner\" & Café"));
    EXPECT_THROW(renameDescription(year.session(), "Shell Station", "Joe's \"Diner\" & Café"),
                 PlanRefusal);
    renameDescription(year.session(), "Shell Station", "Shell");
    deleteDescription(year.session(), "Joe's \"Diner\" & Café");
    const Texts list = descriptions(year.data());
    EXPECT_EQ(std::count(list.begin(), list.end(), "Shell"), 1);
    EXPECT_EQ(std::count(list.begin(), list.end(), "Shell Station"), 0);
    EXPECT_EQ(std::count(list.begin(), list.end(), "Joe's \"Diner\" & Café"), 0);
    EXPECT_EQ(childText(childAt(year.month("March"), 0), 6), "Shell Station");
}

}  // namespace
}  // namespace tallix
