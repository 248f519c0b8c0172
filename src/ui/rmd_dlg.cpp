#include "ui/rmd_dlg.h"

#include <QAbstractItemDelegate>
#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>
#include <tuple>
#include <utility>

#include "app/session.h"
#include "reference/plan_input.h"
#include "ui/plan_dialog_parts.h"

namespace tallix::ui {
namespace {

// Each item keeps its place in column 0.
constexpr int kLevelRole = Qt::UserRole;
constexpr int kIndividualRole = Qt::UserRole + 1;
constexpr int kNameRole = Qt::UserRole + 2;
constexpr int kAccountRole = Qt::UserRole + 3;
constexpr int kValueRole = Qt::UserRole + 4;

constexpr int kLabelColumn = 0;
constexpr int kValueColumn = 1;

constexpr std::array<const char*, 3> kValueLabels = {"Balance last year", "rmd amount",
                                                     "Current Draw"};
constexpr const char* kTotals = "Totals";

bool samePlace(const RmdPlace& a, const RmdPlace& b) {
    return std::tie(a.level, a.individual, a.name, a.account, a.value) ==
           std::tie(b.level, b.individual, b.name, b.account, b.value);
}

RmdPlace placeAt(const QModelIndex& index) {
    const QModelIndex first = index.siblingAtColumn(kLabelColumn);
    if (!first.isValid())
        return {};
    return {static_cast<RmdLevel>(first.data(kLevelRole).toInt()),
            first.data(kIndividualRole).toString().toStdString(), first.data(kNameRole).toInt(),
            first.data(kAccountRole).toInt(), first.data(kValueRole).toInt()};
}

// The column whose text is edited in place: the value of a value row, the
// label of an individual, a name or an account; none for the totals.
int editableColumn(RmdLevel level) {
    switch (level) {
        case RmdLevel::Individual:
        case RmdLevel::Name:
        case RmdLevel::Account:
            return kLabelColumn;
        case RmdLevel::Value:
            return kValueColumn;
        case RmdLevel::None:
        case RmdLevel::Totals:
            break;
    }
    return -1;
}

}  // namespace

CDialogrmd::CDialogrmd(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("rmdDialog"));
    setWindowTitle(QStringLiteral("REQUIRED MINIMUM DISTRIBUTIONS"));
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    layout->addLayout(top);
    tree_ = new QTreeWidget(this);
    tree_->setObjectName(QStringLiteral("rmdTree"));
    tree_->setHeaderLabels(
        {QStringLiteral("INDIVIDUAL / NAME / ACCOUNT"), QStringLiteral("AMOUNT")});
    tree_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree_->setExpandsOnDoubleClick(false);
    // The amounts at the right, where the labels end.
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionResizeMode(kLabelColumn, QHeaderView::Stretch);
    tree_->header()->setSectionResizeMode(kValueColumn, QHeaderView::ResizeToContents);
    tree_->headerItem()->setTextAlignment(kValueColumn, Qt::AlignRight | Qt::AlignVCenter);
    top->addWidget(tree_, 1);

    // The change each add or delete button makes at the selected place, and
    // the place to select afterwards.
    const std::pair<const char*, std::function<RmdPlace(const RmdPlace&)>> changes[] = {
        {"ADD INDIVIDUAL",
         [this](const RmdPlace& at) {
             return RmdPlace{RmdLevel::Individual,
                             addIndividual(session_, session_.prompter(), at)};
         }},
        {"ADD A NAME",
         [this](const RmdPlace& at) {
             addRmdName(session_, at);
             // The individual's names, less its totals: the new name's place.
             const int added = selectedItem()->parent()->childCount() - 1;
             return RmdPlace{RmdLevel::Name, at.individual, added};
         }},
        {"ADD AN ACCOUNT",
         [this](const RmdPlace& at) {
             addRmdAccount(session_, at);
             const int added = selectedItem()->childCount();
             return RmdPlace{RmdLevel::Account, at.individual, at.name, added};
         }},
        {"DELETE ACCOUNT",
         [this](const RmdPlace& at) {
             deleteRmdAccount(session_, at);
             return RmdPlace{RmdLevel::Name, at.individual, at.name};
         }},
        {"DELETE NAME",
         [this](const RmdPlace& at) {
             deleteRmdName(session_, at);
             return RmdPlace{RmdLevel::Individual, at.individual};
         }},
        {"DELETE INDIVIDUAL",
         [this](const RmdPlace& at) {
             deleteIndividual(session_, at);
             return RmdPlace{};
         }},
    };
    auto* column = new QVBoxLayout;
    top->addLayout(column);
    auto addButton = [this, column](const char* text) {
        auto* button = new QPushButton(QString::fromLatin1(text), this);
        button->setAutoDefault(false);
        column->addWidget(button);
        return button;
    };
    for (const auto& [text, call] : changes)
        connect(addButton(text), &QPushButton::clicked, this, [this, call] { change(call); });
    column->addSpacing(16);
    connect(addButton("EDIT"), &QPushButton::clicked, this, [this] { startEdit(selectedItem()); });
    // SAVE EDIT leaves the focus in the open editor and commits it itself.
    QPushButton* saveEdit = addButton("SAVE EDIT");
    saveEdit->setFocusPolicy(Qt::NoFocus);
    connect(saveEdit, &QPushButton::clicked, this, &CDialogrmd::saveEdit);
    column->addStretch();

    const OkCancel buttons = addOkCancelRow(layout, this);
    buttons.cancel->setText(QStringLiteral("Cancel"));
    connect(buttons.ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons.cancel, &QPushButton::clicked, this, &QDialog::reject);

    connect(tree_, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { startEdit(item); });
    onLabelEdited(tree_, filling_, [this](const QModelIndex& edited) {
        return [this, place = placeAt(edited), column = edited.column(),
                text = edited.data().toString()] { commitLabel(place, column, text); };
    });
    fillTree({});
    resize(600, 520);
}

QTreeWidgetItem* CDialogrmd::addItem(QTreeWidgetItem* parent, const QString& label,
                                     const QString& value, const RmdPlace& place) {
    const QStringList texts = {label, value};
    auto* item = parent ? new QTreeWidgetItem(parent, texts) : new QTreeWidgetItem(tree_, texts);
    item->setData(kLabelColumn, kLevelRole, static_cast<int>(place.level));
    item->setData(kLabelColumn, kIndividualRole, qs(place.individual));
    item->setData(kLabelColumn, kNameRole, place.name);
    item->setData(kLabelColumn, kAccountRole, place.account);
    item->setData(kLabelColumn, kValueRole, place.value);
    item->setTextAlignment(kValueColumn, Qt::AlignRight | Qt::AlignVCenter);
    if (editableColumn(place.level) >= 0)
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (place.level == RmdLevel::Totals) {
        QFont bold = item->font(kLabelColumn);
        bold.setBold(true);
        for (int column : {kLabelColumn, kValueColumn})
            item->setFont(column, bold);
    }
    return item;
}

void CDialogrmd::addValues(QTreeWidgetItem* parent, const RmdValues& values, RmdPlace place) {
    const std::array<const std::string*, 3> texts = {&values.lastYear, &values.rmdAmount,
                                                     &values.currentDraw};
    for (size_t i = 0; i < texts.size(); ++i) {
        place.value = static_cast<int>(i) + 1;
        addItem(parent, QString::fromLatin1(kValueLabels[i]), qs(*texts[i]), place);
    }
}

void CDialogrmd::fillTree(const RmdPlace& selected) {
    filling_ = true;
    tree_->clear();
    const RmdTree rmds = rmdTree(session_.data.node());
    const QString totals = QString::fromLatin1(kTotals);
    for (const RmdIndividualView& individual : rmds.individuals) {
        RmdPlace place{RmdLevel::Individual, individual.name};
        QTreeWidgetItem* individualItem = addItem(nullptr, qs(individual.name), {}, place);
        for (size_t n = 0; n < individual.names.size(); ++n) {
            const RmdNameView& name = individual.names[n];
            place = {RmdLevel::Name, individual.name, static_cast<int>(n)};
            QTreeWidgetItem* nameItem = addItem(individualItem, qs(name.name), {}, place);
            for (size_t a = 0; a < name.accounts.size(); ++a) {
                place.level = RmdLevel::Account;
                place.account = static_cast<int>(a);
                addValues(addItem(nameItem, qs(name.accounts[a].name), {}, place),
                          name.accounts[a].values,
                          {RmdLevel::Value, individual.name, place.name, place.account});
            }
        }
        place = {RmdLevel::Totals, individual.name};
        addValues(addItem(individualItem, totals, {}, place), individual.totals, place);
    }
    addValues(addItem(nullptr, totals, {}, {RmdLevel::Totals, {}}), rmds.totals,
              {RmdLevel::Totals, {}});
    tree_->expandAll();
    for (QTreeWidgetItemIterator it(tree_); *it; ++it)
        if (samePlace(placeAt(tree_->indexFromItem(*it)), selected))
            tree_->setCurrentItem(*it);
    filling_ = false;
}

QTreeWidgetItem* CDialogrmd::selectedItem() const {
    const QList<QTreeWidgetItem*> selected = tree_->selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

RmdPlace CDialogrmd::selectedPlace() const {
    return placeAt(tree_->indexFromItem(selectedItem()));
}

void CDialogrmd::change(const std::function<RmdPlace(const RmdPlace&)>& call) {
    RmdPlace select;
    if (calls_.run([&] { select = call(selectedPlace()); }))
        fillTree(select);
}

void CDialogrmd::startEdit(QTreeWidgetItem* item) {
    if (!item)
        return;
    const int column = editableColumn(placeAt(tree_->indexFromItem(item)).level);
    if (column >= 0)
        tree_->editItem(item, column);
}

void CDialogrmd::saveEdit() {
    const int column = editableColumn(selectedPlace().level);
    if (column < 0)
        return;
    if (QWidget* editor = tree_->indexWidget(tree_->indexFromItem(selectedItem(), column))) {
        emit tree_->itemDelegate()->commitData(editor);
        emit tree_->itemDelegate()->closeEditor(editor);
    }
}

void CDialogrmd::commitLabel(const RmdPlace& place, int column, const QString& text) {
    // The item selected now, which may be one clicked to end the edit.
    RmdPlace select = selectedPlace();
    if (column == editableColumn(place.level) &&
        calls_.run([&] { editRmdLabel(session_, place, text.toStdString()); }) &&
        place.level == RmdLevel::Individual && select.individual == place.individual)
        select.individual = trimmedText(text.toStdString());
    // A refused edit shows the old label again.
    if (!calls_.failed())
        fillTree(select);
}

}  // namespace tallix::ui
