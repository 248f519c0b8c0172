#include "ui/plan_dialog_parts.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallix::ui {

std::string fieldText(const QLineEdit* edit) {
    return edit->text().toStdString();
}

DetailsPanel startDetailsPanel(QWidget* parent) {
    DetailsPanel d;
    d.panel = new QWidget(parent);
    d.column = new QVBoxLayout(d.panel);
    d.top = new QHBoxLayout;
    d.column->addLayout(d.top);
    d.form = new QFormLayout;
    d.top->addLayout(d.form);
    d.name = addTextRow(d.form, QStringLiteral("NAME"), QStringLiteral("nameEdit"));
    return d;
}

QLineEdit* addTextRow(QFormLayout* form, const QString& label, const QString& objectName) {
    auto* edit = new QLineEdit(form->parentWidget());
    edit->setObjectName(objectName);
    form->addRow(label, edit);
    return edit;
}

QComboBox* addChoiceRow(QFormLayout* form, const QString& label, const QString& objectName) {
    auto* box = new QComboBox(form->parentWidget());
    box->setObjectName(objectName);
    form->addRow(label, box);
    return box;
}

QPushButton* addButton(QBoxLayout* row, const QString& text, const QString& objectName,
                       QWidget* parent) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(objectName);
    b->setAutoDefault(false);
    row->addWidget(b);
    return b;
}

void fillAccounts(QComboBox* accounts, const std::vector<InstitutionChoice>& choices, int index) {
    accounts->clear();
    if (index < 0 || index >= static_cast<int>(choices.size()))
        return;
    for (const std::string& a : choices[static_cast<size_t>(index)].accounts)
        accounts->addItem(qs(a));
}

std::vector<InstitutionChoice> bankChoices(pugi::xml_node data) {
    std::vector<InstitutionChoice> choices = institutionChoices(data);
    choices.pop_back();  // "creditcards" comes last
    return choices;
}

void BankRows::show(const std::string& institutionName, const std::string& accountName) const {
    institution->setCurrentIndex(institution->findText(qs(institutionName)));
    account->setCurrentIndex(account->findText(qs(accountName)));
}

BankRows addBankRows(QFormLayout* form, const std::vector<InstitutionChoice>& banks,
                     const QString& institutionLabel, const QString& accountLabel) {
    BankRows rows;
    rows.institution = addChoiceRow(form, institutionLabel, QStringLiteral("institutionBox"));
    rows.account = addChoiceRow(form, accountLabel, QStringLiteral("accountBox"));
    for (const InstitutionChoice& bank : banks)
        rows.institution->addItem(qs(bank.name));
    rows.institution->setCurrentIndex(-1);
    QComboBox* accounts = rows.account;
    QObject::connect(rows.institution, &QComboBox::currentIndexChanged, accounts,
                     [accounts, banks](int index) { fillAccounts(accounts, banks, index); });
    return rows;
}

void showOnly(std::initializer_list<QLineEdit*> edits, std::initializer_list<QComboBox*> boxes) {
    for (QLineEdit* edit : edits)
        edit->setReadOnly(true);
    for (QComboBox* box : boxes)
        box->setEnabled(false);
}

QTableWidget* addPlanList(QBoxLayout* layout, QWidget* parent, const QString& objectName,
                          std::initializer_list<ListColumn> columns, int rows) {
    auto* list = new QTableWidget(rows, static_cast<int>(columns.size()), parent);
    list->setObjectName(objectName);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->verticalHeader()->hide();
    list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + 8);
    int c = 0;
    for (const ListColumn& column : columns) {
        list->setHorizontalHeaderItem(c, new QTableWidgetItem(QString::fromLatin1(column.title)));
        list->setColumnWidth(c++, column.width);
    }
    layout->addWidget(list);
    return list;
}

void fitToRows(QTableWidget* list) {
    const int frame = 2 * list->frameWidth();
    list->setFixedSize(
        list->horizontalHeader()->length() + frame,
        list->horizontalHeader()->sizeHint().height() + list->verticalHeader()->length() + frame);
}

void setCell(QTableWidget* list, int row, int column, const std::string& text) {
    list->setItem(row, column, new QTableWidgetItem(qs(text)));
}

QString cellText(const QTableWidget* list, int row, int column) {
    const QTableWidgetItem* item = column >= 0 ? list->item(row, column) : nullptr;
    return item ? item->text() : QString();
}

void MonthFields::show(const QTableWidget* list, int row, const EntryColumns& columns) const {
    const auto cell = [&](int column) {
        return row >= 0 ? cellText(list, row, column) : QString();
    };
    amount->setText(cell(columns.amount));
    dueDate->setText(cell(columns.dueDate));
    if (datePaid)
        datePaid->setText(cell(columns.datePaid));
    if (check)
        check->setText(cell(columns.check));
    status->setCurrentIndex(row >= 0 ? status->findText(cell(columns.status)) : -1);
}

MonthValues MonthFields::values() const {
    return {fieldText(amount), datePaid ? fieldText(datePaid) : std::string(), fieldText(dueDate),
            status->currentText().toStdString(), check ? fieldText(check) : std::string()};
}

void MonthFields::enableButtons(bool enabled) const {
    for (QPushButton* b : {apply, applyAll, cancelEdit})
        b->setEnabled(enabled);
}

MonthFields addMonthFields(QBoxLayout* layout, QWidget* parent, MonthFieldSet set) {
    const bool income = set == MonthFieldSet::kIncomeMonth;
    auto* column = new QVBoxLayout;
    layout->addLayout(column);
    auto* form = new QFormLayout;
    column->addLayout(form);
    MonthFields fields;
    fields.amount = addTextRow(form, QStringLiteral("AMOUNT"), QStringLiteral("monthAmount"));
    fields.dueDate = income
                         ? addTextRow(form, QStringLiteral("DATE"), QStringLiteral("monthDate"))
                         : addTextRow(form, QStringLiteral("DUE DATE"), QStringLiteral("dueDate"));
    if (!income) {
        fields.datePaid = addTextRow(form, QStringLiteral("DATE PAID"), QStringLiteral("datePaid"));
        fields.check = addTextRow(form, QStringLiteral("CHECK #"), QStringLiteral("checkNumber"));
    }
    fields.status = addChoiceRow(form, QStringLiteral("STATUS"), QStringLiteral("statusBox"));
    for (const char* s : kPlanEntryStatuses)
        fields.status->addItem(QString::fromLatin1(s));
    auto* buttons = new QHBoxLayout;
    column->addLayout(buttons);
    fields.apply =
        addButton(buttons, QStringLiteral("APPLY"), QStringLiteral("applyButton"), parent);
    fields.applyAll = addButton(buttons, QStringLiteral("APPLY TO ALL MONTHS"),
                                QStringLiteral("applyAllButton"), parent);
    fields.cancelEdit = addButton(buttons, QStringLiteral("CANCEL EDIT"),
                                  QStringLiteral("cancelEditButton"), parent);
    column->addStretch(1);
    return fields;
}

OkCancel addOkCancelRow(QBoxLayout* layout, QWidget* parent) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    OkCancel buttons;
    buttons.ok = addButton(row, QStringLiteral("OK"), QStringLiteral("okButton"), parent);
    buttons.cancel =
        addButton(row, QStringLiteral("CANCEL"), QStringLiteral("cancelButton"), parent);
    layout->addLayout(row);
    return buttons;
}

}  // namespace tallix::ui
