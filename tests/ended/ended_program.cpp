// The program as it starts, with a file loaded and a nugget fitted, for the test that sends
// signals:
//
//     ended_program FOLDER FILE
//
// FOLDER stands for the program's own. Prints "ready" on a line when the event loop runs.
#include <QApplication>
#include <iostream>

#include "tests/support/ended_program.h"

int main(int count, char** values) {
  const zevfit::EndSignals signals;
  QApplication application(count, values);
  if (count != 3) return 2;
  zevfit::test::EndedProgram program(values[1], signals);
  program.open(values[2]);
  program.session().use0({1, 1}) = 1;
  program.session().c0({1, 1}) = 0.25;
  QTimer::singleShot(0, [] { std::cout << "ready" << std::endl; });
  return QApplication::exec();
}
