// What every list offers by itself: finding, marked rows alone, copying, sums, columns that stay.
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QStandardItemModel>

#include "host/desktop/render/find_bar.h"
#include "host/desktop/render/frozen_columns.h"
#include "host/desktop/render/shown_table.h"
#include "tests/support/control_screen.h"

namespace quor {
namespace {

class ListFindingTest : public FormViewTest {
 protected:
  ListFindingTest() {
    const char* const names[] = {"Žukas Jonas", "Ąžuolas", "Zukauskas", "Balys"};
    screen_.list.clear();
    for (const char* name : names) screen_.list.set_text(screen_.list.add_row(name, name), 1, "1260,05");
    heard();
  }
  template <typename Widget>
  Widget* child() {
    for (QWidget* each : view_.findChildren<QWidget*>()) {
      if (auto* const found = dynamic_cast<Widget*>(each)) return found;
    }
    return nullptr;
  }
  QPoint in_row(int row) { return list().visualRect(list().model()->index(row, 0)).center() + QPoint(20, 0); }
};

TEST_F(ListFindingTest, AMatchIsFoundWithoutMarksAndTheSearchGoesAround) {
  press(Qt::Key_F, Qt::ControlModifier);
  type("jon zuk");
  EXPECT_EQ(screen_.list.selected(), 0U);
  type("\b\b\b\b\b\b\bzuk");
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers with;
    std::size_t row;
    const char* told;
  } cases[] = {{Qt::Key_F3, {}, 2, ""},
               {Qt::Key_Return, {}, 0, "nuo pradžios"},
               {Qt::Key_F3, Qt::ShiftModifier, 2, "nuo pabaigos"},
               {Qt::Key_Return, Qt::ShiftModifier, 0, ""}};
  for (const auto& c : cases) {
    press(c.key, c.with);
    EXPECT_EQ(screen_.list.selected(), c.row);
    EXPECT_EQ(said(*child<FindBar>()), c.told);
  }
  type("q");
  EXPECT_EQ(said(*child<FindBar>()), "nerasta");
  EXPECT_EQ(screen_.list.selected(), 0U);
  EXPECT_EQ(heard(), "select select select select select ") << "neither OK nor Cancel";
  press(Qt::Key_Escape);
  EXPECT_TRUE(child<FindBar>()->isHidden() && list().hasFocus());
  EXPECT_EQ(screen_.list.selected(), 0U);
  type("azu");
  EXPECT_EQ(screen_.list.selected(), 1U) << "letters alone lead there, too";
}

TEST_F(ListFindingTest, WhatIsDoneWithMarkedRowsAloneReachesTheFormsRows) {
  screen_.list.set_colour(1, 1, CellColour::kRed);
  screen_.list.set_checked(3, true);
  click(list().viewport(), Qt::LeftButton, in_row(2));
  heard();
  press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(list().model()->rowCount(), 2);
  EXPECT_EQ(screen_.list.selected(), 3U) << "the nearest row behind";
  EXPECT_TRUE(only<QCheckBox>(*child<FindBar>()).text().contains("rodoma 2 iš 4"));
  click(list().viewport(), Qt::LeftButton, in_row(0));
  EXPECT_EQ(screen_.list.selected(), 1U);
  QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(list().model()->index(1, 1)).center());
  EXPECT_EQ(screen_.list.selected(), 3U);
  press(Qt::Key_Space);
  EXPECT_FALSE(screen_.list.checked(3));
  EXPECT_EQ(heard(), "select select select double check3 ");
  EXPECT_EQ(list().model()->rowCount(), 2) << "the row under the user stays";
  screen_.list.select_row(0);
  EXPECT_EQ(list().currentIndex().data().toString(), "Žukas Jonas") << "what the form selects is shown";
  press(Qt::Key_Escape);
  EXPECT_EQ(list().model()->rowCount(), 4);
  EXPECT_EQ(list().currentIndex().row(), 0);
}

TEST_F(ListFindingTest, SeveralRowsAreCopiedAndTheFormHearsOfOne) {
  click(list().viewport(), Qt::LeftButton, in_row(0));
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(heard(), "select select ");
  EXPECT_EQ(screen_.list.selected(), 1U);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "Nr.\tSuma\nŽukas Jonas\t1260,05\nĄžuolas\t1260,05\n");
  screen_.list.set_text(0, 1, "-");
  EXPECT_EQ(list().selectionModel()->selectedRows().size(), 2) << "a cell that changes leaves the selection";
  press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(list().selectionModel()->selectedRows().size(), 4);
  EXPECT_EQ(screen_.list.selected(), 1U);
  screen_.list.select_row(3);
  EXPECT_EQ(list().selectionModel()->selectedRows().size(), 1);
}

TEST_F(ListFindingTest, WhatIsShownIsHandedOnToBeKept) {
  ShownTable kept;
  view_.save_lists_by([&](const ShownTable& table, TableFormat) { kept = table; });
  screen_.list.set_colour(1, 1, CellColour::kRed);
  press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  NextWindows windows({[](QWidget& menu) {
    auto& shown = dynamic_cast<QMenu&>(menu);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, shown.actionGeometry(shown.actions()[3]).center());
  }});
  click(list().header()->viewport(), Qt::RightButton);
  QTest::qWait(50);
  EXPECT_EQ(kept.title, "Langas");
  ASSERT_EQ(kept.cells.size(), 2U) << "the marked row";
  EXPECT_EQ(kept.cells[1].text, "1260,05");
  EXPECT_TRUE(kept.cells[1].colour == CellColour::kRed && kept.columns[1].alignment == CellAlignment::kRight);
}

TEST_F(ListFindingTest, ColumnsThatNameTheRowStayAndPassTheMouseOn) {
  list().header()->resizeSection(0, 150);
  list().header()->resizeSection(1, 3000);
  list().horizontalScrollBar()->setValue(400);
  settle();
  auto* const kept = child<FrozenColumns>();
  ASSERT_TRUE(kept != nullptr && kept->isVisible());
  const QPoint place = kept->visualRect(kept->model()->index(1, 0)).center() + QPoint(20, 0);
  EXPECT_EQ(kept->visualRect(kept->model()->index(1, 0)).top(), list().visualRect(list().model()->index(1, 0)).top());
  click(kept->viewport(), Qt::LeftButton, place);
  EXPECT_EQ(heard(), "select ");
  EXPECT_EQ(screen_.list.selected(), 1U);
  EXPECT_EQ(list().horizontalScrollBar()->value(), 400);
  click(kept->viewport(), Qt::LeftButton, QPoint(12, place.y()));
  EXPECT_TRUE(screen_.list.checked(1)) << "the box in the column";
  list().horizontalScrollBar()->setValue(0);
  EXPECT_TRUE(kept->isHidden());
}

TEST(SelectedSums, AreExactAndOfNumbersAlone) {
  const struct {
    QStringList cells;
    const char* sums;
  } cases[] = {{{"0,10", "0,20"}, "Suma 0,30; vidurkis 0,15; reikšmių 2"},
               {{"1 260,00", "1260,05", "-0,05"}, "Suma 2520,00; vidurkis 840,00; reikšmių 3"},
               {{"12,5 %", "13"}, "Suma 25,5; vidurkis 12,75; reikšmių 2"},
               {{"1", "2", "x", "", "2008.01.31"}, "Suma 3; vidurkis 1,50; reikšmių 2"},
               {{"7", "Jonas"}, ""}};
  for (const auto& c : cases) {
    QStandardItemModel rows(0, 2);
    for (const QString& cell : c.cells) rows.appendRow({new QStandardItem(cell), new QStandardItem("5")});
    const QModelIndex last = rows.index(rows.rowCount() - 1, 0);
    EXPECT_EQ(selected_sums(rows, {rows.index(0, 0), last}, 0), c.sums);
  }
  QStandardItemModel rows(2, 2);
  for (int row = 0; row < 2; ++row) rows.setItem(row, 1, new QStandardItem("5"));
  rows.setHorizontalHeaderLabels({"A", "Priedas"});
  EXPECT_EQ(selected_sums(rows, {}, 0), "");
  EXPECT_EQ(selected_sums(rows, {rows.index(0, 0), rows.index(1, 1)}, 1),
            "Priedas: suma 10; vidurkis 5,00; reikšmių 2");
}

}  // namespace
}  // namespace quor
