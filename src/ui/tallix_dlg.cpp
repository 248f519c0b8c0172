#include "ui/tallix_dlg.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTableView>
#include <QVBoxLayout>

#include "app/backups.h"
#include "app/customers.h"
#include "app/guard.h"
#include "app/session.h"
#include "app/startup.h"
#include "app/year_files.h"
#include "register/month_display.h"
#include "ui/desktop_environment.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/picture_buttons.h"
#include "ui/register_grid.h"

namespace tallix::ui {

CTallixDlg::CTallixDlg(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    auto* layout = new QVBoxLayout(this);
    menuBar_ = new QMenuBar(this);
    layout->setMenuBar(menuBar_);
    monthButtons_ = new MonthButtons(this);
    pictureButtons_ = new PictureButtons(programFiles().imageFolder, this);
    grid_ = new QTableView(this);
    layout->addWidget(monthButtons_);
    layout->addWidget(pictureButtons_);
    layout->addWidget(grid_, 1);
    gridModel_ = new GridModel(session_.view, this);
    setUpGrid();
    resize(1280, 760);

    buildMenus();
    connect(monthButtons_, &MonthButtons::monthChosen, this, &CTallixDlg::OnMonthButton);
    connectPictureButtons();
}

CTallixDlg::~CTallixDlg() {
    delete registerGrid_;
}

void CTallixDlg::OnInitDialog() {
    guarded(session_.prompter(), "OnInitDialog", [&] {
        if (!openYearAtStartup(session_)) {
            closedAtStartup_ = true;
            return;
        }
        checkBackupTarget(session_);
        loadColumns(session_);
        setWindowTitle(QString::fromStdString(session_.title()));
        session_.month = session_.today.month;
        displayMonth(session_, std::to_string(session_.month));
        showDisplayedMonth();
        fitWidthToGrid();
        monthButtons_->press(session_.month);
        buildCustomersMenu();
    });
    // The user chose no year file and was told that the program closes.
    if (closedAtStartup_)
        OnBnClickedCancel();
}

int CTallixDlg::exec() {
    return closedAtStartup_ ? result() : QDialog::exec();
}

void CTallixDlg::OnBnClickedCancel() {
    // What is typed in an open cell is kept before anything else happens.
    registerGrid_->HideEditor();
    if (guarded(session_.prompter(), "OnBnClickedCancel", [&] { writeExitBackups(session_); }))
        QDialog::reject();
}

void CTallixDlg::reject() {
    OnBnClickedCancel();
}

void CTallixDlg::keyPressEvent(QKeyEvent* event) {
    // Enter never closes the main window.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void CTallixDlg::OnMonthButton(int month) {
    guarded(session_.prompter(), "OnMonthButton", [&] {
        registerGrid_->HideEditor();
        session_.month = month;
        session_.view.rememberedRow = 31;
        // Refused (a month without lines), the grid and the session keep the
        // month they showed, and so does the green button.
        if (displayMonth(session_, std::to_string(month)))
            showDisplayedMonth();
        monthButtons_->press(session_.month);
    });
}

void CTallixDlg::OnYearsMenu(const QString& year) {
    registerGrid_->HideEditor();
    if (!processprevyearrequest(session_, year.toStdString()))
        return;
    // Nothing of the other year stays on screen, even when this year's month
    // turns out to have no lines.
    session_.view.table.clear();
    session_.view.lineCount = 0;
    session_.view.shownMonth = 0;
    setWindowTitle(QString::fromStdString(session_.title()));
    loadColumns(session_);
    displayMonth(session_, std::to_string(session_.month));
    showDisplayedMonth();
}

void CTallixDlg::OnCustomerCommand(int command) {
    // Command 2000 + n is the n-th customer in file order: the receivables
    // dialog opens at that customer.
    const std::vector<std::string> names = customerNames(session_.data);
    const size_t at = static_cast<size_t>(command - kFirstCustomerCommand);
    if (at < names.size())
        OnManageReceivables(names[at]);
}

}  // namespace tallix::ui
