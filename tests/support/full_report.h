#pragma once

#include <QComboBox>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QToolBar>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/tour/hand.h"

namespace zevfit::test {

// A report of 21 plots, as a user composes it with mouse and keys.

inline constexpr int kReportRows = 7, kReportColumns = 3;

/// The window of the reports, on show.
inline QWidget& openReports(Program& program) {
  auto& toolbar = program.control<QToolBar>("Toolbar1");
  tour::Hand().click(*toolbar.widgetForAction(&program.control<QAction>("kp")));
  return program.control<QWidget>("printcolection");
}

/// Presses the mouse on the selected page, at pixels of it.
inline void pressPage(QWidget& reports, int slot, QPoint at) {
  auto& page = Program::find<QWidget>(reports, qPrintable(QString("Picture1_%1").arg(slot)));
  QTest::mouseClick(&page, Qt::LeftButton, {}, at);
}

/// The middle of a cell of the first report with three columns: cells of 1049 by 603.32 below a
/// margin of 114.36 twips.
inline QPoint middleOfThird(int row, int column) {
  return {(column * 1049 - 524) / 15, static_cast<int>(((row - 0.5) * 603.32 + 114.36) / 15)};
}

/// A nugget and a spherical structure that rise to the variance.
inline void fitPair(Session& session, Pair pair) {
  const double variance = session.variance(pair.variable).number();
  setNugget(session, pair, variance * 0.1);
  setStructure(session, pair, Line::first, "S", variance * 0.9, session.hmax(pair) * 0.7);
}

inline void giveColumns(QWidget& reports, int columns) {
  auto& slider = Program::find<QSlider>(reports, "HScroll1");
  tour::Hand hand;
  hand.click(slider);
  QTest::keyClick(&slider, Qt::Key_Home);
  for (int more = slider.minimum(); more < columns; ++more) QTest::keyClick(&slider, Qt::Key_Right);
  hand.click(Program::find<QPushButton>(reports, "Command1"));
}

inline void plotPair(Program& program, Pair pair) {
  tour::Hand hand;
  hand.choose(program.control<QComboBox>("Combo2"), static_cast<int>(pair.variable) - 1);
  hand.choose(program.control<QComboBox>("Combodirvar"), static_cast<int>(pair.direction) - 1);
  hand.click(program.control("Command5"));
}

/// Fits, plots and places variables 1 to 7 in directions 1 to 3 of a loaded file.
inline void composeFullReport(Program& program) {
  QWidget& reports = openReports(program);
  giveColumns(reports, kReportColumns);
  for (int row = 1; row <= kReportRows; ++row)
    for (int column = 1; column <= kReportColumns; ++column) {
      fitPair(program.session(), {row, column});
      plotPair(program, {row, column});
      pressPage(reports, 0, middleOfThird(row, column));
    }
}

}  // namespace zevfit::test
