#include "app/next_year.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "app/guard.h"
#include "app/session.h"
#include "data/child_names.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/text_utils.h"
#include "data/values.h"
#include "data/year_lookup.h"
#include "register/month_display.h"
#include "register/month_lines.h"

namespace tallix {
namespace {

using schema::kCustomerMonths;
using schema::kExpenseMonths;
using schema::kIncomeMonths;

// Positions of the children the carry-over touches (from 0).
constexpr size_t kAccountRegColumn = 1;
constexpr size_t kAccountBankColumn = 2;
constexpr size_t kColumnTitle = 0;
constexpr size_t kColumnLastYearClosing = 1;
constexpr size_t kColumnFirstClosing = 2;

constexpr size_t kCardColumnName = 1;
constexpr size_t kCardLastYearClosing = 2;
constexpr size_t kCardFirstClosing = 6;

constexpr size_t kExpenseType = 1;
constexpr size_t kExpenseReset = 5;
constexpr size_t kPlanAmount = 1;
constexpr size_t kPlanDatePaid = 2;
constexpr size_t kPlanDueDate = 3;
constexpr size_t kPlanStatus = 4;
constexpr size_t kPlanCheck = 6;

void setChildrenFrom(pugi::xml_node node, size_t first, std::string_view text) {
    std::vector<pugi::xml_node> children = elementChildren(node);
    for (size_t i = first; i < children.size(); ++i) {
        schema::refuseMisplaced(children[i]);
        setNodeText(children[i], text);
    }
}

// The year's final balance becomes last year's closing; the months start over.
void rollBalance(pugi::xml_node values, size_t lastYearClosing, size_t firstClosing) {
    std::vector<pugi::xml_node> children = elementChildren(values);
    if (children.empty())
        throw std::out_of_range("no closing values under " + attributeText("id", values));
    setChildText(values, lastYearClosing, nodeText(children.back()));
    setChildrenFrom(values, firstClosing, "0");
}

void carryOverBanks(pugi::xml_node document) {
    pugi::xml_node banks = selectOne(document, paths::kBanks);
    if (!banks)
        return;
    for (pugi::xml_node bank : elementChildren(childAt(banks, 0))) {
        for (pugi::xml_node account : elementChildren(bank)) {
            for (size_t column : {kAccountRegColumn, kAccountBankColumn}) {
                pugi::xml_node values = childAt(account, column);
                if (childText(values, kColumnTitle) != "0")
                    rollBalance(values, kColumnLastYearClosing, kColumnFirstClosing);
            }
        }
    }
}

void carryOverCards(pugi::xml_node document) {
    pugi::xml_node cards = selectOne(document, paths::kCreditCards);
    if (!cards)
        return;
    for (pugi::xml_node card : elementChildren(childAt(cards, 0))) {
        if (childText(card, kCardColumnName) != "0")
            rollBalance(card, kCardLastYearClosing, kCardFirstClosing);
    }
}

bool rollsOver(const std::string& expenseType) {
    return expenseType == "recurring" || expenseType == "auto";
}

void carryOverExpenses(pugi::xml_node document, int newYear) {
    for (pugi::xml_node expense : selectAll(document, paths::kAllExpenses)) {
        setChildText(expense, kExpenseReset, "0");
        const bool recurring = rollsOver(childText(expense, kExpenseType));
        for (pugi::xml_node month : elementChildren(childAt(expense, kExpenseMonths))) {
            setChildText(month, kPlanAmount, "0");
            if (!recurring)
                continue;
            setChildText(month, kPlanDatePaid, "0");
            setChildText(month, kPlanCheck, "0");
            if (childText(month, kPlanStatus) == "no entry")
                continue;
            setChildText(month, kPlanStatus, "notpaid");
            setChildText(month, kPlanDueDate, dateInYear(childText(month, kPlanDueDate), newYear));
        }
    }
}

void carryOverIncome(pugi::xml_node document) {
    for (pugi::xml_node source : selectAll(document, paths::kAllIncome)) {
        for (size_t child : {2, 3, 4})
            setChildText(source, child, "0");
        for (pugi::xml_node month : elementChildren(childAt(source, kIncomeMonths))) {
            for (size_t child : {1, 2, 3})
                setChildText(month, child, "0");
        }
    }
}

void carryOverCustomers(pugi::xml_node document, int newYear) {
    for (pugi::xml_node customer : selectAll(document, paths::kAllReceivables)) {
        for (pugi::xml_node month : elementChildren(childAt(customer, kCustomerMonths))) {
            for (pugi::xml_node item : elementChildren(month)) {
                setChildText(item, kPlanAmount, "0");
                setChildText(item, kPlanDatePaid, "0");
                setChildText(item, kPlanDueDate,
                             dateInYear(childText(item, kPlanDueDate), newYear));
            }
        }
    }
}

void appendBlankLine(pugi::xml_node month) {
    pugi::xml_node line = month.append_child("item");
    line.append_attribute("line").set_value("1");
    for (size_t i = 0; i < schema::kLineChildren.size(); ++i) {
        std::string_view text = i == schema::kDay ? "1" : i == schema::kTypeOfEntry ? "debit" : "";
        appendTextElement(line, schema::kLineChildren[i], text);
    }
}

// The index entry of `year`, made (file and status, in year order) when the
// index has none.
pugi::xml_node indexEntryFor(pugi::xml_node indexDocument, const std::string& year) {
    if (pugi::xml_node entry = yearEntry(indexDocument, year))
        return entry;
    pugi::xml_node root = requireOne(indexDocument, paths::kRoot);
    pugi::xml_node before;
    for (pugi::xml_node other : elementChildren(root)) {
        if (attributeText("year", other) > year) {
            before = other;
            break;
        }
    }
    pugi::xml_node entry =
        before ? root.insert_child_before("year", before) : root.append_child("year");
    entry.append_attribute("year").set_value(year.c_str());
    appendTextElement(entry, "file", "");
    appendTextElement(entry, "status", "");
    return entry;
}

void recordNextYear(Session& session, const std::string& year, const std::string& name) {
    if (!selectOne(session.index.node(), paths::kRoot))
        session.index = Document::load(session.indexPath());
    pugi::xml_node entry = indexEntryFor(session.index.node(), year);
    setChildText(entry, 0, name);
    if (elementChildCount(entry) > 1)
        setChildText(entry, 1, schema::kInitialized);
    else
        appendTextElement(entry, "status", schema::kInitialized);
    session.saveIndex();
}

Document loadOrThrow(const std::filesystem::path& path) {
    Document loaded = Document::load(path);
    if (loaded.loadFailed())
        throw std::runtime_error(path.string() + ": " + loaded.loadError());
    return loaded;
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Whether `name` is one of `names`, letters compared without case, so that
// a name that is another on a file system that ignores case is refused too.
bool among(const std::string& name, const std::vector<std::string>& names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& other) { return lowered(other) == lowered(name); });
}

}  // namespace

// The names the new year's file may never take: the current file, the
// index, the templates and every file the index names for another year.
std::vector<std::string> namesInUse(Session& session, const std::string& yearToMake) {
    std::vector<std::string> names = {
        session.fileName, session.filePath.filename().string(), std::string(schema::kIndexFile),
        std::string(schema::kFirstIndexFile), std::string(schema::kBlankYearFile)};
    if (!selectOne(session.index.node(), paths::kRoot))
        session.index = loadOrThrow(session.indexPath());
    for (pugi::xml_node entry : elementChildren(requireOne(session.index.node(), paths::kRoot))) {
        if (attributeText("year", entry) == yearToMake)
            continue;
        if (std::optional<std::string> name = plainYearFileName(childText(entry, 0)))
            names.push_back(*name);
    }
    for (std::string& name : names)
        name = plainYearFileName(name).value_or(name);
    return names;
}

bool isNameInUse(Session& session, const std::string& name, const std::string& year) {
    return among(plainYearFileName(name).value_or(name), namesInUse(session, year));
}

namespace {

// Sets the session's month and grid back as they were when it goes.
class KeepView {
  public:
    explicit KeepView(Session& session)
        : session_(session), month_(session.month), view_(session.view) {}
    ~KeepView() {
        session_.month = month_;
        session_.view = std::move(view_);
    }
    KeepView(const KeepView&) = delete;
    KeepView& operator=(const KeepView&) = delete;

  private:
    Session& session_;
    int month_;
    RegisterView view_;
};

// Works every month out again, January to December, so that each month's
// closing reaches the next and December's is the year's: Update all months
// without posting what is due (the year is closed as its lines stand) and
// without the notice for a month without lines, which is passed over. The
// grid and the displayed month are left as they were. True when the data
// document changed.
constexpr const char* kClosingsForNextYear = "closings worked out for next year";

bool workOutMonths(Session& session) {
    KeepView kept(session);
    prepareColumns(session);
    bool changed = false;
    for (int m = 1; m <= 12; ++m) {
        session.month = m;
        if (monthLines(session.data.node(), monthName(m)).empty())
            continue;
        try {
            changed |= recomputeMonth(session, false);
        } catch (...) {
            // What the months before wrote is kept, as Update all months keeps it.
            if (changed)
                session.saveChange(kClosingsForNextYear);
            throw;
        }
    }
    return changed;
}

}  // namespace

std::optional<std::string> plainYearFileName(const std::string& typed) {
    // A name from the root, or from a drive, leaves the data folder.
    if (typed.empty() || typed.front() == '/' || typed.front() == '\\' ||
        typed.find(':') != std::string::npos)
        return std::nullopt;
    std::vector<std::string> parts;
    for (const std::string& part : split(typed, "/")) {
        for (const std::string& piece : split(part, "\\")) {
            if (piece == "..") {
                if (parts.empty())
                    return std::nullopt;
                parts.pop_back();
            } else if (!piece.empty() && piece != ".") {
                parts.push_back(piece);
            }
        }
    }
    if (parts.size() != 1 || parts[0].size() <= 4 || !lowered(parts[0]).ends_with(".xml"))
        return std::nullopt;
    return parts[0];
}

NextYearFields nextYearFields(const Session& session) {
    return {session.yearText, session.fileName, std::to_string(session.year + 1),
            defaultYearFileName(session.year + 1)};
}

std::string defaultYearFileName(int year) {
    return "tallix" + std::to_string(year) + ".xml";
}

std::string dateInYear(const std::string& date, int year) {
    std::vector<std::string> parts = split(date, "/");
    if (parts.size() < 2 || parts[0].empty() || parts[1].empty())
        return date;
    return parts[0] + "/" + parts[1] + "/" + std::to_string(year);
}

void carryOverToNextYear(pugi::xml_node document, int newYear) {
    carryOverBanks(document);
    carryOverCards(document);
    carryOverExpenses(document, newYear);
    carryOverIncome(document);
    carryOverCustomers(document, newYear);
}

void resetRegister(pugi::xml_node document) {
    for (pugi::xml_node month : selectAll(document, paths::kAllMonths)) {
        while (pugi::xml_node child = month.first_child())
            month.remove_child(child);
        appendBlankLine(month);
    }
}

bool makeNextYear(Session& session, const std::string& nextFileName) {
    const int newYear = session.year + 1;
    const std::optional<std::string> name = plainYearFileName(nextFileName);
    if (!name) {
        session.prompter().notify(next_year_texts::badFileName(newYear));
        return false;
    }
    const std::filesystem::path target = session.inDataFolder(*name);
    // An existing file is never replaced (and a name whose file cannot be
    // looked at is an error, not a free name).
    if (among(*name, namesInUse(session, std::to_string(newYear))) ||
        std::filesystem::symlink_status(target).type() != std::filesystem::file_type::not_found) {
        session.prompter().notify(next_year_texts::kSameFileName);
        return false;
    }
    if (session.data.loadFailed())
        throw std::runtime_error("the current data file could not be read: " +
                                 session.data.loadError());

    if (workOutMonths(session))
        session.saveChange(kClosingsForNextYear);

    Document next = Document::parse(session.data.serialize(), target);
    if (next.loadFailed())
        throw std::runtime_error(next.loadError());
    carryOverToNextYear(next.node(), newYear);
    resetRegister(next.node());
    next.save(target);
    try {
        recordNextYear(session, std::to_string(newYear), *name);
    } catch (...) {
        // The year is not made: its file goes, so the name stays free.
        std::error_code ignored;
        std::filesystem::remove(target, ignored);
        throw;
    }

    session.openDataPath(target);
    if (session.data.loadFailed())
        throw std::runtime_error(session.data.loadError());
    session.setYear(newYear);
    return true;
}

bool OnToolsMakenextyear(Session& session, const std::string& nextFileName) {
    bool made = false;
    guarded(session.prompter(), "OnToolsMakenextyear",
            [&] { made = makeNextYear(session, nextFileName); });
    return made;
}

}  // namespace tallix
