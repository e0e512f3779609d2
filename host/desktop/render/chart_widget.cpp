#include "host/desktop/render/chart_widget.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QGuiApplication>

#include "host/charts/chart_painter.h"
#include "host/desktop/edge/passing_menu.h"
#include "host/desktop/edge/pointer.h"
#include "host/store/whole_file.h"

namespace quor {

ChartWidget::ChartWidget(Chart& chart, FormActs& acts, QWidget* parent) : QWidget(parent), chart_(chart), acts_(acts) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setFocusPolicy(Qt::TabFocus);  // for whoever has it read
  show_change(ControlChange::kContent);
}

void ChartWidget::show_change(ControlChange change) {
  setEnabled(chart_.enabled());
  setVisible(chart_.visible());
  if (change != ControlChange::kContent) return;
  setAccessibleName(QString::fromStdString(chart_.data().title));
  setAccessibleDescription(QString::fromStdString(chart_.description()));
  setToolTip(QString::fromStdString(chart_.description()));
  update();
}

void ChartWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  const QColor text = palette().text().color();
  QColor grid = text;
  grid.setAlphaF(0.2F);
  const double air = fontMetrics().height() / 2.0;
  paint_chart(painter, QRectF(rect()).adjusted(air, air, -air, -air), chart_, {text, grid});
}

void ChartWidget::contextMenuEvent(QContextMenuEvent* event) {
  auto* const menu = new PassingMenu(this);
  menu->add_choice("&Kopijuoti paveikslą", [this] { QGuiApplication::clipboard()->setPixmap(grab()); });
  menu->add_choice("Įrašyti &PDF failą…", [this] { acts_.command([this] { save(); }); });
  menu->popup(event->globalPos());
}

void ChartWidget::save() {
  const FreePointer pointer;
  const QByteArray bytes = chart_pdf(chart_);
  const QString path = QFileDialog::getSaveFileName(this, "Įrašyti PDF failą", "diagrama.pdf", "PDF (*.pdf)");
  if (!path.isEmpty()) write_whole_file(path.toStdString(), bytes.toStdString());
}

}  // namespace quor
