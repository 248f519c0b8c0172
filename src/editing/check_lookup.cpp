#include "editing/check_lookup.h"

#include "app/session.h"
#include "data/node_text.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "editing/line_access.h"
#include "register/grid_table.h"
#include "register/month_lines.h"

namespace tallix {

bool matchCheckNumber(Session& session, int row, const std::string& number) {
    pugi::xml_node edited = lineOfRow(session, row);
    const std::string institution = childText(edited, schema::kInstitution);
    const std::string account = childText(edited, schema::kAccount);
    for (pugi::xml_node line : monthLines(session.data.node(), monthName(session.month))) {
        if (line == edited || childText(line, schema::kTypeOfEntry) != "check" ||
            childText(line, schema::kCheck) != number ||
            childText(line, schema::kInstitution) != institution ||
            childText(line, schema::kAccount) != account)
            continue;
        setChildText(line, schema::kStatus, "cleared");
        setChildText(edited, schema::kTypeOfEntry, "posted check");
        if (isBlankCell(childText(edited, schema::kDebit)))
            setChildText(edited, schema::kDebit, childText(line, schema::kDebit));
        return true;
    }
    session.prompter().notify(kCheckNumberNotFound);
    return false;
}

}  // namespace tallix
