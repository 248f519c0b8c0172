#pragma once
#include <QDialog>
#include <string>

#include "reference/column_definitions.h"
#include "ui/maintenance_parts.h"

class QLineEdit;
class QPushButton;

namespace tallix {
class Session;
}

namespace tallix::ui {

// The width of one register column: the column's header text and an edit
// with its width in characters. UPDATE writes the width through the core
// (setColumnWidth) and closes; a refused width is shown and the dialog stays
// open; any other failure closes the dialog and is thrown again by
// rethrowFailure().
class CColumnDlg : public QDialog {
    Q_OBJECT
  public:
    CColumnDlg(Session& session, ColumnWidth column, QWidget* parent = nullptr);

    void rethrowFailure() const;
    QLineEdit* widthEdit() const { return width_; }
    QPushButton* updateButton() const { return update_; }

  private:
    void writeWidth();

    Session& session_;
    ColumnWidth column_;
    CoreCalls calls_;
    QLineEdit* width_ = nullptr;
    QPushButton* update_ = nullptr;
};

}  // namespace tallix::ui
