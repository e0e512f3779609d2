// A form of every kind of control in a real window, which writes down what its handlers hear.
#pragma once

#include <QLineEdit>
#include <QTreeView>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "host/desktop/render/form_view.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"
#include "tests/support/window_acts.h"

namespace quor {

class Screen : public Form {
 public:
  Panel heading{*this, "SOPanel"};
  TextBox box{*this, "txt"};
  TextBox other{*this, "txtOther"};
  DatePicker date{*this, "dtp"};
  GroupFrame frame{*this, "frame", "Sąrašas & kita"};
  ListView list{*this,
                "lvw",
                {{.key = "", .caption = "Nr."}, {.key = "A", .caption = "Suma", .alignment = CellAlignment::kRight}},
                ListView::CheckBoxes::kOnRows};
  PopupMenu menu{*this, "mnu"};
  MenuItem add{*this, menu, "mnuAdd", "Naujas", MenuKey::kInsert};
  MenuItem edit{*this, menu, "mnuEdit", "Keisti", MenuKey::kEnter};
  MenuItem remove{*this, menu, "mnuRemove", "Panaikinti", MenuKey::kDelete};
  CommandButton write{*this, "cmdWrite", "Įrašyti", ButtonRole::kWrite};
  CommandButton fill{*this, "cmdFill", "Įtraukti", ButtonRole::kFill};
  CommandButton ok{*this, "cmdOK", "Gerai", ButtonRole::kAccept};
  CommandButton cancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  Screen() : Form("Langas") {
    box.on_enter = [this] { heard += "enter "; };
    box.on_leave = [this] { heard += "leave "; };
    box.on_change = [this] { heard += "change "; };
    date.on_change = [this] { heard += "date "; };
    list.on_select = [this] { heard += "select "; };
    list.on_double_click = [this] { heard += "double "; };
    list.on_check = [this](std::size_t row) { heard += "check" + std::to_string(row) + " "; };
    list.on_right_click = [this] {
      heard += "right ";
      menu.open();
    };
    add.on_choose = [this] { heard += "add "; };
    edit.on_choose = [this] { heard += "edit "; };
    remove.on_choose = [this] { heard += "remove "; };
    menu.on_close = [this] { heard += "closed "; };
    for (CommandButton* button : {&write, &fill, &ok, &cancel}) {
      button->on_click = [this, button] { heard += button->name() + " "; };
    }
    heading.set_caption(" Antraštė ");
    for (const char* number : {"1", "2", "3"}) list.set_text(list.add_row(number, number), 1, "10,00");
    set_layout(column({heading, field("Pavadinimas", box), field("Kitas", row({other})), field("Data", date),
                       group(frame, {list}), row({write, fill, ok, cancel})}));
  }
  std::string heard;
};

class FormViewTest : public testing::Test {
 protected:
  FormViewTest() {
    screen_.load();
    bring_up(view_);
    list().setFocus();
    heard();
  }
  template <typename Widget>
  Widget& widget(const Control& control) {
    return dynamic_cast<Widget&>(*view_.widget_of(control));
  }
  QLineEdit& box() { return widget<QLineEdit>(screen_.box); }
  QTreeView& list() { return widget<QTreeView>(screen_.list); }
  std::string heard() { return std::exchange(screen_.heard, {}); }

  Screen screen_;
  FormView view_{screen_, test_edge(), FormView::Place::kDialog};
};

}  // namespace quor
