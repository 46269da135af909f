#pragma once

#include <QColor>
#include <QIcon>
#include <vector>

#include "model/axis_fields.h"
#include "model/results.h"
#include "windows/grid.h"

namespace zevfit {

/// The colour and the picture that stand for an axis, in the table and beside its fields.
QColor axisColour(Axis axis);
/// A ground with the tint of what does not belong to the variable on show.
QColor otherTint(const QColor& ground);
QIcon axisIcon(Axis axis);

/// The table of results: two heading rows, then a row for each direction, of which the cells of
/// column 1 are there to be clicked.
class ResultsGrid : public Grid {
 public:
  static constexpr int kHeadingRows = 2;
  static constexpr int kClickColumn = 1;

  explicit ResultsGrid(QWidget* parent = nullptr);

  /// Shows these rows; those that are there already keep their marks.
  void setResults(const std::vector<ResultRow>& rows);
  /// Marks the total of the row of a direction, from 1, as another one than the sum of its sills.
  void setOtherTotal(int direction, bool other);
  /// Marks the row of a direction, from 1, as the one of these axes.
  void setMarks(int direction, const std::vector<Axis>& axes);
  /// The axes that a row is marked with.
  std::vector<Axis> marks(int row) const;

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace zevfit
