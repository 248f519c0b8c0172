#pragma once
// The grid table: the text of every cell of the displayed month, one row per
// line and one more row (the starting row) under the last line. The grid on
// screen asks it for each cell it draws; the balance engine writes into it.
#include <string>
#include <vector>

namespace tallix {

class GridTable {
  public:
    // Rows of `columns` cells, each a single blank.
    void reset(int rows, int columns);
    void clear() { cells_.clear(); }

    int rowCount() const { return static_cast<int>(cells_.size()); }
    int columnCount() const { return cells_.empty() ? 0 : static_cast<int>(cells_[0].size()); }
    bool contains(int row, int column) const {
        return row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    }

    // Throws std::out_of_range outside the table.
    const std::string& cell(int row, int column) const;
    void set(int row, int column, std::string text);

  private:
    std::vector<std::vector<std::string>> cells_;
};

// An empty text and a single blank both mean an empty cell.
bool isBlankCell(const std::string& text);

}  // namespace tallix
