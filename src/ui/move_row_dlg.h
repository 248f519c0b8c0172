#pragma once
#include <QDialog>

class QLineEdit;
class QPushButton;

namespace tallix::ui {

// Asks for the line a register row moves to.
class CMoveRowDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CMoveRowDlg(QWidget* parent = nullptr);

    // The line number typed, after OK; 0 after Cancel or when what was typed
    // is not a whole number.
    int target() const { return target_; }

    QLineEdit* lineEdit() const { return edit_; }
    QPushButton* okButton() const { return ok_; }
    QPushButton* cancelButton() const { return cancel_; }

  private:
    void takeTarget();

    QLineEdit* edit_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
    int target_ = 0;
};

}  // namespace tallix::ui
