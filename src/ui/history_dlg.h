#pragma once
// File > History: the versions of the year file, newest first. Open shows an
// older version's months without changing anything; Restore makes it the
// current version again, as a change Edit > Undo takes back.
#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "app/undo_history.h"
#include "ui/maintenance_parts.h"

class QLabel;
class QPushButton;
class QTableView;
class QTableWidget;

namespace tallix {
class Session;
}

namespace tallix::ui {

class GridModel;
class MonthButtons;

// The list of versions (number, time, what changed; the current one in bold
// and marked) with Open, Restore and Close. A failure other than a refusal
// closes the dialog and is thrown again by rethrowFailure().
class CHistoryDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CHistoryDlg(Session& session, QWidget* parent = nullptr);

    void rethrowFailure() const;
    QTableWidget* list() const { return list_; }
    QPushButton* openButton() const { return open_; }
    QPushButton* restoreButton() const { return restore_; }
    QPushButton* closeButton() const { return close_; }

    // Open: the selected version's months in a read-only window.
    void OnOpen();
    // Restore: asks, then makes the selected version the current one and
    // closes the dialog.
    void OnRestore();

  private:
    // The version on the selected row; null when no row is selected.
    const VersionLine* selected() const;
    void enableButtons();

    Session& session_;
    CoreCalls calls_;
    std::vector<VersionLine> lines_;  // newest first, as listed
    QTableWidget* list_ = nullptr;
    QPushButton* open_ = nullptr;
    QPushButton* restore_ = nullptr;
    QPushButton* close_ = nullptr;
};

// One version of the year file, read-only: the twelve month buttons and the
// register grid of a month as that version holds it. It works on a session
// of its own that never saves and keeps no history, so nothing it shows can
// reach the data file.
class CVersionDlg : public QDialog {
    Q_OBJECT
  public:
    // Opens at the month `session` shows. Throws when the history does not
    // keep version `number` or its text cannot be read.
    CVersionDlg(Session& session, const VersionLine& line, QWidget* parent = nullptr);
    ~CVersionDlg() override;

    // Shows month 1-12; a month without lines shows an empty grid and says so.
    void showMonth(int month);

    const Session& version() const { return *version_; }
    MonthButtons* monthButtons() const { return monthButtons_; }
    QTableView* grid() const { return grid_; }
    GridModel* gridModel() const { return gridModel_; }
    QLabel* note() const { return note_; }

  private:
    std::unique_ptr<Session> version_;
    std::string caption_;  // "<file>, version N of TIME"
    std::string about_;    // "Version N of TIME (what changed)"
    MonthButtons* monthButtons_ = nullptr;
    QTableView* grid_ = nullptr;
    GridModel* gridModel_ = nullptr;
    QLabel* note_ = nullptr;
};

}  // namespace tallix::ui
