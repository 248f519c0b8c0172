#include "register/grid_table.h"

#include <stdexcept>

namespace tallix {

void GridTable::reset(int rows, int columns) {
    cells_.assign(static_cast<size_t>(rows), std::vector<std::string>(columns, " "));
}

const std::string& GridTable::cell(int row, int column) const {
    if (!contains(row, column))
        throw std::out_of_range("grid cell " + std::to_string(row) + "," + std::to_string(column) +
                                " does not exist");
    return cells_[row][column];
}

void GridTable::set(int row, int column, std::string text) {
    if (!contains(row, column))
        throw std::out_of_range("grid cell " + std::to_string(row) + "," + std::to_string(column) +
                                " does not exist");
    cells_[row][column] = std::move(text);
}

bool isBlankCell(const std::string& text) {
    return text.empty() || text == " ";
}

}  // namespace tallix
