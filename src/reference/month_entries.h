#pragma once
// APPLY and APPLY TO ALL MONTHS over the month entries of the plan: an
// expense's month, an income source's month and a customer's receivable
// item keep the same kind of values at different positions. These write
// them; the callers find the entries, check the names and record the change.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

// The STATUS choices of a month of the plan.
inline constexpr std::array<const char*, 5> kPlanEntryStatuses = {"notpaid", "no entry", "cleared",
                                                                  "processing", "pending"};
inline constexpr const char* kNoEntryStatus = "no entry";

// What APPLY writes into a month: AMOUNT (checked by checkedAmount), DATE
// PAID, DUE DATE (an income source's DATE), STATUS and CHECK #.
struct MonthValues {
    std::string amount, datePaid, dueDate, status, check;
};

// Where an entry keeps each value; an entry without date paid or check
// number has kNoSlot there.
struct EntrySlots {
    static constexpr size_t kNoSlot = static_cast<size_t>(-1);
    size_t amount, datePaid, dueDate, status, check;
};
inline constexpr EntrySlots kExpenseEntrySlots{1, 2, 3, 4, 6};
inline constexpr EntrySlots kReceivableItemSlots{1, 2, 3, 4, 6};
inline constexpr EntrySlots kIncomeEntrySlots{1, EntrySlots::kNoSlot, 2, 3, EntrySlots::kNoSlot};

// The values as they are written: the amount checked, the rest without
// leading and trailing blanks. Refuses (PlanRefusal) an amount that is not
// one and a due date that is neither empty, "0" nor M/D/YYYY (a month 1-12,
// a day 1-31); `dateField` names the date in the message.
MonthValues checkedMonthValues(const MonthValues& typed, const char* dateField = "DUE DATE");

// APPLY: writes every value into `entry`.
void writeEntry(pugi::xml_node entry, const EntrySlots& slots, const MonthValues& values);

// APPLY TO ALL MONTHS over `entries`, the entries of the applied month and
// of each later month up to December in order (a later month may be
// missing: a null entry is passed over). The first gets what APPLY writes,
// its due date written back as M/D/YYYY. Every later one gets the amount and
// the status and, unless the status is "no entry", the date paid and a due
// date numbered on from the given one: month + 1 for the next month, + 2 for
// the one after and so on, the same day and year, no wrap past 12. A later
// month with "no entry" keeps its date paid and due date. The check number
// stays in the month it was given for, and a due date that is empty or "0"
// numbers nothing.
void writeFromMonthOn(const std::vector<pugi::xml_node>& entries, const EntrySlots& slots,
                      const MonthValues& values);

// The month number checked: 1-12, else PlanRefusal.
int checkedMonth(int month);

}  // namespace tallix
