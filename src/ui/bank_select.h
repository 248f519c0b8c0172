#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "ui/register_grid_pickers.h"

class QComboBox;
class QPushButton;

namespace tallix::ui {

// The institution picker: an institution and one of its accounts (the cards
// for "creditcards"). UPDATE answers both, CANCEL answers "canceled", CLEAR
// ENTRIES asks for both fields to be cleared.
class CBankselect : public QDialog {
    Q_OBJECT
  public:
    CBankselect(std::vector<InstitutionChoice> choices, const std::string& institution,
                const std::string& account, QWidget* parent = nullptr);

    BankChoice choice() const { return choice_; }

    QComboBox* institutionBox() const { return institutions_; }
    QComboBox* accountBox() const { return accounts_; }
    QPushButton* updateButton() const { return update_; }
    QPushButton* cancelButton() const { return cancel_; }
    QPushButton* clearButton() const { return clear_; }

  private:
    void showAccounts(int institution);
    void finish(BankChoice::Outcome outcome);

    std::vector<InstitutionChoice> choices_;
    QComboBox* institutions_ = nullptr;
    QComboBox* accounts_ = nullptr;
    QPushButton* update_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPushButton* clear_ = nullptr;
    BankChoice choice_;
};

}  // namespace tallix::ui
