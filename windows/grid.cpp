#include "windows/grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace zevfit {

namespace {

/// Blank space over and under the text of a row.
constexpr int kRowSpace = 8;

constexpr QChar kFigureSpace(0x2007);
constexpr QChar kEllipsis(0x2026);

/// A longer text is shown shortened; no cell has room for so much.
constexpr qsizetype kMostShown = 200;
/// Whole parts with more characters than these do not push the others to the right.
constexpr qsizetype kMostWhole = 16;

/// Characters of a number in front of its point, or of its exponent where it has no point; nothing
/// for a text that is no number.
std::optional<qsizetype> wholePart(const QString& text) {
  bool isNumber = false;
  if (text.size() <= kMostShown) text.toDouble(&isNumber);
  if (!isNumber) return std::nullopt;
  const auto ends = [](QChar c) { return c == '.' || c == 'E'; };
  return std::find_if(text.begin(), text.end(), ends) - text.begin();
}

QString shortened(const QString& text) {
  return text.size() > kMostShown ? text.left(kMostShown - 1) + kEllipsis : text;
}

/// Paints a cell's picture in its middle, points one under the other, and sets the heading off from
/// the rows.
class CellDelegate : public QStyledItemDelegate {
 public:
  explicit CellDelegate(Grid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

  /// The picture is painted apart, in its own colours also where the cell is selected.
  void paint(QPainter* painter, const QStyleOptionViewItem& given,
             const QModelIndex& index) const override {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QIcon picture = std::exchange(option.icon, QIcon());
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    if (picture.isNull()) return;
    QRect place(QPoint(), option.decorationSize);
    place.moveCenter(option.rect.center());
    // In a selected cell it keeps the ground of the row.
    const bool alternate = option.features & QStyleOptionViewItem::Alternate;
    if (option.state & QStyle::State_Selected)
      painter->fillRect(place,
                        option.palette.brush(alternate ? QPalette::AlternateBase : QPalette::Base));
    picture.paint(painter, place);
  }

  QString displayText(const QVariant& value, const QLocale& locale) const override {
    return QStyledItemDelegate::displayText(shortened(value.toString()), locale);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
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
  // A number may be broken behind its point, and of the first line alone "0." is left.
  setWordWrap(false);
  setAlternatingRowColors(true);
  setFrameShape(NoFrame);
}

void Grid::alignPoints(int column) {
  qsizetype widest = 0;
  for (int row = 1; row < rowCount(); ++row) {
    if (const QTableWidgetItem* shown = item(row, column))
      widest = std::max(widest, wholePart(shown->text()).value_or(0));
  }
  widest_.at(static_cast<std::size_t>(column)) = std::min(widest, kMostWhole);
}

qsizetype Grid::indent(int column, const QString& text) const {
  const qsizetype widest = widest_.at(static_cast<std::size_t>(column));
  if (widest == 0) return 0;
  return 1 + std::max<qsizetype>(0, widest - wholePart(text).value_or(widest));
}

QTableWidgetItem* Grid::cell(int row, int column) {
  if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
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
    if (!heading) continue;
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

QVariant Grid::data(int row, int column, int role) const {
  const QTableWidgetItem* kept = item(row, column);
  return kept ? kept->data(role) : QVariant();
}

void Grid::setData(int row, int column, int role, const QVariant& value) {
  if (QTableWidgetItem* kept = cell(row, column)) kept->setData(role, value);
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
