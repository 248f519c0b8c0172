#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "ui/maintenance_parts.h"

class QAction;
class QLineEdit;
class QPushButton;
class QTreeWidgetItem;

namespace tallix {
class Session;
}

namespace tallix::ui {

class LabelTree;

// "Credit Card": the cards in a tree, each with its column title, closing
// value, closing day and due day below it. Editing a card's label renames
// the card, editing a value writes it; Delete removes the selected card and
// Add New shows the fields of a new card, which SAVE adds. Each goes through
// the core (reference/card_maintenance.h) and the tree is shown again from
// the document afterwards. A refused value is shown and the dialog stays
// open; any other failure closes the dialog and is thrown again by
// rethrowFailure().
class CDialogCreditCards : public QDialog {
    Q_OBJECT
  public:
    CDialogCreditCards(Session& session, bool startWithAddNew, QWidget* parent = nullptr);

    void rethrowFailure() const;
    LabelTree* tree() const { return tree_; }
    QAction* deleteAction() const { return delete_; }
    QAction* addNewAction() const { return addNew_; }
    QPushButton* saveButton() const { return save_; }

  private:
    void fillTree(const std::vector<int>& path);
    void commitLabel(QTreeWidgetItem* item);
    void deleteSelected();
    void addNew();
    void save();
    void showFields(bool shown);

    Session& session_;
    CoreCalls calls_;
    bool filling_ = false;

    LabelTree* tree_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* addNew_ = nullptr;
    QWidget* fields_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* columnTitle_ = nullptr;
    QLineEdit* lastYearClosing_ = nullptr;
    QLineEdit* closingDay_ = nullptr;
    QLineEdit* dueDay_ = nullptr;
    QPushButton* save_ = nullptr;
};

}  // namespace tallix::ui
