#pragma once
// The balance engine: recomputes every balance cell of the displayed month
// from its lines, bottom-up from the starting row, resets and re-adds the
// month's income and accumulated totals in the plan, and carries the month's
// closing balances into next month's slots.

namespace tallix {

class Session;

namespace engine_texts {
inline constexpr const char* kCategoryNotFound = "category for expense on line ";
inline constexpr const char* kCategoryNotFoundEnd = " not found...skipping";
inline constexpr const char* kExpenseNotFound = "Name of expense on line ";
inline constexpr const char* kExpenseNotFoundEnd = " not found ";
inline constexpr const char* kInstitutionNotFound = "Institution not found on line ";
inline constexpr const char* kSameAccounts =
    "Your to and from account for a move or transfer are the same for line ";
inline constexpr const char* kSameAccountsEnd = " Correct and try again";
inline constexpr const char* kAccountsTheSame = "accounts the same";
inline constexpr const char* kBogusBankClosing = "bogus bank closing";
inline constexpr const char* kDepositNotFound = "deposit name not found on line";
inline constexpr const char* kDepositNotFoundEnd = " ...skipping";
inline constexpr const char* kRmdIncome = "The RMD income";
inline constexpr const char* kRmdIncomeEnd = " is not found";
}  // namespace engine_texts

// Runs the engine on the session's grid table for the session's month.
// Inconsistencies are shown line by line and the run goes on; a number that
// cannot be read ends the run with an exception. Returns true when the data
// document was changed (the caller saves it).
bool runBalanceEngine(Session& session);

}  // namespace tallix
