#include "ui/grid_model.h"

#include <QBrush>
#include <QColor>

#include "register/cell_colours.h"
#include "register/register_view.h"

namespace tallix::ui {
namespace {

QVariant brush(const std::optional<Rgb>& colour) {
    if (!colour)
        return {};
    return QBrush(QColor(colour->red, colour->green, colour->blue));
}

}  // namespace

GridModel::GridModel(const RegisterView& view, QObject* parent)
    : QAbstractTableModel(parent), view_(view) {
    reload();
}

void GridModel::reload() {
    beginResetModel();
    rows_ = view_.table.rowCount();
    columns_ = static_cast<int>(view_.grid.columns.size());
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const int row = index.row();
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole:
            if (!view_.table.contains(row, column))
                return {};
            return QString::fromStdString(view_.table.cell(row, column));
        case Qt::BackgroundRole:
            return brush(cellColours(row, column, view_).background);
        case Qt::ForegroundRole:
            return brush(cellColours(row, column, view_).text);
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= columns_ || section >= static_cast<int>(view_.grid.columns.size()))
        return QAbstractTableModel::headerData(section, orientation, role);
    return QString::fromStdString(view_.grid.columns[static_cast<size_t>(section)].title);
}

}  // namespace tallix::ui
