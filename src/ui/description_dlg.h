#pragma once
#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace tallix::ui {

// The descriptions dialog, "EDIT OR DELETE A DESCRIPTION". Opened to pick a
// description for a register cell (a double click on one picks it; "CLEAR"
// answers "clear", "Cancel" answers "cancel"), or to ask whether a typed
// description that is not on the list should join it ("YES" / "NO").
class CDescriptionDlg : public QDialog {
    Q_OBJECT
  public:
    static constexpr int kPickForCell = 14;
    static constexpr int kNotOnList = 15;

    CDescriptionDlg(int mode, const QStringList& descriptions, const QString& text,
                    QWidget* parent = nullptr);

    // The picked description, "clear" or "cancel" when picking for a cell;
    // "yes" or "no" when asked about a new one.
    QString answer() const { return answer_; }

    QListWidget* list() const { return list_; }
    QPushButton* firstButton() const { return first_; }
    QPushButton* cancelButton() const { return cancel_; }
    QLabel* question() const { return question_; }

  private:
    void finish(const QString& answer, bool accepted);

    int mode_;
    QListWidget* list_ = nullptr;
    QPushButton* first_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QLabel* question_ = nullptr;
    QString answer_;
};

}  // namespace tallix::ui
