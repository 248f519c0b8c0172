#pragma once
#include <QDialog>

namespace tallix {
class Session;
}

namespace tallix::ui {

// The main window: one month of the year on screen.
class CTallixDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CTallixDlg(Session& session, QWidget* parent = nullptr);

    // The start-up sequence; failures are reported, the window stays usable.
    void OnInitDialog();

  private:
    Session& session_;
};

}  // namespace tallix::ui
