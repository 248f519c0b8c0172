#pragma once
#include <QDialog>
#include <functional>
#include <string>

class QAction;
class QMenu;
class QMenuBar;
class QTableView;

namespace tallix {
class Session;
}

namespace tallix::ui {

class CFindDlg;
class GridModel;
class MonthButtons;
class PictureButtons;
class RegisterGrid;

// The main window: the month and picture buttons, the menu bar and the
// register grid of one month. Each command handler reports its own failures
// and leaves the window usable.
class CTallixDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CTallixDlg(Session& session, QWidget* parent = nullptr);
    // Takes the grid's typing and clicks off the table view before the view
    // and its viewport are destroyed.
    ~CTallixDlg() override;

    // The start-up sequence, from the data files to the Customers menu. When
    // the user chooses no year file the window closes at once.
    void OnInitDialog();
    // Runs the window; returns at once when start-up closed it.
    int exec() override;
    // Exit (File > Exit, Escape, closing the window): writes the backups, then
    // closes; a failed backup keeps the window open. Without a data file there
    // is nothing to back up and the window closes.
    void OnBnClickedCancel();
    // A month button: shows that month; a month without lines is refused and
    // the grid keeps what it showed.
    void OnMonthButton(int month);
    void OnYearsMenu(const QString& year);
    // Tools > Refresh and the refresh button: reads the data file again.
    void Refresh();
    // The update button: posts what is due and recomputes the month.
    void OnToolsUpdate();
    // Tools > Update all months: recomputes January to December in turn and
    // leaves December displayed.
    void OnToolsUpdateallmonths();
    // Tools > Make next year: the dialog, then the new year's month.
    void OnToolsMakenextyear();
    // Tools > Recurring expenses (7) and the Reports items (8, 9, 20, 21).
    void OnReport(int number);
    // The Customers menu: opens the receivables dialog at that customer.
    void OnCustomerCommand(int command);
    // Manage > Expense and Manage > Category (and their picture buttons): the
    // maintenance dialog, then the month again as the year file now holds it.
    void OnManageExpense();
    void OnManageCategory();
    // Manage > Bank or Institution and Credit Card (and their picture
    // buttons), and Manage > New Bank or Institution, New Bank Account and
    // New Credit Card, which open the same dialogs with that Add chosen.
    void OnManageBank();
    void OnManageCreditCard();
    // Manage > Income and Manage > Receivables (and their picture buttons):
    // the maintenance dialogs of the income sources and of the customers
    // (at `customer`, when one is given).
    void OnManageIncome();
    void OnManageReceivables(const std::string& customer = {});
    void OnBankAddbank();
    void OnNewBankaccount();
    void OnCreditcardAdd();
    // Manage > RMD, and Manage > Description with its picture button: the
    // dialog, then the month again (its balances read the RMD records).
    void OnManageRmd();
    void OnManageDescription();
    // A double click on a column header of the grid: the width dialog for
    // that column, then the month again with the new width.
    void OnColumnWidth(int gridColumn);
    // File > History: the versions of the year file; after a restore the
    // month is shown as the file now holds it.
    void OnFileHistory();
    // Edit > Undo (Ctrl+Z) and Redo (Ctrl+Shift+Z, Ctrl+Y): an open cell
    // edit is committed first, then the change is taken back (made again)
    // and the month shown again.
    void OnEditUndo();
    void OnEditRedo();
    // Edit > Find (Ctrl+F): the find window, kept open beside the grid.
    void OnEditFind();
    // Shows month `month` with line `line` (from 1) selected.
    void showLine(int month, int line);
    CFindDlg* findDialog() const { return findDialog_; }

    QMenuBar* menuBar() const { return menuBar_; }
    QMenu* customersMenu() const { return customersMenu_; }
    QAction* undoAction() const { return undoAction_; }
    QAction* redoAction() const { return redoAction_; }
    MonthButtons* monthButtons() const { return monthButtons_; }
    PictureButtons* pictureButtons() const { return pictureButtons_; }
    QTableView* grid() const { return grid_; }
    GridModel* gridModel() const { return gridModel_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override;

  private:
    void buildMenus();
    void buildCustomersMenu();
    void connectPictureButtons();
    // "Undo <what>" from the session's history, disabled when there is none.
    void updateUndoAction();
    // After a maintenance dialog or an undo: the displayed month read again
    // from the year file (columns, lines, balances), the grid where it was,
    // and the Customers menu.
    void showMonthFromFile();
    void takeBack(std::string_view handler, std::optional<std::string> (*step)(Session&));
    // Runs a maintenance dialog, then shows the month from the file; the
    // balances worked out again belong to the dialog's change, if it made one.
    void runMaintenance(const std::function<void()>& dialog);
    void setUpGrid();
    // Shows the grid table as the core left it: rows, column widths, the
    // remembered row in view (or the scroll position as it was), and the
    // title of the displayed month.
    void showDisplayedMonth(bool keepScrollPosition = false);
    // Widens the window, within the screen, to show every column.
    void fitWidthToGrid();

    Session& session_;
    bool closedAtStartup_ = false;
    QMenuBar* menuBar_ = nullptr;
    QMenu* customersMenu_ = nullptr;
    QAction* undoAction_ = nullptr;
    QAction* redoAction_ = nullptr;
    MonthButtons* monthButtons_ = nullptr;
    PictureButtons* pictureButtons_ = nullptr;
    QTableView* grid_ = nullptr;
    GridModel* gridModel_ = nullptr;
    RegisterGrid* registerGrid_ = nullptr;
    CFindDlg* findDialog_ = nullptr;
};

}  // namespace tallix::ui
