#include "ui/find_dlg.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/session.h"
#include "data/values.h"
#include "register/line_search.h"

namespace tallix::ui {
namespace {

constexpr int kMonthColumn = 0;
constexpr int kLineColumn = 2;

QTableWidgetItem* cell(const std::string& text, const QVariant& value = {}) {
    auto* item = new QTableWidgetItem(QString::fromStdString(text));
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (value.isValid())
        item->setData(Qt::UserRole, value);
    return item;
}

}  // namespace

CFindDlg::CFindDlg(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("findDialog"));
    setWindowTitle(QStringLiteral("Find"));
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("TEXT OR AMOUNT"), this));
    text_ = new QLineEdit(this);
    text_->setObjectName(QStringLiteral("findText"));
    row->addWidget(text_, 1);
    find_ = new QPushButton(QStringLiteral("FIND"), this);
    find_->setDefault(true);
    row->addWidget(find_);
    layout->addLayout(row);
    results_ = new QTableWidget(0, 6, this);
    results_->setHorizontalHeaderLabels({QStringLiteral("MONTH"), QStringLiteral("DAY"),
                                         QStringLiteral("LINE"), QStringLiteral("EXPENSE"),
                                         QStringLiteral("AMOUNT"), QStringLiteral("STATUS")});
    results_->setSelectionBehavior(QAbstractItemView::SelectRows);
    results_->setSelectionMode(QAbstractItemView::SingleSelection);
    results_->verticalHeader()->hide();
    results_->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(results_, 1);
    layout->addWidget(
        new QLabel(QStringLiteral("Double-click a line to show it in its month."), this));
    connect(find_, &QPushButton::clicked, this, &CFindDlg::OnFind);
    connect(text_, &QLineEdit::returnPressed, this, &CFindDlg::OnFind);
    connect(results_, &QTableWidget::cellDoubleClicked, this, [this](int r, int) {
        emit lineChosen(results_->item(r, kMonthColumn)->data(Qt::UserRole).toInt(),
                        results_->item(r, kLineColumn)->data(Qt::UserRole).toInt());
    });
    resize(640, 420);
}

void CFindDlg::OnFind() {
    const std::vector<FoundLine> found =
        findLines(session_.data.node(), text_->text().toStdString());
    results_->setRowCount(0);
    for (const FoundLine& line : found) {
        const int r = results_->rowCount();
        results_->insertRow(r);
        results_->setItem(r, kMonthColumn, cell(monthName(line.month), line.month));
        results_->setItem(r, 1, cell(line.day));
        results_->setItem(r, kLineColumn, cell(std::to_string(line.line), line.line));
        results_->setItem(r, 3, cell(line.expense));
        results_->setItem(r, 4, cell(line.amount));
        results_->setItem(r, 5, cell(line.status));
    }
    results_->resizeColumnsToContents();
    setWindowTitle(QStringLiteral("Find: %1 lines").arg(found.size()));
}

}  // namespace tallix::ui
