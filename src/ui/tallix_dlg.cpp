#include "ui/tallix_dlg.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTableView>
#include <QVBoxLayout>

#include "app/backups.h"
#include "app/guard.h"
#include "app/session.h"
#include "app/startup.h"
#include "app/year_files.h"
#include "ui/month_buttons.h"
#include "ui/picture_buttons.h"

namespace tallix::ui {

CTallixDlg::CTallixDlg(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    auto* layout = new QVBoxLayout(this);
    menuBar_ = new QMenuBar(this);
    layout->setMenuBar(menuBar_);
    monthButtons_ = new MonthButtons(this);
    pictureButtons_ = new PictureButtons(this);
    grid_ = new QTableView(this);
    layout->addWidget(monthButtons_);
    layout->addWidget(pictureButtons_);
    layout->addWidget(grid_, 1);
    resize(1280, 760);

    buildMenus();
    connect(monthButtons_, &MonthButtons::monthChosen, this, &CTallixDlg::OnMonthButton);
    connectPictureButtons();
}

void CTallixDlg::OnInitDialog() {
    guarded(session_.prompter(), "OnInitDialog", [&] {
        openYearAtStartup(session_);
        checkBackupTarget(session_);
        grid_->setShowGrid(true);
        grid_->setFont(QFont(QStringLiteral("Courier New"), 9));
        grid_->horizontalHeader()->setHighlightSections(false);
        setWindowTitle(QString::fromStdString(session_.title()));
        monthButtons_->press(session_.month);
        buildCustomersMenu();
    });
}

void CTallixDlg::OnBnClickedCancel() {
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
        monthButtons_->press(month);
        session_.month = month;
        setWindowTitle(QString::fromStdString(session_.title()));
    });
}

void CTallixDlg::OnYearsMenu(const QString& year) {
    if (!processprevyearrequest(session_, year.toStdString()))
        return;
    setWindowTitle(QString::fromStdString(session_.title()));
}

void CTallixDlg::OnCustomerCommand(int command) {
    // The menu is a list to look at: the command's number is all it carries.
    (void)QString::number(command);
}

}  // namespace tallix::ui
