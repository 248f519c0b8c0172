#pragma once
// The expense dialog's APPLY and APPLY TO ALL MONTHS: the values of one month
// of an expense's plan, written into that month or carried on to December.
// Each checks the values first (a refusal throws PlanRefusal and changes
// nothing), changes the document as one step Edit > Undo can take back and
// saves the year file once. The type of a month (child 5) is never written.
#include <array>
#include <string>

namespace tallix {

class Session;

// The STATUS choices of a month of an expense.
inline constexpr std::array<const char*, 5> kPlanEntryStatuses = {"notpaid", "no entry", "cleared",
                                                                  "processing", "pending"};
inline constexpr const char* kNoEntryStatus = "no entry";

// What APPLY writes into a month: AMOUNT (checked by checkedAmount), DATE
// PAID, DUE DATE, STATUS and CHECK #, children 1, 2, 3, 4 and 6.
struct MonthValues {
    std::string amount, datePaid, dueDate, status, check;
};

// APPLY: writes `values` into month `month` (1-12) of the expense `expense`
// of `category`.
void applyToMonth(Session& session, const std::string& category, const std::string& expense,
                  int month, const MonthValues& values);

// APPLY TO ALL MONTHS, from `month` to December; earlier months stay as they
// are. The month itself gets what APPLY writes, its due date written back as
// M/D/YYYY. Every later month gets the amount and the status, and, unless
// the status is "no entry", the date paid and a due date numbered on from
// the given one: month + 1 for the next month, + 2 for the one after and so
// on, the same day and year, no wrap past 12. A later month with "no entry"
// keeps its date paid and due date. The check number stays in the month it
// was given for, and a due date that is empty or "0" numbers nothing. A due
// date other than those must be M/D/YYYY (a month 1-12, a day 1-31).
void applyToAllMonths(Session& session, const std::string& category, const std::string& expense,
                      int month, const MonthValues& values);

}  // namespace tallix
