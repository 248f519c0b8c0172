#include "ui/description_dlg.h"

#include <QAction>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/session.h"
#include "reference/descriptions.h"
#include "reference/plan_input.h"
#include "ui/plan_dialog_parts.h"
#include "ui/register_grid_pickers.h"

namespace tallix::ui {
namespace {

// A description's item keeps the text the file has for it.
constexpr int kTextRole = Qt::UserRole;
// The mode of the dialog that keeps the list.
constexpr int kKeepList = 0;

}  // namespace

CDescriptionDlg::CDescriptionDlg(int mode, const QStringList& descriptions, const QString& text,
                                 QWidget* parent)
    : QDialog(parent), mode_(mode) {
    const bool picking = mode_ == kPickForCell;
    build(picking ? QStringLiteral("CLEAR") : QStringLiteral("YES"),
          picking ? QStringLiteral("Cancel") : QStringLiteral("NO"));
    question_->setVisible(mode_ == kNotOnList);
    list_->addItems(descriptions);
    list_->sortItems();

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

CDescriptionDlg::CDescriptionDlg(Session& session, QWidget* parent)
    : QDialog(parent), mode_(kKeepList), session_(&session), calls_(this, &session.prompter()) {
    build(QStringLiteral("APPLY"), QStringLiteral("CANCEL"));
    question_->hide();
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::SelectedClicked);
    delete_ = new QAction(QStringLiteral("Delete"), this);
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
    list_->addAction(delete_);

    connect(first_, &QPushButton::clicked, this, &CDescriptionDlg::apply);
    connect(new_, &QLineEdit::returnPressed, this, &CDescriptionDlg::apply);
    connect(deleteButton_, &QPushButton::clicked, this, &CDescriptionDlg::deleteSelected);
    connect(delete_, &QAction::triggered, this, &CDescriptionDlg::deleteSelected);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(list_, &QListWidget::itemSelectionChanged, this, &CDescriptionDlg::enableDelete);
    onLabelEdited(list_, filling_, [this](const QModelIndex& edited) {
        return [this, oldText = edited.data(kTextRole).toString(),
                newText = edited.data().toString()] { rename(oldText, newText); };
    });
    fillList({});
    resize(420, 520);
}

void CDescriptionDlg::build(const QString& firstText, const QString& cancelText) {
    setWindowTitle(QStringLiteral("EDIT OR DELETE A DESCRIPTION"));
    auto* layout = new QVBoxLayout(this);
    question_ = new QLabel(QString::fromLatin1(kDescriptionNotOnList), this);
    layout->addWidget(question_);
    list_ = new QListWidget(this);
    layout->addWidget(list_);
    const bool keeping = mode_ == kKeepList;
    if (keeping) {
        auto* form = new QFormLayout;
        layout->addLayout(form);
        new_ = addTextRow(form, QStringLiteral("NEW DESCRIPTION"),
                          QStringLiteral("newDescriptionEdit"));
    }
    first_ = new QPushButton(firstText, this);
    cancel_ = new QPushButton(cancelText, this);
    auto* row = new QHBoxLayout;
    row->addWidget(first_);
    if (keeping) {
        deleteButton_ = new QPushButton(QStringLiteral("DELETE"), this);
        row->addWidget(deleteButton_);
    }
    row->addWidget(cancel_);
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    layout->addLayout(row);
}

void CDescriptionDlg::finish(const QString& answer, bool accepted) {
    answer_ = answer;
    if (accepted)
        accept();
    else
        reject();
}

void CDescriptionDlg::fillList(const std::string& selected) {
    filling_ = true;
    list_->clear();
    for (const std::string& text : descriptions(session_->data.node())) {
        auto* item = new QListWidgetItem(qs(text), list_);
        item->setData(kTextRole, qs(text));
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    list_->sortItems();
    const auto found = list_->findItems(qs(selected), Qt::MatchExactly);
    list_->setCurrentItem(found.isEmpty() ? nullptr : found.front());
    enableDelete();
    filling_ = false;
}

void CDescriptionDlg::enableDelete() {
    const bool selected = !list_->selectedItems().isEmpty();
    deleteButton_->setEnabled(selected);
    delete_->setEnabled(selected);
}

void CDescriptionDlg::apply() {
    const std::string text = new_->text().toStdString();
    if (calls_.run([&] { saveNewDescription(*session_, text); })) {
        new_->clear();
        fillList(trimmedText(text));
    }
}

void CDescriptionDlg::deleteSelected() {
    const QList<QListWidgetItem*> selected = list_->selectedItems();
    if (selected.isEmpty())
        return;
    const std::string text = selected.front()->data(kTextRole).toString().toStdString();
    if (calls_.run([&] { deleteDescription(*session_, text); }))
        fillList({});
}

void CDescriptionDlg::rename(const QString& oldText, const QString& newText) {
    const bool renamed = calls_.run(
        [&] { renameDescription(*session_, oldText.toStdString(), newText.toStdString()); });
    // A refused edit shows the old text again.
    if (!calls_.failed())
        fillList(renamed ? trimmedText(newText.toStdString()) : oldText.toStdString());
}

}  // namespace tallix::ui
