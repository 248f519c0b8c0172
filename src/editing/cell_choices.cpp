#include "editing/cell_choices.h"

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "editing/line_access.h"
#include "register/register_view.h"

namespace tallix {
namespace {

pugi::xml_node namesOf(pugi::xml_node data, const char* institutionPath) {
    pugi::xml_node institution = selectOne(data, institutionPath);
    return institution ? institution.child("names") : pugi::xml_node();
}

// Table first: a row without a line throws before the document is touched.
void writeField(Session& session, int row, int column, int child, const std::string& text) {
    pugi::xml_node line = lineOfRow(session, row);
    session.view.table.set(row, column, text);
    setChildText(line, static_cast<size_t>(child), text);
}

}  // namespace

bool isEditableCell(const RegisterView& view, int row, int column) {
    if (row < 0 || row >= view.lineCount || !view.table.contains(row, column))
        return false;
    if (column < kFirstEditableColumn || column >= static_cast<int>(view.grid.columns.size()))
        return false;
    return !(column > view.fields.account && column < view.fields.info);
}

std::optional<std::pair<int, int>> nextEditableCell(const RegisterView& view, int row, int column,
                                                    bool forward) {
    const int columns = static_cast<int>(view.grid.columns.size());
    const int step = forward ? 1 : -1;
    for (int r = row, c = column + step; r >= 0 && r < view.lineCount;) {
        if (c >= columns) {
            ++r;
            c = kFirstEditableColumn;
            continue;
        }
        if (c < kFirstEditableColumn) {
            --r;
            c = columns - 1;
            continue;
        }
        if (isEditableCell(view, r, c))
            return std::pair{r, c};
        c += step;
    }
    return std::nullopt;
}

const std::vector<std::string>& statusWords() {
    static const std::vector<std::string> words = {"notpaid",    "no entry", "pending",
                                                   "processing", "posted",   "posted check",
                                                   "cleared",    "skip"};
    return words;
}

std::vector<InstitutionChoice> institutionChoices(pugi::xml_node data) {
    std::vector<InstitutionChoice> choices;
    for (pugi::xml_node bank : elementChildren(namesOf(data, paths::kBanks))) {
        InstitutionChoice choice{attributeText("id", bank), {}};
        for (pugi::xml_node account : elementChildren(bank))
            choice.accounts.push_back(childText(account, 0));
        choices.push_back(std::move(choice));
    }
    InstitutionChoice cards{kCreditCardsChoice, {}};
    for (pugi::xml_node card : elementChildren(namesOf(data, paths::kCreditCards)))
        cards.accounts.push_back(attributeText("id", card));
    choices.push_back(std::move(cards));
    return choices;
}

void writeStatus(Session& session, int row, const std::string& status) {
    writeField(session, row, session.view.fields.status, schema::kStatus, status);
    session.saveChange(lineChange(session, "status", row));
}

void writeInstitution(Session& session, int row, const std::string& institution,
                      const std::string& account) {
    const FieldColumns& f = session.view.fields;
    writeField(session, row, f.institution, schema::kInstitution, institution);
    writeField(session, row, f.account, schema::kAccount, account);
    session.saveChange(lineChange(session, "institution", row));
}

void writeDescription(Session& session, int row, const std::string& description) {
    writeField(session, row, session.view.fields.description, schema::kDescription, description);
    session.saveChange(lineChange(session, "description", row));
}

}  // namespace tallix
