#pragma once
// Committing the text typed into a cell of the register: into the grid
// table, the line in the data file and, where the line names a planned
// expense or a customer, into the plan; then the file is saved and the
// balances recomputed.
#include <string>

namespace tallix {

class Session;

// Leading, trailing and repeated blanks removed.
std::string normaliseBlanks(const std::string& text);

// The commit itself; throws on failure. An amount is stored as
// typedAmountText gives it (12 -> 12.00, 12.5 stays, $1,234.56 -> 1234.56);
// text that is not one amount is refused with a message before anything is
// written. Returns false when nothing reached the file (a refused amount, a
// row without a line).
bool commitCell(Session& session, int row, int column, const std::string& typed);

// The guarded command: failures show "runtime error in HideEditor() ". A
// commit that arrives while another runs is dropped. Returns true when the
// commit ran to its end (and then runs Update).
bool HideEditor(Session& session, int row, int column, const std::string& typed);

}  // namespace tallix
