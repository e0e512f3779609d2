// The layout of a form as Qt's layouts, by one routine for all forms: the labels of a column's fields line up, lists
// take the room that is left, buttons stand to the right under what they act on.
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/toolkit/layout.h"

namespace quor {

// The text before a field, and what of the form stands behind it.
struct FieldLabel {
  QLabel* label;
  QString text;
  std::vector<const Control*> controls;
};

class FormLayout {
 public:
  // Makes the widget of a control, as a child of the parent.
  using MakeWidget = std::function<QWidget*(Control& control, QWidget* parent)>;
  explicit FormLayout(MakeWidget make) : make_(std::move(make)) {}

  // Lays `root` out inside `place`.
  void lay_out(const LayoutNode& root, QWidget* place);
  const std::vector<FieldLabel>& labels() const { return labels_; }

 private:
  QWidget* build(const LayoutNode& node, QWidget* parent);
  QWidget* build_pages(const LayoutNode& node, QWidget* parent);
  void fill_column(const std::vector<LayoutNode>& nodes, QWidget* place);
  void fill_row(const std::vector<LayoutNode>& nodes, QWidget* place);
  QLabel* make_label(const LayoutNode& field, QWidget* target, QWidget* parent);

  MakeWidget make_;
  std::vector<FieldLabel> labels_;
};

}  // namespace quor
