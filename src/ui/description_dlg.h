#pragma once
#include <QDialog>
#include <string>

#include "ui/maintenance_parts.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tallix {
class Session;
}

namespace tallix::ui {

// The descriptions dialog, "EDIT OR DELETE A DESCRIPTION". Opened to pick a
// description for a register cell (a double click on one picks it; "CLEAR"
// answers "clear", "Cancel" answers "cancel"), or to ask whether a typed
// description that is not on the list should join it ("YES" / "NO").
//
// Made with a session (Manage > Description) it keeps the list: a label
// edited in place renames the description, "APPLY" adds the text typed
// below the list, DELETE and the right-click "Delete" remove the selected
// one, "CANCEL" closes. Each goes through the core (reference/descriptions.h)
// and the list is shown again from the document; a refusal is shown and the
// dialog stays open, any other failure closes it and is thrown again by
// rethrowFailure().
class CDescriptionDlg : public QDialog {
    Q_OBJECT
  public:
    static constexpr int kPickForCell = 14;
    static constexpr int kNotOnList = 15;

    CDescriptionDlg(int mode, const QStringList& descriptions, const QString& text,
                    QWidget* parent = nullptr);
    explicit CDescriptionDlg(Session& session, QWidget* parent = nullptr);

    // The picked description, "clear" or "cancel" when picking for a cell;
    // "yes" or "no" when asked about a new one.
    QString answer() const { return answer_; }
    void rethrowFailure() const { calls_.rethrowFailure(); }

    QListWidget* list() const { return list_; }
    QPushButton* firstButton() const { return first_; }
    QPushButton* cancelButton() const { return cancel_; }
    QLabel* question() const { return question_; }
    // Keeping the list only (null otherwise).
    QLineEdit* newDescription() const { return new_; }
    QPushButton* deleteButton() const { return deleteButton_; }
    QAction* deleteAction() const { return delete_; }

  private:
    void build(const QString& firstText, const QString& cancelText);
    void finish(const QString& answer, bool accepted);
    void fillList(const std::string& selected);
    // DELETE and "Delete" need a selected description (the current item
    // alone, which a list given the focus gets, is not enough).
    void enableDelete();
    void apply();
    void deleteSelected();
    void rename(const QString& oldText, const QString& newText);

    int mode_;
    Session* session_ = nullptr;
    CoreCalls calls_{this, nullptr};
    bool filling_ = false;
    QListWidget* list_ = nullptr;
    QPushButton* first_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QLabel* question_ = nullptr;
    QLineEdit* new_ = nullptr;
    QPushButton* deleteButton_ = nullptr;
    QAction* delete_ = nullptr;
    QString answer_;
};

}  // namespace tallix::ui
