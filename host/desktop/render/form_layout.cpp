#include "host/desktop/render/form_layout.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QTabWidget>
#include <algorithm>

#include "platform/toolkit/chart.h"
#include "platform/toolkit/grid.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/text_box.h"

namespace quor {

namespace {

using Kind = LayoutNode::Kind;

template <typename Wanted>
bool holds(const LayoutNode& node) {
  if (dynamic_cast<const Wanted*>(node.control) != nullptr) return true;
  return std::any_of(node.children.begin(), node.children.end(), holds<Wanted>);
}

bool takes_height(const LayoutNode& node) {
  return node.kind == Kind::kPages || holds<ListView>(node) || holds<Grid>(node) || holds<Chart>(node);
}
bool takes_width(const LayoutNode& node) { return takes_height(node) || holds<TextBox>(node); }

bool is_button(const LayoutNode& node) { return dynamic_cast<const CommandButton*>(node.control) != nullptr; }

// Of text boxes side by side the last holds a name, those before it a code or a sum.
int width_share(const std::vector<LayoutNode>& row, const LayoutNode& node) {
  const auto is_box = [](const LayoutNode& each) { return dynamic_cast<const TextBox*>(each.control) != nullptr; };
  const auto last = std::find_if(row.rbegin(), row.rend(), is_box);
  return is_box(node) && &node != &*last ? 1 : 3;
}

// A button alone in a column; what ends a dialog stands to the right.
Qt::Alignment alignment_of(const LayoutNode& node) {
  const auto* const button = dynamic_cast<const CommandButton*>(node.control);
  if (button == nullptr) return {};
  return button->role() == ButtonRole::kAccept || button->role() == ButtonRole::kDismiss ? Qt::AlignRight
                                                                                         : Qt::AlignLeft;
}

void collect_controls(const LayoutNode& node, std::vector<const Control*>& controls) {
  if (node.control != nullptr) controls.push_back(node.control);
  for (const LayoutNode& child : node.children) collect_controls(child, controls);
}

// Where Alt and the label's letter lead.
QWidget* buddy_in(QWidget* target) {
  if (target->focusPolicy() != Qt::NoFocus) return target;
  const auto inside = target->findChildren<QWidget*>();
  const auto found = std::find_if(inside.begin(), inside.end(),
                                  [](const QWidget* widget) { return widget->focusPolicy() != Qt::NoFocus; });
  return found == inside.end() ? target : *found;
}

}  // namespace

void FormLayout::lay_out(const LayoutNode& root, QWidget* place) {
  root.kind == Kind::kRow ? fill_row(root.children, place) : fill_column(root.children, place);
}

QWidget* FormLayout::build(const LayoutNode& node, QWidget* parent) {
  if (node.kind == Kind::kControl) return make_(*node.control, parent);
  if (node.kind == Kind::kGroup) {
    QWidget* const frame = make_(*node.control, parent);
    fill_column(node.children, frame);
    return frame;
  }
  if (node.kind == Kind::kPages) return build_pages(node, parent);
  auto* const place = new QWidget(parent);
  if (node.kind == Kind::kColumn) {
    fill_column(node.children, place);
  } else if (node.kind == Kind::kRow) {
    fill_row(node.children, place);
  } else {
    fill_row({node}, place);
  }
  place->layout()->setContentsMargins(0, 0, 0, 0);
  return place;
}

QWidget* FormLayout::build_pages(const LayoutNode& node, QWidget* parent) {
  auto* const pages = new QTabWidget(parent);
  for (const LayoutNode& page : node.children) {
    auto* const place = new QWidget(pages);
    fill_column(page.children, place);
    pages->addTab(place, QString::fromStdString(page.label));
  }
  return pages;
}

void FormLayout::fill_column(const std::vector<LayoutNode>& nodes, QWidget* place) {
  auto* const grid = new QGridLayout(place);
  grid->setColumnStretch(1, 1);
  int row = 0;
  bool filled = false;
  for (const LayoutNode& node : nodes) {
    const bool tall = takes_height(node);
    if (node.kind == Kind::kField && !tall) {
      QWidget* const target = build(node.children.front(), place);
      grid->addWidget(make_label(node, target, place), row, 0);
      grid->addWidget(target, row, 1, takes_width(node) ? Qt::Alignment() : Qt::AlignLeft);
    } else if (node.kind == Kind::kField) {
      QWidget* const target = build(node.children.front(), place);
      grid->addWidget(make_label(node, target, place), row++, 0, 1, 2);
      grid->addWidget(target, row, 0, 1, 2);
    } else {
      grid->addWidget(build(node, place), row, 0, 1, 2, alignment_of(node));
    }
    if (tall) grid->setRowStretch(row, 1);
    filled = filled || tall;
    ++row;
  }
  // Without a list the fields stay together at the top.
  if (!filled) grid->setRowStretch(row, 1);
}

void FormLayout::fill_row(const std::vector<LayoutNode>& nodes, QWidget* place) {
  auto* const line = new QHBoxLayout(place);
  const bool of_buttons = !nodes.empty() && std::all_of(nodes.begin(), nodes.end(), is_button);
  if (of_buttons) line->addStretch(1);
  bool filled = of_buttons;
  for (const LayoutNode& node : nodes) {
    const bool wide = takes_width(node);
    const int share = wide ? width_share(nodes, node) : 0;
    if (node.kind == Kind::kField) {
      QWidget* const target = build(node.children.front(), place);
      line->addWidget(make_label(node, target, place));
      line->addWidget(target, share);
    } else {
      line->addWidget(build(node, place), share);
    }
    filled = filled || wide;
  }
  if (!filled) line->addStretch(1);
}

QLabel* FormLayout::make_label(const LayoutNode& field, QWidget* target, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setBuddy(buddy_in(target));
  FieldLabel entry{label, QString::fromStdString(field.label), {}};
  collect_controls(field, entry.controls);
  labels_.push_back(std::move(entry));
  return label;
}

}  // namespace quor
