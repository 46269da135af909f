// Each row of the list of keys, pressed: what it promises comes to pass.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSlider>
#include <QTableWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <algorithm>
#include <array>
#include <string_view>

#include "tests/support/desk.h"
#include "windows/program_keys.h"

namespace zevfit::test {
namespace {

bool isTicked(QWidget& list, int row) {
  return dynamic_cast<QListWidget&>(list).item(row)->checkState() == Qt::Checked;
}

void closesThePlot(Desk& desk, const QKeySequence& keys) {
  desk.send(QKeySequence("Alt+P"));
  EXPECT_TRUE(desk.in("Command5").hasFocus());
  desk.send(keys);
  EXPECT_FALSE(desk.plot(1).isVisible()) << "with the focus in the panel";
  EXPECT_TRUE(desk.plot(2).isVisible());
  // Its content begins below the title.
  desk.hand.clickAt(desk.plot(2), {desk.plot(2).rect().center().x(), 8});
  desk.send(keys);
  EXPECT_FALSE(desk.plot(2).isVisible()) << "behind a click on its title";
  desk.send(QKeySequence("Alt+P"));
  Formod& drawn = desk.plot(static_cast<int>(desk.session().curdir));
  EXPECT_TRUE(drawn.isVisible());
  desk.hand.clickAt(Program::find<QWidget>(drawn, "Picture4"), {20, 20});
  desk.send(keys);
  EXPECT_FALSE(drawn.isVisible()) << "with the focus in the plot";
}

void goesToTheOther(Desk& desk, const QKeySequence& keys) {
  for (const int next : {2, 1}) {
    desk.send(keys);
    EXPECT_EQ(desk.area().activeSubWindow(), &desk.plot(next));
  }
}

void copies(Desk& desk, const QKeySequence& keys) {
  QGuiApplication::clipboard()->clear();
  desk.send(keys);
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasImage());
  desk.hand.type(desk.in("Textc0"), "0.25");
  desk.send(QKeySequence("Ctrl+A"));
  desk.send(keys);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "0.25");
}

void drawsTheTypedNumber(Desk& desk, const QKeySequence& /*keys*/) {
  const char* typed[] = {"0.75", "0.25"};
  const Qt::Key enters[] = {Qt::Key_Return, Qt::Key_Enter};
  desk.hand.clickMark(desk.in("est1"));
  for (int i = 0; i < 2; ++i) {
    desk.hand.type(desk.in("Textc0"), typed[i]);
    const double before = desk.session().curvegam(50);
    desk.send(QKeySequence(enters[i]));
    EXPECT_NE(desk.session().curvegam(50), before);
  }
}

void movesAndChooses(Desk& desk, const QKeySequence& /*keys*/) {
  desk.hand.clickMark(desk.in("est1"));
  auto& slider = desk.program().control<QSlider>("HScrollc0");
  Desk::tabTo(slider);
  const std::pair<Qt::Key, int> rows[] = {{Qt::Key_Right, slider.singleStep()},
                                          {Qt::Key_Left, -slider.singleStep()},
                                          {Qt::Key_PageUp, slider.pageStep()},
                                          {Qt::Key_PageDown, -slider.pageStep()}};
  for (const auto& [key, step] : rows) {
    const int before = slider.value();
    desk.send(QKeySequence(key));
    // A small step settles on what the field's decimals can tell.
    EXPECT_NEAR(slider.value(), before + step, 4) << key;
  }
  Desk::tabTo(desk.in("est1"));
  desk.send(QKeySequence(Qt::Key_Down));
  EXPECT_TRUE(desk.program().control<QAbstractButton>("est2").isChecked());
  auto& directions = desk.program().control<QComboBox>("Combodirvar");
  Desk::tabTo(directions);
  desk.send(QKeySequence(Qt::Key_Down));
  EXPECT_EQ(directions.currentIndex(), 1);
}

void goesFromControlToControl(Desk& desk, const QKeySequence& /*keys*/) {
  Desk::tabTo(desk.in("Combo2"));
  desk.send(QKeySequence(Qt::Key_Tab));
  EXPECT_TRUE(desk.in("Combodirvar").hasFocus());
  desk.send(QKeySequence(Qt::SHIFT | Qt::Key_Tab));
  EXPECT_TRUE(desk.in("Combo2").hasFocus());
  auto& toolbar = desk.program().control<QToolBar>("Toolbar1");
  Desk::tabTo(*toolbar.widgetForAction(&desk.program().control<QAction>("k1")));
}

void pressesAndTicks(Desk& desk, const QKeySequence& /*keys*/) {
  const QKeySequence blank(Qt::Key_Space);
  auto& toolbar = desk.program().control<QToolBar>("Toolbar1");
  Desk::tabTo(*toolbar.widgetForAction(&desk.program().control<QAction>("k1")));
  desk.send(blank);
  EXPECT_EQ(desk.box(), "open: Input Data File (*.ZVM)|*.ZVM");
  auto& box = desk.program().control<QAbstractButton>("plot1");
  const bool before = box.isChecked();
  Desk::tabTo(box);
  desk.send(blank);
  EXPECT_NE(box.isChecked(), before);
  desk.inData([&](QWidget& data) {
    auto& grid = Program::find<QTableWidget>(data, "grid1");
    Desk::tabTo(grid);
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Right})
      Desk::send(data, QKeySequence(key));
    Desk::send(data, blank);
    EXPECT_TRUE(desk.session().addflag(1));
  });
}

void opensTheMenus(Desk& desk, const QKeySequence& /*keys*/) {
  QMenuBar& bar = *desk.main().menuBar();
  desk.send(QKeySequence(Qt::Key_Alt));
  EXPECT_NE(bar.activeAction(), nullptr);
  desk.send(QKeySequence(Qt::Key_Escape));
  EXPECT_EQ(bar.activeAction(), nullptr);
}

void leavesWindows(Desk& desk, const QKeySequence& /*keys*/) {
  const std::pair<const char*, const char*> rows[] = {{"Ctrl+F1", "keyswindow"},
                                                      {"Ctrl+L", "alldirections"},
                                                      {"Ctrl+P", "printcolection"},
                                                      {"Ctrl+F", "Formfont"}};
  for (const auto& [keys, window] : rows) expectLeft(desk.open(keys, window), window);
  desk.inData([](QWidget& data) { expectLeft(data, "data"); });
  desk.inResults([](QWidget& results) { expectLeft(results, "results"); });
  desk.inLegend([](QWidget& legend) { expectLeft(legend, "legend"); });
  expectLeft(desk.openScales(), "scales");
  desk.hand.click(desk.in("Command2"));
  expectLeft(desk.in("testcruz"), "test");
  QWidget& format = desk.openFormat();
  Desk::send(format, QKeySequence("Alt+H"));
  expectLeft(Program::find<QWidget>(format, "Frame2"), "help");
  Desk::send(format, QKeySequence("Alt+C"));
  Desk::send(desk.in("cores"), QKeySequence(Qt::Key_Escape));
  EXPECT_TRUE(desk.shows("cores")) << "no key loses the colours";
}

void brings(Desk& desk, const QKeySequence& keys, const char* window) {
  desk.send(keys);
  EXPECT_TRUE(desk.shows(window));
}

void bringsModal(Desk& desk, const QKeySequence& keys, const char* window) {
  Desk::during([&] { desk.send(keys); },
               [&](QWidget& modal) { EXPECT_EQ(modal.objectName(), window); });
}

using Prove = void (*)(Desk&, const QKeySequence&);

/// What a row promises, by its window and control or, where no control has the keys, by these.
struct Proof {
  std::string_view row;
  Prove prove;
};

constexpr auto kProofs = std::to_array<Proof>({
  {"mdimod k1",
   [](Desk& desk, const QKeySequence& keys) {
     desk.send(keys);
     EXPECT_EQ(desk.box(), "open: Input Data File (*.ZVM)|*.ZVM");
   }},
  {"mdimod k2",
     [](Desk& desk, const QKeySequence& keys) { bringsModal(desk, keys, "frmzevfit"); }},
  {"mdimod k11",
   [](Desk& desk, const QKeySequence& keys) {
     desk.send(keys);
     EXPECT_EQ(desk.box(), savedBox(desk.session().inputfile));
   }},
  {"mdimod k3",
     [](Desk& desk, const QKeySequence& keys) { bringsModal(desk, keys, "modfinal"); }},
  {"mdimod kp",
     [](Desk& desk, const QKeySequence& keys) { brings(desk, keys, "printcolection"); }},
  {"mdimod k8", copies},
  {"mdimod mnupicture",
   [](Desk& desk, const QKeySequence& keys) {
     desk.send(keys);
     EXPECT_EQ(desk.box(), "save: Save Picture|SVG drawing|zinc_0_0");
   }},
  {"mdimod mnudirections",
     [](Desk& desk, const QKeySequence& keys) { brings(desk, keys, "alldirections"); }},
  {"mdimod k10",
     [](Desk& desk, const QKeySequence& keys) { brings(desk, keys, "Formfont"); }},
  {"mdimod kmais",
   [](Desk& desk, const QKeySequence& keys) {
     for (int i = 0; i < 10; ++i) desk.send(QKeySequence("Ctrl+-"));
     const double before = desk.plot(1).width();
     desk.send(keys);
     EXPECT_GT(desk.plot(1).width(), before);
   }},
  {"mdimod kmenos",
   [](Desk& desk, const QKeySequence& keys) {
     const double before = desk.plot(1).width();
     desk.send(keys);
     EXPECT_LT(desk.plot(1).width(), before);
   }},
  {"mdimod nextplot", goesToTheOther},
  {"mdimod formerplot", goesToTheOther},
  {"mdimod closeplot", closesThePlot},
  {"mdimod Command5",
   [](Desk& desk, const QKeySequence& keys) {
     for (const int each : {1, 2}) desk.plot(each).close();
     desk.send(keys);
     EXPECT_TRUE(desk.plot(static_cast<int>(desk.session().curdir)).isVisible());
   }},
  {"mdimod mnustart",
   [](Desk& desk, const QKeySequence& keys) {
     desk.send(keys);
     EXPECT_TRUE(desk.program().control<QLabel>("LabelHint").text().contains("tart model"));
   }},
  {"mdimod takevariance",
   [](Desk& desk, const QKeySequence& keys) {
     desk.hand.clickMark(desk.in("est1"));
     desk.send(keys);
     EXPECT_EQ(desk.session().c0({1, 1}).number(), 1);
   }},
  {"mdimod mnumanual",
   [](Desk& desk, const QKeySequence& keys) {
     desk.send(keys);
     EXPECT_EQ(desk.openings, 1);
   }},
  {"mdimod mnukeys",
     [](Desk& desk, const QKeySequence& keys) { brings(desk, keys, "keyswindow"); }},
  {"frmzevfit adicionar",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inData([&](QWidget& data) { Desk::send(data, keys); });
     EXPECT_EQ(desk.box(), "warning:  Cannot Add same variable. ");
   }},
  {"frmzevfit remove",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inData([&](QWidget& data) { Desk::send(data, keys); });
     EXPECT_EQ(desk.box(), "warning: Cannot remove this variable!");
   }},
  {"frmzevfit Command2",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inData([&](QWidget& data) {
       Desk::send(data, keys);
       EXPECT_FALSE(data.isVisible());
     });
     EXPECT_EQ(desk.main().focusWidget(), &desk.in("Command5"));
   }},
  {"frmzevfit Command1",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inData([&](QWidget& data) {
       Desk::send(data, keys);
       EXPECT_FALSE(data.isVisible());
     });
     EXPECT_EQ(desk.box(), "open: Input Data File (*.ZVM)|*.ZVM");
   }},
  {"modfinal Command2",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inResults([&](QWidget& results) { Desk::send(results, keys); });
     EXPECT_EQ(desk.boxes().size(), 1U) << "the fields are empty";
   }},
  {"modfinal Command1",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inResults([&](QWidget& results) {
       Desk::send(results, keys);
       EXPECT_FALSE(results.isVisible());
     });
   }},
  {"testcruz Command1",
   [](Desk& desk, const QKeySequence& keys) {
     desk.hand.click(desk.in("Command2"));
     auto& tree = Program::find<QTreeWidget>(desk.in("testcruz"), "TreeView1");
     tree.clear();
     Desk::send(desk.in("testcruz"), keys);
     EXPECT_EQ(tree.topLevelItemCount(), 1);
   }},
  {"cutgraph Command2",
   [](Desk& desk, const QKeySequence& keys) {
     QWidget& scales = desk.openScales();
     desk.hand.type(Program::find<QWidget>(scales, "novoxmax"), "60");
     Desk::send(scales, keys);
     EXPECT_EQ(desk.session().xmax({1, 1}), 60);
   }},
  {"cutgraph Command1",
   [](Desk& desk, const QKeySequence& keys) {
     QWidget& scales = desk.openScales();
     Desk::send(scales, keys);
     EXPECT_FALSE(scales.isVisible());
   }},
  {"legenda Command2",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inLegend([&](QWidget& legend) {
       desk.hand.type(Program::find<QWidget>(legend, "Text1"), "m");
       Desk::send(legend, keys);
     });
     EXPECT_EQ(desk.session().xlegend({1, 1}), "h (m)");
   }},
  {"legenda Command1",
   [](Desk& desk, const QKeySequence& keys) {
     desk.inLegend([&](QWidget& legend) {
       Desk::send(legend, keys);
       EXPECT_FALSE(legend.isVisible());
     });
   }},
  {"Formfont Command1",
   [](Desk& desk, const QKeySequence& keys) {
     QWidget& format = desk.openFormat();
     auto& pattern = Program::find<QLineEdit>(format, "formato_1");
     desk.hand.type(pattern, "0.0");
     Desk::send(format, keys);
     EXPECT_EQ(pattern.text(), "###.#0");
   }},
  {"Formfont Command2",
   [](Desk& desk, const QKeySequence& keys) {
     QWidget& format = desk.openFormat();
     desk.hand.type(Program::find<QLineEdit>(format, "formato_1"), "0.0");
     Desk::send(format, keys);
     EXPECT_FALSE(format.isVisible());
     EXPECT_EQ(desk.session().style.Formfont.formato[1], "0.0");
   }},
  {"Formfont Command4",
   [](Desk& desk, const QKeySequence& keys) {
     QWidget& format = desk.openFormat();
     Desk::send(format, keys);
     // The panel has a part of that name, too.
     EXPECT_TRUE(Program::find<QWidget>(format, "Frame2").isVisible());
   }},
  {"Formfont Command5",
   [](Desk& desk, const QKeySequence& keys) {
     Desk::send(desk.openFormat(), keys);
     EXPECT_TRUE(desk.shows("cores"));
   }},
  {"printcolection printar",
   [](Desk& desk, const QKeySequence& keys) {
     Desk::send(desk.open("Ctrl+P", "printcolection"), keys);
     EXPECT_EQ(desk.program().control<QLabel>("LabelHint").text(),
               "Report 1 went to the printer in memory.");
   }},
  {"alldirections showall",
   [](Desk& desk, const QKeySequence& keys) {
     QWidget& all = desk.open("Ctrl+L", "alldirections");
     Desk::send(all, QKeySequence(Qt::Key_Space));
     EXPECT_FALSE(isTicked(desk.in("legend"), 0));
     Desk::send(all, keys);
     EXPECT_TRUE(QTest::qWaitFor([&] { return isTicked(desk.in("legend"), 0); }));
   }},
  {"alldirections shownone",
   [](Desk& desk, const QKeySequence& keys) {
     Desk::send(desk.open("Ctrl+L", "alldirections"), keys);
     EXPECT_TRUE(QTest::qWaitFor([&] { return !isTicked(desk.in("legend"), 1); }));
   }},
  {"Enter", drawsTheTypedNumber},
  {"Arrows, Page Up, Page Down", movesAndChooses},
  {"Tab, Shift+Tab", goesFromControlToControl},
  {"Blank", pressesAndTicks},
  {"Alt", opensTheMenus},
  {"Esc", leavesWindows},
});

std::string nameOf(const ProgramKey& row) {
  const bool isOfAControl = *row.window != 0;
  return isOfAControl ? std::string(row.window) + " " + row.control : row.keys;
}

/// A row; the keys of those that no control has are in words.
class PressedKeys : public testing::TestWithParam<int> {};

TEST_P(PressedKeys, DoWhatTheirRowSays) {
  const ProgramKey& row = programKeys()[static_cast<std::size_t>(GetParam())];
  const auto* proof = std::find_if(kProofs.begin(), kProofs.end(),
                                   [&](const Proof& each) { return each.row == nameOf(row); });
  ASSERT_NE(proof, kProofs.end()) << nameOf(row);
  const QStringList all = *row.window ? QString(row.keys).split("; ") : QStringList{QString()};
  for (const QString& keys : all) {
    SCOPED_TRACE(nameOf(row) + ": " + keys.toStdString());
    Desk desk;
    proof->prove(desk, QKeySequence(keys));
    EXPECT_FALSE(desk.anyFault());
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, PressedKeys,
                         testing::Range(0, static_cast<int>(programKeys().size())));

}  // namespace
}  // namespace zevfit::test
