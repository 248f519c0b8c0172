#pragma once
// The colours of one cell of the register grid, decided from the displayed
// month's grid table and the cells marked for editing. The grid on screen asks
// for them each time it draws a cell; nothing is stored.
#include <optional>

namespace tallix {

struct RegisterView;

struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

// An empty colour leaves the grid's own default (white background, black text).
struct CellColours {
    std::optional<Rgb> background;
    std::optional<Rgb> text;
    friend bool operator==(const CellColours&, const CellColours&) = default;
};

namespace cell_colour {
inline constexpr Rgb kMarked{255, 255, 0};
inline constexpr Rgb kStartingRow{253, 233, 217};  // also the open editor's cell
inline constexpr Rgb kOutstandingCheck{253, 233, 217};
inline constexpr Rgb kBalance{204, 255, 204};
inline constexpr Rgb kDebitEvenDay{255, 255, 204};
inline constexpr Rgb kDebitOddDay{197, 190, 151};
inline constexpr Rgb kAuto{83, 142, 213};
inline constexpr Rgb kPendingCheck{255, 0, 0};
inline constexpr Rgb kCheck{255, 199, 206};
inline constexpr Rgb kMedication{178, 161, 199};
inline constexpr Rgb kPostedCheck{228, 109, 10};
inline constexpr Rgb kCreditCard{255, 255, 204};
inline constexpr Rgb kDeposit{0, 176, 80};
inline constexpr Rgb kReceivable{146, 208, 80};

inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kRed{255, 0, 0};
inline constexpr Rgb kWhite{255, 255, 255};
}  // namespace cell_colour

// The colours of the cell at (row, column) of view.table, first rule that
// applies:
//  - the cell's own colours (RegisterView::cellOverrides);
//  - the marked row: yellow on the marked cell when the marked column is the
//    Expense or the Description column (the row's other cells keep their
//    ordinary colours), otherwise on every cell of the row;
//  - the starting row and the cell whose editor is open;
//  - the balance columns, strictly between Account and Info;
//  - no colour from column 12 up to Info and below column 4;
//  - then by the row's entry type (Typeofentry) and Status.
// Grid column 5 (the amount in the usual layout) draws its text in red, or
// white on the dark check colours. A cell outside the table has no colours.
CellColours cellColours(int row, int column, const RegisterView& view);

}  // namespace tallix
