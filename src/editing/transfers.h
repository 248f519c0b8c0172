#pragma once
// Recording money moved between two of the household's own accounts on a
// register line.
#include <string>
#include <vector>

#include "editing/cell_choices.h"
#include "editing/line_choices.h"

namespace tallix {

class Session;

// The banks with their accounts, which the transfer dialog offers on both
// sides (a card is no place to keep money).
std::vector<InstitutionChoice> transferBanks(pugi::xml_node data);

// Writes a transfer into the line of `row`: the picked entry's name into the
// clicked cell and the expense, the source into Institution and Account, the
// destination into Info and Accumulate and the amount, in that order, then
// saves the data file. An amount that is not one amount ("12abc") is
// refused with a message and nothing is written (returns false). Nothing
// else is checked here: an unusable transfer (no account, the same account
// twice) shows when the balances are next worked out.
bool applyTransfer(Session& session, int row, int column, const std::string& name,
                   const TransferAnswer& transfer);

}  // namespace tallix
