#pragma once
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tallix {
class Session;
}

namespace tallix::ui {

// Said once the new year is on screen; the year and the rest follow.
inline constexpr const char* kNewYearOpened = "Next year's file is made. ";

// Tools > Make next year: shows the current year and file, the year to make
// and an editable file name for it, and says that the current year's
// balances are worked out again first; CREATE NEXT YEARS TALLIX makes the
// year (the core refuses a name that could replace a file), Cancel changes
// nothing. The
// dialog is accepted once the new year was made.
class CNextyearDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CNextyearDlg(Session& session, QWidget* parent = nullptr);

    QLineEdit* nextFileNameEdit() const { return nextFileName_; }
    QPushButton* createButton() const { return create_; }
    QPushButton* cancelButton() const { return cancel_; }

    void OnBnClickedCreate();

  private:
    Session& session_;
    QLineEdit* nextFileName_ = nullptr;
    QPushButton* create_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

}  // namespace tallix::ui
