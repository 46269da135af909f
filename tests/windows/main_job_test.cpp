// The main job of the program, played with clicks, keys and slider moves on a real file.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "files/output_file.h"
#include "tests/support/program.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

std::string exampleFile() { return std::string(ZEVFIT_SOURCE_DIR) + "/examples/meuse.zvm"; }

class MainJob : public testing::Test {
 protected:
  MainJob() : program_(folder_.path().toStdString()) {
    std::filesystem::copy_file(exampleFile(), path());
  }

  std::string path() { return folder_.filePath("meuse.zvm").toStdString(); }

  void click(const char* name) { QTest::mouseClick(&program_.control(name), Qt::LeftButton); }

  /// Options and boxes are hit on their mark, whatever the width of the widget.
  void clickMark(const char* name) {
    QWidget& widget = program_.control(name);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
  }

  void type(const char* field, const char* text) {
    click(field);
    program_.control<QLineEdit>(field).selectAll();
    QTest::keyClicks(&program_.control(field), text);
    QTest::keyClick(&program_.control(field), Qt::Key_Return);
  }

  void pageUp(const char* slider) {
    program_.control(slider).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&program_.control(slider), Qt::Key_PageUp);
  }

  QString fieldText(const char* name) { return program_.control<QLineEdit>(name).text(); }
  QString label(const char* name) { return program_.control<QLabel>(name).text(); }
  QImage picture() { return program_.control<QWidget>("Picture4").grab().toImage(); }

  void fit();

  QTemporaryDir folder_;
  Program program_;
};

// Nugget 0.05; structure 1 spherical with the shown variance as its sill and range 899.904, which
// is on a step of the slider (892 * 32283.55544303 / 32000), where alone it stays when its line is
// chosen again while the slider drives; structure 2
// exponential by its two sliders, one page each; structure 3 ticked by its model and unticked
// again.
void MainJob::fit() {
  clickMark("est1");
  clickMark("plot1");
  type("Textc0", "0.05");
  clickMark("est2");
  clickMark("tipo2");
  type("Texta", "899.904");
  click("Labelvariance");
  clickMark("est3");
  clickMark("tipo1");
  pageUp("HScrolla");
  pageUp("HScrollc0");
  clickMark("est4");
  clickMark("tipo3");
  clickMark("plot4");
}

/// The file that the fit above leaves: the old one with another tag and a model block behind it.
std::string expectedFile() {
  std::string bytes = readWhole(exampleFile());
  const std::string tag = "\r\nzevra\r\n";
  bytes.replace(bytes.find(tag), tag.size(), "\r\nzevRA1\r\n");
  const std::string unused = " 0 \r\n-\r\n0\r\n0.0001\r\n";
  // The variance of ln zinc is 0.517227..., shown with three decimals as .517. The range slider
  // spans 20 times hmax = 32283.55545 in 32000 positions; a page is 1600 of them, a twentieth:
  // 1614.17777, shown as 1614.178. The sill slider spans ymax = 1.06 times 0.945892127574433, that
  // is 1.002645655; a twentieth is 0.0501, shown as .05.
  bytes +=
      " 1 \r\n 0.05 \r\n"
      " 1 \r\nS\r\n 0.517 \r\n 899.904 \r\n"
      " 1 \r\nE\r\n 0.05 \r\n 1614.178 \r\n" +
      unused;
  for (int pair = 1; pair < 7 * 4; ++pair)
    bytes.append(" 0 \r\n0\r\n").append(unused).append(unused).append(unused);
  return bytes;
}

/// The first line in which two files differ, as they have it; nothing for equal ones.
std::string firstDifference(const std::string& is, const std::string& wanted) {
  if (is == wanted) return {};
  const auto at = std::mismatch(is.begin(), is.end(), wanted.begin(), wanted.end()).first;
  const auto offset = static_cast<std::size_t>(at - is.begin());
  const std::size_t line = offset == 0 ? 0 : is.rfind('\n', offset - 1) + 1;
  return "is '" + is.substr(line, 60) + "', wanted '" + wanted.substr(line, 60) + "'";
}

TEST_F(MainJob, OpensFitsSavesAndOpensAgain) {
  program_.open(path());
  EXPECT_EQ(program_.control<QComboBox>("Combo2").count(), 7);
  EXPECT_EQ(program_.control<QComboBox>("Combodirvar").count(), 4);
  auto& plot = program_.control<Formod>("Formod");
  EXPECT_TRUE(plot.isVisible());
  EXPECT_EQ(plot.windowTitle(), "01,01  Variable: ln zinc  Direction: 0;0");
  const QImage before = picture();

  fit();
  EXPECT_NE(picture(), before);
  // 0.05 + 0.517 + 0.05; structure 3 has no sill.
  EXPECT_EQ(label("Labelc"), ".617");
  EXPECT_EQ(program_.control("Labelc").palette().color(QPalette::Window), QColor(255, 0, 0));

  program_.dialogs().shown.clear();
  program_.trigger("k11");
  const std::vector<std::string> boxes{"confirm: Save  current models to file: " + path(),
                                       savedBox(path())};
  EXPECT_EQ(program_.dialogs().shown, boxes);
  EXPECT_EQ(firstDifference(readWhole(path()), expectedFile()), "");

  program_.open(path());
  const Session& session = program_.session();
  EXPECT_TRUE(session.hasmodel);
  EXPECT_EQ(session.c0({1, 1}).number(), 0.05);
  EXPECT_EQ(session.model1({1, 1}), "S");
  EXPECT_EQ(session.a1({1, 1}).number(), 899.904);
  EXPECT_EQ(session.c2({1, 1}).number(), 0.05);
  EXPECT_EQ(session.a2({1, 1}).number(), 1614.178);
  EXPECT_EQ(session.use3({1, 1}), 0);
  EXPECT_TRUE(program_.control<QCheckBox>("plot1").isChecked());
  EXPECT_TRUE(program_.control<QCheckBox>("plot2").isChecked());
  EXPECT_FALSE(program_.control<QCheckBox>("plot4").isChecked());

  program_.trigger("k11");
  EXPECT_EQ(firstDifference(readWhole(path()), expectedFile()), "");
}

/// Takes hold of a slider's handle and moves it by pixels, with the button down in between.
void dragSlider(QSlider& slider, int by) {
  QStyleOptionSlider option;
  option.initFrom(&slider);
  option.orientation = Qt::Horizontal;
  option.maximum = slider.maximum();
  option.sliderPosition = option.sliderValue = slider.value();
  const QPoint handle =
      slider.style()
          ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
          .center();
  QTest::mousePress(&slider, Qt::LeftButton, {}, handle);
  for (const int part : {by / 3, 2 * by / 3, by}) {
    const QPointF at = handle + QPoint(part, 0);
    QMouseEvent move(QEvent::MouseMove, at, slider.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(&slider, &move);
  }
  QTest::mouseRelease(&slider, Qt::LeftButton, {}, handle + QPoint(by, 0));
}

TEST_F(MainJob, EveryControlOfThePanelReachesThePlot) {
  program_.open(path());
  QImage last = picture();
  const auto changed = [&](const char* by) {
    const QImage now = program_.window().grab().toImage();
    EXPECT_NE(now, last) << by;
    last = now;
  };
  program_.control<QComboBox>("Combo2").setCurrentIndex(1);
  program_.control<QComboBox>("Combodirvar").setCurrentIndex(2);
  click("Command5");
  changed("Command5");
  Session& session = program_.session();
  EXPECT_EQ(session.plotvar, 2);
  EXPECT_EQ(session.plotdir, 3);

  clickMark("psill");
  click("Command5");
  changed("psill");
  EXPECT_FALSE(session.showsill({2, 3}));
  click("Command3");
  changed("Command3");
  EXPECT_EQ(session.axiscolor, kWhite);

  clickMark("est2");
  for (const char* model : {"tipo1", "tipo2", "tipo3"}) {
    clickMark(model);
    type("Texta", "700");
    type("Textc0", "0.4");
    changed(model);
  }
  clickMark("tipo4");
  EXPECT_FALSE(program_.control("Textc0").isEnabled());
  // The power form leaves the plot at once: h^0.01 is about 1.05 from the first sample on.
  type("Texta", "0.01");
  changed("tipo4");
  clickMark("tipo2");
  type("Texta", "700");

  dragSlider(program_.control<QSlider>("HScrollc0"), 40);
  changed("HScrollc0");
  EXPECT_GT(session.c1({2, 3}).number(), 0.4);
  dragSlider(program_.control<QSlider>("HScrolla"), 20);
  changed("HScrolla");
  EXPECT_GT(session.a1({2, 3}).number(), 700);

  clickMark("est3");
  for (const char* box : {"plot1", "plot2", "plot3", "plot4"}) {
    clickMark(box);
    click("Command5");
    changed(box);
  }
  EXPECT_EQ(session.use0({2, 3}).number(), 1);
  EXPECT_EQ(session.use1({2, 3}).number(), 0);
  EXPECT_EQ(session.use2({2, 3}).number(), 1);
  EXPECT_EQ(session.use3({2, 3}), 1);
}

TEST_F(MainJob, CurveFollowsEachEditAtOnce) {
  program_.open(path());
  clickMark("est2");
  clickMark("tipo2");
  type("Textc0", "0.5");
  type("Texta", "500");
  const QImage typed = picture();
  pageUp("HScrolla");
  EXPECT_NE(picture(), typed);
  // 500 stands at position 500 * 32000 / 32283.5553530306 = 495.6, so 496; a page up is 2096, which
  // is 2096 * 32283.5554430306 / 32000 = 2114.5728815.
  EXPECT_EQ(fieldText("Texta"), "2114.573");
  EXPECT_EQ(program_.session().a1({1, 1}).number(), 2114.573);
}

// As somebody without a mouse does it: the slider drives until the first key.
TEST_F(MainJob, TabTypeEnterTakesTheWholeNumber) {
  program_.open(path());
  clickMark("est2");
  clickMark("tipo2");
  type("Textc0", "0.5");
  pageUp("HScrolla");
  auto& field = program_.control<QLineEdit>("Texta");
  field.setFocus(Qt::TabFocusReason);
  field.selectAll();
  const QImage before = picture();
  QTest::keyClicks(&field, "900");
  EXPECT_EQ(field.text(), "900");
  EXPECT_EQ(picture(), before);
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(field.text(), "900");
  EXPECT_EQ(program_.session().a1({1, 1}).number(), 900);
  EXPECT_NE(picture(), before);
}

TEST_F(MainJob, TypingAloneDrawsOnlyWithEnter) {
  program_.open(path());
  clickMark("est2");
  clickMark("tipo2");
  type("Texta", "500");
  const QImage before = picture();
  click("Textc0");
  program_.control<QLineEdit>("Textc0").selectAll();
  QTest::keyClicks(&program_.control("Textc0"), "0.4");
  EXPECT_EQ(program_.session().c1({1, 1}).number(), 0.4);
  EXPECT_EQ(picture(), before);
  QTest::keyClick(&program_.control("Textc0"), Qt::Key_Return);
  EXPECT_NE(picture(), before);
}

}  // namespace
}  // namespace zevfit::test
