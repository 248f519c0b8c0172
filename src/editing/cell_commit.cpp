#include "editing/cell_commit.h"

#include <optional>
#include <sstream>

#include "app/guard.h"
#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "editing/check_lookup.h"
#include "editing/line_access.h"
#include "editing/typed_amount.h"
#include "reference/descriptions.h"
#include "register/month_display.h"
#include "register/plan_index.h"

namespace tallix {
namespace {

using schema::kCustomerMonths;
using schema::kEntryAmount;
using schema::kEntryCheck;
using schema::kEntryStatus;
using schema::kExpenseMonths;

// The customer's item of this month that belongs to the row's line gets the
// amount too.
void mirrorIntoCustomer(Session& session, const std::string& customerName, int row,
                        const std::string& amount) {
    pugi::xml_node customer = requireOne(session.data.node(), paths::kReceivable, customerName);
    pugi::xml_node month = monthEntry(customer, kCustomerMonths, session.month);
    const std::string line = std::to_string(row + 1);
    for (pugi::xml_node item : elementChildren(month))
        if (childText(item, 0) == line)
            setChildText(item, kEntryAmount, amount);
}

void offerIfNew(Session& session, const std::string& description) {
    if (!description.empty())
        offerDescription(session, description);
}

class Commit {
  public:
    Commit(Session& session, int row, int column)
        : s_(session), f_(session.view.fields), row_(row), column_(column) {}

    // False when nothing reached the file: the text was refused, or the row
    // has no line.
    bool run(std::string text) {
        GridTable& t = s_.view.table;
        if (column_ == f_.amount) {
            std::optional<std::string> typed = acceptTypedAmount(s_.prompter(), text);
            if (!typed)
                return false;
            text = *typed;
        }
        t.set(row_, column_, text);
        const std::string expense = t.cell(row_, f_.expense);
        const std::string category = t.cell(row_, f_.category);
        const std::string type = t.cell(row_, f_.typeofentry);

        // A row without a line ends the commit with the typed text in the
        // grid only: nothing is saved and no update follows.
        line_ = get_lines(s_, row_);
        if (!line_)
            return false;
        child_ = lineChildOfColumn(f_, column_);
        planned_ = get_expense(s_, row_);

        if (category == "Receivables" && column_ == f_.amount) {
            writeLine(text);
            mirrorIntoCustomer(s_, expense, row_, text);
        } else if (category == "Income") {
            if (column_ == f_.amount) {
                writeLine(text);
            } else {
                writeLine(text);
                if (column_ == f_.description)
                    offerIfNew(s_, text);
                else if (column_ == f_.status && planned_)
                    writePlan(kEntryStatus, text);
            }
        } else if (!planned_ && column_ == f_.check) {
            if (!text.empty()) {
                writeLine(text);
                matchCheckNumber(s_, row_, text);
                markCheckCells();
            }
        } else if (column_ == f_.amount) {
            writeLine(text);
            if (planned_)
                writePlan(kEntryAmount, text);
        } else {
            writeLine(text);
            if (column_ == f_.description)
                offerIfNew(s_, text);
            else if (planned_ && column_ == f_.status)
                writePlan(kEntryStatus, text);
            else if (planned_ && column_ == f_.check && type == "check")
                writePlan(kEntryCheck, text);
        }
        s_.saveChange(cellChange(s_, column_, row_));
        return true;
    }

  private:
    // A number typed on a line outside the plan stands out in the check
    // colours, matched or not, until the month is displayed again.
    void markCheckCells() {
        const CellColours colours{cell_colour::kPostedCheck, cell_colour::kWhite};
        s_.view.cellOverrides[{row_, f_.check}] = colours;
        s_.view.cellOverrides[{row_, f_.info}] = colours;
    }
    void writeLine(const std::string& text) {
        if (child_ >= 0)
            setChildText(line_, static_cast<size_t>(child_), text);
    }
    void writePlan(size_t entryChild, const std::string& text) {
        setChildText(monthEntry(planned_, kExpenseMonths, s_.month), entryChild, text);
    }

    Session& s_;
    const FieldColumns& f_;
    int row_;
    int column_;
    pugi::xml_node line_;
    pugi::xml_node planned_;
    int child_ = -1;
};

}  // namespace

std::string normaliseBlanks(const std::string& text) {
    std::istringstream words(text);
    std::string word;
    std::string out;
    while (words >> word) {
        if (!out.empty())
            out += ' ';
        out += word;
    }
    return out;
}

bool commitCell(Session& session, int row, int column, const std::string& typed) {
    if (!session.view.table.contains(row, column))
        return true;  // the row went away while the editor was open
    return Commit(session, row, column).run(normaliseBlanks(typed));
}

bool HideEditor(Session& session, int row, int column, const std::string& typed) {
    if (session.view.committing)
        return false;
    session.view.committing = true;
    bool done = false;
    guarded(session.prompter(), "HideEditor",
            [&] { done = commitCell(session, row, column, typed); });
    session.view.committing = false;
    if (done)
        updateAfterChange(session);
    return done;
}

}  // namespace tallix
