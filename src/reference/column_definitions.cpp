#include "reference/column_definitions.h"

#include "data/node_text.h"
#include "data/query.h"
#include "reference/plan_input.h"

namespace tallix {
namespace {

// The first twelve definitions (the day, date and line-number columns and
// the line's fields) keep their positions; the rest follow in file order.
constexpr size_t kFixedColumns = 12;
constexpr size_t kTitle = 0;
constexpr size_t kWidth = 1;
constexpr size_t kKind = 2;
constexpr size_t kPosition = 3;
constexpr const char* kNoColumn = "0";

}  // namespace

std::string_view columnKindWord(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::Register:
            return "regcolumn";
        case ColumnKind::Bank:
            return "bankcolumn";
        case ColumnKind::Outstanding:
            return "outstanding check";
        case ColumnKind::Card:
            break;
    }
    return "creditcard";
}

void refuseTakenColumn(pugi::xml_node data, std::string_view title) {
    const std::string text = trimmedText(title);
    if (text.empty())
        throw PlanRefusal("a register column needs a title");
    if (text == kNoColumn)
        throw PlanRefusal("\"0\" means \"no column\": give the column another title");
    for (pugi::xml_node column : selectAll(data, paths::kAllRegisterColumns))
        if (attributeText("column", column) == text || childTextOrEmpty(column, kTitle) == text)
            throw PlanRefusal("there is already a register column titled " + text);
}

pugi::xml_node addBalanceColumn(pugi::xml_node data, std::string_view key, std::string_view title,
                                ColumnKind kind) {
    pugi::xml_node info = requireOne(data, paths::kColumn, "Info");
    pugi::xml_node column = info.parent().insert_copy_before(info, info);
    setAttributeText(key, "column", column);
    setChildText(column, kTitle, title);
    setChildText(column, kWidth, kNewColumnWidth);
    setChildText(column, kKind, columnKindWord(kind));
    renumberColumns(data);
    return column;
}

void removeColumn(pugi::xml_node data, std::string_view key) {
    if (pugi::xml_node column = selectOne(data, paths::kColumn, key)) {
        column.parent().remove_child(column);
        renumberColumns(data);
    }
}

void renameColumnKey(pugi::xml_node data, std::string_view key, std::string_view newKey) {
    pugi::xml_node column = selectOne(data, paths::kColumn, key);
    if (!column)
        return;
    if (childText(column, kTitle) == key)
        setChildText(column, kTitle, newKey);
    setAttributeText(newKey, "column", column);
}

void setColumnTitle(pugi::xml_node data, std::string_view key, std::string_view title) {
    setChildText(requireOne(data, paths::kColumn, key), kTitle, title);
}

void renumberColumns(pugi::xml_node data) {
    std::vector<pugi::xml_node> columns = selectAll(data, paths::kAllRegisterColumns);
    for (size_t i = kFixedColumns; i < columns.size(); ++i)
        updateNodeText(childAt(columns[i], kPosition), std::to_string(i + 1));
}

std::optional<ColumnWidth> columnAtGridPosition(pugi::xml_node data, int gridColumn) {
    std::vector<pugi::xml_node> columns = selectAll(data, paths::kAllRegisterColumns);
    if (gridColumn < 1 || static_cast<size_t>(gridColumn) > columns.size())
        return std::nullopt;
    pugi::xml_node column = columns[static_cast<size_t>(gridColumn) - 1];
    return ColumnWidth{attributeText("column", column), childTextOrEmpty(column, kTitle),
                       childTextOrEmpty(column, kWidth)};
}

}  // namespace tallix
