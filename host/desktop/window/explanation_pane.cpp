#include "host/desktop/window/explanation_pane.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "host/company/office_name.h"
#include "host/desktop/window/explanation_page.h"
#include "host/insight/pay_slip.h"
#include "host/payroll/latest_month.h"
#include "host/store/object_codes.h"

namespace quor {

namespace {

constexpr int kMoment = 150;  // ms
constexpr int kLeastWidth = 260;

Month first_month(DesktopApplication& application) {
  return latest_month(application.company().database()).value_or(Month::of(application.Today()));
}

Month months_later(const Month& month, int months) {
  return Month::of(add_days(months > 0 ? month.last_day() : month.first_day(), months));
}

}  // namespace

ExplanationPane::ExplanationPane(DesktopApplication& application, std::function<Sight()> in_sight, QWidget* parent)
    : QWidget(parent),
      application_(application),
      in_sight_(std::move(in_sight)),
      shown_month_(new QLabel(this)),
      text_(new QTextBrowser(this)),
      moment_(new QTimer(this)),
      month_(first_month(application)) {
  setMinimumWidth(kLeastWidth);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  auto* const head = new QHBoxLayout;
  add_head(*head);
  column->addLayout(head);
  column->addWidget(text_, 1);
  text_->setAccessibleName("Sumų paaiškinimas");
  text_->setOpenLinks(false);
  text_->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
  text_->installEventFilter(this);
  connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& key) {
    if (on_open) on_open(key.toString().toStdString());
  });
  moment_->setSingleShot(true);
  moment_->setInterval(kMoment);
  connect(moment_, &QTimer::timeout, this, [this] { follow(); });
  qApp->installEventFilter(this);
}

void ExplanationPane::add_head(QHBoxLayout& head) {
  auto* const title = new QLabel("&Kodėl tiek?", this);
  title->setBuddy(text_);
  head.addWidget(title, 1);
  const auto add_button = [&](const char* name, const std::function<void()>& run) {
    auto* const button = new QToolButton(this);
    button->setAccessibleName(name);
    button->setToolTip(name);
    connect(button, &QToolButton::clicked, this, run);
    head.addWidget(button);
    return button;
  };
  add_button("Ankstesnis mėnuo", [this] { turn_month(-1); })->setArrowType(Qt::LeftArrow);
  head.addWidget(shown_month_);
  add_button("Kitas mėnuo", [this] { turn_month(1); })->setArrowType(Qt::RightArrow);
  add_button("Spausdinti atsiskaitymo lapelį", [this] { print(); })->setText("Lapelis");
}

// What the user does anywhere in the window may move him to somebody else. Keys and clicks are only looked at.
bool ExplanationPane::eventFilter(QObject* watched, QEvent* event) {
  const bool acts = event->type() == QEvent::KeyRelease || event->type() == QEvent::MouseButtonRelease;
  if (acts && isVisible()) moment_->start();
  if (watched == text_ && event->type() == QEvent::KeyPress &&
      static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    leave();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ExplanationPane::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return leave();
  QWidget::keyPressEvent(event);
}

void ExplanationPane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  moment_->start();
}

void ExplanationPane::toggle() {
  if (isVisible() && isAncestorOf(QApplication::focusWidget())) return leave();
  came_from_ = QApplication::focusWidget();
  show();
  follow();
  text_->setFocus();
}

void ExplanationPane::leave() {
  hide();
  if (came_from_) came_from_->setFocus();
}

void ExplanationPane::refresh() {
  if (isVisible()) tell();
}

void ExplanationPane::turn_month(int months) {
  month_ = months_later(month_, months);
  tell();
}

// The pay slip, as every list is printed.
void ExplanationPane::print() {
  const auto employee = id_of_key(person_);
  if (!employee) return;
  application_.edge().act(this, [&] {
    const ReportData slip =
        pay_slip(explain(application_, month_, *employee), office_name(application_.company().database()));
    const auto report = application_.NewListReport(slip.title, kSalaryExtensionType);
    for (const std::string& heading : slip.headings) report->AddHeading(heading);
    for (const ReportColumn& column : slip.columns) {
      report->AddColumn(column.key, column.caption, column.width, column.alignment);
    }
    for (std::size_t line = 0; line < slip.lines; ++line) {
      report->AddLine();
      for (std::size_t at = 0; at < slip.columns.size(); ++at) {
        report->SetCell(slip.columns[at].key, slip.cell(line, at).text, slip.cell(line, at).colour);
      }
    }
    report->Show();
  });
}

void ExplanationPane::follow() {
  if (!isVisible() || application_.busy() > 0 || QApplication::activeModalWidget() != nullptr) return;
  if (isAncestorOf(QApplication::focusWidget())) return;
  try {
    const Sight sight = in_sight_();
    if (!sight.person.empty()) person_ = sight.person;
    if (sight.month && sight.month != seen_month_) month_ = *sight.month;
    seen_month_ = sight.month;
  } catch (const std::exception& failure) {
    told_.clear();
    text_->setHtml(refusal_page(failure.what()));
    return;
  }
  tell();
}

// Nothing is told twice of one state of the company.
void ExplanationPane::tell() {
  shown_month_->setText(QString::fromStdString(month_.text()));
  const auto employee = id_of_key(person_);
  if (!employee) return text_->setHtml("<p>Pažymėkite žmogaus eilutę.</p>");
  try {
    Database& database = application_.company().database();
    std::string about = person_ + month_.text() + std::to_string(database.change_count());
    if (about == std::exchange(told_, about)) return;
    text_->setHtml(explanation_page(explain(application_, month_, *employee)));
  } catch (const std::exception& failure) {
    text_->setHtml(refusal_page(failure.what()));
  }
}

}  // namespace quor
