#include "ui/category_dlg.h"

#include <QAbstractItemDelegate>
#include <QAction>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/session.h"
#include "reference/category_maintenance.h"
#include "reference/plan_input.h"
#include "reference/plan_lists.h"
#include "reference/plan_messages.h"
#include "ui/maintenance_parts.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {
namespace {

// A category item keeps the name the file has for it; a new label has none
// and keeps the category it goes before instead.
constexpr int kNameRole = Qt::UserRole;
constexpr int kBeforeRole = Qt::UserRole + 1;

}  // namespace

CcategoryDlg::CcategoryDlg(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("categoryDialog"));
    setWindowTitle(QString::fromLatin1(kCategoryDialogTitle));
    auto* layout = new QVBoxLayout(this);
    tree_ = new QTreeWidget(this);
    tree_->setObjectName(QStringLiteral("categoryTree"));
    tree_->setHeaderLabel(QStringLiteral("CATEGORIES"));
    tree_->setRootIsDecorated(false);
    tree_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::SelectedClicked);
    layout->addWidget(tree_);

    delete_ = new QAction(QStringLiteral("Delete"), this);
    addNew_ = new QAction(QStringLiteral("Add New"), this);
    tree_->setContextMenuPolicy(Qt::ActionsContextMenu);
    tree_->addActions({delete_, addNew_});
    auto* menu = new QMenuBar(this);
    menu->addActions({delete_, addNew_});
    layout->setMenuBar(menu);

    const OkCancel buttons = addOkCancelRow(layout, this);
    connect(buttons.ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons.cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(delete_, &QAction::triggered, this, &CcategoryDlg::deleteSelected);
    connect(addNew_, &QAction::triggered, this, &CcategoryDlg::addNew);
    onLabelEdited(tree_, filling_, [this](const QModelIndex& edited) {
        return [this, label = edited.data().toString(), name = edited.data(kNameRole),
                before = edited.data(kBeforeRole)] { commitLabel(label, name, before); };
    });
    // A new label left empty goes away again.
    connect(tree_->itemDelegate(), &QAbstractItemDelegate::closeEditor, this, [this] {
        QMetaObject::invokeMethod(
            this,
            [this] {
                for (int i = tree_->topLevelItemCount() - 1; i >= 0; --i)
                    if (!tree_->topLevelItem(i)->data(0, kNameRole).isValid() &&
                        tree_->topLevelItem(i)->text(0).isEmpty())
                        delete tree_->takeTopLevelItem(i);
            },
            Qt::QueuedConnection);
    });
    fillTree({});
    resize(420, 520);
}

void CcategoryDlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CcategoryDlg::fillTree(const std::string& selected) {
    filling_ = true;
    tree_->clear();
    for (const CategoryExpenses& category : expenseTree(session_.data.node())) {
        auto* item = new QTreeWidgetItem(tree_, {qs(category.category)});
        item->setData(0, kNameRole, qs(category.category));
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        if (category.category == selected)
            tree_->setCurrentItem(item);
    }
    filling_ = false;
}

void CcategoryDlg::commitLabel(const QString& text, const QVariant& name,
                               const QVariant& beforeName) {
    const std::string label = text.toStdString();
    if (!name.isValid()) {
        const std::string before = beforeName.toString().toStdString();
        const bool added =
            calls_.run([&] { addCategory(session_, session_.prompter(), label, before); });
        fillTree(added ? trimmedText(label) : before);
        return;
    }
    const std::string oldName = name.toString().toStdString();
    if (label == oldName)
        return;
    std::optional<int> renamed;
    calls_.run([&] { renamed = renameCategory(session_, session_.prompter(), oldName, label); });
    fillTree(renamed ? trimmedText(label) : oldName);
}

void CcategoryDlg::addNew() {
    QTreeWidgetItem* selected = tree_->currentItem();
    if (!selected || !selected->data(0, kNameRole).isValid()) {
        session_.prompter().notify(kNoCategoryToPlaceBefore);
        return;
    }
    filling_ = true;
    auto* item = new QTreeWidgetItem;
    item->setData(0, kBeforeRole, selected->data(0, kNameRole));
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    tree_->insertTopLevelItem(tree_->indexOfTopLevelItem(selected), item);
    filling_ = false;
    tree_->setCurrentItem(item);
    tree_->editItem(item);
}

void CcategoryDlg::deleteSelected() {
    QTreeWidgetItem* selected = tree_->currentItem();
    if (!selected || !selected->data(0, kNameRole).isValid()) {
        session_.prompter().notify(kNoCategoryToDelete);
        return;
    }
    const std::string name = selected->data(0, kNameRole).toString().toStdString();
    bool deleted = false;
    calls_.run([&] { deleted = deleteCategory(session_, session_.prompter(), name); });
    if (deleted)
        fillTree({});
}

}  // namespace tallix::ui
