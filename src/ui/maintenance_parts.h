#pragma once
// What the maintenance dialogs share: how they call the core, and how they
// take a label edited in place in their tree.
#include <QModelIndex>
#include <exception>
#include <functional>

class QAbstractItemView;
class QDialog;

namespace tallix {
class Prompter;
}

namespace tallix::ui {

// Runs a dialog's calls to the core. A refused value (PlanRefusal) is shown
// and the dialog stays open; any other failure closes the dialog and is kept
// for rethrowFailure(), which the caller runs after exec().
class CoreCalls {
  public:
    // `prompter` may be null for a dialog that never calls the core.
    CoreCalls(QDialog* dialog, Prompter* prompter) : dialog_(dialog), prompter_(prompter) {}

    // False when the call did not finish.
    bool run(const std::function<void()>& call);
    void rethrowFailure() const;
    // A failure other than a refusal closed the dialog.
    bool failed() const { return failure_ != nullptr; }

  private:
    QDialog* dialog_;
    Prompter* prompter_;
    std::exception_ptr failure_;
};

// Labels edited in place in `view`: `edited` gets the edited index as the
// editor commits and returns what is to be done with it, which runs once the
// editor has closed; the core's questions and the tree filled again never
// run inside the editor's commit. Changes made while `filling` is set are the
// dialog's own and no edits.
void onLabelEdited(QAbstractItemView* view, const bool& filling,
                   std::function<std::function<void()>(const QModelIndex&)> edited);

}  // namespace tallix::ui
