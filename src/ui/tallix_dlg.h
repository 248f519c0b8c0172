#pragma once
#include <QDialog>

class QMenu;
class QMenuBar;
class QTableView;

namespace tallix {
class Session;
}

namespace tallix::ui {

class MonthButtons;
class PictureButtons;

// The main window: the month and picture buttons, the menu bar and the
// register grid of one month. Each command handler reports its own failures
// and leaves the window usable.
class CTallixDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CTallixDlg(Session& session, QWidget* parent = nullptr);

    // The start-up sequence, from the data files to the Customers menu.
    void OnInitDialog();
    // Exit (File > Exit, Escape, closing the window): writes the backups, then
    // closes; a failed backup keeps the window open.
    void OnBnClickedCancel();
    void OnMonthButton(int month);
    void OnYearsMenu(const QString& year);
    // The Customers menu: the commands change nothing.
    void OnCustomerCommand(int command);

    QMenuBar* menuBar() const { return menuBar_; }
    QMenu* customersMenu() const { return customersMenu_; }
    MonthButtons* monthButtons() const { return monthButtons_; }
    PictureButtons* pictureButtons() const { return pictureButtons_; }
    QTableView* grid() const { return grid_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override;

  private:
    void buildMenus();
    void buildCustomersMenu();
    void showNotAvailable(const QString& command);
    void connectPictureButtons();

    Session& session_;
    QMenuBar* menuBar_ = nullptr;
    QMenu* customersMenu_ = nullptr;
    MonthButtons* monthButtons_ = nullptr;
    PictureButtons* pictureButtons_ = nullptr;
    QTableView* grid_ = nullptr;
};

}  // namespace tallix::ui
