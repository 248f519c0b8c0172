#include "register/cell_colours.h"

#include <cctype>
#include <string>

#include "register/register_view.h"

namespace tallix {
namespace {

using namespace cell_colour;

constexpr int kDateCell = 2;
constexpr int kFirstColouredColumn = 4;
constexpr int kFirstUncolouredColumn = 12;
// The grid column whose text stands out in red (white on the dark checks).
constexpr int kHighlightTextColumn = 5;

// The day number of a DATE cell read as a leading whole number; a cell that
// does not start with one (a blank line) counts as day 0.
int dayNumber(const std::string& text) {
    size_t i = 0;
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i])))
        ++i;
    bool negative = i < text.size() && text[i] == '-';
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        ++i;
    int value = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) && value < 100000;
         ++i)
        value = value * 10 + (text[i] - '0');
    return negative ? -value : value;
}

// A cell of the row, or an empty text when the column is not in the table.
std::string rowCell(const GridTable& table, int row, int column) {
    return table.contains(row, column) ? table.cell(row, column) : std::string();
}

CellColours withTextIn(int column, Rgb background, Rgb columnFiveText) {
    return {background, column == kHighlightTextColumn ? columnFiveText : kBlack};
}

// Every rule after the marked row.
CellColours ordinaryColours(int row, int column, const RegisterView& view) {
    const FieldColumns& f = view.fields;
    if (row == view.lineCount || (row == view.editorRow && column == view.editorColumn))
        return {kStartingRow, std::nullopt};
    if (column > f.account && column < f.info)
        return withTextIn(column,
                          column == view.grid.outstandingCheckColumn ? kOutstandingCheck : kBalance,
                          kRed);
    if (column >= kFirstUncolouredColumn && column < f.info)
        return {};
    if (column < kFirstColouredColumn)
        return {};

    const std::string type = rowCell(view.table, row, f.typeofentry);
    if (type == "debit")
        return withTextIn(
            column,
            dayNumber(rowCell(view.table, row, kDateCell)) % 2 == 0 ? kDebitEvenDay : kDebitOddDay,
            kRed);
    if (type == "Auto" || type == "auto" || type == "Auto-Bank")
        return withTextIn(column, kAuto, kRed);
    if (type == "check") {
        const std::string status = rowCell(view.table, row, f.status);
        bool pending = status == "pending" || status.empty() || status == " ";
        return withTextIn(column, pending ? kPendingCheck : kCheck, kWhite);
    }
    if (type == "medication" || type == "Medication")
        return withTextIn(column, kMedication, kRed);
    if (type == "posted check")
        return withTextIn(column, kPostedCheck, kWhite);
    if (type == "credit card")
        return withTextIn(column, kCreditCard, kRed);
    if (type == "deposit")
        return {kDeposit, kBlack};
    if (type == "receivable")
        return {kReceivable, std::nullopt};
    return {};
}

}  // namespace

CellColours cellColours(int row, int column, const RegisterView& view) {
    if (!view.table.contains(row, column))
        return {};
    if (auto own = view.cellOverrides.find({row, column}); own != view.cellOverrides.end())
        return own->second;
    if (row == view.markedRow) {
        const FieldColumns& f = view.fields;
        bool markedCellOnly = view.markedColumn == f.expense || view.markedColumn == f.description;
        if (!markedCellOnly || column == view.markedColumn)
            return {kMarked, std::nullopt};
    }
    return ordinaryColours(row, column, view);
}

}  // namespace tallix
