// The grid, pages, dates with a calendar and charts in a real window, used by keys.
#include "host/desktop/render/grid_widget.h"

#include <QCalendarWidget>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QTabWidget>
#include <gtest/gtest.h>

#include "host/charts/chart_painter.h"
#include "platform/toolkit/grid.h"
#include "platform/toolkit/text_box.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

class Sheet : public Form {
 public:
  TextBox date{*this, "txtDate", TextBox::Kind::kDate};
  Grid grid{*this, "grd"};
  CommandButton write{*this, "cmdWrite", "Įrašyti", ButtonRole::kWrite};

  Sheet() : Form("Lapas") {
    set_layout(column({pages({page("Pirmas", {field("Data", date)}), page("Antras", {grid})}), row({write})}));
    grid.on_enter = [](std::size_t, std::size_t, std::string& text) {
      return std::string(text == "x" ? "ne skaičius" : "");
    };
    write.on_click = [this] { written = cells(); };
    grid.set_columns({{"A"}, {"B"}, {"Iš viso", 60, CellAlignment::kRight, true}});
    for (const char* head : {"Ada", "Benas", "Cilė"}) grid.add_row(head);
  }
  std::string cells() const {
    std::string text;
    for (std::size_t row = 0; row < grid.row_count(); ++row) {
      text += (row > 0 ? "|" : "") + grid.text(row, 0) + "," + grid.text(row, 1);
    }
    return text;
  }
  std::string written;
};

class GridWidgetTest : public testing::Test {
 protected:
  GridWidgetTest() {
    sheet_.load();
    bring_up(view_);
    sheet_.grid.focus();
    settle();
  }
  Sheet sheet_;
  FormView view_{sheet_, test_edge(), FormView::Place::kWindow};
};

TEST_F(GridWidgetTest, IsTypedPastedFilledAndTakenBackByKeys) {
  EXPECT_EQ(only<QTabWidget>(view_).currentIndex(), 1) << "the form's focus turns the page";
  auto& table = only<GridWidget>(view_);
  table.setCurrentIndex(table.model()->index(0, 0));
  type("12");
  press(Qt::Key_Return);
  type("7");
  press(Qt::Key_Tab);
  EXPECT_EQ(sheet_.cells(), "12,|7,|,");
  EXPECT_EQ(table.currentIndex(), table.model()->index(1, 1));
  press(Qt::Key_Up);
  QGuiApplication::clipboard()->setText("1\n2\n");
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(sheet_.cells(), "12,1|7,2|,");
  for (int down = 0; down < 2; ++down) press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(sheet_.cells(), "12,1|7,1|,1");
  press(Qt::Key_Delete);
  press(Qt::Key_Z, Qt::ControlModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "1\n1\n1\n");
  for (int back = 0; back < 2; ++back) press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(sheet_.cells(), "12,|7,|,");
  press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(sheet_.cells(), "12,1|7,2|,");
}

TEST_F(GridWidgetTest, WhatIsTypedIsPutInBeforeItIsWrittenOrRefused) {
  auto& table = only<GridWidget>(view_);
  table.setCurrentIndex(table.model()->index(2, 0));
  type("5");
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(sheet_.written, ",|,|5,");
  bring_up(view_);
  table.setFocus();
  {
    NextWindows windows({[](QWidget& error) {
      EXPECT_NE(said(error).indexOf("Cilė, A: „x“ – ne skaičius"), -1) << said(error).toStdString();
      press(Qt::Key_Escape);
    }});
    sheet_.written.clear();
    type("x");
    press(Qt::Key_S, Qt::ControlModifier);
    QTest::qWait(30);
  }
  EXPECT_EQ(sheet_.written + sheet_.cells(), ",|,|5,") << "not written, and as it was";
}

TEST_F(GridWidgetTest, ADateIsChosenFromTheCalendar) {
  sheet_.date.set_text("2008.02.28");
  sheet_.date.focus();
  settle();
  press(Qt::Key_Down, Qt::AltModifier);
  auto* const calendar = QApplication::activePopupWidget()->findChild<QCalendarWidget*>();
  ASSERT_NE(calendar, nullptr);
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}) {
    QTest::keyClick(calendar->findChild<QWidget*>("qt_calendar_calendarview"), key);
  }
  settle();
  EXPECT_EQ(sheet_.date.text(), "2008.03.01");
}

TEST(ChartPainter, ColumnsStandOnEachOtherInTheirMeasure) {
  ControlSet set;
  Chart chart(set, "cht", Chart::Kind::kStackedColumns);
  chart.set_data({.title = "T", .unit = "", .labels = {"1"}, .series = {{"A", {300.0}}, {"B", {100.0}}}});
  QImage image(400, 400, QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    paint_chart(painter, image.rect(), chart, {Qt::black, Qt::lightGray});
  }
  int first = 0;
  for (int y = 60; y < 400; ++y) first += image.pixelColor(215, y) == QColor(0x2f, 0x6d, 0xb5) ? 1 : 0;
  int whole = 0;
  for (int y = 60; y < 400; ++y) whole += image.pixelColor(215, y).saturation() > 60 ? 1 : 0;
  EXPECT_GT(first, 100);
  EXPECT_GT(whole, first) << "the second above the first";
  const struct {
    double lowest, highest;
    std::vector<double> expected;
  } cases[] = {{0, 1393.2, {0, 500, 1000, 1500}}, {-3, 7, {-4, -2, 0, 2, 4, 6, 8}}, {0, 50, {0, 10, 20, 30, 40, 50}}};
  for (const auto& c : cases) {
    EXPECT_EQ(axis_values(c.lowest, c.highest), c.expected);
  }
}

}  // namespace
}  // namespace quor
