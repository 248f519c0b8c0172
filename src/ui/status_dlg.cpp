#include "ui/status_dlg.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

namespace tallix::ui {

CStatusdlg::CStatusdlg(const QStringList& words, const QString& current, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(QStringLiteral("Status"));
    auto* layout = new QVBoxLayout(this);
    list_ = new QListWidget(this);
    list_->addItems(words);
    const QList<QListWidgetItem*> now = list_->findItems(current, Qt::MatchExactly);
    list_->setCurrentItem(now.isEmpty() ? list_->item(0) : now.front());
    layout->addWidget(list_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &CStatusdlg::pick);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemDoubleClicked, this, &CStatusdlg::pick);
}

void CStatusdlg::pick() {
    if (QListWidgetItem* item = list_->currentItem()) {
        status_ = item->text();
        accept();
    }
}

}  // namespace tallix::ui
