// A file that is dragged over the main window, as the window system tells of it.
#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QToolBar>
#include <QUrl>
#include <QWindow>

#include "tests/support/modal_steps.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

class FileDropped : public testing::Test {
 protected:
  FileDropped() : program_(folder_.path()) {
    program_.openBytes(kTwoDirections);
    plot();
    other_ = made("other.ZVM", "t\nzevra\n1\nlead\n1\n1\n0;0\n1\n10 0.5 9\n");
  }

  void plot() { hand_.click(program_.control("Command5")); }
  void press(const char* command) {
    auto& toolbar = program_.control<QToolBar>("Toolbar1");
    hand_.click(*toolbar.widgetForAction(&program_.control<QAction>(command)));
  }
  std::filesystem::path made(const char* name, const std::string& bytes) {
    const std::filesystem::path path = folder_.path() / name;
    putFile(path, bytes);
    return path;
  }
  static QList<QUrl> urls(const std::vector<std::filesystem::path>& paths) {
    QList<QUrl> made;
    for (const auto& path : paths) made << QUrl::fromLocalFile(QString::fromStdString(path));
    return made;
  }
  QWindow* window() { return program_.window().windowHandle(); }
  QPoint middleOf(const char* control) {
    QWidget& widget = program_.control(control);
    return widget.mapTo(&program_.window(), widget.rect().center());
  }

  /// Drags over a place of the main window; whether it would take the drop.
  bool takes(const QMimeData& data, QPoint at, Qt::DropActions actions = Qt::CopyAction) {
    QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window(), &enter);
    QDragMoveEvent move(at, actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window(), &move);
    return move.isAccepted();
  }
  Qt::DropAction drop(const QMimeData& data, QPoint at, Qt::DropActions actions = Qt::CopyAction) {
    QDropEvent event(at, actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window(), &event);
    return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
  }
  /// Drops what the window would take, and leaves the data structure window by its button.
  void dropAndAccept(const QMimeData& data, QPoint at) {
    ASSERT_TRUE(takes(data, at));
    EXPECT_EQ(drop(data, at), Qt::CopyAction);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the source is told first";
    Program::inModal([] { QApplication::processEvents(); },
                     [this](QWidget& modal) {
                       EXPECT_EQ(modal.objectName(), "frmzevfit");
                       hand_.click(Program::find<QWidget>(modal, "Command2"));
                     });
    QApplication::processEvents();
  }

  ScratchFolder folder_;
  Program program_;
  tour::Hand hand_;
  std::filesystem::path other_;
};

TEST_F(FileDropped, IsOpenedWhereverItFalls) {
  QMimeData data;
  data.setUrls(urls({other_}));
  // Some file managers give the path as a text too, which a field would take.
  data.setText(QString::fromStdString(other_.string()));
  for (const char* place : {"Area", "Picture4", "Picture1", "Textc0", "Combo2", "Toolbar1"}) {
    program_.open((folder_.path() / "small.zvm").string());
    plot();
    const QString text = program_.control<QLineEdit>("Textc0").text();
    dropAndAccept(data, middleOf(place));
    EXPECT_EQ(program_.session().inputfile, other_.string()) << place;
    EXPECT_EQ(program_.session().varname(1), "lead") << place;
    EXPECT_EQ(program_.control<QLineEdit>("Textc0").text(), text) << place;
    EXPECT_EQ(program_.dialogs().held, other_.string()) << "as if it had been chosen: " << place;
  }
}

TEST_F(FileDropped, IsReadLikeAChosenOne) {
  const auto empty = made("empty.zvm", "");
  QMimeData data;
  data.setUrls(urls({empty}));
  program_.dialogs().shown.clear();
  ASSERT_TRUE(takes(data, middleOf("Area")));
  drop(data, middleOf("Area"));
  QApplication::processEvents();
  const std::vector<std::string> told{"warning: Invalid Input Data File Format or empty File!"};
  EXPECT_EQ(program_.dialogs().shown, told);
}

TEST_F(FileDropped, OrAnythingElseIsRefused) {
  std::filesystem::create_directory(folder_.path() / "folder.zvm");
  const struct {
    const char* what;
    QList<QUrl> urls;
    Qt::DropActions actions;
  } rows[] = {
      {"another kind of file", urls({made("notes.txt", "x")}), Qt::CopyAction},
      {"several", urls({other_, folder_.path() / "small.zvm"}), Qt::CopyAction},
      {"none that is there", urls({folder_.path() / "gone.zvm"}), Qt::CopyAction},
      {"a folder", urls({folder_.path() / "folder.zvm"}), Qt::CopyAction},
      {"one of another machine", {QUrl("https://somewhere/a.zvm")}, Qt::CopyAction},
      {"nothing", {}, Qt::CopyAction},
      {"one that is to be moved away", urls({other_}), Qt::MoveAction},
  };
  for (const auto& row : rows) {
    QMimeData data;
    data.setUrls(row.urls);
    for (const char* place : {"Area", "Picture4", "Picture1", "Textc0"}) {
      EXPECT_FALSE(takes(data, middleOf(place), row.actions)) << row.what << " on " << place;
      EXPECT_EQ(drop(data, middleOf(place), row.actions), Qt::IgnoreAction) << row.what;
    }
  }
  QApplication::processEvents();
  EXPECT_EQ(program_.session().varname(1), "zinc");
}

TEST_F(FileDropped, ATextStillGoesIntoAField) {
  QMimeData data;
  data.setText("0.5");
  hand_.clickMark(program_.control("est1"));
  hand_.type(program_.control("Textc0"), "");
  hand_.key(program_.window(), Qt::Key_Delete);
  EXPECT_TRUE(takes(data, middleOf("Textc0")));
  drop(data, middleOf("Textc0"));
  EXPECT_TRUE(program_.control<QLineEdit>("Textc0").text().contains("0.5"));
  EXPECT_FALSE(takes(data, middleOf("Area")));
}

TEST_F(FileDropped, WaitsBehindAnotherWindow) {
  QMimeData data;
  data.setUrls(urls({other_}));
  duringModal([&] { press("k3"); },
              [&](QWidget& modal) {
                EXPECT_FALSE(takes(data, middleOf("Area")));
                hand_.key(modal, Qt::Key_Escape);
              });
  press("k10");
  EXPECT_FALSE(program_.window().isEnabled());
  EXPECT_FALSE(takes(data, middleOf("Area")));
}

}  // namespace
}  // namespace zevfit::test
