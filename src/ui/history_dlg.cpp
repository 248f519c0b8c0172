#include "ui/history_dlg.h"

#include <algorithm>
#include <stdexcept>

#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/guard.h"
#include "app/session.h"
#include "data/values.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "ui/grid_model.h"
#include "ui/month_buttons.h"
#include "ui/plan_dialog_parts.h"
#include "ui/register_table.h"

namespace tallix::ui {
namespace {

constexpr const char* kCurrentMark = "  \u2190 current";

QTableWidgetItem* listCell(const std::string& text, bool current) {
    auto* item = new QTableWidgetItem(QString::fromStdString(text));
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (current) {
        QFont bold = item->font();
        bold.setBold(true);
        item->setFont(bold);
    }
    return item;
}

// The labels come as the Edit menu puts them after "Undo"; in the list each
// starts with a capital.
std::string sentence(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text;
}

std::string versionName(const VersionLine& line) {
    return "version " + std::to_string(line.number) + " of " + line.time;
}

}  // namespace

CHistoryDlg::CHistoryDlg(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), calls_(this, &session.prompter()) {
    setObjectName(QStringLiteral("historyDialog"));
    setWindowTitle(QStringLiteral("History of %1").arg(QString::fromStdString(session.fileName)));
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(
        QStringLiteral("Every change to the year file is kept as a version. Open shows a "
                       "version's months without changing anything; Restore makes it the "
                       "current version again."),
        this);
    text->setWordWrap(true);
    layout->addWidget(text);

    list_ = new QTableWidget(0, 3, this);
    list_->setObjectName(QStringLiteral("versionList"));
    list_->setHorizontalHeaderLabels(
        {QStringLiteral("VERSION"), QStringLiteral("TIME"), QStringLiteral("WHAT CHANGED")});
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->verticalHeader()->hide();
    list_->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(list_, 1);

    lines_ = versionLines(session_);
    std::reverse(lines_.begin(), lines_.end());
    int currentRow = -1;
    for (const VersionLine& line : lines_) {
        const int r = list_->rowCount();
        list_->insertRow(r);
        list_->setItem(r, 0, listCell(std::to_string(line.number), line.current));
        list_->setItem(r, 1, listCell(line.time, line.current));
        list_->setItem(
            r, 2, listCell(sentence(line.what) + (line.current ? kCurrentMark : ""), line.current));
        if (line.current)
            currentRow = r;
    }
    list_->resizeColumnsToContents();

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    open_ = addButton(buttons, QStringLiteral("Open"), QStringLiteral("openButton"), this);
    restore_ = addButton(buttons, QStringLiteral("Restore"), QStringLiteral("restoreButton"), this);
    buttons->addStretch();
    close_ = addButton(buttons, QStringLiteral("Close"), QStringLiteral("closeButton"), this);
    connect(open_, &QPushButton::clicked, this, &CHistoryDlg::OnOpen);
    connect(restore_, &QPushButton::clicked, this, &CHistoryDlg::OnRestore);
    connect(close_, &QPushButton::clicked, this, &QDialog::reject);
    connect(list_, &QTableWidget::cellDoubleClicked, this, &CHistoryDlg::OnOpen);
    connect(list_, &QTableWidget::itemSelectionChanged, this, &CHistoryDlg::enableButtons);
    if (currentRow >= 0)
        list_->selectRow(currentRow);
    enableButtons();
    resize(720, 440);
}

void CHistoryDlg::rethrowFailure() const {
    calls_.rethrowFailure();
}

const VersionLine* CHistoryDlg::selected() const {
    const QList<QTableWidgetItem*> items = list_->selectedItems();
    if (items.isEmpty())
        return nullptr;
    const int row = items.front()->row();
    return row >= 0 && row < static_cast<int>(lines_.size()) ? &lines_[static_cast<size_t>(row)]
                                                             : nullptr;
}

void CHistoryDlg::enableButtons() {
    const VersionLine* line = selected();
    open_->setEnabled(line != nullptr);
    // The current version is what the file already holds.
    restore_->setEnabled(line != nullptr && !line->current);
}

void CHistoryDlg::OnOpen() {
    const VersionLine* line = selected();
    if (!line)
        return;
    calls_.run([&] {
        CVersionDlg view(session_, *line, this);
        view.exec();
    });
}

void CHistoryDlg::OnRestore() {
    const VersionLine* line = selected();
    if (!line || line->current)
        return;
    bool restored = false;
    calls_.run([&] {
        const std::string question =
            "Make " + versionName(*line) + " the current version? Edit > Undo takes this back.";
        if (session_.prompter().askYesNo(question) != Answer::Yes)
            return;
        restoreVersion(session_, line->number);
        restored = true;
    });
    if (restored)
        accept();
}

CVersionDlg::CVersionDlg(Session& session, const VersionLine& line, QWidget* parent)
    : QDialog(parent),
      version_(std::make_unique<Session>(session.env(), session.prompter())),
      caption_(session.fileName + ", " + versionName(line)),
      about_(sentence(versionName(line)) + " (" + sentence(line.what) + ")") {
    setObjectName(QStringLiteral("versionDialog"));
    Session& v = *version_;
    v.readOnly = true;
    v.fileName = session.fileName;
    v.data = Document::parse(versionText(session, line.number), caption_);
    if (v.data.loadFailed())
        throw std::runtime_error(v.data.loadError());
    v.setYear(session.year);
    prepareColumns(v);

    auto* layout = new QVBoxLayout(this);
    monthButtons_ = new MonthButtons(this);
    layout->addWidget(monthButtons_);
    grid_ = new QTableView(this);
    gridModel_ = new GridModel(v.view, this);
    grid_->setModel(gridModel_);
    styleRegisterTable(grid_);
    layout->addWidget(grid_, 1);
    auto* bottom = new QHBoxLayout;
    layout->addLayout(bottom);
    note_ = new QLabel(this);
    note_->setObjectName(QStringLiteral("versionNote"));
    bottom->addWidget(note_, 1);
    QPushButton* close =
        addButton(bottom, QStringLiteral("Close"), QStringLiteral("closeButton"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(monthButtons_, &MonthButtons::monthChosen, this, &CVersionDlg::showMonth);

    showMonth(session.month);
    resize(1280, 720);
    if (screen())
        resize(size().boundedTo(screen()->availableGeometry().size()));
}

CVersionDlg::~CVersionDlg() = default;

void CVersionDlg::showMonth(int month) {
    Session& v = *version_;
    v.month = month;
    RegisterView& view = v.view;
    view.table.clear();
    view.lineCount = 0;
    view.cellOverrides.clear();
    const std::string name = monthName(month);
    const bool hasLines = !monthLines(v.data.node(), name).empty();
    // Worked out as the main window shows a month, without posting what is
    // due: the version as it was saved. The session never saves.
    if (hasLines)
        guarded(v.prompter(), "OnVersionMonth", [&] {
            recomputeMonth(v, false);
            view.shownMonth = month;
        });
    gridModel_->reload();
    sizeRegisterColumns(grid_, view.grid);
    grid_->scrollToTop();
    monthButtons_->press(month);
    setWindowTitle(QString::fromStdString(v.title() + " \u2014 " + caption_ + " (read-only)"));
    const std::string shown =
        hasLines ? "nothing shown here is saved." : name + " has no lines in this version.";
    note_->setText(QString::fromStdString(about_ + ", read-only: " + shown));
}

}  // namespace tallix::ui
