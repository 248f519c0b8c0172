#pragma once
#include <QDialog>
#include <QString>
#include <string>

#include "ui/maintenance_parts.h"

class QAction;
class QVariant;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tallix {
class Session;
}

namespace tallix::ui {

// "EDIT, ADD OR DELETE A CATEGORY": the plan's categories in a tree whose
// labels are edited in place. Editing a label renames the category; Add New
// starts a new label before the selected category and its commit adds the
// category; Delete removes the selected one. Each goes through the core
// (reference/category_maintenance.h), which asks its questions, and the
// tree is shown again from the document afterwards. A refused name is shown
// and the dialog stays open; any other failure closes the dialog and is
// thrown again by rethrowFailure().
class CcategoryDlg : public QDialog {
    Q_OBJECT
  public:
    explicit CcategoryDlg(Session& session, QWidget* parent = nullptr);

    void rethrowFailure() const;
    QTreeWidget* tree() const { return tree_; }
    QAction* deleteAction() const { return delete_; }
    QAction* addNewAction() const { return addNew_; }

  private:
    void fillTree(const std::string& selected);
    // A label committed: `name` is the category's name in the file, or
    // invalid for a new label that goes before `before`.
    void commitLabel(const QString& label, const QVariant& name, const QVariant& before);
    void addNew();
    void deleteSelected();

    Session& session_;
    CoreCalls calls_;
    bool filling_ = false;
    QTreeWidget* tree_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* addNew_ = nullptr;
};

}  // namespace tallix::ui
