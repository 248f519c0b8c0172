#pragma once
#include <QDialog>

#include "reports/reports.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace tallix {
class Session;
}

namespace tallix::ui {

// The report dialog: one report's title, its list (a hidden first column,
// then the report's columns) and DONE and PRINT. PRINT writes the report's
// file into the working folder and opens it with the system's viewer.
class CRecurringDlg : public QDialog {
    Q_OBJECT
  public:
    CRecurringDlg(Session& session, Report report, QWidget* parent = nullptr);

    QTableWidget* list() const { return list_; }
    QPushButton* doneButton() const { return done_; }
    QPushButton* printButton() const { return print_; }

    void OnBnClickedPrint();

  private:
    void fillList();

    Session& session_;
    Report report_;
    QLabel* title_ = nullptr;
    QTableWidget* list_ = nullptr;
    QPushButton* done_ = nullptr;
    QPushButton* print_ = nullptr;
};

}  // namespace tallix::ui
