// Several plots in the main window: arranged, copied, zoomed, hidden with it, and asked about at
// the end.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QMdiArea>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

#include "tests/support/program.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

class Arrangement : public testing::Test {
 protected:
  Arrangement() : program_(folder_.path().toStdString()) {}

  /// One variable in three directions; the plots of the first `plots` of them.
  void open(std::int64_t plots) {
    const std::string path = folder_.filePath("three.zvm").toStdString();
    std::ofstream(path) << "three\nzevra\n1\nzinc\n3\n1\n0;0\n45;0\n90;0\n1\n10 0.5 9\n10 1 9\n"
                           "10 0.25 9\n";
    program_.open(path);
    for (std::int64_t direction = 2; direction <= plots; ++direction) {
      program_.control<QComboBox>("Combodirvar").setCurrentIndex(static_cast<int>(direction - 1));
      program_.control<QAbstractButton>("Command5").click();
    }
    program_.dialogs().shown.clear();
  }

  QMdiArea& area() { return program_.control<QMdiArea>("Area"); }
  QSize room() { return area().viewport()->size(); }
  /// The plot of a direction.
  Formod& plot(int direction) {
    const QString key = QString("01,0%1").arg(direction);
    for (QMdiSubWindow* window : area().subWindowList())
      if (window->windowTitle().startsWith(key)) return dynamic_cast<Formod&>(*window);
    throw std::runtime_error("no such plot");
  }
  QRect place(int direction) { return static_cast<QMdiSubWindow&>(plot(direction)).geometry(); }
  Boxes& shown() { return program_.dialogs().shown; }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(Arrangement, VerticalStandsThePlotsSideBySide) {
  for (const char* command : {"k6", "mnuvertical"}) {
    open(3);
    program_.trigger(command);
    const int third = room().width() / 3;
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(place(i + 1), QRect(i * third, 0, third, room().height())) << command << i;
  }
}

TEST_F(Arrangement, LeavesThePlotsTheirTitles) {
  open(3);
  for (const char* command : {"mnucascade", "mnuvertical", "mnuhorizontal"}) {
    program_.trigger(command);
    for (int i = 1; i <= 3; ++i) {
      const QString caption = QString::fromStdString(plot(i).caption());
      EXPECT_EQ(static_cast<QWidget&>(plot(i)).windowTitle(), caption) << command;
      EXPECT_FALSE(caption.isEmpty());
    }
  }
}

TEST_F(Arrangement, HorizontalLaysThePlotsOneBelowTheOther) {
  for (const char* command : {"k7", "mnuhorizontal"}) {
    open(3);
    program_.trigger(command);
    const int third = room().height() / 3;
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(place(i + 1), QRect(0, i * third, room().width(), third)) << command << i;
  }
}

TEST_F(Arrangement, CascadeShowsEveryTitle) {
  for (const char* command : {"k5", "mnucascade"}) {
    open(3);
    program_.trigger("k6");
    program_.trigger(command);
    for (int i = 1; i <= 3; ++i)
      for (int j = i + 1; j <= 3; ++j) EXPECT_NE(place(i).topLeft(), place(j).topLeft()) << command;
  }
}

TEST_F(Arrangement, CascadeHasTheActivePlotInFront) {
  open(3);
  for (const int active : {1, 3, 2}) {
    area().setActiveSubWindow(&plot(active));
    program_.trigger("k5");
    EXPECT_EQ(area().activeSubWindow(), &plot(active));
    for (int i = 1; i <= 3; ++i) {
      // A corner of the title, where nothing else lies over it.
      const QPoint title = place(i).topLeft() + QPoint(60, 10);
      EXPECT_EQ(area().viewport()->childAt(title), &plot(i)) << active << " " << i;
    }
  }
}

TEST_F(Arrangement, LeavesTheFocusWhereItIs) {
  open(3);
  for (const char* name : {"Combo2", "HScrollc0"}) {
    QWidget& control = program_.control(name);
    control.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(control.hasFocus()) << name;
    program_.session().c0typed({1, 3}) = true;
    for (const char* command : {"k5", "k6", "k7"}) {
      program_.trigger(command);
      EXPECT_TRUE(control.hasFocus()) << name << " " << command;
      EXPECT_TRUE(program_.session().c0typed({1, 3})) << name << " " << command;
    }
  }
}

TEST_F(Arrangement, WindowsClosedOrMinimisedTakeNoRoom) {
  open(3);
  plot(1).close();
  area().setActiveSubWindow(&plot(2));
  plot(2).showMinimized();
  EXPECT_FALSE(plot(1).isVisible());
  EXPECT_TRUE(plot(2).isMinimized());
  program_.trigger("k6");
  EXPECT_EQ(place(3), QRect(QPoint(), room()));
  plot(3).close();
  for (const char* command : {"k5", "k6", "k7"}) program_.trigger(command);
  EXPECT_FALSE(plot(1).isVisible());
}

TEST_F(Arrangement, EndsWithTheActivePlotAlsoWhereThatIsMinimised) {
  open(3);
  for (const char* command : {"k5", "k6", "k7"}) {
    area().setActiveSubWindow(&plot(2));
    plot(2).showMinimized();
    ASSERT_EQ(area().activeSubWindow(), &plot(2)) << command;
    program_.trigger(command);
    EXPECT_EQ(area().activeSubWindow(), &plot(2)) << command;
    EXPECT_TRUE(plot(2).isMinimized()) << command;
    EXPECT_EQ(program_.session().current(), (Pair{1, 2})) << command;
    EXPECT_EQ(program_.control<QComboBox>("Combodirvar").currentIndex(), 1) << command;
    EXPECT_EQ(place(1).intersects(place(3)), command == std::string("k5")) << command;
    plot(2).showNormal();
  }
}

TEST_F(Arrangement, AsksForNoFile) {
  for (const char* command : {"k5", "k6", "k7", "mnucascade", "mnuvertical", "mnuhorizontal"})
    program_.trigger(command);
  EXPECT_EQ(shown(), Boxes{});
}

TEST_F(Arrangement, AMaximisedPlotTakesItsPlaceToo) {
  open(2);
  plot(2).showMaximized();
  program_.trigger("k7");
  EXPECT_FALSE(plot(2).isMaximized());
  EXPECT_EQ(place(2), QRect(0, room().height() / 2, room().width(), room().height() / 2));
}

TEST_F(Arrangement, ZoomBringsAMinimisedPlotBackLarger) {
  open(1);
  plot(1).showMinimized();
  program_.trigger("kmais");
  EXPECT_FALSE(plot(1).isMinimized());
  EXPECT_NEAR(plot(1).width(), 6576 * 1.03, 1e-9);
  EXPECT_NEAR(plot(1).pictureWidth(), 6576 * 1.03 - 108, 1e-9);
}

TEST_F(Arrangement, ZoomBringsAMaximisedPlotBackLarger) {
  open(1);
  plot(1).showMaximized();
  const double width = plot(1).width();
  program_.trigger("kmenos");
  EXPECT_FALSE(plot(1).isMaximized());
  EXPECT_NEAR(plot(1).width(), width / 1.03, 1e-6);
}

TEST_F(Arrangement, CopyTakesTheActivePlotWhicheverIsCurrent) {
  open(2);
  area().setActiveSubWindow(&plot(1));
  program_.session().curdir = 2;
  program_.trigger("k8");
  const QImage copied = QGuiApplication::clipboard()->image();
  EXPECT_EQ(copied, plot(1).clipboardImage().convertToFormat(copied.format()));
  EXPECT_NE(copied, plot(2).clipboardImage().convertToFormat(copied.format()));
}

TEST_F(Arrangement, CopyShowsTheHourglassAndTakesItAway) {
  open(1);
  Qt::CursorShape during = Qt::ArrowCursor;
  const auto seen = QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, [&] {
    if (const QCursor* cursor = QGuiApplication::overrideCursor()) during = cursor->shape();
  });
  program_.trigger("k8");
  QObject::disconnect(seen);
  EXPECT_EQ(during, Qt::WaitCursor);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Arrangement, CopyWithoutAPlotLeavesTheClipboardEmpty) {
  open(1);
  plot(1).close();
  QGuiApplication::clipboard()->setText("x");
  bool waiting = true;
  program_.dialogs().meanwhile = [&] { waiting = QGuiApplication::overrideCursor() != nullptr; };
  program_.trigger("k8");
  EXPECT_EQ(shown(), Boxes{"plain: Please Select Variogram Plot you want to copy to Clipboard!"});
  EXPECT_FALSE(waiting) << "the pointer is back when the box comes up";
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
}

TEST_F(Arrangement, MinimisingTheMainWindowHidesTheDataStructureWindow) {
  open(1);
  QWidget* structure = nullptr;
  Program::inModal([&] { program_.trigger("k2"); },
                   [&](QWidget& modal) {
                     structure = &modal;
                     program_.window().showMinimized();
                   });
  ASSERT_NE(structure, nullptr);
  EXPECT_FALSE(structure->isVisible());
}

TEST_F(Arrangement, CancelAtTheEndClosesNothing) {
  open(2);
  const std::vector<QRect> places{place(1), place(2)};
  for (const char* way : {"close", "mnuvoltar"}) {
    if (*way == 'c')
      program_.window().close();
    else
      program_.trigger(way);
    EXPECT_EQ(shown(), Boxes{"question: Save configuration data file to zevFIT.INI ?"}) << way;
    shown().clear();
    EXPECT_TRUE(program_.window().isVisible());
    for (int i = 1; i <= 2; ++i) {
      EXPECT_TRUE(plot(i).isVisible()) << way;
      EXPECT_EQ(place(i), places[static_cast<std::size_t>(i - 1)]) << way;
    }
  }
}

}  // namespace
}  // namespace zevfit::test
