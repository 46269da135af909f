#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QTest>
#include <QTreeWidget>

#include "tests/support/coreg_sample.h"
#include "tests/support/program.h"
#include "tests/support/run_to_end.h"
#include "tests/support/temporary_folder.h"
#include "windows/testcruz.h"

namespace zevfit::test {

using Lines = std::vector<std::string>;
using Positions = std::vector<int>;

inline const std::vector<const char*> kVariableLists{"combovarp", "combovarsec", "Combovarcruz"};
inline const std::vector<const char*> kDirectionLists{"Combodmain", "Combodminor1", "Combodminor2"};

/// The whole program with the dialog of the test of coregionalization.
class TestDialog : public testing::Test, protected TemporaryFolder {
 protected:
  TestDialog() : program_(folder()) {}

  /// Three variables with good models in three directions, for the sample choice.
  void openFile() {
    program_.open(write("three.zvm",
                        "three\nzevra\n3\nzinc\nlead\nzinc-lead\n3\n1\n0;0\n90;0\n45;0\n"
                        "9\n10 1 9\n10 1 9\n10 1 9\n4\n10 1 9\n10 1 9\n10 1 9\n"
                        "2\n10 1 9\n10 1 9\n10 1 9\n"));
    fitGoodModels(session());
  }
  void chooseSample() {
    session().testcross = kSampleChoice.cross;
    session().testprimary = kSampleChoice.primary;
    session().testsecondary = kSampleChoice.secondary;
    session().testmain = kSampleChoice.main;
    session().testminor1 = kSampleChoice.minor1;
    session().testminor2 = kSampleChoice.minor2;
  }
  void openDialog() {
    QTest::mouseClick(&program_.control("Command2"), Qt::LeftButton);
    QApplication::processEvents();
  }
  testcruz& dialog() { return Program::find<testcruz>(program_.window(), "testcruz"); }
  template <class Widget = QWidget>
  Widget& find(const char* name) {
    return Program::find<Widget>(dialog(), name);
  }
  QComboBox& list(const char* name) { return find<QComboBox>(name); }
  QTreeWidget& tree() { return find<QTreeWidget>("TreeView1"); }
  void press(const char* name) {
    QTest::mouseClick(&find(name), Qt::LeftButton);
    QApplication::processEvents();
  }
  void choose(const Positions& positions) {
    std::size_t at = 0;
    for (const auto& lists : {kVariableLists, kDirectionLists})
      for (const char* name : lists) list(name).setCurrentIndex(positions.at(at++));
  }

  Session& session() { return program_.session(); }
  /// In the order of the lists, like the next.
  Positions kept() {
    return {session().testprimary, session().testsecondary, session().testcross,
            session().testmain,    session().testminor1,    session().testminor2};
  }
  Positions onShow() {
    Positions all;
    all.reserve(6);
    for (const auto& lists : {kVariableLists, kDirectionLists})
      for (const char* name : lists) all.push_back(list(name).currentIndex());
    return all;
  }

  /// The nodes from top to bottom, a blank more for each level: text and picture; those that are
  /// not on show, under a node that is not expanded, are left out.
  Lines shownTree() {
    Lines lines;
    for (QTreeWidgetItem* item = tree().topLevelItem(0); item; item = tree().itemBelow(item)) {
      std::string line;
      for (const QTreeWidgetItem* above = item->parent(); above; above = above->parent())
        line += ' ';
      lines.push_back(line + item->text(0).toLatin1().toStdString() + ", " +
                      item->data(0, kNodeImageRole).toString().toStdString());
    }
    return lines;
  }

  Program program_;
};

/// The tree of good models for the sample choice.
inline const Lines kPassed{"Test Results, 4", " Main Direction:(90;0), 1",
                           " Minor Direction 1:(45;0), 1", " Minor Direction 2:(0;0), 1"};

}  // namespace zevfit::test
