// How a form's controls stand on the screen, as a small tree in the order in which a person reads it. A renderer draws
// every form from it with one routine; the tab order follows it. A form writes it with the words of form.h:
//
//   set_layout(column({SOPanel, field("Galioja nuo", dtpDate), lvwFactors, row({cmdOK, cmdCancel})}));
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/toolkit/captioned.h"
#include "platform/toolkit/control.h"

namespace quor {

struct LayoutNode {
  enum class Kind {
    kColumn,   // its children one below the other
    kRow,      // side by side
    kGroup,    // a column inside the frame `control`
    kField,    // one child behind the text `label`
    kPages,    // its children are pages, of which one is seen at a time
    kPage,     // a column under the tab `label`
    kControl,  // the control itself
  };

  LayoutNode() = default;
  // A control stands in a layout by its name alone.
  LayoutNode(Control& shown) : kind(Kind::kControl), control(&shown) {}  // NOLINT(google-explicit-constructor)
  LayoutNode(Kind node_kind, Control* frame, std::string text, std::vector<LayoutNode> nodes)
      : kind(node_kind), control(frame), label(std::move(text)), children(std::move(nodes)) {}

  Kind kind = Kind::kColumn;
  Control* control = nullptr;  // of the form that has the layout
  std::string label;
  std::vector<LayoutNode> children;
};

}  // namespace quor
