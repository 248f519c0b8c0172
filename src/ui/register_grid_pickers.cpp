#include "ui/register_grid_pickers.h"

#include <QString>
#include <QStringList>

#include "ui/bank_select.h"
#include "ui/description_dlg.h"
#include "ui/status_dlg.h"

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
    explicit DialogPickers(QWidget* parent) : parent_(parent) {}

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

  private:
    QWidget* parent_;
};

}  // namespace

std::unique_ptr<GridPickers> dialogPickers(QWidget* parent) {
    return std::make_unique<DialogPickers>(parent);
}

}  // namespace tallix::ui
