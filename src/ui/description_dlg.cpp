#include "ui/description_dlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "reference/descriptions.h"
#include "ui/register_grid_pickers.h"

namespace tallix::ui {

CDescriptionDlg::CDescriptionDlg(int mode, const QStringList& descriptions, const QString& text,
                                 QWidget* parent)
    : QDialog(parent), mode_(mode) {
    setWindowTitle(QStringLiteral("EDIT OR DELETE A DESCRIPTION"));
    auto* layout = new QVBoxLayout(this);
    question_ = new QLabel(QString::fromLatin1(kDescriptionNotOnList), this);
    question_->setVisible(mode_ == kNotOnList);
    layout->addWidget(question_);
    list_ = new QListWidget(this);
    list_->addItems(descriptions);
    list_->sortItems();
    layout->addWidget(list_);
    const bool picking = mode_ == kPickForCell;
    first_ = new QPushButton(picking ? QStringLiteral("CLEAR") : QStringLiteral("YES"), this);
    cancel_ = new QPushButton(picking ? QStringLiteral("Cancel") : QStringLiteral("NO"), this);
    auto* row = new QHBoxLayout;
    for (QPushButton* b : {first_, cancel_}) {
        b->setAutoDefault(false);
        row->addWidget(b);
    }
    layout->addLayout(row);

    if (picking) {
        answer_ = QString::fromLatin1(kDescriptionCancel);
        if (const auto now = list_->findItems(text, Qt::MatchExactly); !now.isEmpty())
            list_->setCurrentItem(now.front());
        connect(list_, &QListWidget::itemDoubleClicked, this,
                [this](QListWidgetItem* item) { finish(item->text(), true); });
        connect(first_, &QPushButton::clicked, this,
                [this] { finish(QString::fromLatin1(kDescriptionClear), true); });
        connect(cancel_, &QPushButton::clicked, this,
                [this] { finish(QString::fromLatin1(kDescriptionCancel), false); });
    } else {
        answer_ = QStringLiteral("no");
        connect(first_, &QPushButton::clicked, this,
                [this] { finish(QStringLiteral("yes"), true); });
        connect(cancel_, &QPushButton::clicked, this,
                [this] { finish(QStringLiteral("no"), false); });
    }
}

void CDescriptionDlg::finish(const QString& answer, bool accepted) {
    answer_ = answer;
    if (accepted)
        accept();
    else
        reject();
}

}  // namespace tallix::ui
