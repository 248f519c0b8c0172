#include "ui/credit_cards_dlg.h"

#include <QAction>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "app/session.h"
#include "reference/bank_messages.h"
#include "reference/card_maintenance.h"
#include "reference/plan_input.h"
#include "ui/bank_dlg.h"
#include "ui/maintenance_parts.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {
namespace {

// Every item keeps its card's name and the text it was filled with; a value
// item keeps which value of the card it shows.
constexpr int kCardRole = Qt::UserRole;
constexpr int kFilledRole = Qt::UserRole + 1;
constexpr int kFieldRole = Qt::UserRole + 2;

QTreeWidgetItem* addItem(QTreeWidgetItem* parent, const std::string& text, const QString& card,
                         bool editable) {
    auto* item = new QTreeWidgetItem(parent, {qs(text)});
    item->setData(0, kCardRole, card);
    item->setData(0, kFilledRole, qs(text));
    if (editable)
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    return item;
}

std::string text(const QLineEdit* edit) {
    return edit->text().toStdString();
}

}  // namespace

CDialogCreditCards::CDialogCreditCards(Session& session, bool startWithAddNew, QWidget* parent)
    : QDialog(parent), session_(session), calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("creditCardDialog"));
    setWindowTitle(QStringLiteral("Credit Card"));
    auto* layout = new QVBoxLayout(this);
    auto* body = new QHBoxLayout;
    layout->addLayout(body, 1);
    tree_ = new LabelTree(session_.prompter(), this);
    tree_->setObjectName(QStringLiteral("cardTree"));
    tree_->setHeaderLabel(QStringLiteral("CREDIT CARDS"));
    tree_->setMinimumWidth(240);
    body->addWidget(tree_, 1);

    fields_ = new QWidget(this);
    fields_->setMinimumWidth(440);
    body->addWidget(fields_, 1);
    auto* fields = new QVBoxLayout(fields_);
    fields->setContentsMargins(0, 0, 0, 0);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->addLayout(form);
    name_ = addTextRow(form, QStringLiteral("CREDITCARD NAME"), QStringLiteral("cardNameEdit"));
    columnTitle_ = addTextRow(form, QStringLiteral("CREDIT CARD COLUMN TITLE"),
                              QStringLiteral("cardColumnTitleEdit"));
    lastYearClosing_ = addTextRow(form, QStringLiteral("LAST YEAR CLOSING"),
                                  QStringLiteral("lastYearClosingEdit"));
    closingDay_ =
        addTextRow(form, QStringLiteral("CLOSING DAY"), QStringLiteral("cardClosingDayEdit"));
    dueDay_ = addTextRow(form, QStringLiteral("DUE DAY"), QStringLiteral("cardDueDayEdit"));
    save_ = new QPushButton(QStringLiteral("SAVE CHANGES"), fields_);
    save_->setObjectName(QStringLiteral("saveButton"));
    save_->setAutoDefault(false);
    auto* saveRow = new QHBoxLayout;
    saveRow->addWidget(save_);
    saveRow->addStretch();
    fields->addLayout(saveRow);
    fields->addStretch();

    delete_ = new QAction(QStringLiteral("Delete"), this);
    addNew_ = new QAction(QStringLiteral("Add New"), this);
    tree_->setContextMenuPolicy(Qt::ActionsContextMenu);
    tree_->addActions({delete_, addNew_});
    auto* menu = new QMenuBar(this);
    menu->addActions({delete_, addNew_});
    layout->setMenuBar(menu);

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addStretch();
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    cancel->setAutoDefault(false);
    buttons->addWidget(cancel);

    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(delete_, &QAction::triggered, this, &CDialogCreditCards::deleteSelected);
    connect(addNew_, &QAction::triggered, this, &CDialogCreditCards::addNew);
    connect(save_, &QPushButton::clicked, this, &CDialogCreditCards::save);
    // The core is called once the label's editor has closed.
    connect(tree_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        if (!filling_)
            commitLabel(item);
    });

    fillTree({});
    showFields(false);
    if (startWithAddNew)
        addNew();
    resize(sizeHint().expandedTo(QSize(760, 600)));
}

void CDialogCreditCards::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CDialogCreditCards::fillTree(const std::vector<int>& path) {
    filling_ = true;
    tree_->clear();
    for (const CardView& card : cardList(session_.data.node())) {
        const QString name = qs(card.name);
        auto* cardItem = addItem(nullptr, card.name, name, true);
        tree_->addTopLevelItem(cardItem);
        const std::pair<const char*, std::pair<CardField, const std::string*>> rows[] = {
            {kColumnTitleRow, {CardField::ColumnTitle, &card.columnTitle}},
            {kClosingValuesRow, {CardField::ClosingValue, &card.lastYearClosing}},
            {kClosingDayRow, {CardField::ClosingDay, &card.closingDay}},
            {kDueDayRow, {CardField::DueDay, &card.dueDay}}};
        for (const auto& [row, value] : rows) {
            auto* valueItem =
                addItem(addItem(cardItem, row, name, false), *value.second, name, true);
            valueItem->setData(0, kFieldRole, static_cast<int>(value.first));
        }
    }
    tree_->expandAll();
    filling_ = false;
    tree_->selectPath(path);
}

void CDialogCreditCards::commitLabel(QTreeWidgetItem* item) {
    const std::string label = item->text(0).toStdString();
    const std::string filled = item->data(0, kFilledRole).toString().toStdString();
    const std::string card = item->data(0, kCardRole).toString().toStdString();
    const QVariant field = item->data(0, kFieldRole);
    const std::vector<int> path = LabelTree::pathOf(item);
    QMetaObject::invokeMethod(
        this,
        [=, this] {
            if (label != filled)
                calls_.run([&] {
                    if (field.isValid())
                        setCardField(session_, card, static_cast<CardField>(field.toInt()), label);
                    else
                        renameCard(session_, card, label);
                });
            // A refused change shows the old label again.
            if (!calls_.failed())
                fillTree(path);
        },
        Qt::QueuedConnection);
}

void CDialogCreditCards::deleteSelected() {
    QTreeWidgetItem* item = tree_->currentItem();
    if (!item) {
        session_.prompter().notify(kNoCardToDelete);
        return;
    }
    const std::string card = item->data(0, kCardRole).toString().toStdString();
    if (calls_.run([&] { deleteCard(session_, card); }))
        fillTree({});
}

void CDialogCreditCards::addNew() {
    save_->setText(QStringLiteral("SAVE"));
    showFields(true);
    name_->setFocus();
}

void CDialogCreditCards::showFields(bool shown) {
    fields_->setVisible(shown);
}

void CDialogCreditCards::save() {
    const NewCard card{text(name_), text(columnTitle_), text(lastYearClosing_), text(closingDay_),
                       text(dueDay_)};
    if (!calls_.run([&] { addCard(session_, card); }))
        return;
    for (QLineEdit* edit : {name_, columnTitle_, lastYearClosing_, closingDay_, dueDay_})
        edit->clear();
    showFields(false);
    fillTree({});
    const auto added =
        tree_->findItems(qs(trimmedText(card.name)), Qt::MatchExactly);  // top-level cards only
    if (!added.isEmpty())
        tree_->setCurrentItem(added.front());
}

}  // namespace tallix::ui
