// Banks, accounts, cards and their register columns on the sample year: the
// shapes and columns each operation leaves, the balances the month grid
// shows afterwards, how far a rename reaches, and what a refusal leaves.
#include <gtest/gtest.h>

#include <functional>

#include "app/undo_history.h"
#include "data/schema_names.h"
#include "data/structure_check.h"
#include "data/values.h"
#include "reference/bank_maintenance.h"
#include "reference/bank_messages.h"
#include "reference/card_maintenance.h"
#include "reference/column_definitions.h"
#include "reference/institution_nodes.h"
#include "reference/plan_input.h"
#include "reference/sample_year_file.h"
#include "register/month_display.h"
#include "register/register_columns.h"

namespace tallix {
namespace {

using Texts = std::vector<std::string>;
using test::SampleYear;

const Texts kSampleColumns{"FN Register", "FN Bank", "FN Outstanding", "FN Savings",
                           "CU Register", "CU Bank", "Visa",           "Mastercard"};

NewAccount holidayFund(bool registerBox, bool outstandingBox) {
    return {"Credit Union", "Holiday Fund", registerBox, outstandingBox,
            "HF Register",  "HF Bank",      "HF Owed",   "500"};
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + 1))
        text.replace(at, from.size(), to);
    return text;
}

TEST(BankMaintenance, TheBoxesDecideTheColumnsOfANewBankAndOfANewAccountDifferently) {
    // path, register box, outstanding box, titles of the account's three groups
    const std::tuple<AccountPath, bool, bool, Texts> cases[] = {
        {AccountPath::NewBank, false, true, {"0", "HF Bank", "0"}},
        {AccountPath::NewBank, true, false, {"HF Register", "HF Bank", "HF Owed"}},
        {AccountPath::ExistingBank, false, true, {"0", "HF Bank", "HF Owed"}},
        {AccountPath::ExistingBank, true, false, {"HF Register", "HF Bank", "0"}},
    };
    for (const auto& [path, registerBox, outstandingBox, titles] : cases) {
        SCOPED_TRACE(testing::Message() << (path == AccountPath::NewBank) << registerBox);
        SampleYear year;
        NewAccount fields = holidayFund(registerBox, outstandingBox);
        if (path == AccountPath::NewBank)
            fields.bank = "Harbor Savings";
        const auto apply = [&] {
            return path == AccountPath::NewBank
                       ? applyNewBank(year.session(), year.prompter, fields)
                       : applyNewAccount(year.session(), year.prompter, fields);
        };
        // No to the question about typing mistakes goes back with nothing written.
        const std::string bytes = year.fileBytes();
        year.prompter.answers = {Answer::No, Answer::Yes};
        EXPECT_FALSE(apply());
        EXPECT_EQ(year.fileBytes(), bytes);
        ASSERT_TRUE(apply());
        EXPECT_EQ(year.prompter.shown, Texts(2, kTypoQuestion));
        EXPECT_EQ(undoText(year.session()), path == AccountPath::NewBank
                                                ? "Undo add bank Harbor Savings"
                                                : "Undo add account Holiday Fund to Credit Union");
        year.reopen();
        const AccountView account =
            bankTree(year.data()).at(path == AccountPath::NewBank ? 2 : 1).accounts.back();
        EXPECT_EQ((Texts{account.reg.title, account.bank.title, account.outstanding.title}),
                  titles);
        Texts made = kSampleColumns;
        for (const std::string& title : titles)
            if (title != "0")
                made.push_back(title);
        EXPECT_EQ(year.balanceColumns(), made);
        pugi::xml_node group =
            childAt(elementChildren(bankNode(year.data(), fields.bank)).back(), 2);
        EXPECT_EQ(year.values(group, 1), Texts(13, "500.00"));
        EXPECT_EQ(year.faults(), Texts{});
    }
}

TEST(BankMaintenance, RenamesReachEveryPlaceAndTheBalancesStayTheSame) {
    SampleYear year;
    const std::string before = year.grid(3);
    const std::string name = "Joe's \"First\" & Národní";
    year.prompter.answers = {Answer::Yes, Answer::Yes};
    // Every place but the bank's own name; each account field that holds
    // "Savings" belongs to the bank's account (the other banks have none).
    const int places = year.occurrences("First National") - 1;
    const int savings = year.occurrences(">Savings<") - 1;
    EXPECT_EQ(renameBank(year.session(), year.prompter, "First National", name), places);
    EXPECT_EQ(renameAccount(year.session(), year.prompter, name, "Savings", "Nest Egg"), savings);
    EXPECT_EQ(year.fileBytes().find("First National"), std::string::npos);
    EXPECT_EQ(year.faults(), Texts{});
    EXPECT_EQ(replaced(replaced(year.grid(3), name, "First National"), "Nest Egg", "Savings"),
              before);

    EXPECT_EQ(renameBank(year.session(), year.prompter, name, " " + name), 0);  // no question
    year.prompter.answers = {Answer::No};
    EXPECT_EQ(renameBank(year.session(), year.prompter, name, "Other"), std::nullopt);
    EXPECT_EQ(bankTree(year.data()).front().name, name);
}

TEST(CardMaintenance, ARenamedCardKeepsItsColumnExpenseAndLines) {
    SampleYear year;
    const std::string before = year.grid(3);
    // Every field that names the card, and its expense, but not the card's
    // own column name and header.
    const int places = year.occurrences(">Visa<") - 2 + 1;
    EXPECT_EQ(renameCard(year.session(), "Visa", "Visa Rewards"), places);
    EXPECT_TRUE(selectOne(year.data(), paths::kColumn, "Visa Rewards"));
    EXPECT_TRUE(selectOne(year.data(), paths::kExpense, "Visa Rewards"));
    EXPECT_EQ(year.faults(), Texts{});
    EXPECT_EQ(replaced(year.grid(3), "Visa Rewards", "Visa"), before);
}

TEST(CardMaintenance, AddedAndDeletedCardsKeepTheColumnsConsecutive) {
    SampleYear year;
    addCard(year.session(), {"Store Card", "Store", "80", "5", "28"});
    EXPECT_EQ(year.balanceColumns().back(), "Store Card");
    EXPECT_EQ(cardList(year.data()).back().columnTitle, "Store");
    year.grid(11);
    const int column = columnPosition(year.data(), "Store Card");
    EXPECT_EQ(textToAmount(year.cell(0, column)), 80);
    EXPECT_EQ(year.session().view.grid.columns.at(static_cast<size_t>(column)).title, "Store");

    deleteCard(year.session(), "Mastercard");
    EXPECT_FALSE(selectOne(year.data(), paths::kColumn, "Mastercard"));
    EXPECT_FALSE(selectOne(year.data(), paths::kExpense, "Mastercard"));
    EXPECT_EQ(childText(requireOne(year.data(), paths::kCategory, "Credit Cards"), 1), "1");
    EXPECT_EQ(year.faults(), Texts{});
    EXPECT_TRUE(year.grid(3).find("Mastercard") != std::string::npos);  // lines keep the name
}

TEST(BankMaintenance, DeletingAskesFirstAndTakesTheColumnsAlong) {
    SampleYear year;
    year.prompter.answers = {Answer::No};
    EXPECT_FALSE(deleteAccount(year.session(), year.prompter, "First National", "Checking"));
    EXPECT_EQ(year.prompter.shown.back(), kKeepAccountNotice);
    year.prompter.answers = {Answer::Yes, Answer::Yes};
    EXPECT_TRUE(deleteAccount(year.session(), year.prompter, "First National", "Checking"));
    EXPECT_EQ(year.balanceColumns(),
              (Texts{"FN Savings", "CU Register", "CU Bank", "Visa", "Mastercard"}));
    EXPECT_TRUE(deleteBank(year.session(), year.prompter, "Credit Union"));
    EXPECT_EQ(year.faults(), Texts{});
    EXPECT_EQ(bankTree(year.data()).size(), 1u);
}

TEST(BankMaintenance, AStartingBalanceMovesEveryMonthByTheDifference) {
    SampleYear year;
    pugi::xml_node group =
        childAt(accountNode(bankNode(year.data(), "First National"), "Savings"), 2);
    setChildText(group, 5, "12900.10");  // May's start, as an update left it
    setAccountStartingBalance(year.session(), "First National", "Savings", BalanceGroupKind::Bank,
                              "$13,000");
    Texts expected(13, "13000.00");
    expected[0] = "13000.00";
    expected[4] = "13050.10";
    EXPECT_EQ(year.values(group, 1), expected);
    setCardField(year.session(), "Visa", CardField::ClosingValue, "600");
    EXPECT_EQ(year.values(cardNode(year.data(), "Visa"), 6), Texts(12, "600.00"));
    setCardField(year.session(), "Visa", CardField::ClosingValue, "");  // none: 0
    EXPECT_EQ(year.values(cardNode(year.data(), "Visa"), 6), Texts(12, "0.00"));
    setCardField(year.session(), "Visa", CardField::DueDay, "9");
    EXPECT_EQ(cardList(year.data()).front().dueDay, "9");
    setColumnWidth(year.session(), "Visa", "20");
    EXPECT_EQ(columnAtGridPosition(year.data(), 19)->width, "20");
    EXPECT_EQ(columnAtGridPosition(year.data(), 1)->key, "DAY");
    EXPECT_EQ(columnAtGridPosition(year.data(), 0), std::nullopt);
}

TEST(BankMaintenance, ARefusedValueLeavesTheFileAsItWas) {
    using S = Session;
    using P = Prompter;
    const auto bank = [](NewAccount fields) {
        return [fields](S& s, P& p) { applyNewBank(s, p, fields); };
    };
    NewAccount fine = holidayFund(true, true);
    fine.bank = "Harbor";
    const auto with = [&](std::function<void(NewAccount&)> change) {
        NewAccount f = fine;
        change(f);
        return bank(f);
    };
    // clang-format off
    const std::pair<std::function<void(S&, P&)>, std::string> refusals[] = {
        {with([](NewAccount& f) { f.bank = " "; }), "the bank needs a name"},
        {with([](NewAccount& f) { f.bank = "Credit Union"; }), "already a bank named Credit Union"},
        {with([](NewAccount& f) { f.bank = "Visa"; }), "already a credit card named Visa"},
        {with([](NewAccount& f) { f.bank = "creditcards"; }), "the word lines use"},
        {with([](NewAccount& f) { f.bankTitle = "Info"; }), "already a register column titled Info"},
        {with([](NewAccount& f) { f.outstandingTitle = "HF Bank"; }), "two of the new columns"},
        {with([](NewAccount& f) { f.registerTitle = "0"; }), "means \"no column\""},
        {with([](NewAccount& f) { f.startingBalance = "12abc"; }), "\"12abc\" is not an amount"},
        {[&](S& s, P& p) { applyNewAccount(s, p, holidayFund(true, false)); applyNewAccount(s, p, holidayFund(true, false)); },
         "already has an account named Holiday Fund"},
        {[](S& s, P& p) { renameBank(s, p, "Credit Union", "First National"); }, "already a bank"},
        {[](S& s, P&) { addCard(s, {"Store", "", "", "32", ""}); }, "CLOSING DAY \"32\" is not a day"},
        {[](S& s, P&) { addCard(s, {"Store", "FN Bank", "", "", ""}); }, "column titled FN Bank"},
        {[](S& s, P&) { renameCard(s, "Visa", "Credit Union"); }, "already a bank named"},
        {[](S& s, P&) { renameCard(s, "Amex", "Gold"); }, "credit card not found: Amex"},
        {[](S& s, P&) { setAccountColumnTitle(s, "First National", "Savings", BalanceGroupKind::Register, "Sv"); },
         "has no register column"},
        {[](S& s, P&) { setColumnWidth(s, "Visa", "0"); }, "not a whole number from 1"},
        {[](S& s, P&) { setColumnWidth(s, "Visa", "12.5"); }, "\"12.5\" is not a whole number"},
    };
    // clang-format on
    for (const auto& [operation, message] : refusals) {
        SCOPED_TRACE(message);
        SampleYear year;
        const std::string bytes = year.fileBytes();
        year.prompter.answers = {Answer::Yes, Answer::Yes};
        EXPECT_NE(test::thrown<PlanRefusal>([&] {
                      operation(year.session(), year.prompter);
                  }).find(message),
                  std::string::npos);
        year.reopen();
        EXPECT_EQ(year.fileBytes() == bytes, message.find("Holiday") == std::string::npos);
    }
}

}  // namespace
}  // namespace tallix
