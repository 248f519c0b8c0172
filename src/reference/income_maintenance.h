#pragma once
// The income dialog's operations: a new source copied from another, the
// source's values saved (with the dates of its twelve months worked out for
// the automatic types), APPLY and APPLY TO ALL MONTHS on one month, and
// delete. Each checks what it is given first (an empty or taken name, a
// schedule that cannot be worked out, an amount or date that is not one, a
// source that is not in the file throw PlanRefusal and change nothing),
// changes the document as one step Edit > Undo can take back, and saves the
// year file once.
#include <optional>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "reference/income_dates.h"
#include "reference/month_entries.h"

namespace tallix {

class Prompter;
class Session;

struct IncomeFields {
    std::string institution, account;
    IncomeSchedule schedule;
    std::string repeatingAmount;
};

// SAVE NEW INCOME: a copy of the source `before` named `name`, with the
// institution, account and repeating amount of `fields` (its type and dates
// come along from the copy) and every month's amount "0", inserted before
// `before`.
void saveNewIncome(Session& session, const std::string& before, const std::string& name,
                   const IncomeFields& fields);

// SAVE EDIT VALUES: writes the name and every field into the source
// `source`; for "auto date" and "auto day" the date of each of the twelve
// months is worked out for the session's year (incomeDate). A new name is
// carried into the register lines that deposit the source (their expense)
// and into the RMD drawn through it.
void saveIncomeValues(Session& session, const std::string& source, const std::string& newName,
                      const IncomeFields& fields);

// APPLY and APPLY TO ALL MONTHS on month `month` (1-12): the source's month
// entry gets AMOUNT, DATE and STATUS (`values.dueDate` is the DATE; date paid
// and check number are not kept for income). See writeFromMonthOn.
void applyIncomeMonth(Session& session, const std::string& source, int month,
                      const MonthValues& values);
void applyIncomeToAllMonths(Session& session, const std::string& source, int month,
                            const MonthValues& values);

// Asks kDeleteIncomeQuestion (Yes/No/Cancel); only Yes deletes. Whether it
// did.
bool deleteIncome(Session& session, Prompter& prompter, const std::string& source);

inline constexpr const char* kDeleteIncomeQuestion =
    "you are asking to delete an income source. If you have used that incomde source in your "
    "tallix to deposite funds in an account thata will not longer function";

// The NAME/TOTAL list: each source with the sum of its twelve month
// amounts, exact to the cent, and the sum over every source.
struct IncomeTotal {
    std::string name;
    std::string total;
};
struct IncomeTotals {
    std::vector<IncomeTotal> sources;
    std::string total;
};
// A month amount that is not a number throws the conversion error.
IncomeTotals incomeTotals(pugi::xml_node data);

}  // namespace tallix
