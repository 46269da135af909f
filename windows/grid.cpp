#include "windows/grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <algorithm>
#include <numeric>
#include <utility>

namespace zevfit {

namespace {

/// Blank space over and under the text of a row.
constexpr int kRowSpace = 8;

constexpr QChar kFigureSpace(0x2007);

/// Characters of a number in front of its point, or of its exponent where it has no point.
qsizetype wholePart(const QString& text) {
  const auto ends = [](QChar c) { return c == '.' || c == 'E'; };
  return std::find_if(text.begin(), text.end(), ends) - text.begin();
}

/// Puts a cell's picture in its middle, points one under the other, and sets the heading off from
/// the rows.
class CellDelegate : public QStyledItemDelegate {
 public:
  explicit CellDelegate(Grid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->decorationAlignment = Qt::AlignCenter;
    if (index.row() > 0) {
      option->text.prepend(QString(grid_->indent(index.column(), option->text), kFigureSpace));
      return;
    }
    option->font.setBold(true);
    option->backgroundBrush = option->palette.button();
    option->palette.setBrush(QPalette::Text, option->palette.buttonText());
  }

 private:
  const Grid* grid_;
};

}  // namespace

Grid::Grid(std::vector<int> shares, QWidget* parent)
    : QTableWidget(1, static_cast<int>(shares.size()), parent),
      shares_(std::move(shares)),
      widest_(shares_.size()) {
  horizontalHeader()->hide();
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(1);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowSpace);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setItemDelegate(new CellDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setFrameShape(NoFrame);
}

void Grid::alignPoints(int column) {
  qsizetype widest = 0;
  for (int row = 1; row < rowCount(); ++row) {
    if (const QTableWidgetItem* shown = item(row, column))
      widest = std::max(widest, wholePart(shown->text()));
  }
  widest_.at(static_cast<std::size_t>(column)) = widest;
}

qsizetype Grid::indent(int column, const QString& text) const {
  const qsizetype widest = widest_.at(static_cast<std::size_t>(column));
  return widest == 0 ? 0 : 1 + std::max<qsizetype>(0, widest - wholePart(text));
}

QTableWidgetItem* Grid::cell(int row, int column) {
  if (row < 0 || row >= rowCount()) return nullptr;
  QTableWidgetItem* found = item(row, column);
  if (found) return found;
  found = new QTableWidgetItem;
  setItem(row, column, found);
  return found;
}

void Grid::setHeading(std::initializer_list<const char*> texts) {
  int column = 0;
  for (const char* text : texts) {
    QTableWidgetItem* heading = cell(0, column++);
    heading->setText(text);
    heading->setFlags(Qt::ItemIsEnabled);
  }
}

void Grid::setText(int row, int column, const QString& text) {
  if (QTableWidgetItem* shown = cell(row, column)) shown->setText(text);
}

void Grid::setPicture(int row, int column, const QIcon& picture, const QString& words) {
  QTableWidgetItem* shown = cell(row, column);
  if (!shown) return;
  shown->setIcon(picture);
  shown->setData(Qt::AccessibleTextRole, words);
}

void Grid::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || !currentIndex().isValid())
    return QTableWidget::keyPressEvent(event);
  Q_EMIT cellClicked(currentRow(), currentColumn());
}

void Grid::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  const int all = std::max(1, std::accumulate(shares_.begin(), shares_.end(), 0));
  int column = 0;
  for (const int share : shares_) setColumnWidth(column++, viewport()->width() * share / all);
}

}  // namespace zevfit
