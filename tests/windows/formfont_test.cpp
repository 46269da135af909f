// The windows for fonts, patterns and colours, with keys and clicks.
#include "windows/formfont.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

class FormatWindows : public testing::Test {
 protected:
  FormatWindows() : program_(folder_.path().toStdString()) {
    program_.openBytes(kOneDirection);
    program_.dialogs().shown.clear();
  }

  void open() {
    program_.trigger("k10");
    QApplication::processEvents();
  }
  QWidget& format() { return program_.control("Formfont"); }
  QWidget& colours() { return program_.control("cores"); }
  QWidget& help() { return in<QWidget>(format(), "Frame2"); }
  template <class Widget = QWidget>
  Widget& in(QWidget& window, const char* name) {
    return Program::find<Widget>(window, name);
  }
  /// A button of the format window itself: its children have some of the same names.
  QPushButton& button(const char* name) {
    auto* found = format().findChild<QPushButton*>(name, Qt::FindDirectChildrenOnly);
    if (!found) throw std::runtime_error(name);
    return *found;
  }
  void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
  void type(QLineEdit& field, const char* text) {
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
  }
  QLabel& row(const char* name) {
    auto* found = format().findChild<QLabel*>(name, Qt::FindDirectChildrenOnly);
    return found ? *found : in<QLabel>(format(), name);
  }
  QImage preview() { return in<QWidget>(format(), "Picture1").grab().toImage(); }
  QImage plot() { return program_.control("Picture4").grab().toImage(); }
  Boxes& shown() { return program_.dialogs().shown; }
  Session& session() { return program_.session(); }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(FormatWindows, ShowTextsAndHints) {
  open();
  ASSERT_TRUE(format().isVisible());
  EXPECT_FALSE(program_.window().isEnabled());
  EXPECT_EQ(format().windowTitle(), "Graphic - Format");
  const std::pair<const char*, const char*> texts[] = {{"Label1_0", "Title:"},
                                                       {"Label1_1", "Labels:"},
                                                       {"Label1_2", "Legend:"},
                                                       {"Label2_0", "Times New Roman"},
                                                       {"Label2_1", "Times New Roman"},
                                                       {"Label2_2", "Times New Roman"},
                                                       {"Label3_0", "10"},
                                                       {"Label3_1", "7.8"},
                                                       {"Label3_2", "7.8"}};
  for (const auto& [name, text] : texts) EXPECT_EQ(row(name).text(), text) << name;
  const std::pair<const char*, const char*> hints[] = {{"Command1", "Default Options"},
                                                       {"Command2", "Save Options"},
                                                       {"Command3", "Cancel these Options"},
                                                       {"Command4", "Help"},
                                                       {"Command5", "Colors"}};
  for (const auto& [name, hint] : hints) EXPECT_EQ(button(name).toolTip(), hint) << name;
  for (const char* name : {"Label2_0", "Label2_1", "Label2_2"})
    EXPECT_EQ(row(name).toolTip(), "Click here") << name;
  EXPECT_EQ(in<QWidget>(format(), "Picture1").toolTip(), "Click to refresh");
  EXPECT_EQ(in<QLineEdit>(format(), "formato_0").text(), "#0.#0 ");
  EXPECT_EQ(in<QLineEdit>(format(), "formato_1").text(), "####.#0");
  EXPECT_EQ(in<QWidget>(format(), "Picture1").size(), QSize(431, 248));
}

TEST_F(FormatWindows, TheSampleIsWrittenInItsFont) {
  program_.dialogs().fonts = {{"Liberation Sans", 14}};
  open();
  click(row("Label2_0"));
  EXPECT_EQ(row("Label2_0").text(), "Liberation Sans");
  EXPECT_EQ(row("Label2_0").font().families().first(), "Liberation Sans");
  EXPECT_EQ(row("Label3_0").text(), "14");
}

TEST_F(FormatWindows, APreviewWaitsForAClickOnThePicture) {
  open();
  const QImage before = preview();
  program_.dialogs().fonts = {{"Liberation Sans", 16}};
  click(row("Label2_0"));
  QApplication::processEvents();
  EXPECT_EQ(preview(), before);
  type(in<QLineEdit>(format(), "formato_0"), "0.0000");
  EXPECT_EQ(preview(), before);
  click(in<QWidget>(format(), "Picture1"));
  EXPECT_NE(preview(), before);
}

// Every box that comes up takes the activation away and gives it back, as a desktop does.
TEST_F(FormatWindows, NoBoxOfItsOwnDrawsThePreview) {
  open();
  const QImage before = preview();
  const auto send = [&](QEvent::Type type) {
    QEvent event(type);
    QApplication::sendEvent(&format(), &event);
  };
  type(in<QLineEdit>(format(), "formato_0"), "0.0000");
  program_.dialogs().meanwhile = [&] {
    send(QEvent::WindowDeactivate);
    send(QEvent::WindowActivate);
  };
  program_.dialogs().fonts = {{"Liberation Sans", 17}, {"", 12}, {"Liberation Sans", 12}};
  click(row("Label2_0"));
  EXPECT_EQ(row("Label3_0").text(), "12");
  EXPECT_EQ(shown().size(), 5U) << "three dialogs, two boxes between them";
  EXPECT_EQ(preview(), before);
  type(in<QLineEdit>(format(), "formato_1"), "#a");
  click(button("Command2"));
  EXPECT_EQ(preview(), before);
  program_.dialogs().meanwhile = nullptr;
  send(QEvent::WindowDeactivate);
  send(QEvent::WindowActivate);
  EXPECT_NE(preview(), before) << "coming back from elsewhere does";
}

// The plot stands in other colours than those that come back, so that a drawing would be seen.
TEST_F(FormatWindows, CancelDrawsNothing) {
  const QImage before = plot();
  session().style.cores.Label2 = 255;
  open();
  click(button("Command3"));
  QApplication::processEvents();
  EXPECT_EQ(session().style.cores.Label2, 255);
  EXPECT_EQ(plot(), before);
}

TEST_F(FormatWindows, SaveKeepsTheOptionsAndDrawsThePlot) {
  open();
  const QImage before = plot();
  type(in<QLineEdit>(format(), "formato_0"), "0.0000");
  click(button("Command2"));
  EXPECT_FALSE(format().isVisible());
  EXPECT_TRUE(program_.window().isEnabled());
  EXPECT_EQ(session().style.Formfont.formato[0], "0.0000");
  EXPECT_NE(plot(), before);
}

TEST_F(FormatWindows, AFaultyPatternKeepsTheWindowUp) {
  open();
  type(in<QLineEdit>(format(), "formato_0"), "###.#.#");
  type(in<QLineEdit>(format(), "formato_1"), "##a");
  click(button("Command2"));
  EXPECT_EQ(shown(), Boxes{"plain: Illegal format string: Two . detected!"});
  type(in<QLineEdit>(format(), "formato_0"), "");
  shown().clear();
  click(button("Command2"));
  EXPECT_EQ(shown(), Boxes{"plain: Illegal format symbol - a"});
  EXPECT_TRUE(format().isVisible());
  EXPECT_EQ(in<QLineEdit>(format(), "formato_1").text(), "##a");
}

TEST_F(FormatWindows, CancelCloseBoxAndEscapePutAllBack) {
  for (const int way : {0, 1, 2}) {
    open();
    click(button("Command1"));
    EXPECT_EQ(in<QLineEdit>(format(), "formato_0").text(), "###0.#0 ");
    EXPECT_EQ(in<QLineEdit>(format(), "formato_1").text(), "###.#0");
    session().style.cores.Label3 = 5;
    const QImage before = plot();
    if (way == 0) click(button("Command3"));
    if (way == 1) format().close();
    if (way == 2) QTest::keyClick(&format(), Qt::Key_Escape);
    EXPECT_FALSE(format().isVisible()) << way;
    EXPECT_TRUE(program_.window().isEnabled()) << way;
    EXPECT_EQ(session().style.Formfont.formato[0], "#0.#0 ") << way;
    EXPECT_EQ(session().style.Formfont.formato[1], "####.#0") << way;
    EXPECT_EQ(session().style.cores.Label3, 16711680) << way;
    EXPECT_EQ(plot(), before) << "nothing is drawn";
  }
}

TEST_F(FormatWindows, DefaultsDrawThePreviewAndHideTheHelp) {
  open();
  type(in<QLineEdit>(format(), "formato_0"), "0.0000");
  click(in<QWidget>(format(), "Picture1"));
  const QImage before = preview();
  click(button("Command4"));
  ASSERT_TRUE(help().isVisible());
  EXPECT_FALSE(format().isEnabled());
  EXPECT_EQ(help().windowTitle(), "Format Help");
  const std::pair<const char*, const char*> texts[] = {
      {"symbol_0_0", "#"},           {"symbol_0_1", "Free number format"},
      {"symbol_1_0", "0"},           {"symbol_1_1", "Fixed number format"},
      {"symbol_2_0", "."},           {"symbol_2_1", "Decimal separator"},
      {"symbol_3_0", "Space"},       {"symbol_3_1", "Space"},
      {"example_0_0", "###.####"},   {"example_0_1", "123.7804"},
      {"example_1_0", "###.#####"},  {"example_1_1", "123.7804"},
      {"example_2_0", "###.####0"},  {"example_2_1", "123.78040"},
      {"example_3_0", "###.# ###0"}, {"example_3_1", "123.7 8040"}};
  for (const auto& [name, text] : texts) EXPECT_EQ(in<QLabel>(help(), name).text(), text) << name;
  help().close();
  EXPECT_TRUE(format().isEnabled());
  click(button("Command1"));
  EXPECT_NE(preview(), before) << "0.40 in place of 0.4000";
  EXPECT_FALSE(help().isVisible());
  EXPECT_TRUE(format().isVisible());
}

TEST_F(FormatWindows, AFailedPreviewClosesWithoutARedraw) {
  open();
  const QImage before = plot();
  session().curvar = 0;
  click(in<QWidget>(format(), "Picture1"));
  EXPECT_EQ(shown(), Boxes{});
  session().curvar = 1;
  session().style.cores.Label2 = 255;
  click(button("Command2"));
  EXPECT_FALSE(format().isVisible());
  EXPECT_EQ(plot(), before);
}

TEST_F(FormatWindows, ColoursAreGivenToTheSelectedSwatch) {
  open();
  click(button("Command5"));
  ASSERT_TRUE(colours().isVisible());
  EXPECT_FALSE(format().isEnabled());
  EXPECT_TRUE(colours().isEnabled());
  EXPECT_EQ(colours().windowTitle(), "Define Colors");
  const std::pair<const char*, const char*> options[] = {{"Option1", "Legends"},
                                                         {"Option2", "Variogram"},
                                                         {"Option3", "Model"},
                                                         {"Option4", "Variance"},
                                                         {"Option5", "Background"}};
  for (const auto& [name, text] : options)
    EXPECT_EQ(in<QRadioButton>(colours(), name).text(), text);
  EXPECT_TRUE(in<QRadioButton>(colours(), "Option1").isChecked());
  const std::pair<const char*, const char*> hints[] = {
      {"Command1", "Select Color"}, {"Command3", "Default colors"}, {"Command2", "Save and Exit"}};
  for (const auto& [name, hint] : hints)
    EXPECT_EQ(in<QPushButton>(colours(), name).toolTip(), hint) << name;
  in<QRadioButton>(colours(), "Option4").setChecked(true);
  program_.dialogs().colours = {0x112233};
  click(in<QPushButton>(colours(), "Command1"));
  EXPECT_EQ(session().style.cores.Label4, 0x112233);
  EXPECT_EQ(in<QLabel>(colours(), "Label4").palette().color(QPalette::Window),
            QColor(0x33, 0x22, 0x11));
  in<QRadioButton>(colours(), "Option2").setChecked(true);
  click(in<QPushButton>(colours(), "Command1"));
  EXPECT_EQ(session().style.cores.Label2, 0x112233) << "a cancelled dialog paints what it held";
}

TEST_F(FormatWindows, SaveAndExitOfTheColoursBringsTheGridBack) {
  open();
  const QImage before = preview();
  click(button("Command5"));
  QApplication::processEvents();
  session().axiscolor = 99;
  click(in<QPushButton>(colours(), "Command3"));
  EXPECT_EQ(session().axiscolor, 99) << "default colours leave the grid";
  session().style.cores.Label1 = 255;
  click(in<QPushButton>(colours(), "Command2"));
  QApplication::processEvents();
  EXPECT_EQ(session().axiscolor, 255);
  EXPECT_FALSE(colours().isVisible());
  EXPECT_TRUE(format().isEnabled());
  EXPECT_EQ(preview(), before) << "a click on the picture draws it";
}

TEST_F(FormatWindows, TheCloseBoxOfTheColoursBringsTheDefaultsBack) {
  open();
  click(button("Command5"));
  session().axiscolor = 99;
  session().style.cores = {1, 2, 3, 4, 5};
  QTest::keyClick(&colours(), Qt::Key_Escape);
  EXPECT_TRUE(colours().isVisible()) << "no key loses the colours";
  colours().close();
  EXPECT_FALSE(colours().isVisible());
  EXPECT_TRUE(format().isEnabled());
  const ColourSwatches& swatches = session().style.cores;
  EXPECT_EQ(swatches.Label1, 0);
  EXPECT_EQ(swatches.Label2, 32768);
  EXPECT_EQ(swatches.Label3, 16711680);
  EXPECT_EQ(swatches.Label4, 255);
  EXPECT_EQ(swatches.Label5, 16777215);
  EXPECT_EQ(session().axiscolor, 99);
}

TEST_F(FormatWindows, TheCloseBoxOfTheColoursForgetsOptionAndColour) {
  open();
  click(button("Command5"));
  in<QRadioButton>(colours(), "Option4").setChecked(true);
  program_.dialogs().colours = {0x112233};
  click(in<QPushButton>(colours(), "Command1"));
  colours().close();
  click(button("Command5"));
  EXPECT_TRUE(in<QRadioButton>(colours(), "Option1").isChecked());
  EXPECT_FALSE(in<QRadioButton>(colours(), "Option4").isChecked());
  in<QRadioButton>(colours(), "Option3").setChecked(true);
  click(in<QPushButton>(colours(), "Command1"));
  EXPECT_EQ(session().style.cores.Label3, 0) << "a cancelled dialog is black as at first";
  // Its other way out keeps both.
  click(in<QPushButton>(colours(), "Command2"));
  click(button("Command5"));
  EXPECT_TRUE(in<QRadioButton>(colours(), "Option3").isChecked());
}

TEST_F(FormatWindows, TheyAreHiddenWhileTheMainWindowIsMinimised) {
  for (const bool withColours : {false, true}) {
    open();
    if (withColours) click(button("Command5"));
    program_.window().showMinimized();
    EXPECT_FALSE(format().isVisible());
    EXPECT_FALSE(colours().isVisible());
    program_.window().showNormal();
    EXPECT_TRUE(format().isVisible());
    EXPECT_EQ(format().isEnabled(), !withColours);
    EXPECT_EQ(colours().isVisible(), withColours);
    if (withColours) click(in<QPushButton>(colours(), "Command2"));
    click(button("Command3"));
    EXPECT_TRUE(program_.window().isEnabled());
  }
}

TEST_F(FormatWindows, OpeningKeepsWhatCancelPutsBack) {
  session().axiscolor = 16777215;
  session().style.cores.Label2 = 77;
  open();
  session().axiscolor = 1;
  session().style.cores.Label2 = 2;
  click(button("Command3"));
  EXPECT_EQ(session().axiscolor, 16777215);
  EXPECT_EQ(session().style.cores.Label2, 77);
}

}  // namespace
}  // namespace zevfit::test
