#include "ui/income_dlg.h"

#include <QAction>
#include <QComboBox>
#include <QFont>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reference/plan_input.h"

namespace tallix::ui {
namespace {

constexpr int kSourceRole = Qt::UserRole;  // a source's name; the TOTAL row has none
constexpr int kMonths = 12;
enum MonthCell { kAmountCell = 1, kStatusCell, kDateCell };
constexpr EntryColumns kMonthCells{kAmountCell, -1, kDateCell, kStatusCell, -1};

// A source as the file keeps it, by position: institution, account, type,
// DAY/DATE, DAY NUMBER, repeating amount, then the twelve months.
enum SourceChild : size_t { kInstitution = 0, kAccount, kType, kDayOrDate, kDayNumber, kAmount };

QStringList weekdayNames() {
    const QLocale c = QLocale::c();
    QStringList names{c.dayName(Qt::Sunday)};
    for (int day = Qt::Monday; day < Qt::Sunday; ++day)
        names << c.dayName(day);
    return names;
}

// The types TYPE offers; a source of another kind (a transfer) shows its own.
QStringList scheduleTypes() {
    return {QString::fromLatin1(kAutoDay), QString::fromLatin1(kAutoDate),
            QString::fromLatin1(kPosted)};
}

bool isAutomatic(const QString& type) {
    return type == QLatin1String(kAutoDay) || type == QLatin1String(kAutoDate);
}

// Selects `text`, first adding it when the box does not offer it (a value of
// the file that the choices leave out); an empty text selects nothing.
void selectKeeping(QComboBox* box, const QString& text) {
    int at = box->findText(text);
    if (at < 0 && !text.isEmpty()) {
        box->addItem(text);
        at = box->count() - 1;
    }
    box->setCurrentIndex(at);
}

std::string choice(const QComboBox* box) {
    return box->currentText().toStdString();
}

}  // namespace

CIncomedlg::CIncomedlg(Session& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      banks_(bankChoices(session.data.node())),
      calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("incomeDialog"));
    setWindowTitle(QStringLiteral("EDIT, ADD OR DELETE AN INCOME SOURCE"));
    auto* layout = new QVBoxLayout(this);
    auto* body = new QHBoxLayout;
    list_ = new QTreeWidget(this);
    list_->setObjectName(QStringLiteral("incomeList"));
    list_->setRootIsDecorated(false);
    list_->setHeaderLabels({QStringLiteral("NAME"), QStringLiteral("TOTAL")});
    list_->setColumnWidth(0, 170);
    list_->setMinimumWidth(280);  // room for a whole name and a year's total
    body->addWidget(list_, 1);
    body->addWidget(buildDetails(), 3);
    layout->addLayout(body);

    const OkCancel buttons = addOkCancelRow(layout, this);
    ok_ = buttons.ok;
    cancel_ = buttons.cancel;
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);

    delete_ = new QAction(QStringLiteral("Delete"), this);
    addNew_ = new QAction(QStringLiteral("Add New"), this);
    auto* menu = new QMenuBar(this);
    layout->setMenuBar(menu);
    menu->addActions({delete_, addNew_});
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
    list_->addActions({delete_, addNew_});
    connect(delete_, &QAction::triggered, this, &CIncomedlg::deleteSelected);
    connect(addNew_, &QAction::triggered, this, &CIncomedlg::addNew);
    connect(list_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now) {
        if (!filling_)
            onSelected(now);
    });

    fillList();
    updateButtons();
    resize(sizeHint().expandedTo(QSize(1000, 640)));
}

QWidget* CIncomedlg::buildDetails() {
    const DetailsPanel details = startDetailsPanel(this);
    QWidget* panel = details.panel;
    QBoxLayout* column = details.column;
    QBoxLayout* top = details.top;
    QFormLayout* form = details.form;
    name_ = details.name;
    bank_ = addBankRows(form, banks_, QStringLiteral("INSTITUTION"), QStringLiteral("ACCOUNT"));
    type_ = addChoiceRow(form, QStringLiteral("TYPE"), QStringLiteral("typeBox"));
    type_->addItems(scheduleTypes());
    dayOrDate_ = addChoiceRow(form, QStringLiteral("DAY/DATE"), QStringLiteral("dayOrDateBox"));
    dayNumber_ = addTextRow(form, QStringLiteral("DAY NUMBER"), QStringLiteral("dayNumberEdit"));
    amount_ =
        addTextRow(form, QStringLiteral("REPEATING INCOME"), QStringLiteral("repeatingIncomeEdit"));
    month_ = addMonthFields(top, panel, MonthFieldSet::kIncomeMonth);

    auto* sourceButtons = new QHBoxLayout;
    column->addLayout(sourceButtons);
    saveNew_ = addButton(sourceButtons, QStringLiteral("SAVE NEW INCOME"),
                         QStringLiteral("saveNewButton"), panel);
    saveValues_ = addButton(sourceButtons, QStringLiteral("SAVE EDIT VALUES"),
                            QStringLiteral("saveValuesButton"), panel);
    sourceButtons->addStretch(1);
    saveNew_->hide();

    months_ =
        addPlanList(column, panel, QStringLiteral("monthTable"),
                    {{"MONTH", 100}, {"AMOUNT", 90}, {"STATUS", 100}, {"DATE", 100}}, kMonths);
    for (int m = 1; m <= kMonths; ++m)
        setCell(months_, m - 1, 0, monthName(m));
    fitToRows(months_);
    column->addStretch(1);

    connect(type_, &QComboBox::currentTextChanged, this, [this](const QString& type) {
        if (!filling_)
            fillDays(type, dayOrDate_->currentText(), !isAutomatic(type));
    });
    connect(saveNew_, &QPushButton::clicked, this, &CIncomedlg::saveNew);
    connect(saveValues_, &QPushButton::clicked, this, &CIncomedlg::saveValues);
    connect(month_.apply, &QPushButton::clicked, this, [this] { applyMonth(false); });
    connect(month_.applyAll, &QPushButton::clicked, this, [this] { applyMonth(true); });
    connect(month_.cancelEdit, &QPushButton::clicked, this,
            [this] { showMonthRow(months_->currentRow()); });
    connect(months_, &QTableWidget::currentCellChanged, this, [this](int row) {
        showMonthRow(row);
        updateButtons();
    });
    return panel;
}

void CIncomedlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

void CIncomedlg::fillList() {
    const IncomeTotals totals = incomeTotals(session_.data.node());
    filling_ = true;
    list_->clear();
    QTreeWidgetItem* selected = nullptr;
    for (const IncomeTotal& source : totals.sources) {
        auto* item = new QTreeWidgetItem(list_, {qs(source.name), qs(source.total)});
        item->setData(0, kSourceRole, qs(source.name));
        if (source.name == source_)
            selected = item;
    }
    auto* total = new QTreeWidgetItem(list_, {QStringLiteral("TOTAL"), qs(totals.total)});
    total->setFlags(Qt::ItemIsEnabled);
    QFont bold = total->font(0);
    bold.setBold(true);
    for (int c = 0; c < 2; ++c)
        total->setFont(c, bold);
    list_->setCurrentItem(selected);
    filling_ = false;
    onSelected(selected);
}

void CIncomedlg::onSelected(QTreeWidgetItem* item) {
    const QVariant name = item ? item->data(0, kSourceRole) : QVariant();
    source_ = name.isValid() ? name.toString().toStdString() : std::string();
    // The source shown is the one highlighted, also when the list made it
    // current on getting the focus.
    if (!source_.empty())
        item->setSelected(true);
    saveNew_->hide();
    saveValues_->show();
    months_->show();
    showSource();
    updateButtons();
}

void CIncomedlg::showSource() {
    const pugi::xml_node source = source_.empty()
                                      ? pugi::xml_node()
                                      : selectOne(session_.data.node(), paths::kIncome, source_);
    const auto field = [&](size_t child) { return qs(childTextOrEmpty(source, child)); };
    filling_ = true;
    name_->setText(qs(source_));
    bank_.show(childTextOrEmpty(source, kInstitution), childTextOrEmpty(source, kAccount));
    type_->clear();
    type_->addItems(scheduleTypes());
    selectKeeping(type_, field(kType));
    fillDays(field(kType), field(kDayOrDate), true);
    dayNumber_->setText(field(kDayNumber));
    amount_->setText(field(kAmount));
    const pugi::xml_node months = childAtOrNull(source, schema::kIncomeMonths);
    for (int m = 0; m < kMonths; ++m) {
        const pugi::xml_node entry = childAtOrNull(months, static_cast<size_t>(m));
        setCell(months_, m, kAmountCell, childTextOrEmpty(entry, kIncomeEntrySlots.amount));
        setCell(months_, m, kStatusCell, childTextOrEmpty(entry, kIncomeEntrySlots.status));
        setCell(months_, m, kDateCell, childTextOrEmpty(entry, kIncomeEntrySlots.dueDate));
    }
    filling_ = false;
    showMonthRow(months_->currentRow());
}

void CIncomedlg::fillDays(const QString& type, const QString& wanted, bool keepUnlisted) {
    dayOrDate_->clear();
    if (type == QLatin1String(kAutoDay)) {
        dayOrDate_->addItems(weekdayNames());
    } else if (type == QLatin1String(kAutoDate)) {
        for (int day = 1; day <= 31; ++day)
            dayOrDate_->addItem(QString::number(day));
    }
    if (keepUnlisted)
        selectKeeping(dayOrDate_, wanted);
    else
        dayOrDate_->setCurrentIndex(dayOrDate_->findText(wanted));
}

void CIncomedlg::showMonthRow(int row) {
    const bool month = row >= 0 && !source_.empty() && saveNew_->isHidden();
    month_.show(months_, month ? row : -1, kMonthCells);
}

void CIncomedlg::updateButtons() {
    const bool source = !source_.empty();
    const bool adding = !saveNew_->isHidden();
    saveValues_->setEnabled(source);
    delete_->setEnabled(source);
    addNew_->setEnabled(source);
    month_.enableButtons(source && !adding && months_->currentRow() >= 0);
}

void CIncomedlg::change(const std::function<void()>& call, const std::string& source) {
    const int row = months_->currentRow();
    if (!calls_.run([&] {
            call();
            source_ = source;
            fillList();
        }))
        return;
    if (row >= 0 && !source_.empty())
        months_->setCurrentCell(row, 0);
}

IncomeFields CIncomedlg::fields() const {
    return {choice(bank_.institution),
            choice(bank_.account),
            {choice(type_), choice(dayOrDate_), fieldText(dayNumber_)},
            fieldText(amount_)};
}

void CIncomedlg::addNew() {
    if (source_.empty())
        return;
    name_->clear();
    saveValues_->hide();
    saveNew_->show();
    months_->hide();
    showMonthRow(-1);
    updateButtons();
    name_->setFocus();
}

void CIncomedlg::saveNew() {
    const std::string name = fieldText(name_);
    change([&] { saveNewIncome(session_, source_, name, fields()); }, trimmedText(name));
}

void CIncomedlg::saveValues() {
    if (source_.empty())
        return;
    const std::string name = fieldText(name_);
    change([&] { saveIncomeValues(session_, source_, name, fields()); }, trimmedText(name));
}

void CIncomedlg::deleteSelected() {
    if (source_.empty())
        return;
    // A source kept stays selected; a deleted one is no longer in the list.
    const std::string source = source_;
    change([&] { deleteIncome(session_, session_.prompter(), source); }, source);
}

void CIncomedlg::applyMonth(bool toAllMonths) {
    const int row = months_->currentRow();
    if (source_.empty() || row < 0)
        return;
    const MonthValues values = month_.values();
    change(
        [&] {
            if (toAllMonths)
                applyIncomeToAllMonths(session_, source_, row + 1, values);
            else
                applyIncomeMonth(session_, source_, row + 1, values);
        },
        source_);
}

}  // namespace tallix::ui
