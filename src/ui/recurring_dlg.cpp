#include "ui/recurring_dlg.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <filesystem>

#include "app/guard.h"
#include "app/session.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {
namespace {

// Documents/tallix/reports as a full path, to be named to the user.
std::filesystem::path reportsFolder(Session& session) {
    std::error_code ec;
    const std::filesystem::path folder = reportFolder(session.env().documentsFolder());
    const std::filesystem::path full = std::filesystem::absolute(folder, ec);
    return ec ? folder : full;
}

}  // namespace

CRecurringDlg::CRecurringDlg(Session& session, Report report, QWidget* parent)
    : QDialog(parent), session_(session), report_(std::move(report)) {
    const ReportLayout& layout = reportLayout(report_.kind);
    setWindowTitle(QString::fromStdString(layout.title));
    title_ = new QLabel(QString::fromStdString(layout.title), this);
    list_ = new QTableWidget(this);
    // A report with a file of its own has written it before the dialog opens.
    const std::filesystem::path folder = reportsFolder(session_);
    file_ =
        new QLabel(QString::fromStdString(
                       layout.fileName.empty()
                           ? "PRINT writes the list to " + (folder / layout.printFileName).string()
                           : "Written to " + (folder / layout.fileName).string()),
                   this);
    file_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    done_ = new QPushButton(QStringLiteral("DONE"), this);
    print_ = new QPushButton(QStringLiteral("PRINT"), this);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(done_);
    buttons->addWidget(print_);
    auto* box = new QVBoxLayout(this);
    box->addWidget(title_);
    box->addWidget(list_, 1);
    box->addWidget(file_);
    box->addLayout(buttons);

    fillList();
    resize(900, 600);
    connect(done_, &QPushButton::clicked, this, &QDialog::accept);
    connect(print_, &QPushButton::clicked, this, &CRecurringDlg::OnBnClickedPrint);
}

void CRecurringDlg::fillList() {
    const ReportLayout& layout = reportLayout(report_.kind);
    const int columns = static_cast<int>(layout.columns.size()) + 1;
    list_->setColumnCount(columns);
    list_->setRowCount(static_cast<int>(report_.rows.size()));
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->verticalHeader()->hide();
    QStringList titles{QString()};
    for (const ReportColumn& column : layout.columns)
        titles << QString::fromStdString(column.title);
    list_->setHorizontalHeaderLabels(titles);
    list_->horizontalHeader()->setMinimumSectionSize(0);
    list_->setColumnWidth(0, 0);
    list_->setColumnHidden(0, true);
    for (size_t c = 0; c < layout.columns.size(); ++c)
        list_->setColumnWidth(static_cast<int>(c + 1), layout.columns[c].width);

    for (size_t r = 0; r < report_.rows.size(); ++r) {
        const auto& row = report_.rows[r];
        for (size_t c = 0; c < row.size(); ++c) {
            auto* item = new QTableWidgetItem(QString::fromStdString(row[c]));
            if (isNotPaidCell(report_, r, c)) {
                item->setBackground(QColor(255, 0, 0));
                item->setForeground(QColor(255, 255, 255));
            }
            list_->setItem(static_cast<int>(r), static_cast<int>(c + 1), item);
        }
    }
}

void CRecurringDlg::OnBnClickedPrint() {
    const ReportLayout& layout = reportLayout(report_.kind);
    bool printed = guarded(session_.prompter(), layout.handlerName, [&] {
        std::filesystem::path file = writePrintFile(report_, reportsFolder(session_));
        if (!session_.env().openWithViewer(file))
            session_.prompter().notify(
                "No program to show this file could be started. The report is " + file.string());
    });
    if (printed)
        accept();
}

// The main window's report commands: the report is built (its own file is
// written into Documents/tallix/reports) before the dialog opens; a failure
// shows the command's message and opens nothing.
void CTallixDlg::OnReport(int number) {
    const ReportKind kind = static_cast<ReportKind>(number);
    std::optional<Report> report;
    guarded(session_.prompter(), reportLayout(kind).handlerName, [&] {
        Report built = buildReport(session_.data.node(), kind, session_.month);
        writeReportFile(built, reportsFolder(session_));
        report = std::move(built);
    });
    if (!report)
        return;
    CRecurringDlg dialog(session_, std::move(*report), this);
    dialog.exec();
}

}  // namespace tallix::ui
