// The frames of the panel beside those that Qt draws anew each time.
#include "windows/panel_frame.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/panel_on_screen.h"

namespace zevfit {
namespace {

QImage grabbed(QWidget& widget) { return widget.grab().toImage(); }

/// A frame of the panel and a plain one, on windows of their own.
class PanelFrames : public testing::Test {
 protected:
  PanelFrames() {
    for (QGroupBox* frame : frames()) frame->resize(120, 60);
  }
  std::vector<QGroupBox*> frames() { return {&kept_, &plain_}; }
  void change(const std::function<void(QGroupBox&)>& change) {
    for (QGroupBox* frame : frames()) change(*frame);
  }
  void expectSame(const char* after) {
    // The second look is that of the kept picture.
    EXPECT_EQ(grabbed(kept_), grabbed(plain_)) << after;
    EXPECT_EQ(grabbed(kept_), grabbed(plain_)) << after;
  }

  PanelFrame kept_{"Title"};
  QGroupBox plain_{"Title"};
};

TEST_F(PanelFrames, FollowWhatTheyDependOn) {
  expectSame("the start");
  change([](QGroupBox& frame) { frame.setTitle("C1*(1-exp(-3h/a1))"); });
  expectSame("another title");
  change([](QGroupBox& frame) { frame.resize(200, 90); });
  expectSame("another size");
  change([](QGroupBox& frame) { frame.setEnabled(false); });
  expectSame("a disabled one");
  change([](QGroupBox& frame) { frame.setPalette(QPalette(QColor(40, 40, 60))); });
  expectSame("another palette");
  change([](QGroupBox& frame) {
    QFont font = frame.font();
    font.setBold(true);
    frame.setFont(font);
  });
  expectSame("another font");
}

/// The widgets that are painted while it lives.
class PaintedWidgets : public QObject {
 public:
  PaintedWidgets() { qApp->installEventFilter(this); }
  std::vector<std::string> names;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) names.push_back(watched->objectName().toStdString());
    return false;
  }
};

using FieldOnScreen = PanelOnScreen;

TEST_F(FieldOnScreen, AChangedFieldPaintsNothingBehindItsFrame) {
  QApplication::processEvents();
  PaintedWidgets painted;
  find<QLineEdit>("Texta")->setText("123");
  QApplication::processEvents();
  EXPECT_EQ(painted.names, (std::vector<std::string>{"label10", "Texta"}));
}

}  // namespace
}  // namespace zevfit
