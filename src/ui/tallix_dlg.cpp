#include "ui/tallix_dlg.h"

#include <QVBoxLayout>

#include "app/guard.h"
#include "app/session.h"
#include "app/startup.h"

namespace tallix::ui {

CTallixDlg::CTallixDlg(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    resize(1200, 700);
}

void CTallixDlg::OnInitDialog() {
    guarded(session_.prompter(), "OnInitDialog", [&] {
        openYearAtStartup(session_);
        setWindowTitle(QString::fromStdString(session_.title()));
    });
}

}  // namespace tallix::ui
