#pragma once
#include <QAbstractTableModel>

namespace tallix {
struct RegisterView;
}

namespace tallix::ui {

// The register grid's model: a read-only view of the displayed month's grid
// table. Each cell's text and colours are asked for when the cell is drawn;
// the model keeps nothing but the table's size as of the last reload(), so
// it stays consistent while the core rebuilds the table underneath.
class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit GridModel(const RegisterView& view, QObject* parent = nullptr);

    // Call after the core rebuilt the columns or the table.
    void reload();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    const RegisterView& view_;
    int rows_ = 0;
    int columns_ = 0;
};

}  // namespace tallix::ui
