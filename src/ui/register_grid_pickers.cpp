#include "ui/register_grid_pickers.h"

#include <QString>
#include <QStringList>
#include <QTableView>

#include "app/session.h"
#include "editing/transfers.h"
#include "ui/bank_select.h"
#include "ui/description_dlg.h"
#include "ui/expense_dlg.h"
#include "ui/move_row_dlg.h"
#include "ui/receivables_dlg.h"
#include "ui/row_operations_dlg.h"
#include "ui/status_dlg.h"
#include "ui/transfer_dlg.h"

namespace tallix::ui {
namespace {

QStringList toList(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& t : texts)
        list << QString::fromStdString(t);
    return list;
}

class DialogPickers : public GridPickers {
  public:
    DialogPickers(QTableView* grid, Session& session) : parent_(grid), session_(session) {}

    std::optional<std::string> pickStatus(const std::string& current) override {
        CStatusdlg dialog(toList(statusWords()), QString::fromStdString(current), parent_);
        if (dialog.exec() != QDialog::Accepted || dialog.status().isEmpty())
            return std::nullopt;
        return dialog.status().toStdString();
    }

    BankChoice pickInstitution(const std::vector<InstitutionChoice>& choices,
                               const std::string& institution,
                               const std::string& account) override {
        CBankselect dialog(choices, institution, account, parent_);
        dialog.exec();
        return dialog.choice();
    }

    std::string pickDescription(const std::vector<std::string>& descriptions,
                                const std::string& current) override {
        CDescriptionDlg dialog(CDescriptionDlg::kPickForCell, toList(descriptions),
                               QString::fromStdString(current), parent_);
        dialog.exec();
        return dialog.answer().toStdString();
    }

    ExpensePick pickExpense(int mode) override {
        CExpenseDlg dialog(session_.data.node(), mode, parent_);
        dialog.exec();
        return dialog.pick();
    }

    std::string pickCustomer() override {
        CReceivablesDlg dialog(session_.data.node(), true, parent_);
        dialog.exec();
        return dialog.selectedCustomer();
    }

    std::optional<TransferAnswer> pickTransfer() override {
        CtransferDlg dialog(transferBanks(session_.data.node()), parent_);
        if (dialog.exec() != QDialog::Accepted)
            return std::nullopt;
        return dialog.answer();
    }

    RowOperationChoice pickRowOperation(int row) override {
        CRowOperations popup(parent_);
        // Beside the clicked line: from the grid's top left corner, down by the
        // line's height within the grid.
        popup.placeNear(parent_->mapToGlobal(QPoint(0, 0)), parent_->rowViewportPosition(row));
        popup.exec();
        return popup.choice();
    }

    int pickMoveTarget() override {
        CMoveRowDlg dialog(parent_);
        dialog.exec();
        return dialog.target();
    }

  private:
    QTableView* parent_;
    Session& session_;
};

}  // namespace

std::unique_ptr<GridPickers> dialogPickers(QTableView* grid, Session& session) {
    return std::make_unique<DialogPickers>(grid, session);
}

}  // namespace tallix::ui
