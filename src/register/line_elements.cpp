#include "register/line_elements.h"

#include <stdexcept>
#include <utility>
#include <vector>

#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "register/plan_index.h"

namespace tallix {

pugi::xml_node monthElement(pugi::xml_node data, int month) {
    return requireOne(data, paths::kMonthByName, monthName(month));
}

pugi::xml_node newLineElement(pugi::xml_node month, pugi::xml_node before,
                              const LineFields& fields) {
    pugi::xml_node line =
        before ? month.insert_child_before("item", before) : month.append_child("item");
    line.append_attribute("line") = "0";
    for (size_t k = 0; k < schema::kLineChildren.size(); ++k)
        appendTextElement(line, schema::kLineChildren[k], fields[k]);
    return line;
}

pugi::xml_node addxmlline(pugi::xml_node data, int month, int row, const std::string& day,
                          const std::string& kind) {
    pugi::xml_node monthNode = monthElement(data, month);
    std::vector<pugi::xml_node> lines = elementChildren(monthNode);
    pugi::xml_node before = row >= 0 && row < static_cast<int>(lines.size())
                                ? lines[static_cast<size_t>(row)]
                                : pugi::xml_node();
    LineFields fields;
    fields[schema::kDay] = day;
    fields[schema::kTypeOfEntry] = kind;
    pugi::xml_node line = newLineElement(monthNode, before, fields);
    renumberLines(data, monthNode, month);
    return line;
}

bool isReceivableLine(pugi::xml_node line) {
    return childText(line, schema::kCategoty) == "Receivables";
}

pugi::xml_node receivableItem(pugi::xml_node data, pugi::xml_node line, int month,
                              const std::string& lineNumber) {
    pugi::xml_node customer =
        selectOne(data, paths::kReceivable, childText(line, schema::kExpense));
    if (!customer)
        return {};
    for (pugi::xml_node item :
         elementChildren(monthEntry(customer, schema::kCustomerMonths, month)))
        if (childText(item, 0) == lineNumber)
            return item;
    return {};
}

void renumberLines(pugi::xml_node data, pugi::xml_node month, int monthNumber) {
    // Items are found by their old numbers before any is rewritten: when lines
    // move down, one line's new number is the next line's old one.
    std::vector<std::pair<pugi::xml_node, std::string>> itemMoves;
    int n = 1;
    for (pugi::xml_node line : elementChildren(month)) {
        const std::string now = std::to_string(n++);
        const std::string before = attributeText("line", line);
        if (before != now && before != "0" && isReceivableLine(line))
            if (pugi::xml_node item = receivableItem(data, line, monthNumber, before))
                itemMoves.emplace_back(item, now);
        setAttributeText(now, "line", line);
    }
    for (auto& [item, now] : itemMoves)
        setChildText(item, 0, now);
}

}  // namespace tallix
