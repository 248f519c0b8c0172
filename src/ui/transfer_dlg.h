#pragma once
#include <QDialog>
#include <vector>

#include "editing/cell_choices.h"
#include "editing/line_choices.h"

class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace tallix::ui {

// The transfer dialog: a source and a target bank account and an amount.
// PERFORM TRANFER hands back whatever the fields hold, checked by the
// caller; CANCEL or closing the window hands back empty texts.
class CtransferDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CtransferDlg(std::vector<InstitutionChoice> banks, QWidget* parent = nullptr);

    TransferAnswer answer() const { return answer_; }

    QGroupBox* frame() const { return frame_; }
    QComboBox* fromInstitutionBox() const { return fromInstitution_; }
    QComboBox* fromAccountBox() const { return fromAccount_; }
    QComboBox* toInstitutionBox() const { return toInstitution_; }
    QComboBox* toAccountBox() const { return toAccount_; }
    QLineEdit* amountEdit() const { return amount_; }
    QPushButton* performButton() const { return perform_; }
    QPushButton* cancelButton() const { return cancel_; }

  private:
    QGroupBox* buildTarget(const QString& title, const QString& side, QComboBox*& institution,
                           QComboBox*& account);
    void showAccounts(int institution, QComboBox* accounts);
    void perform();

    std::vector<InstitutionChoice> banks_;
    TransferAnswer answer_;
    QGroupBox* frame_ = nullptr;
    QComboBox* fromInstitution_ = nullptr;
    QComboBox* fromAccount_ = nullptr;
    QComboBox* toInstitution_ = nullptr;
    QComboBox* toAccount_ = nullptr;
    QLineEdit* amount_ = nullptr;
    QPushButton* perform_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

}  // namespace tallix::ui
