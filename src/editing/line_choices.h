#pragma once
// The answers the register asks for when a line is filled from the plan or
// its shape is changed: the expense, income and customer pickers, the
// transfer dialog, the row-operations popup and the move dialog. The desktop
// program answers with dialogs; tests answer from a script.
#include <optional>
#include <string>
#include <vector>

namespace tallix {

// A picker closed without a choice answers one of these.
inline constexpr const char* kNoSelection = "noselection";
inline constexpr const char* kPickCanceled = "CANCEL";

// True for a picker answer that names nothing ("", "noselection", "CANCEL").
bool isNoPick(const std::string& answer);

// The expense picker's two modes: the expenses of the plan by category, or
// the income sources (for a deposit line).
inline constexpr int kPickExpenseMode = 3;
inline constexpr int kPickIncomeMode = 4;

struct ExpensePick {
    // The chosen expense or income source, or "noselection" / "CANCEL".
    std::string name = kNoSelection;
    // The chosen expense's category (empty for an income source).
    std::string category;
};

// What the transfer dialog hands back after PERFORM TRANFER.
struct TransferAnswer {
    std::string fromInstitution;
    std::string fromAccount;
    std::string toInstitution;
    std::string toAccount;
    std::string amount;
};

// The row-operations popup's answer: the operation ("insert", "make",
// "delete", "move", "cancel") and, for insert and make, the kind of line
// ("debit", "check", "deposit", "medication", "credit card", "receivable").
struct RowOperationChoice {
    std::string operation = "cancel";
    std::string kind;
};

// The description picker's answers besides a description.
inline constexpr const char* kDescriptionClear = "clear";
inline constexpr const char* kDescriptionCancel = "cancel";

class LineChoices {
  public:
    virtual ~LineChoices() = default;
    // The expense picker in `mode` (kPickExpenseMode or kPickIncomeMode).
    virtual ExpensePick pickExpense(int mode) = 0;
    // The customer picker: a customer's name, or "noselection".
    virtual std::string pickCustomer() = 0;
    // The transfer dialog over the banks of the year file; nothing when it
    // was closed with CANCEL.
    virtual std::optional<TransferAnswer> pickTransfer() = 0;
    // The row-operations popup opened on grid row `row`.
    virtual RowOperationChoice pickRowOperation(int row) = 0;
    // The move dialog: the target line number counted from 1, or 0 when it
    // was cancelled or what was typed is not a number.
    virtual int pickMoveTarget() = 0;
    // The description picker: a stored description, "clear" or "cancel".
    virtual std::string pickDescription(const std::vector<std::string>& descriptions,
                                        const std::string& current) = 0;
};

}  // namespace tallix
