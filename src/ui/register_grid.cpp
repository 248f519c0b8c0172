#include "ui/register_grid.h"

#include <algorithm>

#include <QApplication>
#include <QFocusEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>

#include "app/guard.h"
#include "app/session.h"
#include "editing/add_item.h"
#include "editing/cell_choices.h"
#include "editing/cell_commit.h"
#include "editing/line_day.h"
#include "register/month_display.h"
#include "ui/grid_model.h"

namespace tallix::ui {
namespace {

// A blank cell holds a single blank; the editor starts empty on it.
QString editableText(const GridTable& table, int row, int column) {
    const std::string& text = table.cell(row, column);
    return isBlankCell(text) ? QString() : QString::fromStdString(text);
}

std::string cellText(const GridTable& table, int row, int column) {
    const std::string& text = table.cell(row, column);
    return isBlankCell(text) ? std::string() : text;
}

}  // namespace

RegisterGrid::RegisterGrid(Session& session, QTableView* view, GridModel* model,
                           std::function<void()> redraw, QObject* parent)
    : QObject(parent),
      session_(session),
      view_(view),
      model_(model),
      redraw_(std::move(redraw)),
      pickers_(dialogPickers(view, session)) {
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    viewport_ = view_->viewport();
    viewport_->installEventFilter(this);
    keysOf_ = view_;
    keysOf_->installEventFilter(this);
    editor_ = new QLineEdit(viewport_);
    editor_->setFrame(false);
    editor_->hide();
    editor_->installEventFilter(this);

    // A month shown by another command takes the open editor with it unsaved:
    // its cell belongs to the month that went away.
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, &RegisterGrid::discardEditor);
    connect(view_->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &RegisterGrid::placeEditor);
    connect(view_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &RegisterGrid::placeEditor);
    connect(view_->horizontalHeader(), &QHeaderView::sectionResized, this,
            &RegisterGrid::placeEditor);
}

// The filters go before the grid: an event that reached the filter while the
// view was being torn down would call into a half-destroyed view.
RegisterGrid::~RegisterGrid() {
    if (viewport_)
        viewport_->removeEventFilter(this);
    if (keysOf_)
        keysOf_->removeEventFilter(this);
    if (editor_)
        editor_->removeEventFilter(this);
}

void RegisterGrid::setPickers(std::unique_ptr<GridPickers> pickers) {
    pickers_ = std::move(pickers);
}

QLineEdit* RegisterGrid::openEditorWidget() const {
    return session_.view.editorRow >= 0 ? editor_.data() : nullptr;
}

void RegisterGrid::openEditor(int row, int column) {
    HideEditor();
    RegisterView& v = session_.view;
    if (!takesTyping(row, column))
        return;
    v.editorRow = row;
    v.editorColumn = column;
    const QModelIndex index = model_->index(row, column);
    view_->scrollTo(index);
    view_->clearSelection();
    editor_->setText(editableText(v.table, row, column));
    placeEditor();
    editor_->show();
    editor_->setFocus(Qt::OtherFocusReason);
    editor_->selectAll();
    view_->viewport()->update();
}

bool RegisterGrid::HideEditor() {
    RegisterView& v = session_.view;
    if (v.editorRow < 0 || v.committing)
        return false;
    const int row = v.editorRow;
    const int column = v.editorColumn;
    const std::string text = editor_->text().toStdString();
    v.editorRow = v.editorColumn = -1;
    if (editor_->hasFocus())
        view_->setFocus(Qt::OtherFocusReason);
    editor_->hide();
    bool done = false;
    if (column == kDateColumn) {
        // Like any commit: one at a time, then the balances in the new order.
        v.committing = true;
        guarded(session_.prompter(), "HideEditor", [&] { done = setLineDay(session_, row, text); });
        v.committing = false;
        if (done)
            tallix::updateAfterChange(session_);
    } else {
        done = tallix::HideEditor(session_, row, column, text);
    }
    redraw_();
    // The redraw reset the model, which forgot the current cell.
    selectCell(row, column, false);
    return done;
}

bool RegisterGrid::takesTyping(int row, int column) const {
    const RegisterView& v = session_.view;
    if (column == kDateColumn)
        return row >= 0 && row < v.lineCount && v.table.contains(row, column);
    return isEditableCell(v, row, column);
}

void RegisterGrid::selectCell(int row, int column, bool scroll) {
    const QModelIndex index = model_->index(row, column);
    if (!index.isValid())
        return;
    QScrollBar* across = view_->horizontalScrollBar();
    QScrollBar* down = view_->verticalScrollBar();
    const int x = across->value();
    const int y = down->value();
    view_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (!scroll) {
        // The view scrolls a partly hidden current cell into view.
        across->setValue(x);
        down->setValue(y);
    }
}

void RegisterGrid::discardEditor() {
    RegisterView& v = session_.view;
    if (v.editorRow < 0)
        return;
    v.editorRow = v.editorColumn = -1;
    editor_->hide();
}

void RegisterGrid::placeEditor() {
    const RegisterView& v = session_.view;
    if (v.editorRow >= 0)
        editor_->setGeometry(view_->visualRect(model_->index(v.editorRow, v.editorColumn)));
}

void RegisterGrid::moveEditor(bool forward) {
    const RegisterView& v = session_.view;
    // From the DATE cell Tab goes on at the line's first typed field.
    const int from =
        v.editorColumn == kDateColumn && forward ? kFirstEditableColumn - 1 : v.editorColumn;
    const auto next = nextEditableCell(v, v.editorRow, from, forward);
    HideEditor();
    if (next)
        openEditor(next->first, next->second);
}

bool RegisterGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched == viewport_) {
        switch (event->type()) {
            case QEvent::MouseButtonPress: {
                auto* mouse = static_cast<QMouseEvent*>(event);
                if (mouse->button() == Qt::LeftButton)
                    OnLButtonDown(mouse->position().toPoint());
                else if (mouse->button() == Qt::RightButton)
                    OnRButtonDown(mouse->position().toPoint());
                return true;
            }
            case QEvent::MouseButtonDblClick: {
                auto* mouse = static_cast<QMouseEvent*>(event);
                if (mouse->button() == Qt::LeftButton)
                    OnLButtonDblClk(mouse->position().toPoint());
                return true;
            }
            case QEvent::MouseButtonRelease:
            case QEvent::MouseMove:
                // The grid answers presses only; the view's own selection by
                // dragging stays off.
                return true;
            default:
                return false;
        }
    }
    if (watched == keysOf_ && event->type() == QEvent::KeyPress)
        return onViewKey(static_cast<QKeyEvent*>(event));
    if (watched == editor_) {
        if (event->type() == QEvent::KeyPress)
            return onEditorKey(static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::FocusOut) {
            // Leaving the editor for another control commits it. A click in the
            // grid decides for itself, and a dialog or another window taking
            // the focus leaves the edit open.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            QWidget* to = QApplication::focusWidget();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                view_->window()->isVisible() && to != view_ && to != view_->viewport() &&
                to != nullptr)
                HideEditor();
        }
    }
    return false;
}

bool RegisterGrid::onEditorKey(QKeyEvent* key) {
    switch (key->key()) {
        case Qt::Key_Tab:
            if (key->modifiers() & Qt::ControlModifier)
                return false;
            moveEditor(!(key->modifiers() & Qt::ShiftModifier));
            return true;
        case Qt::Key_Backtab:
            moveEditor(false);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            // Commits and goes one row down, as registers do; the key goes no
            // further, so the window stays open.
            const int row = session_.view.editorRow;
            const int column = session_.view.editorColumn;
            HideEditor();
            selectCell(std::min(row + 1, model_->rowCount() - 1), column, true);
            return true;
        }
        case Qt::Key_Escape:
            // Keeps what was typed and leaves the program running.
            HideEditor();
            return true;
        default:
            return false;
    }
}

bool RegisterGrid::onViewKey(QKeyEvent* key) {
    if (forwardingKey_)
        return true;  // the open editor let a handed-on key through
    if (session_.view.editorRow >= 0 && editor_) {
        // A key that reached the grid while the editor is open is the editor's.
        forwardingKey_ = true;
        QCoreApplication::sendEvent(editor_.data(), key);
        forwardingKey_ = false;
        return true;
    }
    const QModelIndex current = view_->currentIndex();
    if (!current.isValid())
        return false;
    const int row = current.row();
    const int column = current.column();
    if (key->key() == Qt::Key_F2 && key->modifiers() == Qt::NoModifier) {
        if (!takesTyping(row, column))
            return false;
        guarded(session_.prompter(), "OnF2", [&] { openEditor(row, column); });
        return true;
    }
    // A printable character starts an edit that begins with it; arrows and
    // the other keys are the view's.
    const QString text = key->text();
    const bool printable =
        text.size() == 1 && text.at(0).isPrint() &&
        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!printable || !takesTyping(row, column))
        return false;
    guarded(session_.prompter(), "OnTyping", [&] {
        openEditor(row, column);
        if (openEditorWidget())
            editor_->setText(text);
    });
    return true;
}

void RegisterGrid::OnLButtonDown(const QPoint& at) {
    const QModelIndex hit = view_->indexAt(at);
    if (!hit.isValid())
        return;  // outside the rows: not even the open edit is committed
    const int row = hit.row();
    const int column = hit.column();
    guarded(session_.prompter(), "OnLButtonDown", [&] {
        RegisterView& v = session_.view;
        if (v.editorRow >= 0 && (v.editorRow != row || v.editorColumn != column))
            HideEditor();
        if (!v.table.contains(row, column))
            return;
        selectCell(row, column, false);
        if (row >= v.lineCount)
            return;  // the starting row has no line
        const FieldColumns& f = v.fields;
        if (column == f.status)
            pickStatus(row);
        else if (column == f.institution)
            pickInstitution(row);
        else if (column == f.expense)
            pickExpense(row, column);
        else if (v.markedRow >= 0)
            mark(-1, -1);
    });
}

void RegisterGrid::OnRButtonDown(const QPoint& at) {
    const QModelIndex hit = view_->indexAt(at);
    if (!hit.isValid())
        return;
    const int row = hit.row();
    const int column = hit.column();
    HideEditor();
    if (!session_.view.table.contains(row, column))
        return;
    view_->setCurrentIndex(model_->index(row, column));
    mark(row, column);
    tallix::AddItem(session_, row, column, *pickers_);
    redraw_();
}

void RegisterGrid::OnLButtonDblClk(const QPoint& at) {
    const QModelIndex hit = view_->indexAt(at);
    if (!hit.isValid() || (hit.column() < kFirstEditableColumn && hit.column() != kDateColumn))
        return;  // of the first five columns only the DATE is edited in place
    const int row = hit.row();
    const int column = hit.column();
    guarded(session_.prompter(), "OnLButtonDblClk", [&] { openEditor(row, column); });
}

void RegisterGrid::pickStatus(int row) {
    const RegisterView& v = session_.view;
    const std::optional<std::string> status =
        pickers_->pickStatus(cellText(v.table, row, v.fields.status));
    if (!status)
        return;
    writeStatus(session_, row, *status);
    tallix::updateAfterChange(session_);
    redraw_();
}

void RegisterGrid::pickInstitution(int row) {
    const RegisterView& v = session_.view;
    const BankChoice choice = pickers_->pickInstitution(
        institutionChoices(session_.data.node()), cellText(v.table, row, v.fields.institution),
        cellText(v.table, row, v.fields.account));
    switch (choice.outcome) {
        case BankChoice::Outcome::Canceled:
            return;
        case BankChoice::Outcome::Clear:
            writeInstitution(session_, row, std::string(), std::string());
            break;
        case BankChoice::Outcome::Update:
            writeInstitution(session_, row, choice.institution, choice.account);
            break;
    }
    tallix::updateAfterChange(session_);
    redraw_();
}

void RegisterGrid::pickExpense(int row, int column) {
    // Yellow while the picker is open.
    mark(row, column);
    view_->viewport()->repaint();
    tallix::expenseCellClicked(session_, row, column, *pickers_);
    redraw_();
}

void RegisterGrid::mark(int row, int column) {
    session_.view.markedRow = row;
    session_.view.markedColumn = column;
    view_->viewport()->update();
}

}  // namespace tallix::ui
