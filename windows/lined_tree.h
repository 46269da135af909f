#pragma once

#include <QTreeWidget>

namespace zevfit {

/// A tree of one column and one root whose nodes are joined by lines, with a plus or minus box
/// where a node has children, whatever the desktop's style. A text wider than the tree is scrolled
/// to.
class LinedTree : public QTreeWidget {
 public:
  explicit LinedTree(QWidget* parent = nullptr);

 protected:
  void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
};

}  // namespace zevfit
