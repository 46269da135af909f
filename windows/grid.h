#pragma once

#include <QTableWidget>
#include <initializer_list>
#include <vector>

namespace zevfit {

/// A table for reading whose first row is its heading and whose columns fill its width. The blank
/// key is a click on the current cell.
class Grid : public QTableWidget {
 public:
  /// Each column has its share of the width.
  explicit Grid(std::vector<int> shares, QWidget* parent = nullptr);

  /// Shows the numbers that a column now has with their decimal points one under the other, as far
  /// as a column has room for it. The texts of the cells stay as they are.
  void alignPoints(int column);
  /// How many digit widths stay free in front of a text: 1 in front of one that is no number, 0 in
  /// a column without aligned points.
  qsizetype indent(int column, const QString& text) const;
  void setHeading(std::initializer_list<const char*> texts);
  /// Shows a text in a row of the table; nothing for a row that it does not have.
  void setText(int row, int column, const QString& text);
  /// Shows a picture in the middle of a cell, with the words that stand for it.
  void setPicture(int row, int column, const QIcon& picture, const QString& words);
  /// The value of a cell under a role; an invalid one where none was ever set.
  QVariant data(int row, int column, int role) const;
  void setData(int row, int column, int role, const QVariant& value);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The cell's item, made at the first use; nothing for a cell outside the table.
  QTableWidgetItem* cell(int row, int column);

  std::vector<int> shares_;
  std::vector<qsizetype> widest_;  ///< characters in front of the points of each column
};

}  // namespace zevfit
