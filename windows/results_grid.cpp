#include "windows/results_grid.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QIconEngine>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "windows/texts.h"

namespace zevfit {

namespace {

/// Height of a row, and what the columns leave free of the grid's width, in twips.
constexpr int kRowHeight = 400;
constexpr int kFreeWidth = 300;
constexpr int kTwips = 15;

constexpr int kMarksRole = Qt::UserRole;
constexpr int kOtherTotalRole = Qt::UserRole + 1;
constexpr int kMarkSize = 13;
constexpr int kMarkSpace = 2;
/// What a cell keeps free on both sides of its text.
constexpr int kTextMargins = 8;
constexpr int kTintAlpha = 48;
constexpr QRgb kOtherColour = 0xFFFFB000;
/// How much of it a ground takes.
constexpr double kOtherShare = 0.3;
/// How much of the letters a frame on a dark ground takes.
constexpr double kFrameShare = 0.4;
/// Behind a total that is not the sum.
constexpr const char* kOtherSign = " *";

constexpr QChar kBlank(0x2002);

struct AxisLook {
  const char* letter;
  QRgb colour;
  const char* words;
};
constexpr std::array<AxisLook, kAxes.size()> kLooks{{{"M", 0xFF1F5FBF, "Main Direction"},
                                                     {"1", 0xFFB35900, "Minor Direction 1"},
                                                     {"2", 0xFF1B7F4B, "Minor Direction 2"}}};

const AxisLook& look(Axis axis) { return kLooks.at(static_cast<std::size_t>(axis)); }

QColor mixed(const QColor& under, const QColor& over, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(under.red(), over.red()), mix(under.green(), over.green()),
          mix(under.blue(), over.blue())};
}

/// Of the frame around what is there to be clicked. Dark palettes have no such colour themselves.
QColor frameColour(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Base), letters = palette.color(QPalette::Text);
  const bool dark = ground.lightness() < letters.lightness();
  return dark ? mixed(ground, letters, kFrameShare) : palette.color(QPalette::Mid);
}

void paintMark(QPainter& painter, const QRectF& place, Axis axis) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(axisColour(axis));
  painter.drawRoundedRect(place, 3, 3);
  QFont font = painter.font();
  font.setPixelSize(static_cast<int>(place.height()) * 2 / 3);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(place, Qt::AlignCenter, look(axis).letter);
  painter.restore();
}

/// The mark of an axis in any size, sharp at every scale.
class MarkEngine : public QIconEngine {
 public:
  explicit MarkEngine(Axis axis) : axis_(axis) {}
  void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
    paintMark(*painter, place, axis_);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, {{}, size}, mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new MarkEngine(axis_); }

 private:
  Axis axis_;
};

bool isHeading(const QModelIndex& index) { return index.row() < ResultsGrid::kHeadingRows; }
bool isButton(const QModelIndex& index) {
  return !isHeading(index) && index.column() == ResultsGrid::kClickColumn;
}

/// Headings in the middle of their columns, numbers to the right, a frame around what is there to
/// be clicked, and the marks of the axes.
class ResultsDelegate : public QStyledItemDelegate {
 public:
  explicit ResultsDelegate(ResultsGrid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (isButton(index)) paintFrame(*painter, option);
    if (!isHeading(index) && index.column() == 0) paintMarks(*painter, option, index);
  }

  /// A text that its cell has no room for is told.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const QString text = index.data(Qt::DisplayRole).toString();
    const QString words = index.data(Qt::AccessibleTextRole).toString();
    const bool cut = option.fontMetrics.horizontalAdvance(text) + kMarkSize > option.rect.width();
    if (isHeading(index) || (!cut && words.isEmpty()))
      return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), words.isEmpty() ? text : words, view);
    return true;
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const bool number = index.column() % 3 != 2 || index.column() == kResultColumns - 2;
    const bool name = index.column() == 0;
    if (isHeading(index)) return styleHeading(*option);
    option->displayAlignment = Qt::AlignVCenter | (name     ? Qt::AlignLeft
                                                   : number ? Qt::AlignRight
                                                            : Qt::AlignHCenter);
    // A blank keeps the number off the frame around the cell.
    if (isButton(index)) option->text += kBlank;
    if (const auto marks = grid_->marks(index.row()); !marks.empty()) styleMarked(*option, marks);
    if (index.data(kOtherTotalRole).toBool()) styleOther(*option);
  }

 private:
  static void styleHeading(QStyleOptionViewItem& option) {
    option.text = option.text.trimmed();
    option.displayAlignment = Qt::AlignCenter;
    option.backgroundBrush = option.palette.button();
    option.palette.setBrush(QPalette::Text, option.palette.buttonText());
  }

  static void styleMarked(QStyleOptionViewItem& option, const std::vector<Axis>& marks) {
    QColor tint = axisColour(marks.front());
    tint.setAlpha(kTintAlpha);
    option.backgroundBrush = tint;
    if (option.index.column() != 0) return;
    const int taken = static_cast<int>(marks.size()) * (kMarkSize + kMarkSpace) + kTextMargins;
    option.text =
        option.fontMetrics.elidedText(option.text, Qt::ElideRight, option.rect.width() - taken);
  }

  static void styleOther(QStyleOptionViewItem& option) {
    option.text += kOtherSign;
    option.backgroundBrush = otherTint(option.palette.color(QPalette::Base));
  }

  static void paintFrame(QPainter& painter, const QStyleOptionViewItem& option) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(frameColour(option.palette));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1.5, 2.5, -2.5, -3.5), 3, 3);
    painter.restore();
  }

  void paintMarks(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const {
    const std::vector<Axis> marks = grid_->marks(index.row());
    QRect place(0, 0, kMarkSize, kMarkSize);
    place.moveCenter(option.rect.center());
    place.moveRight(option.rect.right() - kMarkSpace);
    for (auto axis = marks.rbegin(); axis != marks.rend(); ++axis) {
      paintMark(painter, place, *axis);
      place.translate(-kMarkSize - kMarkSpace, 0);
    }
  }

  const ResultsGrid* grid_;
};

struct Heading {
  int row, column;
  const char* text;
};
// The blanks are those of the program's own.
constexpr Heading kHeadings[] = {
    {0, 1, "Structure 0"}, {0, 2, "Structure  1"}, {0, 5, "Structure  2"}, {0, 8, "Structure  3"},
    {0, 11, "     Sill"},  {0, 12, " RANGE"},      {1, 0, "Directions"},   {1, 1, "     C0"},
    {1, 2, "Model"},       {1, 3, "     C 1"},     {1, 4, "     a 1"},     {1, 5, "Model"},
    {1, 6, "     C 2"},    {1, 7, "     a 2"},     {1, 8, "Model"},        {1, 9, "     C 3"},
    {1, 10, "     a 3"},   {1, 11, " CTOTAL"},     {1, 12, "     A"},
};
constexpr int kTotal = static_cast<int>(kTotalColumn);

}  // namespace

QColor axisColour(Axis axis) { return QColor(look(axis).colour); }

QColor otherTint(const QColor& ground) { return mixed(ground, QColor(kOtherColour), kOtherShare); }

QIcon axisIcon(Axis axis) { return QIcon(new MarkEngine(axis)); }

ResultsGrid::ResultsGrid(QWidget* parent) : Grid(std::vector<int>(kResultColumns, 1), parent) {
  setItemDelegate(new ResultsDelegate(this));
  verticalHeader()->setDefaultSectionSize((kRowHeight + kTwips / 2) / kTwips);
  setFrameShape(StyledPanel);
  // What a row is taken for is told by its ground; the program moves the current cell by itself.
  setSelectionMode(NoSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  viewport()->setMouseTracking(true);
  setRowCount(kHeadingRows);
  for (int row = 0; row < kHeadingRows; ++row)
    for (int column = 0; column < kResultColumns; ++column) setText(row, column, QString());
  for (const Heading& heading : kHeadings) setText(heading.row, heading.column, heading.text);
  // The heading of a structure stands over its three columns.
  for (const std::size_t column : kLetterColumns) setSpan(0, static_cast<int>(column), 1, 3);
}

void ResultsGrid::setResults(const std::vector<ResultRow>& rows) {
  setRowCount(kHeadingRows + static_cast<int>(rows.size()));
  int row = kHeadingRows;
  for (const ResultRow& texts : rows) {
    int column = 0;
    for (const std::string& text : texts) setText(row, column++, toQString(text));
    ++row;
  }
}

void ResultsGrid::setOtherTotal(int direction, bool other) {
  const int row = kHeadingRows + direction - 1;
  const QTableWidgetItem* total = item(row, kTotal);
  const QString shown = total ? total->text() : QString();
  setData(row, kTotal, kOtherTotalRole, other);
  setData(row, kTotal, Qt::AccessibleTextRole,
          other ? shown + ", not the sum of the ticked sills" : QString());
}

void ResultsGrid::setMarks(int direction, const std::vector<Axis>& axes) {
  const int row = kHeadingRows + direction - 1;
  QVariantList kept;
  QStringList words;
  for (const Axis axis : axes) {
    kept.append(static_cast<int>(axis));
    words.append(look(axis).words);
  }
  setData(row, 0, kMarksRole, kept);
  const QTableWidgetItem* name = item(row, 0);
  if (!words.isEmpty() && name) words.prepend(name->text());
  setData(row, 0, Qt::AccessibleTextRole, words.join(", "));
  viewport()->update();
}

std::vector<Axis> ResultsGrid::marks(int row) const {
  std::vector<Axis> axes;
  for (const QVariant& kept : data(row, 0, kMarksRole).toList())
    axes.push_back(kAxes.at(static_cast<std::size_t>(kept.toInt())));
  return axes;
}

void ResultsGrid::mouseMoveEvent(QMouseEvent* event) {
  viewport()->setCursor(isButton(indexAt(event->position().toPoint())) ? Qt::PointingHandCursor
                                                                       : Qt::ArrowCursor);
  Grid::mouseMoveEvent(event);
}

void ResultsGrid::resizeEvent(QResizeEvent* event) {
  Grid::resizeEvent(event);
  for (int column = 0; column < kResultColumns; ++column)
    setColumnWidth(column, (width() * kTwips - kFreeWidth) / kResultColumns / kTwips);
}

}  // namespace zevfit
