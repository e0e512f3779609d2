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

FormDialog::FormDialog(Form& form, Edge& edge, std::function<bool()> may_close, QWidget* parent)
    : QDialog(parent),
      form_(form),
      edge_(edge),
      may_close_(std::move(may_close)),
      view_(new FormView(form, edge, FormView::Place::kDialog, this)) {
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
  if (!may_close_()) return;
  view_->release();
  done(Accepted);
}

}  // namespace quor
