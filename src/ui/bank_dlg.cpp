#include "ui/bank_dlg.h"

#include <QAbstractItemDelegate>
#include <QAction>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/prompter.h"
#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_paths.h"
#include "reference/bank_maintenance.h"
#include "reference/bank_messages.h"
#include "reference/plan_input.h"
#include "ui/maintenance_parts.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {
namespace {

// What a tree item stands for. Every item keeps the bank it is under; an
// account and the rows under it keep the account; the rows under CHECK
// REGISTER and BANK BALANCE keep the group; every item keeps the text it was
// filled with, so a commit knows the old name.
enum ItemKind { kBankItem, kAccountItem, kFixedItem, kTitleValue, kClosingValue };
constexpr int kKindRole = Qt::UserRole;
constexpr int kBankRole = Qt::UserRole + 1;
constexpr int kAccountRole = Qt::UserRole + 2;
constexpr int kGroupRole = Qt::UserRole + 3;
constexpr int kFilledRole = Qt::UserRole + 4;

constexpr const char* kNoBankForAccount =
    "Select the bank the new account belongs to (the bank or one of its accounts) in the list "
    "on the left, then click APPLY.";

QTreeWidgetItem* addItem(QTreeWidgetItem* parent, const std::string& text, ItemKind kind,
                         bool editable) {
    auto* item = new QTreeWidgetItem(parent, {qs(text)});
    item->setData(0, kKindRole, kind);
    item->setData(0, kFilledRole, qs(text));
    if (parent)
        for (int role : {kBankRole, kAccountRole, kGroupRole})
            item->setData(0, role, parent->data(0, role));
    if (editable)
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    return item;
}

std::string roleText(const QTreeWidgetItem* item, int role) {
    return item->data(0, role).toString().toStdString();
}

std::string text(const QLineEdit* edit) {
    return edit->text().toStdString();
}

}  // namespace

LabelTree::LabelTree(Prompter& prompter, QWidget* parent)
    : QTreeWidget(parent), prompter_(prompter) {
    setEditTriggers(DoubleClicked | EditKeyPressed | SelectedClicked);
    setExpandsOnDoubleClick(false);  // a double click edits
}

bool LabelTree::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool starting =
        trigger == AllEditTriggers || (trigger & editTriggers() & (DoubleClicked | EditKeyPressed));
    if (index.isValid() && starting && !(index.flags() & Qt::ItemIsEditable)) {
        prompter_.notify(kCannotEditFixedRow);
        return false;
    }
    return QTreeWidget::edit(index, trigger, event);
}

std::vector<int> LabelTree::pathOf(QTreeWidgetItem* item) {
    std::vector<int> path;
    for (; item; item = item->parent())
        path.insert(path.begin(), item->parent() ? item->parent()->indexOfChild(item)
                                                 : item->treeWidget()->indexOfTopLevelItem(item));
    return path;
}

void LabelTree::selectPath(const std::vector<int>& path) {
    QTreeWidgetItem* found = nullptr;
    for (int at : path) {
        QTreeWidgetItem* next = nullptr;
        if (!found && at < topLevelItemCount())
            next = topLevelItem(at);
        else if (found && at < found->childCount())
            next = found->child(at);
        if (!next)
            break;
        found = next;
    }
    setCurrentItem(found);
    if (found)
        scrollToItem(found);
}

CBankdlg::CBankdlg(Session& session, Mode mode, QWidget* parent)
    : QDialog(parent), session_(session), calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("bankDialog"));
    setWindowTitle(QString::fromLatin1(kBankDialogTitle));
    auto* layout = new QVBoxLayout(this);
    auto* body = new QHBoxLayout;
    layout->addLayout(body, 1);

    tree_ = new LabelTree(session_.prompter(), this);
    tree_->setObjectName(QStringLiteral("bankTree"));
    tree_->setHeaderLabel(QStringLiteral("BANKS AND ACCOUNTS"));
    tree_->setMinimumWidth(300);
    body->addWidget(tree_, 2);
    auto* panel = new QWidget(this);
    body->addWidget(panel, 3);
    buildFields(panel);

    delete_ = new QAction(QStringLiteral("Delete"), this);
    auto* add = new QMenu(QStringLiteral("Add"), this);
    addBank_ = add->addAction(QStringLiteral("BANK/INSTITUTION"));
    addAccount_ = add->addAction(QStringLiteral("ACCOUNT"));
    tree_->setContextMenuPolicy(Qt::ActionsContextMenu);
    tree_->addActions({delete_, add->menuAction()});
    auto* menu = new QMenuBar(this);
    menu->addAction(delete_);
    menu->addMenu(add);
    layout->setMenuBar(menu);

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addStretch();
    saveAndExit_ = new QPushButton(QStringLiteral("SAVE AND EXIT"), this);
    saveAndExit_->setObjectName(QStringLiteral("saveAndExitButton"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("okButton"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    for (QPushButton* b : {saveAndExit_, ok, cancel}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }

    // Every change is in the year file once its command ends: SAVE AND EXIT
    // and OK close, and Cancel drops only what was typed and not applied.
    connect(saveAndExit_, &QPushButton::clicked, this, &QDialog::accept);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(delete_, &QAction::triggered, this, &CBankdlg::deleteSelected);
    connect(addBank_, &QAction::triggered, this, [this] { startAdding(false); });
    connect(addAccount_, &QAction::triggered, this, [this] { startAdding(true); });
    connect(apply_, &QPushButton::clicked, this, &CBankdlg::apply);
    // The core is called once the label's editor has closed: its questions
    // and the tree filled again never run inside the editor's commit.
    connect(tree_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        if (!filling_)
            commitLabel(item);
    });

    reload({});
    showFields(false);
    if (mode != Mode::Edit)
        startAdding(mode == Mode::AddAccount);
    resize(sizeHint().expandedTo(QSize(960, 680)));
}

void CBankdlg::buildFields(QWidget* panel) {
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    instructions_ = new QPlainTextEdit(panel);
    instructions_->setObjectName(QStringLiteral("instructionText"));
    instructions_->setReadOnly(true);
    instructions_->setMinimumHeight(170);
    column->addWidget(instructions_, 2);

    registerBox_ = new QCheckBox(QStringLiteral("ADD A CHECK REGISTER COLUMN"), panel);
    registerBox_->setObjectName(QStringLiteral("registerBox"));
    outstandingBox_ = new QCheckBox(QStringLiteral("ADD A OUTSTANDING DOLLARS COLUMN"), panel);
    outstandingBox_->setObjectName(QStringLiteral("outstandingBox"));
    column->addWidget(registerBox_);
    column->addWidget(outstandingBox_);

    form_ = new QFormLayout;
    column->addLayout(form_);
    bankName_ =
        addTextRow(form_, QStringLiteral("ENTER BANK NAME"), QStringLiteral("bankNameEdit"));
    accountName_ =
        addTextRow(form_, QStringLiteral("ENTER ACCOUNT NAME"), QStringLiteral("accountNameEdit"));
    registerTitle_ = addTextRow(form_, QStringLiteral("CHECK REGISTER COLUMN NAME"),
                                QStringLiteral("registerTitleEdit"));
    bankTitle_ = addTextRow(form_, QStringLiteral("BANK BALANCE COLUMN NAME"),
                            QStringLiteral("bankTitleEdit"));
    outstandingTitle_ = addTextRow(form_, QStringLiteral("OUTSTANDING DOLLARS COLUMN NAME"),
                                   QStringLiteral("outstandingTitleEdit"));
    startingBalance_ = addTextRow(form_, QStringLiteral("STARTING BANK BALANCE"),
                                  QStringLiteral("startingBalanceEdit"));

    auto* applyRow = new QHBoxLayout;
    column->addLayout(applyRow);
    apply_ = new QPushButton(QStringLiteral("APPLY"), panel);
    apply_->setObjectName(QStringLiteral("applyButton"));
    apply_->setAutoDefault(false);
    applyRow->addWidget(apply_);
    applyRow->addStretch();

    column->addWidget(new QLabel(QStringLiteral("REGISTER COLUMNS"), panel));
    columns_ = new QListWidget(panel);
    columns_->setObjectName(QStringLiteral("columnList"));
    column->addWidget(columns_, 1);
}

void CBankdlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CBankdlg::reload(const std::vector<int>& path) {
    fillTree();
    fillColumns();
    tree_->selectPath(path);
}

void CBankdlg::fillTree() {
    filling_ = true;
    tree_->clear();
    for (const BankView& bank : bankTree(session_.data.node())) {
        auto* bankItem = addItem(nullptr, bank.name, kBankItem, true);
        bankItem->setData(0, kBankRole, qs(bank.name));
        tree_->addTopLevelItem(bankItem);
        for (const AccountView& account : bank.accounts) {
            auto* accountItem = addItem(bankItem, account.name, kAccountItem, true);
            accountItem->setData(0, kAccountRole, qs(account.name));
            const std::pair<const char*, const BalanceGroupView*> groups[] = {
                {kCheckRegisterRow, &account.reg}, {kBankBalanceRow, &account.bank}};
            for (const auto& [row, group] : groups) {
                auto* groupItem = addItem(accountItem, row, kFixedItem, false);
                groupItem->setData(
                    0, kGroupRole,
                    static_cast<int>(group == &account.reg ? BalanceGroupKind::Register
                                                           : BalanceGroupKind::Bank));
                addItem(addItem(groupItem, kColumnTitleRow, kFixedItem, false), group->title,
                        kTitleValue, true);
                addItem(addItem(groupItem, kClosingValuesRow, kFixedItem, false), group->closing,
                        kClosingValue, true);
            }
        }
    }
    tree_->expandAll();
    filling_ = false;
}

void CBankdlg::fillColumns() {
    columns_->clear();
    for (pugi::xml_node column : selectAll(session_.data.node(), paths::kAllRegisterColumns))
        columns_->addItem(qs(childTextOrEmpty(column, 0)));
}

void CBankdlg::commitLabel(QTreeWidgetItem* item) {
    const auto kind = static_cast<ItemKind>(item->data(0, kKindRole).toInt());
    const std::string label = item->text(0).toStdString();
    const std::string filled = roleText(item, kFilledRole);
    const std::string bank = roleText(item, kBankRole);
    const std::string account = roleText(item, kAccountRole);
    const auto group = static_cast<BalanceGroupKind>(item->data(0, kGroupRole).toInt());
    const std::vector<int> path = LabelTree::pathOf(item);
    QMetaObject::invokeMethod(
        this,
        [=, this] {
            if (label != filled) {
                Session& s = session_;
                calls_.run([&] {
                    if (kind == kBankItem)
                        renameBank(s, s.prompter(), bank, label);
                    else if (kind == kAccountItem)
                        renameAccount(s, s.prompter(), bank, account, label);
                    else if (kind == kTitleValue)
                        setAccountColumnTitle(s, bank, account, group, label);
                    else if (kind == kClosingValue)
                        setAccountStartingBalance(s, bank, account, group, label);
                });
            }
            // A refused or declined change shows the old label again.
            if (!calls_.failed())
                reload(path);
        },
        Qt::QueuedConnection);
}

void CBankdlg::deleteSelected() {
    QTreeWidgetItem* item = tree_->currentItem();
    if (!item)
        return;
    const auto kind = static_cast<ItemKind>(item->data(0, kKindRole).toInt());
    if (kind != kBankItem && kind != kAccountItem) {
        session_.prompter().notify(kCannotDeleteFixedRow);
        return;
    }
    const std::string bank = roleText(item, kBankRole);
    const std::string account = roleText(item, kAccountRole);
    std::vector<int> path = LabelTree::pathOf(item);
    bool deleted = false;
    calls_.run([&] {
        deleted = kind == kBankItem ? deleteBank(session_, session_.prompter(), bank)
                                    : deleteAccount(session_, session_.prompter(), bank, account);
    });
    if (deleted) {
        path.pop_back();
        reload(path);
    }
}

void CBankdlg::startAdding(bool account) {
    adding_ = account ? Mode::AddAccount : Mode::AddBank;
    instructions_->setPlainText(
        QString::fromLatin1(account ? kNewAccountInstructions : kNewBankInstructions));
    showFields(true);
    (account ? accountName_ : bankName_)->setFocus();
}

void CBankdlg::showFields(bool shown) {
    for (QWidget* w :
         std::initializer_list<QWidget*>{instructions_, registerBox_, outstandingBox_, apply_})
        w->setVisible(shown);
    for (QLineEdit* edit :
         {accountName_, registerTitle_, bankTitle_, outstandingTitle_, startingBalance_})
        form_->setRowVisible(edit, shown);
    form_->setRowVisible(bankName_, shown && adding_ == Mode::AddBank);
}

void CBankdlg::apply() {
    NewAccount fields{text(bankName_),           text(accountName_),
                      registerBox_->isChecked(), outstandingBox_->isChecked(),
                      text(registerTitle_),      text(bankTitle_),
                      text(outstandingTitle_),   text(startingBalance_)};
    if (adding_ == Mode::AddAccount) {
        QTreeWidgetItem* item = tree_->currentItem();
        if (!item) {
            session_.prompter().notify(kNoBankForAccount);
            return;
        }
        fields.bank = roleText(item, kBankRole);
    }
    bool added = false;
    calls_.run([&] {
        added = adding_ == Mode::AddBank ? applyNewBank(session_, session_.prompter(), fields)
                                         : applyNewAccount(session_, session_.prompter(), fields);
    });
    if (!added)
        return;
    for (QLineEdit* edit :
         {bankName_, accountName_, registerTitle_, bankTitle_, outstandingTitle_, startingBalance_})
        edit->clear();
    registerBox_->setChecked(false);
    outstandingBox_->setChecked(false);
    instructions_->clear();
    adding_ = Mode::Edit;
    showFields(false);
    // The new account is shown selected.
    reload({});
    const auto banks = tree_->findItems(qs(trimmedText(fields.bank)), Qt::MatchExactly);
    if (!banks.isEmpty() && banks.front()->childCount() > 0) {
        QTreeWidgetItem* account = banks.front()->child(banks.front()->childCount() - 1);
        tree_->setCurrentItem(account);
        tree_->scrollToItem(account, QAbstractItemView::PositionAtTop);
    }
}

}  // namespace tallix::ui
