// tallix-cli income and customer: the income dialog's SAVE EDIT VALUES, SAVE
// NEW INCOME and delete, and the receivables dialog's SAVE THE NEW CUSTOMER
// and delete, without a display. The options stand for the dialogs' entry
// fields; a field not given keeps what the source or customer holds (for a
// new one: the one it is copied from). The command itself is the Yes to the
// delete question.
#include <algorithm>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/terminal.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/income_maintenance.h"
#include "reference/plan_input.h"
#include "reference/plan_lists.h"
#include "reference/receivable_maintenance.h"

namespace tallix::cli {
namespace {

// An income source's DAY/DATE and DAY NUMBER and its month entries' DATE, by
// position (incomeSources lists its other fields).
constexpr size_t kDayOrDate = 3, kDayNumber = 4, kEntryDate = 2;

bool allDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// The year a file named as the program names year files (tallixYYYY.xml)
// belongs to.
std::optional<int> yearOfFileName(const std::string& file) {
    const std::string name = std::filesystem::path(file).filename().string();
    const std::string prefix = "tallix", suffix = ".xml";
    if (name.size() != prefix.size() + 4 + suffix.size() || !name.starts_with(prefix) ||
        !name.ends_with(suffix))
        return std::nullopt;
    const std::string digits = name.substr(prefix.size(), 4);
    return allDigits(digits) ? std::optional<int>(std::stoi(digits)) : std::nullopt;
}

// Takes "--year YYYY" out of `arguments`.
std::optional<int> takeYear(Arguments& arguments) {
    const std::optional<std::string> year = takeOption(arguments, "--year", "a year YYYY");
    if (!year)
        return std::nullopt;
    if (year->size() != 4 || !allDigits(*year) || (*year)[0] == '0')
        throw UsageError("--year must be a year YYYY: " + *year);
    return std::stoi(*year);
}

pugi::xml_node incomeSource(const Session& session, const std::string& name) {
    return selectOne(session.data.node(), paths::kIncome, name);
}

// The entry of `list` (incomeSources, customers) named `name`; an empty one
// when there is none (the core refuses the name).
template <typename Entry>
Entry named(const std::vector<Entry>& list, const std::string& name) {
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const Entry& entry) { return entry.name == name; });
    return found == list.end() ? Entry{} : *found;
}

// The source's fields as the file holds them.
IncomeFields currentIncome(const Session& session, const std::string& name) {
    const IncomeSource source = named(incomeSources(session.data.node()), name);
    const pugi::xml_node node = incomeSource(session, name);
    return {source.institution,
            source.account,
            {source.type, childTextOrEmpty(node, kDayOrDate), childTextOrEmpty(node, kDayNumber)},
            source.amount};
}

std::string placeText(const std::string& institution, const std::string& account,
                      const std::string& amount) {
    return institution + ' ' + account + ", repeating amount " + amount;
}

int setIncomeCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> name = takeOption(arguments, "--name", "a name");
    const std::optional<std::string> bank = takeOption(arguments, "--bank", "a bank");
    const std::optional<std::string> account = takeOption(arguments, "--account", "an account");
    const std::optional<std::string> type =
        takeOption(arguments, "--type", "auto day, auto date or posted");
    const std::optional<std::string> day =
        takeOption(arguments, "--day", "a day 1-31 or a weekday");
    const std::optional<std::string> number = takeOption(arguments, "--number", "a number 1-5");
    const std::optional<std::string> amount = takeOption(arguments, "--amount", "an amount");
    const std::optional<int> year = takeYear(arguments);
    if (arguments.size() != 2)
        return kUsage;
    const std::string &file = arguments[0], &source = arguments[1];
    return onYearFile(file, err, [&](Session& session, TerminalPrompter&) {
        session.setYear(year.value_or(yearOfFileName(file).value_or(session.year)));
        IncomeFields fields = currentIncome(session, source);
        fields.institution = bank.value_or(fields.institution);
        fields.account = account.value_or(fields.account);
        fields.schedule = {type.value_or(fields.schedule.type),
                           day.value_or(fields.schedule.dayOrDate),
                           number.value_or(fields.schedule.dayNumber)};
        fields.repeatingAmount = amount.value_or(fields.repeatingAmount);
        saveIncomeValues(session, source, name.value_or(source), fields);

        const std::string saved = checkedName(name.value_or(source), "income source");
        const IncomeFields now = currentIncome(session, saved);
        const bool worked = now.schedule.type == kAutoDay || now.schedule.type == kAutoDate;
        out << (saved == source ? "saved income source " + source
                                : "renamed income source " + source + " to " + saved)
            << ": " << placeText(now.institution, now.account, now.repeatingAmount) << ", "
            << now.schedule.type << (worked ? " " + now.schedule.dayOrDate : std::string())
            << (now.schedule.type == kAutoDay ? " " + now.schedule.dayNumber : std::string())
            << (worked ? "; dates worked out for " + session.yearText : "; dates kept") << ":\n";
        const pugi::xml_node months =
            childAtOrNull(incomeSource(session, saved), schema::kIncomeMonths);
        for (int month = 1; month <= 12; ++month)
            out << monthName(month) << ' '
                << childTextOrEmpty(childAtOrNull(months, static_cast<size_t>(month - 1)),
                                    kEntryDate)
                << '\n';
    });
}

int addIncomeCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> like = takeOption(arguments, "--like", "an income source");
    const std::optional<std::string> bank = takeOption(arguments, "--bank", "a bank");
    const std::optional<std::string> account = takeOption(arguments, "--account", "an account");
    const std::optional<std::string> amount = takeOption(arguments, "--amount", "an amount");
    if (!like)
        throw UsageError("--like must name the income source the new one is copied from");
    return answeringYes(arguments, 2, out, err, [&](Session& session, Prompter&) {
        IncomeFields fields = currentIncome(session, *like);
        fields.institution = bank.value_or(fields.institution);
        fields.account = account.value_or(fields.account);
        fields.repeatingAmount = amount.value_or(fields.repeatingAmount);
        saveNewIncome(session, *like, arguments[1], fields);
        const IncomeFields made =
            currentIncome(session, checkedName(arguments[1], "income source"));
        return "added income source " + arguments[1] + " before " + *like + ": " +
               placeText(made.institution, made.account, made.repeatingAmount);
    });
}

int deleteIncomeCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 2, out, err, [&](Session& session, Prompter& prompter) {
        deleteIncome(session, prompter, a[1]);
        return "deleted income source " + a[1];
    });
}

// The customer's fields as the file holds them.
CustomerFields currentCustomer(const Session& session, const std::string& name) {
    const Customer customer = named(customers(session.data.node()), name);
    return {customer.number, customer.institution, customer.account, customer.amount};
}

int addCustomerCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> like = takeOption(arguments, "--like", "a customer");
    const std::optional<std::string> number = takeOption(arguments, "--number", "a number");
    if (!like)
        throw UsageError("--like must name the customer the new one is copied from");
    return answeringYes(arguments, 2, out, err, [&](Session& session, Prompter&) {
        CustomerFields fields = currentCustomer(session, *like);
        fields.number = number.value_or(fields.number);
        saveNewCustomer(session, *like, arguments[1], fields);
        const CustomerFields made = currentCustomer(session, checkedName(arguments[1], "customer"));
        return "added customer " + arguments[1] + " before " + *like + ": number " + made.number +
               ", " + placeText(made.institution, made.account, made.repeatingAmount);
    });
}

int deleteCustomerCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 2, out, err, [&](Session& session, Prompter&) {
        deleteCustomer(session, a[1]);
        return "deleted customer " + a[1];
    });
}

}  // namespace

int runIncome(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(
        arguments, out, err,
        {{"set", setIncomeCommand}, {"add", addIncomeCommand}, {"delete", deleteIncomeCommand}});
}

int runCustomer(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(arguments, out, err,
                    {{"add", addCustomerCommand}, {"delete", deleteCustomerCommand}});
}

}  // namespace tallix::cli
