// A sum that was made in the data structure window and not accepted there: no save writes it, and
// the foot does not count it.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTableWidget>
#include <QTest>

#include "tests/support/modal_steps.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "tests/support/temporary_folder.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

class UnacceptedSum : public testing::Test, protected TemporaryFolder {
 protected:
  UnacceptedSum() : program_(folder()) {}

  /// Both variables ticked, and their sum made.
  void addUp(QWidget& data) {
    auto& grid = Program::find<QTableWidget>(data, "grid1");
    for (const int row : {1, 2})
      hand_.clickAt(*grid.viewport(), grid.visualItemRect(grid.item(row, 1)).center());
    name(data, "sum");
    EXPECT_EQ(program_.session().nvar, 3);
  }
  void name(QWidget& data, const char* sum) {
    hand_.type(Program::find<QWidget>(data, "Text2"), sum);
    hand_.click(Program::find<QWidget>(data, "adicionar"));
  }
  /// In the data structure window.
  void inData(const std::function<void(QWidget&)>& steps) {
    activate();
    duringModal([this] { hand_.key(program_.window(), Qt::Key_D, Qt::ControlModifier); }, steps);
  }
  void activate() {
    program_.window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&program_.window()));
  }
  void leave(QWidget& data) { hand_.key(data, Qt::Key_Escape); }
  void accept(QWidget& data) { hand_.key(data, Qt::Key_Return, Qt::ControlModifier); }
  std::string mark() {
    QApplication::processEvents();
    return program_.control<QLabel>("LabelChanged").text().toStdString();
  }
  /// The variables that the file claims once it has been saved.
  int saved() {
    activate();
    hand_.key(program_.window(), Qt::Key_S, Qt::ControlModifier);
    const std::string bytes = contentOf(program_.session().inputfile);
    return std::stoi(bytes.substr(bytes.find("zevRA1") + 6));
  }

  Program program_;
  tour::Hand hand_;
};

TEST_F(UnacceptedSum, HasNoMarkAndIsNotSaved) {
  program_.openBytes(kTwoVariables);
  inData([this](QWidget& data) {
    addUp(data);
    leave(data);
  });
  EXPECT_EQ(mark(), "");
  EXPECT_EQ(saved(), 2);
  EXPECT_EQ(mark(), "");
  inData([this](QWidget& data) { accept(data); });
  EXPECT_EQ(mark(), "*") << "the file does not have it";
  EXPECT_EQ(saved(), 3);
  EXPECT_EQ(mark(), "");
}

TEST_F(UnacceptedSum, BehindOneThatTheFileHas) {
  program_.openBytes(kTwoVariables);
  inData([this](QWidget& data) {
    addUp(data);
    accept(data);
  });
  EXPECT_EQ(saved(), 3);
  inData([this](QWidget& data) {
    name(data, "again");
    leave(data);
  });
  EXPECT_EQ(mark(), "");
  EXPECT_EQ(saved(), 3);
}

// No list has a variable then, and no save does anything.
TEST_F(UnacceptedSum, OfAFileThatWasOnlyLookedAt) {
  program_.openBytes(kOneDirection);
  program_.dialogs().files.push_back(write("two.zvm", kTwoVariables));
  duringModal([this] { hand_.key(program_.window(), Qt::Key_O, Qt::ControlModifier); },
              [this](QWidget& data) {
                addUp(data);
                leave(data);
              });
  EXPECT_EQ(mark(), "");
}

}  // namespace
}  // namespace zevfit::test
