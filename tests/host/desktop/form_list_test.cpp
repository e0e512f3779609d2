// The lists of forms and their menus, used by mouse and keys in a real window.
#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>

#include "host/desktop/render/readable_red.h"
#include "host/desktop/render/row_delegate.h"
#include "tests/support/control_screen.h"

namespace quor {
namespace {

TEST_F(FormViewTest, TheListShowsItsRowsAndColours) {
  screen_.list.set_colour(1, 1, CellColour::kRed);
  const QAbstractItemModel& model = *list().model();
  const QModelIndex red = model.index(1, 1), usual = model.index(0, 1);
  EXPECT_EQ(model.data(red).toString(), "10,00");
  EXPECT_EQ(list().accessibleName(), "Sąrašas & kita");
  EXPECT_TRUE(model.data(red, Qt::FontRole).value<QFont>().bold());
  EXPECT_EQ(model.data(red, Qt::ToolTipRole).toString(), "Viršija ribą arba netinka");
  EXPECT_TRUE(model.data(red, RowDelegate::kRedRole).toBool() && !model.data(usual, RowDelegate::kRedRole).toBool());
  EXPECT_FALSE(model.data(usual, Qt::FontRole).isValid() || model.data(usual, Qt::ToolTipRole).isValid());
  screen_.list.set_caption(1, "Viso");
  EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Viso");

  const auto fill = [&](int rows) {
    const ListView::BulkChange bulk(screen_.list);
    screen_.list.clear();
    for (int row = 0; row < rows; ++row) screen_.list.add_row(std::to_string(row));
  };
  int resets = 0;
  QObject::connect(&model, &QAbstractItemModel::modelReset, &view_, [&] { ++resets; });
  fill(200);
  EXPECT_EQ(resets, 1);
  list().verticalScrollBar()->setValue(100);
  fill(150);
  EXPECT_EQ(list().verticalScrollBar()->value(), 100) << "the user is where he was";
  screen_.list.select_row(149);
  EXPECT_TRUE(list().viewport()->rect().intersects(list().visualRect(model.index(149, 0))));
  fill(1);
  EXPECT_EQ(model.rowCount(), 1);
  EXPECT_FALSE(list().selectionModel()->hasSelection());
}

TEST_F(FormViewTest, RowsAreSelectedCheckedAndOpenedByMouseAndKeys) {
  QWidget* const rows = list().viewport();
  const auto in_rows = [&](int row, int column) {
    return list().visualRect(list().model()->index(row, column)).center();
  };
  click(rows, Qt::LeftButton, in_rows(1, 1));
  EXPECT_EQ(screen_.list.selected(), 1U);
  EXPECT_EQ(heard(), "select ");
  press(Qt::Key_Down);
  EXPECT_EQ(screen_.list.selected(), 2U);
  press(Qt::Key_Space);
  EXPECT_EQ(heard(), "select check2 ");
  QTest::mouseDClick(rows, Qt::LeftButton, Qt::NoModifier, in_rows(0, 1));
  EXPECT_EQ(heard(), "select double ");
  screen_.list.select_row(1);
  EXPECT_EQ(list().currentIndex().row(), 1);
  EXPECT_EQ(heard(), "");
  click(rows, Qt::LeftButton, QPoint(20, rows->height() - 5));
  EXPECT_FALSE(screen_.list.selected());
  EXPECT_EQ(heard(), "select ");
  const QRect first = list().visualRect(list().model()->index(0, 0));
  click(rows, Qt::LeftButton, QPoint(first.left() + 10, first.center().y()));
  EXPECT_TRUE(screen_.list.checked(0));
  EXPECT_EQ(heard(), "check0 ");
}

TEST_F(FormViewTest, AMenuOpensAtTheRowAndItsKeysWorkWithoutIt) {
  const auto in_row = [&](int row) { return list().visualRect(list().model()->index(row, 1)).center(); };
  screen_.remove.set_enabled(false);
  {
    NextWindows menus({[](QWidget& menu) {
                         auto& shown = dynamic_cast<QMenu&>(menu);
                         ASSERT_EQ(shown.actions().size(), 7) << "the form's, a line, the list's own";
                         EXPECT_EQ(shown.actions()[2]->text(), "Panaikinti\tDel");
                         EXPECT_FALSE(shown.actions()[2]->isEnabled());
                         QTest::mouseClick(&menu, Qt::LeftButton, {},
                                           shown.actionGeometry(shown.actions()[1]).center());
                       },
                       [](QWidget& menu) { QTest::keyClick(&menu, Qt::Key_Escape); }});
    click(list().viewport(), Qt::RightButton, in_row(1));
    QTest::qWait(50);
    EXPECT_EQ(heard(), "select right edit closed ");
    click(list().viewport(), Qt::RightButton, in_row(1));
    QTest::qWait(50);
    EXPECT_EQ(heard(), "right closed ");
  }
  press(Qt::Key_Insert);
  press(Qt::Key_Return);
  press(Qt::Key_Delete);
  EXPECT_EQ(heard(), "right add closed right edit closed right closed ") << "Del is not allowed";
  screen_.list.select_row({});
  press(Qt::Key_Return);
  EXPECT_EQ(heard(), "cmdOK ") << "no row to open: the dialog's own button";
}

TEST_F(FormViewTest, AChoiceRunsOnceItsMenuHasGoneAndNoMenuStandsOverItsDialog) {
  const QPoint row = list().visualRect(list().model()->index(1, 1)).center();
  QPointer<QWidget> menu;
  screen_.edit.on_choose = [&] {
    EXPECT_FALSE(menu) << "the menu outlives the choice";
    QDialog(&view_).exec();
  };
  const auto close_alone = [](QWidget& dialog) {
    QTest::qWait(50);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    dialog.close();
  };
  const auto choose = [&](QWidget& shown) {
    menu = &shown;
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(&shown, key);
  };
  NextWindows windows({choose, close_alone, close_alone});
  click(list().viewport(), Qt::RightButton, row);
  QTest::qWait(100);
  list().setFocus();
  press(Qt::Key_Return);
  EXPECT_EQ(heard(), "select right closed right closed ");
}

TEST(ReadableRed, IsChosenByTheGround) {
  const struct {
    const char* ground;
    QRgb red;
  } cases[] = {{"white", qRgb(192, 0, 0)},       {"#f7f7f7", qRgb(192, 0, 0)}, {"black", qRgb(255, 120, 110)},
               {"#232629", qRgb(255, 120, 110)}, {"#308cc6", qRgb(90, 0, 0)},  {"#b03030", qRgb(255, 215, 210)}};
  for (const auto& c : cases) EXPECT_EQ(red_on(QColor(c.ground)).rgb(), c.red) << c.ground;
}

}  // namespace
}  // namespace quor
