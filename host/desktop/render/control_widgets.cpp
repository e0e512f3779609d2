#include "host/desktop/render/control_widgets.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "host/desktop/edge/mnemonics.h"
#include "host/desktop/render/chart_widget.h"
#include "host/desktop/render/choice_edit.h"
#include "host/desktop/render/date_edit.h"
#include "host/desktop/render/grid_widget.h"
#include "host/desktop/render/list_frame.h"
#include "host/desktop/render/text_box_edit.h"
#include "platform/toolkit/check_box.h"

namespace quor {

namespace {

constexpr double kHeadingScale = 1.25;

QString caption_of(const Captioned& control) { return QString::fromStdString(control.caption()); }

void show_state(const Control& control, QWidget& widget) {
  widget.setEnabled(control.enabled());
  widget.setVisible(control.visible());
}

class Maker : public ControlVisitor {
 public:
  explicit Maker(const WidgetPlace& place) : place_(place) {}
  ControlWidget made;

  void visit(TextBox& box) override { make<TextBoxEdit>(box, place_.acts, place_.parent); }
  void visit(Chart& chart) override { make<ChartWidget>(chart, place_.acts, place_.parent); }
  void visit(ChoiceBox& box) override { make<ChoiceEdit>(box, place_.acts, place_.parent); }
  void visit(DatePicker& picker) override { make<DateEdit>(picker, place_.acts, place_.parent); }
  void visit(Grid& grid) override { make<GridWidget>(grid, place_.acts, place_.parent); }
  void visit(ListView& list) override {
    const QString name = place_.form_name + "." + QString::fromStdString(list.name());
    auto* const frame = new ListFrame(list, place_.acts, name, place_.parent);
    made = {&frame->list(), [frame](ControlChange change) { frame->list().show_change(change); }, frame};
  }

  void visit(CheckBox& box) override {
    auto* const widget = new QCheckBox(place_.parent);
    const auto show = [&box, widget](ControlChange) {
      show_state(box, *widget);
      widget->setText(without_mnemonic(caption_of(box)));
      widget->setChecked(box.checked());
    };
    // The form may have changed it back.
    QObject::connect(widget, &QCheckBox::clicked, widget, [&box, &acts = place_.acts, show] {
      acts.act([&box] { box.toggle(); });
      show(ControlChange::kContent);
    });
    made = {widget, show};
  }

  void visit(CommandButton& button) override {
    auto* const widget = new QPushButton(place_.parent);
    widget->setAutoDefault(false);
    // "..." stands beside what it chooses for.
    if (button.caption() == "..." || button.caption() == "…")
      widget->setMaximumWidth(widget->fontMetrics().height() * 2);
    QObject::connect(widget, &QPushButton::clicked, widget, [&button, press = place_.press] { press(button); });
    made = {widget, [&button, widget](ControlChange) { show_state(button, *widget); }};
  }

  void visit(Label& label) override {
    auto* const widget = new QLabel(place_.parent);
    widget->setTextFormat(Qt::PlainText);
    made = {widget, [&label, widget](ControlChange) {
              show_state(label, *widget);
              widget->setText(caption_of(label));
            }};
  }

  void visit(Panel& panel) override {
    auto* const widget = new QLabel(place_.parent);
    widget->setTextFormat(Qt::PlainText);
    QFont font = widget->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kHeadingScale);
    widget->setFont(font);
    made = {widget, [&panel, widget](ControlChange) {
              const QString heading = caption_of(panel).trimmed();
              widget->setText(heading);
              widget->setEnabled(panel.enabled());
              widget->setVisible(panel.visible() && !heading.isEmpty());
            }};
  }

  // Disabled, it leaves the controls in it as the form has them.
  void visit(GroupFrame& frame) override {
    auto* const widget = new QGroupBox(place_.parent);
    made = {widget, [&frame, widget](ControlChange) {
              widget->setTitle(without_mnemonic(caption_of(frame)));
              widget->setVisible(frame.visible());
            }};
  }

  void visit(PopupMenu&) override {}
  void visit(MenuItem&) override {}

 private:
  template <typename Widget, typename... Arguments>
  void make(Arguments&&... arguments) {
    auto* const widget = new Widget(std::forward<Arguments>(arguments)...);
    made = {widget, [widget](ControlChange change) { widget->show_change(change); }};
  }

  const WidgetPlace& place_;
};

}  // namespace

ControlWidget make_control_widget(Control& control, const WidgetPlace& place) {
  Maker maker(place);
  control.accept(maker);
  return std::move(maker.made);
}

}  // namespace quor
