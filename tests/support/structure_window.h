#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "files/variogram_reader.h"
#include "tests/support/recording_host.h"
#include "tests/support/run_to_end.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/structure_sample.h"
#include "windows/frmzevfit.h"

namespace zevfit {

using test::runToEnd;

/// The data structure window over the structure sample, with its controls by name.
class StructureWindow {
 public:
  StructureWindow() {
    session.dirname(1) = "0;0";
    session.dirname(2) = "90;0";
  }

  template <class Control>
  Control* find(const char* name) {
    auto* control = window.findChild<Control*>(name);
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  QComboBox* list(const char* name) { return find<QComboBox>(name); }
  QTableWidget* grid(const char* name) { return find<QTableWidget>(name); }
  std::string label(const char* name) {
    return find<QLabel>(name)->text().toLatin1().toStdString();
  }

  /// Takes up what stands in the tables as if it came from a file.
  void load(const std::string& path = "folder/sample.zvm") {
    acceptLoad(session, path);
    window.fill(path);
  }
  void loadAndShow() {
    load();
    window.show();
    QApplication::processEvents();
  }

  std::vector<std::string> entries(const char* name) {
    std::vector<std::string> all;
    all.reserve(static_cast<std::size_t>(list(name)->count()));
    for (int i = 0; i < list(name)->count(); ++i)
      all.push_back(list(name)->itemText(i).toLatin1().toStdString());
    return all;
  }
  /// Texts of a row of a grid; a cell without an item shows "(none)".
  std::vector<std::string> row(const char* name, int at) {
    std::vector<std::string> texts;
    texts.reserve(4);
    for (int column = 0; column < grid(name)->columnCount(); ++column) {
      const QTableWidgetItem* item = grid(name)->item(at, column);
      texts.push_back(item ? item->text().toLatin1().toStdString() : "(none)");
    }
    return texts;
  }
  /// What the tick cell of a row shows: "ticked", "not ticked", or nothing.
  std::string picture(int at) {
    const QTableWidgetItem* item = grid("grid1")->item(at, 1);
    std::string words = item->data(Qt::AccessibleTextRole).toString().toStdString();
    EXPECT_EQ(item->icon().isNull(), words.empty());
    EXPECT_EQ(item->data(Qt::UserRole).toBool(), words == "ticked");
    return words;
  }
  std::vector<std::string> pictures() {
    std::vector<std::string> all;
    all.reserve(static_cast<std::size_t>(grid("grid1")->rowCount()));
    for (int at = 1; at < grid("grid1")->rowCount(); ++at) all.push_back(picture(at));
    return all;
  }

  void clickCell(const char* name, int at, int column) {
    QTableWidget* table = grid(name);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualItemRect(table->item(at, column)).center());
  }
  void press(const char* name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
  void create(const char* name) {
    find<QLineEdit>("Text2")->clear();
    QTest::keyClicks(find<QLineEdit>("Text2"), name);
    press("adicionar");
  }

  /// The boxes shown since the last call.
  std::vector<std::string> shown() { return std::exchange(dialogs.shown, {}); }
  std::vector<std::string> calls() { return std::exchange(host.calls, {}); }

  Session session = structureSample();
  test::ScriptedDialogs dialogs;
  RecordingHost host;
  FaultReport faults = [this](std::string_view fault) { dialogs.fatal(fault); };
  frmzevfit window{session, dialogs, dialogs, host, faults};
};

using Texts = std::vector<std::string>;
using Boxes = std::vector<std::string>;

}  // namespace zevfit
