#include "ui/maintenance_parts.h"

#include <QAbstractItemView>
#include <QDialog>

#include "app/prompter.h"
#include "reference/plan_input.h"

namespace tallix::ui {

bool CoreCalls::run(const std::function<void()>& call) {
    try {
        call();
        return true;
    } catch (const PlanRefusal& refusal) {
        prompter_->notify(refusal.what());
    } catch (...) {
        failure_ = std::current_exception();
        dialog_->reject();
    }
    return false;
}

void CoreCalls::rethrowFailure() const {
    if (failure_)
        std::rethrow_exception(failure_);
}

void onLabelEdited(QAbstractItemView* view, const bool& filling,
                   std::function<std::function<void()>(const QModelIndex&)> edited) {
    QObject::connect(view->model(), &QAbstractItemModel::dataChanged, view,
                     [view, &filling, edited = std::move(edited)](const QModelIndex& index) {
                         if (filling)
                             return;
                         QMetaObject::invokeMethod(view, edited(index), Qt::QueuedConnection);
                     });
}

}  // namespace tallix::ui
