// The register (twelve months of lines) and the register-column definitions.
#include <array>
#include <map>
#include <optional>

#include "data/child_names.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/structure_shape.h"
#include "data/values.h"

namespace tallix::structure {
namespace {

constexpr int kMonths = 12;
constexpr long long kLastDay = 31;

// The field columns whose cells the program fills from a line's children;
// they stand at these positions, in this order, from position 4.
constexpr std::array<std::string_view, 8> kLineFieldColumns = {
    "Expense", "Amount", "Check", "Category", "Status", "Description", "Institution", "Account"};
constexpr long long kFirstLineFieldPosition = 4;

void checkLine(Faults& faults, const std::string& where, pugi::xml_node line, size_t number) {
    std::string expectedNumber = std::to_string(number);
    pugi::xml_attribute attribute = line.attribute("line");
    if (!attribute)
        faults.add(where, "lacks attribute 'line' (expected " + quote(expectedNumber) + ")");
    else if (attribute.value() != expectedNumber)
        faults.add(where, "attribute line is " + quote(attribute.value()) + ", expected " +
                              quote(expectedNumber));
    expectChildren(faults, where, line, schema::lineChildNames());

    // Values are looked up by name, so that a misplaced child is still read.
    std::string_view dayName = schema::kLineChildren[schema::kDay];
    if (pugi::xml_node day = line.child(dayName.data())) {
        std::string text = nodeText(day);
        std::optional<long long> value = wholeNumber(text);
        if (!text.empty() && (!value || *value < 1 || *value > kLastDay))
            faults.add(where, "day " + quote(text) + " is not a whole number from 1 to 31");
    }
    std::string_view debitName = schema::kLineChildren[schema::kDebit];
    if (pugi::xml_node debit = line.child(debitName.data())) {
        std::string text = nodeText(debit);
        if (!text.empty() && !isAmount(text))
            faults.add(where, "debit " + quote(text) + " is not a number");
    }
}

void checkMonth(Faults& faults, pugi::xml_node month, const std::string& name) {
    std::string where = "register month " + quote(name);
    pugi::xml_attribute id = month.attribute("id");
    if (!id)
        faults.add(where, "lacks attribute 'id' (expected " + quote(name) + ")");
    else if (id.value() != name)
        faults.add(where, "attribute id is " + quote(id.value()) + ", expected " + quote(name));

    std::vector<pugi::xml_node> lines = elementChildren(month);
    for (size_t i = 0; i < lines.size(); ++i) {
        std::string lineWhere = where + " line " + std::to_string(i + 1);
        if (std::string_view(lines[i].name()) != "item")
            faults.add(lineWhere, "is " + quote(lines[i].name()) + ", expected 'item'");
        else
            checkLine(faults, lineWhere, lines[i], i + 1);
    }
}

}  // namespace

void checkRegister(Faults& faults, pugi::xml_node container) {
    const std::string where = "register";
    std::vector<pugi::xml_node> months = childrenNamed(faults, where, container, "month");
    std::array<int, kMonths + 1> uses{};
    for (pugi::xml_node month : months)
        ++uses[monthNumber(month.attribute("month").value())];

    std::array<bool, kMonths + 1> checked{};
    for (size_t i = 0; i < months.size(); ++i) {
        pugi::xml_attribute name = months[i].attribute("month");
        int number = monthNumber(name.value());
        if (!name) {
            faults.add(where, "month #" + std::to_string(i + 1) + " lacks attribute 'month'");
        } else if (number == 0) {
            faults.add(where, "month " + quote(name.value()) +
                                  " is not a month name (January to December)");
        } else if (!checked[number]) {
            checked[number] = true;
            if (uses[number] > 1)
                faults.add(where, "month " + quote(name.value()) + " appears " +
                                      std::to_string(uses[number]) + " times");
            checkMonth(faults, months[i], name.value());
        }
    }
    for (int m = 1; m <= kMonths; ++m)
        if (uses[m] == 0)
            faults.add(where, "lacks month " + quote(monthName(m)));
}

// A card's column is found by the card's name and may show another header
// text; every other column shows its key.
bool isCardName(pugi::xml_node container, std::string_view key) {
    pugi::xml_node cards = selectOne(container.parent(), paths::kCreditCards);
    for (pugi::xml_node card : elementChildren(childAtOrNull(cards, 0)))
        if (key == card.attribute("id").value())
            return true;
    return false;
}

void checkRegisterColumns(Faults& faults, pugi::xml_node container) {
    const std::string where = "registercolumns";
    std::vector<pugi::xml_node> columns = childrenNamed(faults, where, container, "column");
    expectUniqueKeys(faults, where, columns, "column");

    // Key -> position of the first column with that key (what a lookup finds).
    std::map<std::string, std::optional<long long>, std::less<>> positions;
    long long previous = 0;
    for (size_t i = 0; i < columns.size(); ++i) {
        pugi::xml_node column = columns[i];
        std::string columnWhere = where + " column " + label(column, "column", i);
        pugi::xml_attribute key = column.attribute("column");
        auto [entry, first] = positions.try_emplace(key.value());
        ++previous;
        if (!expectChildren(faults, columnWhere, column, schema::kColumnChildren))
            continue;
        std::string title = childText(column, 0);
        if (key && title != key.value() && !isCardName(container, key.value()))
            faults.add(columnWhere,
                       "title " + quote(title) + " differs from its key " + quote(key.value()));
        std::string width = childText(column, 1);
        std::optional<long long> characters = wholeNumber(width);
        if (!characters || *characters > schema::kMostColumnWidth)
            faults.add(columnWhere, "width " + quote(width) + " is not a whole number from 0 to " +
                                        std::to_string(schema::kMostColumnWidth));
        std::string positionText = childText(column, 3);
        std::optional<long long> position = wholeNumber(positionText);
        if (!position || *position > schema::kMostColumnPosition) {
            faults.add(columnWhere, "position " + quote(positionText) +
                                        " is not a whole number from 0 to " +
                                        std::to_string(schema::kMostColumnPosition));
            continue;
        }
        if (*position != previous)
            faults.add(columnWhere, "position is " + positionText + ", expected " +
                                        std::to_string(previous) +
                                        " (positions run 1, 2, 3 ... in file order)");
        previous = *position;
        if (key && first)
            entry->second = position;
    }

    for (std::string_view title : schema::kFieldColumnTitles)
        if (positions.find(title) == positions.end())
            faults.add(where, "lacks the " + quote(title) + " column");
    for (size_t i = 0; i < kLineFieldColumns.size(); ++i) {
        auto found = positions.find(kLineFieldColumns[i]);
        long long expected = kFirstLineFieldPosition + static_cast<long long>(i);
        if (found != positions.end() && found->second && *found->second != expected)
            faults.add(where + " column " + quote(kLineFieldColumns[i]),
                       "stands at position " + std::to_string(*found->second) +
                           ", the program expects it at " + std::to_string(expected));
    }
}

}  // namespace tallix::structure
