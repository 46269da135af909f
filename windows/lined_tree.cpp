#include "windows/lined_tree.h"

#include <QHeaderView>
#include <QPainter>

namespace zevfit {

namespace {

constexpr int kBoxSide = 9;
/// From the edge of a box to its sign.
constexpr int kBoxMargin = 2;

bool hasNext(const QModelIndex& index) { return index.siblingAtRow(index.row() + 1).isValid(); }

void drawBox(QPainter& painter, const QPoint& centre, const QPalette& palette, bool expanded) {
  QRect box(0, 0, kBoxSide, kBoxSide);
  box.moveCenter(centre);
  painter.fillRect(box, palette.base());
  painter.drawRect(box.adjusted(0, 0, -1, -1));
  painter.setPen(palette.color(QPalette::Text));
  const int arm = kBoxSide / 2 - kBoxMargin;
  painter.drawLine(centre - QPoint(arm, 0), centre + QPoint(arm, 0));
  if (!expanded) painter.drawLine(centre - QPoint(0, arm), centre + QPoint(0, arm));
}

}  // namespace

LinedTree::LinedTree(QWidget* parent) : QTreeWidget(parent) {
  setHeaderHidden(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void LinedTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
  painter->save();
  painter->setPen(palette().color(QPalette::Disabled, QPalette::Text));
  int x = rect.right() + 1 - indentation() / 2;
  const QPoint middle(x, rect.center().y());
  if (index.parent().isValid()) {
    painter->drawLine(x, rect.top(), x, middle.y());
    painter->drawLine(middle.x(), middle.y(), rect.right(), middle.y());
  }
  if (hasNext(index)) painter->drawLine(middle.x(), middle.y(), x, rect.bottom());
  for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
    x -= indentation();
    if (hasNext(above)) painter->drawLine(x, rect.top(), x, rect.bottom());
  }
  if (model()->hasChildren(index)) drawBox(*painter, middle, palette(), isExpanded(index));
  painter->restore();
}

}  // namespace zevfit
