#pragma once
#include <QDialog>

class QLineEdit;
class QPushButton;
class QTableWidget;

namespace tallix {
class Session;
}

namespace tallix::ui {

// Edit > Find: a text typed and FIND lists every line of the year that holds
// it in its expense, description, check number or category, or whose amount
// it is (month, day, line, expense, amount, status). A double click on a
// result asks the main window to show that line.
class CFindDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CFindDlg(Session& session, QWidget* parent = nullptr);

    QLineEdit* textEdit() const { return text_; }
    QPushButton* findButton() const { return find_; }
    QTableWidget* results() const { return results_; }
    // Lists the lines for the typed text.
    void OnFind();

  signals:
    // month 1-12, line from 1
    void lineChosen(int month, int line);

  private:
    Session& session_;
    QLineEdit* text_ = nullptr;
    QPushButton* find_ = nullptr;
    QTableWidget* results_ = nullptr;
};

}  // namespace tallix::ui
