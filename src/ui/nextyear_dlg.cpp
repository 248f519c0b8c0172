#include "ui/nextyear_dlg.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/guard.h"
#include "app/next_year.h"
#include "app/session.h"
#include "register/month_display.h"
#include "ui/register_grid.h"
#include "ui/tallix_dlg.h"

namespace tallix::ui {

CNextyearDlg::CNextyearDlg(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    const NextYearFields fields = nextYearFields(session_);
    setWindowTitle(QStringLiteral("Make next year"));

    auto* explanation = new QLabel(QString::fromUtf8(next_year_texts::kExplanation), this);
    explanation->setWordWrap(true);
    auto* balancesNote =
        new QLabel(QString::fromUtf8(next_year_texts::kBalancesWorkedOutFirst), this);
    balancesNote->setWordWrap(true);
    auto readOnly = [this](const std::string& text) {
        auto* edit = new QLineEdit(QString::fromStdString(text), this);
        edit->setReadOnly(true);
        return edit;
    };
    nextFileName_ = new QLineEdit(QString::fromStdString(fields.nextFileName), this);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("CURRENT YEAR"), readOnly(fields.currentYear));
    form->addRow(QStringLiteral("CURRENT FILENAME"), readOnly(fields.currentFileName));
    form->addRow(QStringLiteral("YEAR TO MAKE"), readOnly(fields.yearToMake));
    form->addRow(QStringLiteral("NEXT YEARS FILENAME"), nextFileName_);

    create_ = new QPushButton(QStringLiteral("CREATE NEXT YEARS TALLIX"), this);
    cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(create_);
    buttons->addWidget(cancel_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(balancesNote);
    layout->addLayout(form);
    layout->addLayout(buttons);
    resize(520, sizeHint().height());

    connect(create_, &QPushButton::clicked, this, &CNextyearDlg::OnBnClickedCreate);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void CNextyearDlg::OnBnClickedCreate() {
    // A refused name keeps the dialog open so that it can be corrected.
    if (OnToolsMakenextyear(session_, nextFileName_->text().toStdString()))
        accept();
}

// The main window's command; after the new year was made the window shows
// it as the Years menu shows a year it switched to.
void CTallixDlg::OnToolsMakenextyear() {
    // The new year starts from the file as it stands with the open edit in it.
    registerGrid_->HideEditor();
    CNextyearDlg dialog(session_, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    guarded(session_.prompter(), "OnToolsMakenextyear", [&] {
        // The new year opens at January, where last year's closings were
        // carried.
        session_.view.table.clear();
        session_.view.lineCount = 0;
        session_.month = 1;
        loadColumns(session_);
        displayMonth(session_, "1");
        showDisplayedMonth();
        session_.prompter().notify(std::string(kNewYearOpened) + session_.yearText +
                                   " is open at January, which starts from December's closings.");
    });
}

}  // namespace tallix::ui
