#pragma once
#include <QDialog>
#include <QTreeWidget>
#include <string>
#include <vector>

#include "ui/maintenance_parts.h"

class QAction;
class QCheckBox;
class QFormLayout;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace tallix {
class Prompter;
class Session;
}  // namespace tallix

namespace tallix::ui {

// A tree whose labels are edited in place and whose fixed rows (the items
// without Qt::ItemIsEditable) say kCannotEditFixedRow when an edit is started
// on them with a double click, the edit key or editItem(). The bank and the
// credit card dialogs use it.
class LabelTree : public QTreeWidget {
    Q_OBJECT
  public:
    LabelTree(Prompter& prompter, QWidget* parent);
    using QTreeWidget::edit;

    // The child positions from the top of the tree down to `item`.
    static std::vector<int> pathOf(QTreeWidgetItem* item);
    // Selects the item at `path`, or the deepest one of it that is there.
    void selectPath(const std::vector<int>& path);

  protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

  private:
    Prompter& prompter_;
};

// "Bank or institution": the banks, their accounts and each account's check
// register and bank balance columns (title and starting value) in a tree
// whose bank, account and value labels are edited in place; Delete removes
// the selected bank or account; Add > BANK/INSTITUTION and Add > ACCOUNT show
// the entry fields, and APPLY adds what they hold. Each goes through the core
// (reference/bank_maintenance.h), which asks its questions, and the tree and
// the column list are shown again from the document afterwards. A refused
// value is shown and the dialog stays open; any other failure closes the
// dialog and is thrown again by rethrowFailure().
class CBankdlg : public QDialog {
    Q_OBJECT
  public:
    // Edit opens on the tree; AddBank and AddAccount open with that Add
    // already chosen.
    enum class Mode { Edit, AddBank, AddAccount };
    CBankdlg(Session& session, Mode mode, QWidget* parent = nullptr);

    void rethrowFailure() const;
    LabelTree* tree() const { return tree_; }
    QAction* deleteAction() const { return delete_; }
    QAction* addBankAction() const { return addBank_; }
    QAction* addAccountAction() const { return addAccount_; }
    QPushButton* applyButton() const { return apply_; }
    QPushButton* saveAndExitButton() const { return saveAndExit_; }
    QListWidget* columnList() const { return columns_; }
    QPlainTextEdit* instructions() const { return instructions_; }

  private:
    void buildFields(QWidget* panel);
    // The tree and the column list again from the document, the item at
    // `path` selected.
    void reload(const std::vector<int>& path);
    void fillTree();
    void fillColumns();
    void commitLabel(QTreeWidgetItem* item);
    void deleteSelected();
    // Shows the entry fields for a new bank or (`account`) a new account.
    void startAdding(bool account);
    void showFields(bool shown);
    void apply();

    Session& session_;
    CoreCalls calls_;
    bool filling_ = false;
    Mode adding_ = Mode::Edit;

    LabelTree* tree_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* addBank_ = nullptr;
    QAction* addAccount_ = nullptr;
    QPlainTextEdit* instructions_ = nullptr;
    QCheckBox* registerBox_ = nullptr;
    QCheckBox* outstandingBox_ = nullptr;
    QFormLayout* form_ = nullptr;
    QLineEdit* bankName_ = nullptr;
    QLineEdit* accountName_ = nullptr;
    QLineEdit* registerTitle_ = nullptr;
    QLineEdit* bankTitle_ = nullptr;
    QLineEdit* outstandingTitle_ = nullptr;
    QLineEdit* startingBalance_ = nullptr;
    QPushButton* apply_ = nullptr;
    QPushButton* saveAndExit_ = nullptr;
    QListWidget* columns_ = nullptr;
};

}  // namespace tallix::ui
