#include "ui/move_row_dlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallix::ui {

CMoveRowDlg::CMoveRowDlg(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("moveRowDialog"));
    setWindowTitle(QStringLiteral("MOVE ROW"));
    auto* layout = new QVBoxLayout(this);
    auto* caption = new QLabel(QStringLiteral("MOVE ROW TO"), this);
    caption->setObjectName(QStringLiteral("captionLabel"));
    layout->addWidget(caption);
    edit_ = new QLineEdit(this);
    edit_->setObjectName(QStringLiteral("targetEdit"));
    layout->addWidget(edit_);
    auto* buttons = new QHBoxLayout;
    ok_ = new QPushButton(QStringLiteral("OK"), this);
    ok_->setObjectName(QStringLiteral("okButton"));
    ok_->setDefault(true);
    cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
    cancel_->setObjectName(QStringLiteral("cancelButton"));
    cancel_->setAutoDefault(false);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);
    connect(ok_, &QPushButton::clicked, this, &CMoveRowDlg::takeTarget);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void CMoveRowDlg::takeTarget() {
    bool ok = false;
    const int typed = edit_->text().trimmed().toInt(&ok);
    target_ = ok ? typed : 0;
    accept();
}

}  // namespace tallix::ui
