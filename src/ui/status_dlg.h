#pragma once
#include <QDialog>

class QListWidget;

namespace tallix::ui {

// The status picker: the status words in a list; a double click or OK picks
// the selected one, Cancel picks nothing.
class CStatusdlg : public QDialog {
    Q_OBJECT
  public:
    CStatusdlg(const QStringList& words, const QString& current, QWidget* parent = nullptr);

    // The picked word; empty until one is picked.
    QString status() const { return status_; }
    QListWidget* list() const { return list_; }

  private:
    void pick();

    QListWidget* list_ = nullptr;
    QString status_;
};

}  // namespace tallix::ui
