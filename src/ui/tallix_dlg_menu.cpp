// The main window's menu bar and picture buttons and where their commands go.
#include <QMenu>
#include <QMenuBar>

#include "app/customers.h"
#include "app/data_commands.h"
#include "app/guard.h"
#include "app/session.h"
#include "app/undo_history.h"
#include "app/year_files.h"
#include "reference/column_definitions.h"
#include "register/month_display.h"
#include "ui/bank_dlg.h"
#include "ui/category_dlg.h"
#include "ui/column_dlg.h"
#include "ui/credit_cards_dlg.h"
#include "ui/description_dlg.h"
#include "ui/desktop_environment.h"
#include "ui/expense_dlg.h"
#include "ui/find_dlg.h"
#include "ui/history_dlg.h"
#include "ui/income_dlg.h"
#include "ui/picture_buttons.h"
#include "ui/receivables_dlg.h"
#include "ui/register_grid.h"
#include "ui/rmd_dlg.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {
namespace {

constexpr const char* kReportItems[] = {"Expense Year to date totals", "Monthly expense totals",
                                        "Monthly Receivable Totals ",
                                        "Receivable Year to date totals"};

}  // namespace

void CTallixDlg::buildMenus() {
    QMenu* file = menuBar_->addMenu(QStringLiteral("File"));
    file->addAction(QStringLiteral("History"), this, &CTallixDlg::OnFileHistory);
    file->addAction(QStringLiteral("Exit"), this, &CTallixDlg::OnBnClickedCancel);

    QMenu* edit = menuBar_->addMenu(QStringLiteral("Edit"));
    undoAction_ = edit->addAction(QStringLiteral("Undo"), this, &CTallixDlg::OnEditUndo);
    undoAction_->setShortcut(QKeySequence::Undo);
    addAction(undoAction_);
    redoAction_ = edit->addAction(QStringLiteral("Redo"), this, &CTallixDlg::OnEditRedo);
    redoAction_->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    addAction(redoAction_);
    connect(edit, &QMenu::aboutToShow, this, &CTallixDlg::updateUndoAction);
    QAction* find = edit->addAction(QStringLiteral("Find"), this, &CTallixDlg::OnEditFind);
    find->setShortcut(QKeySequence::Find);
    addAction(find);  // Ctrl+F works while the menu is closed
    updateUndoAction();

    QMenu* manage = menuBar_->addMenu(QStringLiteral("Manage"));
    manage->addAction(QStringLiteral("Expense"), this, &CTallixDlg::OnManageExpense);
    manage->addAction(QStringLiteral("Category"), this, &CTallixDlg::OnManageCategory);
    manage->addAction(QStringLiteral("Income"), this, &CTallixDlg::OnManageIncome);
    manage->addAction(QStringLiteral("Bank or Institution"), this, &CTallixDlg::OnManageBank);
    manage->addAction(QStringLiteral("Credit Card"), this, &CTallixDlg::OnManageCreditCard);
    manage->addAction(QStringLiteral("New Bank or Institution"), this, &CTallixDlg::OnBankAddbank);
    manage->addAction(QStringLiteral("New Bank Account"), this, &CTallixDlg::OnNewBankaccount);
    manage->addAction(QStringLiteral("New Credit Card"), this, &CTallixDlg::OnCreditcardAdd);
    manage->addAction(QStringLiteral("Description"), this, &CTallixDlg::OnManageDescription);
    manage->addAction(QStringLiteral("RMD"), this, &CTallixDlg::OnManageRmd);
    manage->addAction(QStringLiteral("Receivables"), this, [this] { OnManageReceivables(); });

    QMenu* tools = menuBar_->addMenu(QStringLiteral("Tools"));
    tools->addAction(QStringLiteral("Refresh"), this, &CTallixDlg::Refresh);
    tools->addAction(QStringLiteral("Recurring expenses"), this, [this] { OnReport(7); });
    QMenu* reports = tools->addMenu(QStringLiteral("Reports"));
    constexpr int kReportNumbers[] = {8, 9, 20, 21};
    for (size_t i = 0; i < std::size(kReportItems); ++i) {
        const int number = kReportNumbers[i];
        reports->addAction(QString::fromLatin1(kReportItems[i]), this,
                           [this, number] { OnReport(number); });
    }
    tools->addAction(QStringLiteral("Make next year"), this, &CTallixDlg::OnToolsMakenextyear);
    tools->addAction(QStringLiteral("Update all months"), this,
                     &CTallixDlg::OnToolsUpdateallmonths);

    QMenu* years = menuBar_->addMenu(QStringLiteral("Years"));
    for (const std::string& year : yearsMenuItems()) {
        QString text = QString::fromStdString(year);
        years->addAction(text, this, [this, text] { OnYearsMenu(text); });
    }

    menuBar_->addAction(QStringLiteral("Help"), this, [this] {
        guarded(session_.prompter(), "OnHelp",
                [&] { openHelp(session_, programFiles().helpFile); });
    });

    QMenu* dataMenu = menuBar_->addMenu(QStringLiteral("Data"));
    dataMenu->addAction(QStringLiteral("Save data file"), this, [this] {
        guarded(session_.prompter(), "OnDataSavedatafile", [&] { offerSaveDataFile(session_); });
    });
    dataMenu->addAction(QStringLiteral("Display data file"), this, [this] {
        guarded(session_.prompter(), "OnDataDisplaydatafile", [&] { displayDataFile(session_); });
    });
}

void CTallixDlg::buildCustomersMenu() {
    if (!customersMenu_)
        customersMenu_ = menuBar_->addMenu(QStringLiteral("Customers"));
    customersMenu_->clear();
    int command = kFirstCustomerCommand;
    for (const std::string& name : customerNames(session_.data)) {
        if (command > kLastCustomerCommand)
            break;
        QAction* item = customersMenu_->addAction(QString::fromStdString(name));
        item->setData(command);
        connect(item, &QAction::triggered, this, [this, command] { OnCustomerCommand(command); });
        ++command;
    }
}

void CTallixDlg::connectPictureButtons() {
    connect(pictureButtons_, &PictureButtons::clicked, this, [this](PictureButtons::Task task) {
        switch (task) {
            case PictureButtons::kRefresh:
                Refresh();
                break;
            case PictureButtons::kUpdate:
                OnToolsUpdate();
                break;
            case PictureButtons::kExpense:
                OnManageExpense();
                break;
            case PictureButtons::kIncome:
                OnManageIncome();
                break;
            case PictureButtons::kReceivable:
                OnManageReceivables();
                break;
            case PictureButtons::kBank:
                OnManageBank();
                break;
            case PictureButtons::kCreditCard:
                OnManageCreditCard();
                break;
            case PictureButtons::kDescription:
                OnManageDescription();
                break;
            case PictureButtons::kCategory:
                OnManageCategory();
                break;
            case PictureButtons::kTaskCount:
                break;
        }
    });
}

void CTallixDlg::updateUndoAction() {
    const auto show = [](QAction* action, const std::optional<std::string>& text,
                         const char* idle) {
        action->setText(text ? QString::fromStdString(*text) : QString::fromLatin1(idle));
        action->setEnabled(text.has_value());
    };
    show(undoAction_, undoText(session_), "Undo");
    show(redoAction_, redoText(session_), "Redo");
}

void CTallixDlg::showMonthFromFile() {
    if (session_.hasDataFile() && tallix::Refresh(session_))
        showDisplayedMonth(true);
    else
        updateUndoAction();  // a Refresh that failed may still have read a changed file
    // A customer added, renamed, moved or deleted (or one of those undone).
    buildCustomersMenu();
}

namespace {

// Runs a plan dialog, made with the session, `args` and the main window,
// under its handler's guard; what escapes the dialog's own handlers is
// reported by the guard.
template <typename Dialog, typename... Args>
void runPlanDialog(Session& session, QWidget* parent, std::string_view handlerName, Args... args) {
    guarded(session.prompter(), handlerName, [&] {
        Dialog dialog(session, args..., parent);
        dialog.exec();
        dialog.rethrowFailure();
    });
}

}  // namespace

void CTallixDlg::runMaintenance(const std::function<void()>& dialog) {
    dialog();
    showMonthFromFile();
}

void CTallixDlg::OnManageExpense() {
    runMaintenance([this] { runPlanDialog<CExpenseDlg>(session_, this, "editExpense"); });
}

void CTallixDlg::OnManageCategory() {
    runMaintenance([this] { runPlanDialog<CcategoryDlg>(session_, this, "editCategory"); });
}

void CTallixDlg::OnManageBank() {
    runMaintenance(
        [this] { runPlanDialog<CBankdlg>(session_, this, "editBank", CBankdlg::Mode::Edit); });
}

void CTallixDlg::OnManageCreditCard() {
    runMaintenance(
        [this] { runPlanDialog<CDialogCreditCards>(session_, this, "editCreditCard", false); });
}

void CTallixDlg::OnManageIncome() {
    runMaintenance([this] { runPlanDialog<CIncomedlg>(session_, this, "editIncome"); });
}

void CTallixDlg::OnManageReceivables(const std::string& customer) {
    runMaintenance(
        [&] { runPlanDialog<CReceivablesDlg>(session_, this, "editReceivables", customer); });
}

void CTallixDlg::OnBankAddbank() {
    runMaintenance([this] {
        runPlanDialog<CBankdlg>(session_, this, "OnBankAddbank", CBankdlg::Mode::AddBank);
    });
}

void CTallixDlg::OnNewBankaccount() {
    runMaintenance([this] {
        runPlanDialog<CBankdlg>(session_, this, "OnNewBankaccount", CBankdlg::Mode::AddAccount);
    });
}

void CTallixDlg::OnCreditcardAdd() {
    runMaintenance(
        [this] { runPlanDialog<CDialogCreditCards>(session_, this, "OnCreditcardAdd", true); });
}

void CTallixDlg::OnManageRmd() {
    runMaintenance([this] { runPlanDialog<CDialogrmd>(session_, this, "editRmd"); });
}

void CTallixDlg::OnManageDescription() {
    runMaintenance([this] { runPlanDialog<CDescriptionDlg>(session_, this, "editDescription"); });
}

void CTallixDlg::OnFileHistory() {
    // What is being typed in the grid becomes a version before the list is read.
    registerGrid_->HideEditor();
    runMaintenance([this] { runPlanDialog<CHistoryDlg>(session_, this, "OnFileHistory"); });
}

void CTallixDlg::OnColumnWidth(int gridColumn) {
    // What is being typed in the grid is kept before the month is shown again.
    registerGrid_->HideEditor();
    const std::optional<ColumnWidth> column =
        columnAtGridPosition(session_.data.node(), gridColumn);
    if (!column)
        return;
    runMaintenance([&] { runPlanDialog<CColumnDlg>(session_, this, "OnColumnWidth", *column); });
}

void CTallixDlg::OnEditFind() {
    if (!findDialog_) {
        findDialog_ = new CFindDlg(session_, this);
        connect(findDialog_, &CFindDlg::lineChosen, this, &CTallixDlg::showLine);
    }
    findDialog_->show();
    findDialog_->raise();
    findDialog_->activateWindow();
}

void CTallixDlg::OnEditUndo() {
    takeBack("OnEditUndo", undo);
}

void CTallixDlg::OnEditRedo() {
    takeBack("OnEditRedo", redo);
}

void CTallixDlg::takeBack(std::string_view handler, std::optional<std::string> (*step)(Session&)) {
    registerGrid_->HideEditor();
    bool moved = false;
    guarded(session_.prompter(), handler, [&] { moved = step(session_).has_value(); });
    if (moved)
        showMonthFromFile();
    else
        updateUndoAction();  // a failed step leaves the history where the file is
}

}  // namespace tallix::ui
