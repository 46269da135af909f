// What the user does to the controls of the panel, by real clicks and keys, and how they look.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <stdexcept>

#include "model/sliders.h"
#include "tests/support/panel_on_screen.h"
#include "tests/support/run_to_end.h"
#include "windows/boundary.h"
#include "windows/fit_panel_widgets.h"

namespace zevfit {
namespace {

TEST_F(PanelOnScreen, ControlsShowTheirDesignCaptions) {
  struct Row {
    const char* name;
    const char* caption;
  };
  for (const Row& row : std::vector<Row>{{"est1", "Nugget Effect"},
                                         {"est2", "Structure 1"},
                                         {"est3", "Structure 2"},
                                         {"est4", "Structure 3"},
                                         {"tipo1", "E - Exponential"},
                                         {"tipo2", "S - Spherical"},
                                         {"tipo3", "G - Gaussian"},
                                         {"tipo4", "P - Power"}})
    EXPECT_EQ(find<QRadioButton>(row.name)->text(), row.caption);
  for (const Row& row : std::vector<Row>{{"Frame1", "Select Structure"},
                                         {"Frame2", "Plot"},
                                         {"Frame3", "Select Model"},
                                         {"label10", "Model Expression"}})
    EXPECT_EQ(find<QGroupBox>(row.name)->title(), row.caption);
  for (const Row& row : std::vector<Row>{{"Label8", "Variable"},
                                         {"Label9", "Direction"},
                                         {"Label18", "C0"},
                                         {"Label21", "a:"},
                                         {"Label23", "Ctotal"},
                                         {"labelvari", "Sill"}})
    EXPECT_EQ(find<QLabel>(row.name)->text(), row.caption);
  EXPECT_EQ(find<QCheckBox>("psill")->text(), "PLot Sill");
  EXPECT_EQ(find<QPushButton>("Command4")->text(), "[ h ]");
  EXPECT_EQ(find<QPushButton>("Command5")->text(), "PLOT");
}

TEST_F(PanelOnScreen, ControlsHaveTheirTips) {
  struct Row {
    const char* name;
    const char* tip;
  };
  for (const Row& row : std::vector<Row>{{"est2tipo", "Model for Structure 1"},
                                         {"est3tipo", "Model for Structure 2"},
                                         {"est4tipo", "Model for Structure 3"},
                                         {"Combo2", "Select the Variable"},
                                         {"Combodirvar", "Select the Direction"},
                                         {"Command1", "Change X-Y scales"},
                                         {"Command2", "Test - Cross Semivariogram"},
                                         {"Command3", "Grid ON/OFF"},
                                         {"Command4", "Legend h[units]"},
                                         {"Command5", "Plot Theoretical Model"}})
    EXPECT_EQ(find<QWidget>(row.name)->toolTip(), row.tip) << row.name;
}

TEST_F(PanelOnScreen, TheMouseOverTwoOptionsTellsThePair) {
  QTest::mouseMove(find<QWidget>("est1"));
  QTest::mouseMove(find<QWidget>("tipo1"));
  EXPECT_EQ(find<QWidget>("est1")->toolTip(), "2");
  EXPECT_EQ(find<QWidget>("tipo1")->toolTip(), "3");
}

TEST_F(PanelOnScreen, DisablingReachesTheNamedControls) {
  struct Row {
    Control control;
    std::vector<const char*> names;
  };
  for (const Row& row : std::vector<Row>{{Control::Textc0, {"Textc0"}},
                                         {Control::Texta, {"Texta"}},
                                         {Control::HScrollc0, {"HScrollc0"}},
                                         {Control::HScrolla, {"HScrolla"}},
                                         {Control::tipos, {"tipo1", "tipo2", "tipo3", "tipo4"}}})
    for (const bool enabled : {false, true}) {
      panel.setEnabled(row.control, enabled);
      for (const char* name : row.names)
        EXPECT_EQ(find<QWidget>(name)->isEnabled(), enabled) << name;
    }
}

TEST_F(PanelOnScreen, TheTotalAndItsLabelTakeTheBackgroundTogether) {
  for (const Colour colour : {kRed, kLightGrey}) {
    panel.setSillBackground(colour);
    for (const char* name : {"Labelc", "labelvari"}) {
      const auto* label = find<QLabel>(name);
      EXPECT_TRUE(label->autoFillBackground()) << name;
      const QColor ground = label->palette().color(QPalette::Window);
      EXPECT_EQ(ground.red() + 256 * ground.green() + 65536 * ground.blue(), colour) << name;
      EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(Qt::black)) << name;
    }
  }
}

TEST_F(PanelOnScreen, TheLettersOfTheTotalStandOutOnADarkDesktop) {
  const auto letters = [this] {
    return find<QLabel>("Labelc")->palette().color(QPalette::WindowText);
  };
  panel.setSillBackground(kRed);
  panel.setPalette(QPalette(QColor(50, 50, 50)));
  EXPECT_EQ(letters(), QColor(Qt::white)) << "the desktop turns dark meanwhile";
  panel.setSillBackground(kLightGrey);
  EXPECT_EQ(letters(), QColor(Qt::black));
  panel.setSillBackground(kRed);
  EXPECT_EQ(letters(), QColor(Qt::white));
  panel.setPalette(QPalette(QColor(239, 239, 239)));
  EXPECT_EQ(letters(), QColor(Qt::black));
}

TEST_F(PanelOnScreen, SlidersStepAsTheScalesSay) {
  session.hmax(kPair) = 0.001;
  scalesliders(fit, kPair);
  EXPECT_EQ(find<QSlider>("HScrollc0")->singleStep(), 64);
  EXPECT_EQ(find<QSlider>("HScrollc0")->pageStep(), 1600);
  EXPECT_EQ(find<QSlider>("HScrolla")->maximum(), 639);
  EXPECT_EQ(find<QSlider>("HScrolla")->singleStep(), 1);
  EXPECT_EQ(find<QSlider>("HScrolla")->pageStep(), 31);
}

TEST_F(PanelOnScreen, AClickIntoAFieldLetsItDriveAndTheSlidersFocusTakesTheLead) {
  click("Textc0");
  EXPECT_TRUE(typedSill());
  click("Texta");
  EXPECT_TRUE(typedRange());
  find<QSlider>("HScrollc0")->setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(typedSill());
  EXPECT_TRUE(typedRange());
  find<QSlider>("HScrolla")->setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(typedRange());
}

TEST_F(PanelOnScreen, TypedKeysReachTheCellAndEnterDraws) {
  clickOption("est2");
  click("Textc0");
  plotter.drawings = 0;
  find<QLineEdit>("Textc0")->selectAll();
  QTest::keyClicks(find<QWidget>("Textc0"), "2.5");
  EXPECT_EQ(session.c1(kPair).number(), 2.5);
  EXPECT_EQ(plotter.drawings, 0);
  QTest::keyClick(find<QWidget>("Textc0"), Qt::Key_Return);
  EXPECT_EQ(plotter.drawings, 1);
  QTest::keyClick(find<QWidget>("Texta"), Qt::Key_Enter);
  EXPECT_EQ(plotter.drawings, 2);
}

// By Tab alone, while the sliders drive: a typed key is as good as a click into the field.
TEST_F(PanelOnScreen, KeysTypedBehindATabLetTheFieldDrive) {
  clickOption("est2");
  typedSill() = typedRange() = false;
  plotter.drawings = 0;
  const std::pair<const char*, bool*> rows[] = {{"Textc0", &typedSill()}, {"Texta", &typedRange()}};
  for (const auto& [name, typed] : rows) {
    auto* field = find<QLineEdit>(name);
    field->setFocus(Qt::TabFocusReason);
    field->selectAll();
    EXPECT_FALSE(*typed) << name << ": the focus alone";
    QTest::keyClick(field, Qt::Key_Left);
    EXPECT_FALSE(*typed) << name << ": a key that types nothing";
    field->selectAll();
    QTest::keyClicks(field, "7.5");
    EXPECT_TRUE(*typed) << name;
    EXPECT_EQ(field->text(), "7.5");
  }
  EXPECT_EQ(plotter.drawings, 0);
  EXPECT_EQ(session.c1(kPair).number(), 7.5);
  EXPECT_EQ(session.a1(kPair).number(), 7.5);
  QTest::keyClick(find<QWidget>("Texta"), Qt::Key_Return);
  EXPECT_EQ(plotter.drawings, 1);
}

TEST_F(PanelOnScreen, EveryKeyThatChangesAFieldCounts) {
  clickOption("est2");
  auto* field = find<QLineEdit>("Textc0");
  field->setFocus(Qt::TabFocusReason);
  struct {
    Qt::Key key;
    Qt::KeyboardModifiers with;
  } const rows[] = {{Qt::Key_Backspace, Qt::NoModifier},
                    {Qt::Key_Z, Qt::ControlModifier},
                    {Qt::Key_X, Qt::ControlModifier},
                    {Qt::Key_V, Qt::ControlModifier},
                    {Qt::Key_Delete, Qt::NoModifier}};
  for (const auto& row : rows) {
    typedSill() = false;
    plotter.drawings = 0;
    field->selectAll();
    QTest::keyClick(field, row.key, row.with);
    EXPECT_TRUE(typedSill()) << row.key;
    EXPECT_EQ(plotter.drawings, 0) << row.key;
  }
  typedSill() = false;
  panel.setText(Field::c0, "3");
  EXPECT_FALSE(typedSill()) << "a handler's text is none of the user's";
}

TEST_F(PanelOnScreen, AKeyOnTheSliderMovesTheSillByTheSmallStep) {
  clickOption("est2");
  plotter.drawings = 0;
  auto* slider = find<QSlider>("HScrollc0");
  slider->setFocus(Qt::TabFocusReason);
  const int before = slider->value();
  QTest::keyClick(slider, Qt::Key_Right);
  EXPECT_EQ(slider->value(), before + 64);
  EXPECT_EQ(session.c1(kPair).number(), 0.02) << "64 / 3200";
  EXPECT_EQ(plotter.drawings, 1);
}

TEST_F(PanelOnScreen, AClickOnTheVarianceTakesItAsTheSill) {
  clickOption("est3");
  panel.setCaption(Caption::Labelvariance, "4.568");
  typedSill() = true;
  click("Labelvariance");
  EXPECT_FALSE(typedSill());
  EXPECT_EQ(session.c2(kPair).number(), 4.568);
}

TEST_F(PanelOnScreen, ADoubleClickAppliesALineAgain) {
  clickOption("est2");
  panel.setLetter(Line::first, "P");
  clickOption("est2");
  EXPECT_TRUE(find<QWidget>("Textc0")->isEnabled()) << "no new choice";
  doubleClick("est2");
  EXPECT_FALSE(find<QWidget>("Textc0")->isEnabled());
  EXPECT_EQ(find<QGroupBox>("label10")->title(), " h^a1  (0<a1<2)");
}

TEST_F(PanelOnScreen, ADoubleClickGivesAModelWithoutAFile) {
  clickOption("est2");
  session.loaded = false;
  doubleClick("tipo3");
  EXPECT_EQ(session.model1(kPair), "G");
}

TEST_F(PanelOnScreen, ADoubleClickBesideAnOptionIsNone) {
  clickOption("est2");
  doubleClickBeside("est3");
  EXPECT_EQ(session.sel, Line::first);
}

// The mouse is seen on disabled controls too, which must not react.
TEST_F(PanelOnScreen, DisabledControlsDoNotReact) {
  clickOption("est1");
  for (const char* option : {"tipo1", "tipo4"}) doubleClick(option);
  EXPECT_TRUE(find<QLineEdit>("Textc0")->isEnabled());
  QTest::mouseClick(find<QWidget>("Texta"), Qt::LeftButton);
  EXPECT_FALSE(session.atyped(kPair));
  find<QLineEdit>("Textc0")->setEnabled(false);
  QTest::mouseClick(find<QWidget>("Textc0"), Qt::LeftButton);
  EXPECT_FALSE(session.c0typed(kPair));
}

TEST_F(PanelOnScreen, OptionsAndBoxesRunTheirHandlers) {
  clickOption("est4");
  clickOption("tipo2");
  EXPECT_EQ(session.model3(kPair), "S");
  EXPECT_EQ(find<QLabel>("est4tipo")->text(), "S");
  EXPECT_TRUE(find<QCheckBox>("plot4")->isChecked());
  EXPECT_EQ(session.use3(kPair), 1);
  find<QCheckBox>("plot1")->click();
  EXPECT_EQ(session.use0(kPair).number(), 1);
}

TEST_F(PanelOnScreen, ListsAndThePlotButtonChooseThePair) {
  find<QComboBox>("Combo2")->setCurrentIndex(2);
  find<QComboBox>("Combodirvar")->setCurrentIndex(1);
  EXPECT_EQ(session.curvar, 3);
  EXPECT_EQ(session.curdir, 2);
  session.curvar = session.curdir = 1;
  plotter.drawings = 0;
  click("Command5");
  EXPECT_EQ(session.curvar, 3);
  EXPECT_EQ(session.curdir, 2);
}

TEST_F(PanelOnScreen, ThePlotButtonDrawsAtItsFocusAndAtItsClick) {
  find<QWidget>("Textc0")->setFocus(Qt::TabFocusReason);
  click("Command5");
  EXPECT_EQ(plotter.drawings, 2) << "coming from elsewhere";
  click("Command5");
  EXPECT_EQ(plotter.drawings, 3);
}

TEST_F(PanelOnScreen, TheGridButtonSwapsTheColourAndDraws) {
  session.axiscolor = kBlack;
  click("Command3");
  EXPECT_EQ(session.axiscolor, kWhite);
  EXPECT_EQ(plotter.drawings, 1);
  EXPECT_EQ(QApplication::focusWidget(), find<QWidget>("Command5"));
  click("Command3");
  EXPECT_EQ(session.axiscolor, kBlack);
}

}  // namespace
}  // namespace zevfit
