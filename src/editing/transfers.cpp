#include "editing/transfers.h"

#include "app/session.h"
#include "data/schema_names.h"
#include "editing/cell_commit.h"
#include "editing/line_access.h"
#include "editing/typed_amount.h"

namespace tallix {

std::vector<InstitutionChoice> transferBanks(pugi::xml_node data) {
    std::vector<InstitutionChoice> banks = institutionChoices(data);
    std::erase_if(banks, [](const InstitutionChoice& c) { return c.name == kCreditCardsChoice; });
    return banks;
}

bool applyTransfer(Session& session, int row, int column, const std::string& name,
                   const TransferAnswer& transfer) {
    const std::optional<std::string> amount =
        acceptTypedAmount(session.prompter(), normaliseBlanks(transfer.amount));
    if (!amount)
        return false;
    const FieldColumns& f = session.view.fields;
    LineWriter line(session, row);
    line.set(column, schema::kExpense, name);
    line.set(f.institution, schema::kInstitution, transfer.fromInstitution);
    line.set(f.account, schema::kAccount, transfer.fromAccount);
    line.set(f.info, schema::kInfo, transfer.toInstitution);
    line.set(f.accumulate, schema::kAccumulate, transfer.toAccount);
    line.set(f.amount, schema::kDebit, *amount);
    session.saveChange(lineChange(session, "transfer", row));
    return true;
}

}  // namespace tallix
