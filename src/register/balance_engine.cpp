#include "register/balance_engine.h"

#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <string>

#include "app/session.h"
#include "data/child_names.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/shown_failure.h"
#include "data/values.h"
#include "register/institutions.h"
#include "register/month_lines.h"
#include "register/plan_index.h"
#include "register/receivable_items.h"

namespace tallix {
namespace {

using schema::kCustomerMonths;
using schema::kEntryAmount;
using schema::kExpenseMonths;
using schema::kIncomeMonths;

using namespace engine_texts;

class BalanceEngine {
  public:
    explicit BalanceEngine(Session& session)
        : session_(session),
          data_(session.data.node()),
          t_(session.view.table),
          f_(session.view.fields),
          month_(session.month),
          plan_(data_) {}

    bool run() {
        std::vector<pugi::xml_node> lines = monthLines(data_, monthName(month_));
        const int count = static_cast<int>(lines.size());
        session_.view.markedRow = -1;
        institutions_ = readInstitutions(data_, month_);
        resetMonthTotals();
        if (count > 0 && t_.rowCount() == count + 1) {
            fillStartingRow(count);
            for (int n = count - 1; n >= 0; --n) {
                try {
                    processLine(n, lines[n]);
                } catch (...) {
                    // The day and expense find the line again when posting
                    // has moved it by the time the user reads this.
                    rethrowAt("line " + std::to_string(n + 1) + " (day " +
                              childTextOrEmpty(lines[n], schema::kDay) + ", " +
                              childTextOrEmpty(lines[n], schema::kExpense) + ")");
                }
            }
            close();
        }
        return changed_ || anyTextChanged();
    }

  private:
    // ---- the document ------------------------------------------------------
    // The month's totals are reset to "0" and added up again on every run, so
    // a write alone says nothing: the document changed only where a text
    // ends the run different from what it was before it.
    void write(pugi::xml_node node, const std::string& text) {
        std::string before = nodeText(node);
        if (before == text)
            return;
        schema::refuseMisplaced(node);
        originals_.emplace(node.internal_object(), std::move(before));
        setNodeText(node, text);
    }
    bool anyTextChanged() const {
        for (const auto& [node, before] : originals_)
            if (nodeText(pugi::xml_node(node)) != before)
                return true;
        return false;
    }
    void addToAmount(pugi::xml_node entry, double amount) {
        pugi::xml_node field = childAt(entry, kEntryAmount);
        std::string text = nodeText(field);
        write(field, amountToText((text.empty() ? 0 : textToAmount(text)) + amount));
    }

    // ---- the grid table ----------------------------------------------------
    const std::string& cell(int row, int column) const { return t_.cell(row, column); }
    // A balance cell never written (a single blank) counts as 0.
    double value(int row, int column) const {
        const std::string& text = t_.cell(row, column);
        return isBlankCell(text) ? 0 : textToAmount(text);
    }
    void copyDown(int n, int column) { t_.set(n, column, cell(n + 1, column)); }
    void setFromBelow(int n, int column, double delta) {
        t_.set(n, column, amountToText(value(n + 1, column) + delta));
    }
    void message(const std::string& text) { session_.prompter().notify(text); }

    // ---- preparation -------------------------------------------------------
    void resetMonthTotals() {
        for (pugi::xml_node source : selectAll(data_, paths::kAllIncome))
            write(childAt(monthEntry(source, kIncomeMonths, month_), kEntryAmount), "0");
        for (pugi::xml_node expense : selectAll(data_, paths::kAllExpenses))
            if (childText(expense, 1) == "accumulate")
                write(childAt(monthEntry(expense, kExpenseMonths, month_), kEntryAmount), "0");
    }

    void fillStartingRow(int start) {
        for (const Bank& bank : institutions_.banks)
            for (const BankAccount& a : bank.accounts) {
                if (a.reg.bound())
                    t_.set(start, a.reg.column, amountToText(a.reg.startValue));
                if (a.bank.bound())
                    t_.set(start, a.bank.column, amountToText(a.bank.startValue));
            }
        for (const CreditCard& card : institutions_.cards)
            t_.set(start, card.column, amountToText(card.startValue));
    }

    // ---- the main pass -----------------------------------------------------
    void processLine(int n, pugi::xml_node line) {
        const std::string expense = cell(n, f_.expense);
        const std::string type = cell(n, f_.typeofentry);
        const std::string institution = cell(n, f_.institution);

        // A line without an institution (a blank line, or one still being
        // filled in) changes no balance and is no error, whatever it names.
        if (isBlankCell(institution)) {
            carryRowUnchanged(n);
            return;
        }
        if (expense == "Income" || type == "deposit" || type == "receivable") {
            const std::optional<bool> transferEntry = incomeOrDeposit(n, expense);
            if (!transferEntry) {
                carryRowUnchanged(n);
                return;
            }
            finishLine(n, *transferEntry ? "transfer" : type);
            return;
        }

        pugi::xml_node planned;
        double extra = 0;
        if (!isBlankCell(expense)) {
            if (!plan_.category(cell(n, f_.category))) {
                message(kCategoryNotFound + std::to_string(n + 1) + kCategoryNotFoundEnd);
                carryRowUnchanged(n);
                return;
            }
            planned = plan_.expense(expense);
            if (!planned) {
                message(kExpenseNotFound + std::to_string(n + 1) + kExpenseNotFoundEnd);
                carryRowUnchanged(n);
                return;
            }
            if (expense == "Resturants" && !isBlankCell(cell(n, f_.info)))
                extra = textToAmount(cell(n, f_.info));
        }

        if (!institutions_.isBank(institution) && institution != schema::kCreditCardsId) {
            message(kInstitutionNotFound + std::to_string(n));
            carryRowUnchanged(n);
            return;
        }

        const std::string& amount = cell(n, f_.amount);
        working_ = isBlankCell(amount) ? 0 : textToAmount(amount);
        if (working_ < 0) {
            working_ = -working_;
            std::string positive = amountToText(working_);
            t_.set(n, f_.amount, positive);
            write(childAt(line, schema::kDebit), positive);
        }
        if (planned) {
            pugi::xml_node entry = monthEntry(planned, kExpenseMonths, month_);
            bool onCard = childText(planned, 4) == schema::kCreditCardsId;
            if (childText(planned, 1) == "accumulate" && !onCard) {
                working_ += extra;
                addToAmount(entry, working_);
            }
            if (onCard)
                write(childAt(entry, kEntryAmount), amountToText(working_));
        }
        finishLine(n, type);
    }

    void finishLine(int n, const std::string& type) {
        if (schema::isTransferKind(type))
            transfer(n, working_);
        else
            cardsAndBanks(n, working_);
    }

    // Income adds to its source's month total and reaches the accounts as a
    // negative amount, so the one subtraction rule raises the balances; money
    // received from a customer does the same and is recorded with the customer.
    // Nothing when the line is skipped; otherwise whether the income entry is
    // a transfer or move, whose negative amount then leaves the line's own
    // account and reaches the one in Info and Accumulate.
    std::optional<bool> incomeOrDeposit(int n, const std::string& name) {
        const std::string& amount = cell(n, f_.amount);
        const bool nothing = amount == "0" || isBlankCell(amount);
        working_ = isBlankCell(amount) ? 0 : textToAmount(amount);
        pugi::xml_node source;
        if (cell(n, f_.category) == "Receivables" || name == "Receivables") {
            pugi::xml_node customer = plan_.customer(name);
            if (!customer) {
                message(kDepositNotFound + std::to_string(n + 1) + kDepositNotFoundEnd);
                return std::nullopt;
            }
            if (!nothing)
                recordReceivable(customer, n + 1, amount);
        } else {
            source = plan_.income(name);
            if (!source) {
                message(kDepositNotFound + std::to_string(n + 1) + kDepositNotFoundEnd);
                return std::nullopt;
            }
            if (!nothing)
                addToAmount(monthEntry(source, kIncomeMonths, month_), working_);
        }
        if (working_ > 0)
            working_ = -working_;
        return source && schema::isTransferKind(childText(source, 2));
    }

    // The customer's item of this month for register line `lineNumber` gets
    // the amount; a line without an item gets one, and an item another
    // customer held for the line comes over (the line names this customer
    // now).
    void recordReceivable(pugi::xml_node customer, int lineNumber, const std::string& amount) {
        bool settled = false;
        pugi::xml_node item =
            settleReceivableItem(data_, customer, month_, std::to_string(lineNumber), &settled);
        changed_ = changed_ || settled;
        write(childAt(item, 1), amount);
    }

    // Every balance cell of the row, outstanding ones included, carries the
    // row below.
    void carryRowUnchanged(int n) {
        for (const Bank& bank : institutions_.banks)
            for (const BankAccount& a : bank.accounts) {
                carryAccount(n, a);
                if (a.outstanding.bound())
                    copyDown(n, a.outstanding.column);
            }
        for (const CreditCard& card : institutions_.cards)
            copyDown(n, card.column);
    }
    void carryAccount(int n, const BankAccount& a) {
        if (a.reg.bound())
            copyDown(n, a.reg.column);
        if (a.bank.bound())
            copyDown(n, a.bank.column);
    }
    // |register - bank| on the account's own line.
    void writeOutstanding(int n, const BankAccount& a) {
        if (!a.outstanding.bound() || !a.reg.bound() || !a.bank.bound())
            return;
        double difference = value(n, a.reg.column) - value(n, a.bank.column);
        t_.set(n, a.outstanding.column, amountToText(std::fabs(difference)));
    }

    void cardsAndBanks(int n, double amount) {
        const std::string institution = cell(n, f_.institution);
        const std::string account = cell(n, f_.account);
        const std::string type = cell(n, f_.typeofentry);
        const std::string status = cell(n, f_.status);
        for (const Bank& bank : institutions_.banks) {
            for (const BankAccount& a : bank.accounts) {
                if (bank.name != institution || a.name != account) {
                    carryAccount(n, a);
                    continue;
                }
                if (a.reg.bound()) {
                    if (type == "posted check" || status == "skip")
                        copyDown(n, a.reg.column);
                    else
                        setFromBelow(n, a.reg.column, -amount);
                }
                if (a.bank.bound()) {
                    if (type == "check" || status == "processing")
                        copyDown(n, a.bank.column);
                    else
                        setFromBelow(n, a.bank.column, -amount);
                }
                writeOutstanding(n, a);
            }
        }
        const std::string category = cell(n, f_.category);
        const bool cardLine = institution == "creditcard" || category == "Credit Cards" ||
                              institution == schema::kCreditCardsId;
        const bool payment = category == "Credit Cards" && type == "posted check";
        const std::string& card = payment ? cell(n, f_.expense) : account;
        for (const CreditCard& c : institutions_.cards) {
            if (cardLine && c.name == card)
                setFromBelow(n, c.column, payment ? -amount : amount);
            else
                copyDown(n, c.column);
        }
    }

    // The account in Institution and Account gains the working amount and the
    // one in Info and Accumulate loses it; every other column carries the row
    // below. A transfer made from a deposit line arrives with the deposit's
    // negative amount, so its money leaves the first account for the second.
    void transfer(int n, double amount) {
        if (cell(n, f_.institution) == cell(n, f_.info) &&
            cell(n, f_.account) == cell(n, f_.accumulate)) {
            message(kSameAccounts + std::to_string(n + 1) + kSameAccountsEnd);
            t_.set(n, f_.account, kAccountsTheSame);
            t_.set(n, f_.accumulate, kAccountsTheSame);
        }
        carryRowUnchanged(n);
        moveMoney(n, cell(n, f_.institution), cell(n, f_.account), amount);
        moveMoney(n, cell(n, f_.info), cell(n, f_.accumulate), -amount);
    }
    void moveMoney(int n, const std::string& bankName, const std::string& account, double delta) {
        for (const Bank& bank : institutions_.banks) {
            if (bank.name != bankName)
                continue;
            for (const BankAccount& a : bank.accounts) {
                if (a.name != account)
                    continue;
                if (a.reg.bound())
                    setFromBelow(n, a.reg.column, delta);
                if (a.bank.bound())
                    setFromBelow(n, a.bank.column, delta);
                writeOutstanding(n, a);
            }
        }
    }

    // ---- closing -----------------------------------------------------------
    // The starting row keeps the values the month started from, so the grid
    // shows where the month starts after an update too.
    void close() {
        const size_t next = static_cast<size_t>(month_ + 1);
        auto closing = [&](int column) { return amountToText(value(0, column)); };
        for (const Bank& bank : institutions_.banks)
            for (const BankAccount& a : bank.accounts) {
                if (a.reg.bound())
                    write(childAt(a.reg.node, next), closing(a.reg.column));
                if (a.bank.bound()) {
                    if (cell(0, a.bank.column) == " ")
                        message(kBogusBankClosing);
                    write(childAt(a.bank.node, next), closing(a.bank.column));
                }
            }
        for (const CreditCard& card : institutions_.cards) {
            write(childAt(card.node, static_cast<size_t>(month_ + 5)), closing(card.column));
        }
        applyRmds();
    }

    // Each individual draws through the income source of the same name: the
    // year's total of that source becomes the current draw of the
    // individual's first account.
    void applyRmds() {
        for (pugi::xml_node rmd : selectAll(data_, paths::kAllRmds)) {
            const std::string name = attributeText("id", rmd);
            pugi::xml_node source = plan_.income(name);
            if (!source) {
                message(kRmdIncome + name + kRmdIncomeEnd);
                continue;
            }
            double total = 0;
            for (pugi::xml_node entry : elementChildren(childAt(source, kIncomeMonths))) {
                std::string text = childText(entry, kEntryAmount);
                total += text.empty() ? 0 : textToAmount(text);
            }
            pugi::xml_node firstAccount = childAt(childAt(childAt(rmd, 0), 1), 0);
            write(childAt(firstAccount, 3), amountToText(total));
        }
    }

    Session& session_;
    pugi::xml_node data_;
    GridTable& t_;
    const FieldColumns& f_;
    const int month_;
    PlanIndex plan_;
    Institutions institutions_;
    double working_ = 0;
    bool changed_ = false;  // set by what cannot be undone by a later write
    std::map<pugi::xml_node_struct*, std::string> originals_;
};

}  // namespace

bool runBalanceEngine(Session& session) {
    return BalanceEngine(session).run();
}

}  // namespace tallix
