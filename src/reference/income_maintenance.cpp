#include "reference/income_maintenance.h"

#include "app/prompter.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_input.h"
#include "register/month_lines.h"

namespace tallix {
namespace {

enum IncomeChild : size_t {
    kInstitution = 0,
    kAccount,
    kType,
    kDayOrDate,
    kDayNumber,
    kAmount,
    kMonths
};
constexpr size_t kEntryDate = 2;
constexpr int kLastMonth = 12;

pugi::xml_node incomeNode(pugi::xml_node data, const std::string& name) {
    pugi::xml_node source = selectOne(data, paths::kIncome, name);
    if (!source)
        throw PlanRefusal("income source not found: " + name);
    return source;
}

void refuseTakenIncome(pugi::xml_node data, const std::string& name) {
    if (selectOne(data, paths::kIncome, name))
        throw PlanRefusal("there is already an income source named " + name);
}

IncomeFields checkedFields(const IncomeFields& typed) {
    IncomeFields fields{trimmedText(typed.institution),
                        trimmedText(typed.account),
                        {trimmedText(typed.schedule.type), trimmedText(typed.schedule.dayOrDate),
                         trimmedText(typed.schedule.dayNumber)},
                        checkedAmount("REPEATING INCOME", typed.repeatingAmount)};
    checkSchedule(fields.schedule);
    return fields;
}

// The lines that deposit the source name it as their expense.
bool depositsSource(pugi::xml_node line, const std::string& source) {
    return childTextOrEmpty(line, schema::kExpense) == source &&
           (childTextOrEmpty(line, schema::kCategoty) == "Income" ||
            childTextOrEmpty(line, schema::kTypeOfEntry) == "deposit");
}

void renameEverywhere(pugi::xml_node data, const std::string& oldName, const std::string& name) {
    for (int month = 1; month <= kLastMonth; ++month)
        for (pugi::xml_node line : monthLines(data, monthName(month)))
            if (depositsSource(line, oldName))
                setChildText(line, schema::kExpense, name);
    if (pugi::xml_node rmd = selectOne(data, paths::kRmd, oldName))
        setAttributeText(name, "id", rmd);
}

std::vector<pugi::xml_node> entriesFrom(pugi::xml_node source, int month, int last) {
    pugi::xml_node months = childAt(source, kMonths);
    std::vector<pugi::xml_node> entries;
    for (int m = checkedMonth(month); m <= last; ++m)
        entries.push_back(childAt(months, static_cast<size_t>(m - 1)));
    return entries;
}

void applyMonths(Session& session, const std::string& source, int month, int last,
                 const MonthValues& values) {
    const MonthValues checked = checkedMonthValues(values, "DATE");
    const std::vector<pugi::xml_node> entries =
        entriesFrom(incomeNode(session.data.node(), source), month, last);
    const std::string label = (last == month ? "Apply " : "Apply to all months from ") +
                              monthName(month) + " of " + source;
    recordedChange(session, label, [&] {
        if (last == month)
            writeEntry(entries.front(), kIncomeEntrySlots, checked);
        else
            writeFromMonthOn(entries, kIncomeEntrySlots, checked);
    });
}

// A month no amount was written into counts as 0.
double amountOrZero(const std::string& text) {
    return text.empty() ? 0 : textToAmount(text);
}

}  // namespace

void saveNewIncome(Session& session, const std::string& before, const std::string& name,
                   const IncomeFields& fields) {
    pugi::xml_node data = session.data.node();
    const std::string newName = checkedName(name, "income source");
    pugi::xml_node model = incomeNode(data, before);
    refuseTakenIncome(data, newName);
    const std::string institution = trimmedText(fields.institution);
    const std::string account = trimmedText(fields.account);
    const std::string amount = checkedAmount("REPEATING INCOME", fields.repeatingAmount);
    recordedChange(session, "New income source " + newName, [&] {
        pugi::xml_node copy = model.parent().insert_copy_before(model, model);
        setAttributeText(newName, "id", copy);
        setChildText(copy, kInstitution, institution);
        setChildText(copy, kAccount, account);
        setChildText(copy, kAmount, amount);
        for (pugi::xml_node entry : elementChildren(childAt(copy, kMonths)))
            setChildText(entry, schema::kEntryAmount, "0");
    });
}

void saveIncomeValues(Session& session, const std::string& source, const std::string& newName,
                      const IncomeFields& typed) {
    pugi::xml_node data = session.data.node();
    pugi::xml_node node = incomeNode(data, source);
    const std::string name = checkedName(newName, "income source");
    if (name != source)
        refuseTakenIncome(data, name);
    const IncomeFields fields = checkedFields(typed);
    const int year = session.year;
    const std::string label = name == source ? "Change income source " + source
                                             : "Rename income source " + source + " to " + name;
    recordedChange(session, label, [&] {
        if (name != source) {
            setAttributeText(name, "id", node);
            renameEverywhere(data, source, name);
        }
        setChildText(node, kInstitution, fields.institution);
        setChildText(node, kAccount, fields.account);
        setChildText(node, kType, fields.schedule.type);
        setChildText(node, kDayOrDate, fields.schedule.dayOrDate);
        setChildText(node, kDayNumber, fields.schedule.dayNumber);
        setChildText(node, kAmount, fields.repeatingAmount);
        for (int month = 1; month <= kLastMonth; ++month)
            if (std::optional<std::string> date = incomeDate(fields.schedule, month, year))
                setChildText(childAt(childAt(node, kMonths), static_cast<size_t>(month - 1)),
                             kEntryDate, *date);
    });
}

void applyIncomeMonth(Session& session, const std::string& source, int month,
                      const MonthValues& values) {
    applyMonths(session, source, month, month, values);
}

void applyIncomeToAllMonths(Session& session, const std::string& source, int month,
                            const MonthValues& values) {
    applyMonths(session, source, month, kLastMonth, values);
}

bool deleteIncome(Session& session, Prompter& prompter, const std::string& source) {
    pugi::xml_node node = incomeNode(session.data.node(), source);
    if (prompter.askYesNoCancel(kDeleteIncomeQuestion) != Answer::Yes)
        return false;
    recordedChange(session, "Delete income source " + source,
                   [&] { node.parent().remove_child(node); });
    return true;
}

IncomeTotals incomeTotals(pugi::xml_node data) {
    IncomeTotals totals;
    double all = 0;
    for (pugi::xml_node source : selectAll(data, paths::kAllIncome)) {
        double sum = 0;
        for (pugi::xml_node entry : elementChildren(childAtOrNull(source, kMonths)))
            sum += amountOrZero(childTextOrEmpty(entry, schema::kEntryAmount));
        totals.sources.push_back({attributeText("id", source), amountToText(sum)});
        all += textToAmount(totals.sources.back().total);
    }
    totals.total = amountToText(all);
    return totals;
}

}  // namespace tallix
