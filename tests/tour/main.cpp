#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <iostream>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  if (QApplication::arguments().size() != 2) {
    std::cerr << "zevfit_tour FOLDER: plays a session on the program and leaves its files and a "
                 "picture of each window in the folder\n";
    return 2;
  }
  QApplication::setApplicationName("zevFIT");
  QLocale::setDefault(QLocale::c());
  // Pictures are the same each time.
  QApplication::setStyle("Fusion");
  QApplication::setCursorFlashTime(0);
  return RUN_ALL_TESTS();
}
