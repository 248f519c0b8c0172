#pragma once
// The expense dialog's APPLY and APPLY TO ALL MONTHS: the values of one month
// of an expense's plan, written into that month or carried on to December.
// Each checks the values first (a refusal throws PlanRefusal and changes
// nothing), changes the document as one step Edit > Undo can take back and
// saves the year file once. The type of a month (child 5) is never written.
#include <string>

#include "reference/month_entries.h"

namespace tallix {

class Session;

// APPLY: writes `values` into month `month` (1-12) of the expense `expense`
// of `category`.
void applyToMonth(Session& session, const std::string& category, const std::string& expense,
                  int month, const MonthValues& values);

// APPLY TO ALL MONTHS, from `month` to December; earlier months stay as they
// are (see writeFromMonthOn for what each month gets).
void applyToAllMonths(Session& session, const std::string& category, const std::string& expense,
                      int month, const MonthValues& values);

}  // namespace tallix
