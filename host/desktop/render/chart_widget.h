// The widget of a chart. Its menu keeps what is shown as a page of PDF, or copies it as a picture.
#pragma once

#include <QWidget>

#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/chart.h"

namespace quor {

class ChartWidget : public QWidget {
 public:
  ChartWidget(Chart& chart, FormActs& acts, QWidget* parent);
  void show_change(ControlChange change);

  QSize sizeHint() const override { return {640, 300}; }
  QSize minimumSizeHint() const override { return {320, 180}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void save();

  Chart& chart_;
  FormActs& acts_;
};

}  // namespace quor
