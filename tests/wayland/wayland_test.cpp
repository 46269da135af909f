// The program with a Wayland compositor: it starts, opens a file, plots it and ends. A compositor
// without a seat gives no window the focus, so that the events go to the controls themselves.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <deque>

#include "files/orthogonality.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_printer.h"
#include "tests/support/scratch_folder.h"
#include "windows/formod.h"
#include "windows/greeting.h"

namespace zevfit::test {
namespace {

constexpr int kWait = 10000;  // milliseconds for a window to appear
constexpr int kLookEach = 2;

template <class Widget>
Widget& find(QObject& in, const char* name) {
  auto* found = in.findChild<Widget*>(name);
  if (!found) throw std::runtime_error(std::string("no control ") + name);
  return *found;
}

/// What is done in the modal windows that come up, each once the compositor shows it.
class Modals {
 public:
  using Steps = std::function<void(QWidget&)>;

  Modals() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(kLookEach);
  }
  void expect(Steps steps) { turns_.push_back(std::move(steps)); }
  bool done() const { return turns_.empty(); }

 private:
  void look() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal == known_ || turns_.empty()) return;
    if (!modal->windowHandle() || !modal->windowHandle()->isExposed()) return;
    known_ = modal;
    const Steps steps = turns_.front();
    turns_.pop_front();
    steps(*modal);
  }

  QTimer timer_;
  QWidget* known_ = nullptr;
  std::deque<Steps> turns_;
};

void click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }

/// Dots of a colour in a picture.
int dots(const QImage& picture, Colour colour) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      count += toColour(picture.pixelColor(x, y)) == colour ? 1 : 0;
  return count;
}

TEST(Wayland, StartsOpensAFilePlotsItAndEnds) {
  ASSERT_EQ(QGuiApplication::platformName(), "wayland");
  const ScratchFolder folder;
  const std::string file = (folder / "meuse.zvm").string();
  std::filesystem::copy_file(ZEVFIT_SOURCE_DIR "/examples/meuse.zvm", file);
  QtDialogs dialogs;
  QtPrinter printer;
  const AngleTest angleTest;
  mdimod window(dialogs, printer, angleTest, folder.path());
  Greeting greeting(window);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, kWait));
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QWidget*>("formabout"); }, kWait));
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&find<QWidget>(window, "formabout"), kWait));

  Modals modals;
  modals.expect([&](QWidget& dialog) {
    auto& name = find<QLineEdit>(dialog, "fileNameEdit");
    name.setText(QString::fromStdString(file));
    QTest::keyClick(&name, Qt::Key_Return);
  });
  modals.expect([](QWidget& structure) { click(find<QAbstractButton>(structure, "Command2")); });
  find<QAction>(window, "k1").trigger();
  EXPECT_TRUE(modals.done());
  EXPECT_EQ(find<QLabel>(window, "LabelFile").text(), "meuse.zvm");

  click(find<QAbstractButton>(window, "est1"));
  click(find<QAbstractButton>(*window.centralWidget(), "Command5"));
  QApplication::processEvents();
  auto& plot = find<Formod>(window, "Formod");
  EXPECT_TRUE(plot.isVisible());
  EXPECT_EQ(plot.windowTitle().toStdString(), "01,01  Variable: ln zinc  Direction: 0;0");
  EXPECT_GT(dots(plot.clipboardImage(), kGreen), 0) << "the points";

  modals.expect([](QWidget& box) {
    auto* question = qobject_cast<QMessageBox*>(&box);
    ASSERT_NE(question, nullptr);
    question->button(QMessageBox::No)->click();
  });
  EXPECT_TRUE(window.close());
  EXPECT_TRUE(modals.done());
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace zevfit::test

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
