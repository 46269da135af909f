// Whatever mouse and keys do over two plots, in whatever order, each handle can be freed again,
// only cells of the lines in use change, all stay on their axes, and nothing faults.
#include <gtest/gtest.h>

#include <QWheelEvent>
#include <random>
#include <set>

#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

constexpr int kSteps = 120;

/// Hands that do anything, the same for the same seed.
class Hands : public TwoPlots {
 public:
  explicit Hands(unsigned seed) : random_(seed) {}

  void step() {
    const int what = upTo(40);
    if (what < 14) {
      move(at_ = anyPlace());
    } else if (what < 33) {
      button();
    } else {
      other(what);
    }
  }

  /// Lets all buttons go.
  void letGo() {
    for (const Qt::MouseButton each : down_) release(at_, each);
    down_.clear();
  }

 private:
  int upTo(int count) {
    return static_cast<int>(random_() % static_cast<std::mt19937::result_type>(count));
  }

  /// On a handle, in a picture, in a field of the panel, or anywhere, also outside the window.
  QPoint anyPlace() {
    const int direction = 1 + upTo(2), handle_ = upTo(2), where = upTo(6);
    if (where == 0) return {-500 + upTo(3000), -500 + upTo(2000)};
    if (where == 1) return placeOf(program().control(upTo(2) == 0 ? "Textc0" : "Texta"), {5, 5});
    if (where < 4 && handle(direction, handle_).isVisible()) return onHandle(direction, handle_);
    return inPicture(direction, {upTo(440), upTo(250)});
  }

  /// The right button opens menus elsewhere, which wait for the user.
  bool mayPress(Qt::MouseButton button) {
    if (!program().window().rect().contains(at_)) return !down_.empty();
    const QWidget* under = program().window().childAt(at_);
    return button == Qt::LeftButton || (under && (under->objectName() == "Picture4" ||
                                                  under->objectName().startsWith("estru")));
  }

  void button() {
    constexpr std::array kButtons{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    const Qt::MouseButton which = kButtons.at(static_cast<std::size_t>(upTo(3)));
    if (down_.erase(which) == 1) return release(at_, which);
    if (down_.empty()) at_ = anyPlace();
    if (!mayPress(which)) return;
    press(at_, which);
    down_.insert(which);
  }

  void other(int what) {
    if (what == 33 && down_.empty() && mayPress(Qt::LeftButton)) return doubleClick(at_);
    if (what == 34) return keyWithControl(upTo(2) == 0 ? Qt::Key_Tab : Qt::Key_F6);
    if (what == 35 && upTo(4) == 0) return keyWithControl(Qt::Key_F4);
    if (what == 36) return program().trigger(upTo(2) == 0 ? "kmais" : "kmenos");
    if (what == 37) return program().trigger(upTo(2) == 0 ? "k5" : "k7");
    if (what == 38) return scroll(picture(1 + upTo(2)));
    if (what == 39) program().control<QAbstractButton>("Command5").click();
  }

  void scroll(QWidget& over) {
    for (const Qt::ScrollPhase phase : {Qt::ScrollBegin, Qt::ScrollUpdate, Qt::ScrollEnd}) {
      QWheelEvent wheel(QPointF(5, 5), over.mapToGlobal(QPointF(5, 5)), QPoint(3, 7), QPoint(0, 60),
                        {}, {}, phase, false);
      QApplication::sendEvent(&over, &wheel);
    }
  }

  std::mt19937 random_;
  QPoint at_{0, 0};
  std::set<Qt::MouseButton> down_;
};

/// The cells of both pairs lie on their axes, those without a line on show at their start.
void checkCells(const Session& s) {
  for (const std::int64_t direction : {1, 2}) {
    const Pair pair{1, direction};
    for (const Line which : {Line::nugget, Line::first}) {
      EXPECT_GE(line(s, pair, which).sill().number(), 0);
      EXPECT_LE(line(s, pair, which).sill().number(), 2.12);
    }
    EXPECT_GE(s.a1(pair).number(), 0);
    // The slider behind a redraw may lie half a position, 0.01, farther.
    EXPECT_LE(s.a1(pair).number(), 30.01);
    for (const Line unused : {Line::second, Line::third}) {
      EXPECT_EQ(line(s, pair, unused).sill().number(), 0);
      // The curve takes a range of 0 for the least one.
      EXPECT_LE(line(s, pair, unused).range().number(), 1e-05);
    }
  }
}

/// As a user does who is left with a held handle: plot, move into the picture, double click.
void freeAll(Hands& hands) {
  const int direction = static_cast<int>(hands.session().curdir);
  if (!hands.plot(direction).isVisible())
    hands.program().control<QAbstractButton>("Command5").click();
  for (int i = 3; i >= 0; --i) {
    if (!hands.session().dragsel.at(static_cast<std::size_t>(i))) continue;
    hands.move(hands.inPicture(direction, {100 + 50 * i, 80}));
    hands.doubleClick(hands.onHandle(direction, i));
  }
}

TEST(AnyMouse, LeavesHandlesThatCanBeFreedAndCellsInOrder) {
  for (const unsigned seed : {10U, 18U, 24U, 27U, 38U}) {
    SCOPED_TRACE(seed);
    Hands hands(seed);
    for (int i = 0; i < kSteps && !testing::Test::HasFailure(); ++i) {
      SCOPED_TRACE(i);
      hands.step();
      checkCells(hands.session());
      EXPECT_FALSE(hands.anyFault());
    }
    hands.letGo();
    freeAll(hands);
    EXPECT_FALSE(hands.holdsAny());
    EXPECT_FALSE(hands.session().dragging);
  }
}

}  // namespace
}  // namespace zevfit::test
