// A list's head whose captions are wrapped in columns that are narrower than they: columns are as wide as what stands
// in them needs.
#pragma once

#include <QHeaderView>

namespace quor {

class WrappingHeader : public QHeaderView {
 public:
  explicit WrappingHeader(QWidget* parent);

 protected:
  // The least that shows every word whole, and the height that the caption needs at the column's present width.
  QSize sectionSizeFromContents(int section) const override;
};

}  // namespace quor
