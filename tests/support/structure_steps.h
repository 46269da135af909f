#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <functional>

#include "tests/support/program.h"

namespace zevfit::test {

/// Opens the data structure window again, does something there and accepts it.
inline void viewFile(Program& program, const std::function<void(QWidget&)>& steps = {}) {
  Program::inModal([&] { program.trigger("k2"); },
                   [&](QWidget& modal) {
                     if (steps) steps(modal);
                     Program::find<QAbstractButton>(modal, "Command2").click();
                   });
}

/// The same, left by the close box.
inline void leaveFile(Program& program, const std::function<void(QWidget&)>& steps = {}) {
  Program::inModal([&] { program.trigger("k2"); },
                   [&](QWidget& modal) {
                     if (steps) steps(modal);
                     modal.close();
                   });
}

/// Clicks the ticks of the first two variables, where they do not show one yet.
inline void tickTwo(QWidget& structure) {
  auto& variables = Program::find<QTableWidget>(structure, "grid1");
  for (const int row : {1, 2}) {
    QTableWidgetItem* tick = variables.item(row, 1);
    if (tick->data(Qt::UserRole).toBool()) continue;
    QTest::mouseClick(variables.viewport(), Qt::LeftButton, {},
                      variables.visualItemRect(tick).center());
  }
}

/// Adds the sum of the first two variables.
inline void addSum(QWidget& structure, const char* name) {
  tickTwo(structure);
  QTest::keyClicks(&Program::find<QLineEdit>(structure, "Text2"), name);
  QTest::mouseClick(&Program::find<QAbstractButton>(structure, "adicionar"), Qt::LeftButton);
}

/// Removes the variable of that slot, a sum.
inline void removeSum(QWidget& structure, int slot) {
  Program::find<QComboBox>(structure, "Combovar").setCurrentIndex(slot - 1);
  QTest::mouseClick(&Program::find<QAbstractButton>(structure, "remove"), Qt::LeftButton);
}

}  // namespace zevfit::test
