#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/scratch_folder.h"

namespace zevfit::test {

using Texts = std::vector<std::string>;

/// The results window as it is open, with its controls by name and a user's hands on them.
class OpenResults {
 public:
  explicit OpenResults(QWidget& window) : window_(window) {}

  QWidget& window() { return window_; }
  template <class Control = QAbstractButton>
  Control& find(const char* name) {
    return Program::find<Control>(window_, name);
  }
  QTableWidget& grid() { return find<QTableWidget>("gridsairmod"); }
  QLineEdit& field(const char* axis, int entry) {
    return find<QLineEdit>((std::string(axis) + "_" + std::to_string(entry)).c_str());
  }

  void clickCell(int row, int column) {
    const QRect place = grid().visualItemRect(grid().item(row, column));
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place.center());
  }
  /// On the caption, or else on the middle.
  void click(const char* button) {
    auto& pressed = find(button);
    const int across = std::min(pressed.width() / 2, 12);
    QTest::mouseClick(&pressed, Qt::LeftButton, {}, {across, pressed.height() / 2});
  }
  void pick(const char* option, int direction) {
    click(option);
    clickCell(direction + 1, 1);
  }
  void type(const char* axis, int entry, const char* keys) {
    field(axis, entry).clear();
    QTest::keyClicks(&field(axis, entry), keys);
  }

  std::string cell(int row, int column) {
    const QTableWidgetItem* item = grid().item(row, column);
    return item ? item->text().toLatin1().toStdString() : "(none)";
  }
  Texts row(int at) {
    Texts texts;
    for (int column = 0; column < grid().columnCount(); ++column) texts.push_back(cell(at, column));
    return texts;
  }
  Texts fields(const char* axis) {
    Texts texts;
    for (int entry = 0; entry < 5; ++entry)
      texts.push_back(field(axis, entry).text().toLatin1().toStdString());
    return texts;
  }
  /// What is told of the row of a direction to those who do not see its marks.
  std::string told(int direction) {
    return grid().item(direction + 1, 0)->data(Qt::AccessibleTextRole).toString().toStdString();
  }

 private:
  QWidget& window_;
};

/// The program with two variables fitted in three orthogonal directions; `zinc` has a nugget and a
/// spherical structure.
class ResultsBench : public testing::Test {
 protected:
  ResultsBench() : program_(folder_.path()) {
    program_.openBytes(
        "t\nzevra\n2\nzinc\nlead\n3\n1\n0;0\n90;0\n0;90\n"
        "1.5\n10 1 9\n10 1 9\n10 1 9\n2\n10 1 9\n10 1 9\n10 1 9\n");
    const double ranges[] = {100, 40, 25};
    for (int direction = 1; direction <= 3; ++direction) fit(direction, ranges[direction - 1]);
    shown().clear();
  }

  void fit(int direction, double range) {
    const Pair pair{1, direction};
    setNugget(session(), pair, 0.1);
    setStructure(session(), pair, Line::first, "S", 0.5, range);
    session().ctotal(pair) = 0.6;
  }

  Session& session() { return program_.session(); }
  Texts& shown() { return program_.dialogs().shown; }

  /// Opens the results, does these steps and goes back.
  void results(const std::function<void(OpenResults&)>& steps) {
    Program::inModal([&] { program_.trigger("k3"); },
                     [&](QWidget& modal) {
                       QApplication::processEvents();
                       OpenResults open(modal);
                       steps(open);
                       modal.hide();
                     });
  }
  /// Whether the command brings the window up.
  bool opens() {
    bool up = false;
    QTimer::singleShot(0, &program_.window(), [&] {
      QWidget* modal = QApplication::activeModalWidget();
      up = modal != nullptr;
      if (modal) modal->hide();
    });
    program_.trigger("k3");
    QApplication::processEvents();
    return up;
  }

  ScratchFolder folder_;
  Program program_;
};

}  // namespace zevfit::test
