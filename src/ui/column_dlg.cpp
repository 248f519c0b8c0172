#include "ui/column_dlg.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "app/session.h"
#include "reference/bank_maintenance.h"
#include "reference/bank_messages.h"
#include "reference/plan_input.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {

CColumnDlg::CColumnDlg(Session& session, ColumnWidth column, QWidget* parent)
    : QDialog(parent),
      session_(session),
      column_(std::move(column)),
      calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("columnDialog"));
    setWindowTitle(QStringLiteral("Column width"));
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(QString::fromLatin1(kColumnWidthText), this);
    text->setWordWrap(true);
    layout->addWidget(text);
    auto* form = new QFormLayout;
    layout->addLayout(form);
    auto* name = new QLabel(qs(column_.title), this);
    name->setObjectName(QStringLiteral("columnTitle"));
    form->addRow(QStringLiteral("COLUMN"), name);
    width_ = addTextRow(form, QStringLiteral("WIDTH"), QStringLiteral("widthEdit"));
    width_->setText(qs(column_.width));

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addStretch();
    update_ = new QPushButton(QStringLiteral("UPDATE"), this);
    update_->setObjectName(QStringLiteral("updateButton"));
    update_->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    cancel->setAutoDefault(false);
    buttons->addWidget(update_);
    buttons->addWidget(cancel);
    connect(update_, &QPushButton::clicked, this, &CColumnDlg::writeWidth);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    width_->selectAll();
    resize(sizeHint().expandedTo(QSize(420, 0)));
}

void CColumnDlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CColumnDlg::writeWidth() {
    if (calls_.run([&] { setColumnWidth(session_, column_.key, width_->text().toStdString()); }))
        accept();
}

}  // namespace tallix::ui
