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
// then the report's columns), the full path of the report's file and DONE and
// PRINT. The files go into Documents/tallix/reports (reportFolder); PRINT
// writes the report's file there and opens it with the system's viewer, or
// says where it is when no viewer starts.
class CRecurringDlg : public QDialog {
    Q_OBJECT
  public:
    CRecurringDlg(Session& session, Report report, QWidget* parent = nullptr);

    QTableWidget* list() const { return list_; }
    QLabel* fileLabel() const { return file_; }
    QPushButton* doneButton() const { return done_; }
    QPushButton* printButton() const { return print_; }

    void OnBnClickedPrint();

  private:
    void fillList();

    Session& session_;
    Report report_;
    QLabel* title_ = nullptr;
    QLabel* file_ = nullptr;
    QTableWidget* list_ = nullptr;
    QPushButton* done_ = nullptr;
    QPushButton* print_ = nullptr;
};

}  // namespace tallix::ui
