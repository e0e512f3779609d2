#include "host/desktop/answers/form_dialog.h"

#include <QSettings>
#include <QVBoxLayout>

namespace quor {

namespace {

constexpr int kNarrowest = 320;
constexpr int kBesideTitle = 220;  // the program's name, the icon and the buttons of a title bar

QString size_setting(const Form& form) {
  return "sizes/" + QString::fromStdString(form.caption()).replace('/', '_').replace('\\', '_');
}

}  // namespace

FormDialog::FormDialog(Form& form, Edge& edge, QWidget* parent)
    : QDialog(parent), form_(form), edge_(edge), view_(new FormView(form, edge, FormView::Place::kDialog, this)) {
  setWindowTitle(QString::fromStdString(form.caption()));
  setMinimumWidth(kNarrowest);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(view_);
  resize(QSettings().value(size_setting(form), sizeHint()).toSize().expandedTo(minimumSizeHint()));
  form.on_close_request([this] { close_requested(); });
  view_->focus_first();
}

FormDialog::~FormDialog() {
  form_.on_close_request(nullptr);
  QSettings().setValue(size_setting(form_), size());
}

void FormDialog::name_subject(const QString& subject) {
  setWindowTitle(windowTitle() + ": " + subject);
  setMinimumWidth(qMax(kNarrowest, fontMetrics().horizontalAdvance(windowTitle()) + kBesideTitle));
}

void FormDialog::reject() {
  edge_.act(this, [this] { form_.close_box(); });
}

// Closed once the act that asked for it has ended: closing takes the view along, in which the act still runs.
void FormDialog::close_requested() {
  switch (answer_to_closing()) {
    case SaveAnswer::kStay:
      return;
    case SaveAnswer::kSave:
      // The act that wanted to close ends first; a form that has written closes itself.
      QMetaObject::invokeMethod(
          view_, [view = view_] { view->write(); }, Qt::QueuedConnection);
      return;
    case SaveAnswer::kDiscard:
      view_->release();
      done(Accepted);
  }
}

SaveAnswer FormDialog::answer_to_closing() {
  if (!form_.has_unsaved_changes()) return SaveAnswer::kDiscard;
  if (view_->can_write()) return ask_to_save(this, windowTitle());
  return ask_to_discard(this, windowTitle()) ? SaveAnswer::kDiscard : SaveAnswer::kStay;
}

}  // namespace quor
