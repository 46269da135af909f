#pragma once

#include <QLabel>
#include <QMdiArea>
#include <QTest>
#include <QWindow>
#include <array>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "tests/support/temporary_folder.h"
#include "windows/formod.h"

namespace zevfit::test {

/// The program with the plots of two directions, one below the other, the first one active; and a
/// mouse that goes through the main window. Both have a nugget of 0.5 and a spherical structure of
/// 1 and 15, on axes to 30 and 2.12.
class TwoPlots : public TemporaryFolder {
 public:
  TwoPlots() : program_(folder()) {
    program_.openBytes(kTwoDirections);
    for (const std::int64_t direction : {2, 1}) plotDirection(direction);
    for (QMdiSubWindow* window : area().subWindowList())
      plots_.at(window->windowTitle().startsWith("01,01") ? 0 : 1) = dynamic_cast<Formod*>(window);
    program_.trigger("k7");
  }

  Program& program() { return program_; }
  Session& session() { return program_.session(); }
  QMdiArea& area() { return program_.control<QMdiArea>("Area"); }
  QWindow* window() { return program_.window().windowHandle(); }
  Formod& plot(int direction) { return *plots_.at(static_cast<std::size_t>(direction - 1)); }
  QWidget& picture(int direction) { return Program::find<QWidget>(plot(direction), "Picture4"); }
  QLabel& handle(int direction, int i) {
    return Program::find<QLabel>(plot(direction), qPrintable(QString("estru_%1").arg(i)));
  }

  /// A place of a control as one of the main window.
  QPoint placeOf(QWidget& control, QPoint at) { return control.mapTo(&program_.window(), at); }
  QPoint inPicture(int direction, QPoint at) { return placeOf(picture(direction), at); }
  QPoint onHandle(int direction, int i) { return placeOf(handle(direction, i), {2, 2}); }

  void move(QPoint at) { QTest::mouseMove(window(), at); }
  void press(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    move(at);
    QTest::mousePress(window(), button, {}, at);
  }
  void release(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(window(), button, {}, at);
  }
  void click(QPoint at) {
    press(at);
    release(at);
  }
  void doubleClick(QPoint at) {
    move(at);
    QTest::mouseDClick(window(), Qt::LeftButton, {}, at);
  }
  /// A key with the control key, which goes down before and comes up behind it.
  void keyWithControl(Qt::Key key) {
    QTest::keyPress(window(), Qt::Key_Control);
    QTest::keyClick(window(), key, Qt::ControlModifier);
    QTest::keyRelease(window(), Qt::Key_Control);
  }

  bool holdsAny() {
    for (const bool held : session().dragsel)
      if (held) return true;
    return false;
  }
  bool anyFault() {
    for (const std::string& box : program_.dialogs().shown)
      if (box.substr(0, 5) == "fatal") return true;
    return false;
  }

 private:
  void plotDirection(std::int64_t direction) {
    setNugget(session(), {1, direction}, 0.5);
    setStructure(session(), {1, direction}, Line::first, "S", 1, 15);
    session().curdir = direction;
    program_.window().plotvariogram();
  }

  Program program_;
  std::array<Formod*, 2> plots_{};
};

}  // namespace zevfit::test
