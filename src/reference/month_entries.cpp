#include "reference/month_entries.h"

#include "data/node_text.h"
#include "data/text_utils.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

constexpr int kMonths = 12;

struct DueDate {
    int month, day, year;
    std::string text(int monthNumber) const {
        return std::to_string(monthNumber) + "/" + std::to_string(day) + "/" + std::to_string(year);
    }
};

std::optional<int> partWithin(const std::string& part, int low, int high) {
    if (part.empty() || part.size() > 4 ||
        part.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    const int value = std::stoi(part);
    return value >= low && value <= high ? std::optional<int>(value) : std::nullopt;
}

// The due date taken apart at "/"; nothing for an empty date or "0".
std::optional<DueDate> parsedDueDate(const std::string& text, const char* field) {
    if (text.empty() || text == "0")
        return std::nullopt;
    std::vector<std::string> parts = split(text, "/");
    std::optional<int> month, day, year;
    if (parts.size() == 3) {
        month = partWithin(parts[0], 1, kMonths);
        day = partWithin(parts[1], 1, 31);
        year = partWithin(parts[2], 0, 9999);
    }
    if (!month || !day || !year)
        throw PlanRefusal(std::string(field) + " \"" + text + "\" is not a date M/D/YYYY");
    return DueDate{*month, *day, *year};
}

void setSlot(pugi::xml_node entry, size_t slot, const std::string& text) {
    if (slot != EntrySlots::kNoSlot)
        setChildText(entry, slot, text);
}

}  // namespace

MonthValues checkedMonthValues(const MonthValues& typed, const char* dateField) {
    MonthValues checked{checkedAmount("AMOUNT", typed.amount), trimmedText(typed.datePaid),
                        trimmedText(typed.dueDate), trimmedText(typed.status),
                        trimmedText(typed.check)};
    parsedDueDate(checked.dueDate, dateField);
    return checked;
}

void writeEntry(pugi::xml_node entry, const EntrySlots& slots, const MonthValues& values) {
    setSlot(entry, slots.amount, values.amount);
    setSlot(entry, slots.datePaid, values.datePaid);
    setSlot(entry, slots.dueDate, values.dueDate);
    setSlot(entry, slots.status, values.status);
    setSlot(entry, slots.check, values.check);
}

void writeFromMonthOn(const std::vector<pugi::xml_node>& entries, const EntrySlots& slots,
                      const MonthValues& values) {
    MonthValues first = values;
    const std::optional<DueDate> due = parsedDueDate(values.dueDate, "DUE DATE");
    if (due)
        first.dueDate = due->text(due->month);
    const bool noEntry = values.status == kNoEntryStatus;
    for (size_t later = 0; later < entries.size(); ++later) {
        pugi::xml_node entry = entries[later];
        if (!entry)
            continue;
        if (later == 0) {
            writeEntry(entry, slots, first);
            continue;
        }
        setSlot(entry, slots.amount, values.amount);
        setSlot(entry, slots.status, values.status);
        if (noEntry)
            continue;
        setSlot(entry, slots.datePaid, values.datePaid);
        if (due)
            setSlot(entry, slots.dueDate, due->text(due->month + static_cast<int>(later)));
    }
}

int checkedMonth(int month) {
    if (month < 1 || month > kMonths)
        throw PlanRefusal("month " + std::to_string(month) + " is not a month from 1 to 12");
    return month;
}

}  // namespace tallix
