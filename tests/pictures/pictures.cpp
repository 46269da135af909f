// Takes the pictures of the documentation from the program itself: plays a short session and keeps
// each window. Arguments: the example file, the folder for the pictures, what to add to their
// names.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QRadioButton>
#include <QTemporaryDir>
#include <iostream>

#include "tests/support/program.h"

namespace {

using zevfit::test::Program;

class Album {
 public:
  Album(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}

  void keep(QWidget& window, const char* name) {
    QApplication::processEvents();
    const QString file = QString("%1/%2%3.png").arg(folder_, name, suffix_);
    if (!window.grab().save(file)) throw std::runtime_error("cannot save " + file.toStdString());
  }

 private:
  QString folder_, suffix_;
};

struct Line {
  const char* option;
  const char* model;  ///< nothing for the nugget
  const char* sill;
  const char* range;
};

void enter(Program& program, const char* field, const char* text) {
  program.session().c0typed(program.session().curvar, program.session().curdir) = 1;
  program.session().atyped(program.session().curvar, program.session().curdir) = 1;
  program.control<QLineEdit>(field).setText(text);
}

void fitLine(Program& program, const Line& line) {
  program.control<QRadioButton>(line.option).setChecked(true);
  if (line.model) {
    program.control<QRadioButton>(line.model).setChecked(true);
    enter(program, "Texta", line.range);
  } else {
    program.control<QCheckBox>("plot1").setChecked(true);
  }
  enter(program, "Textc0", line.sill);
}

void openDirection(Program& program, int direction) {
  program.control<QComboBox>("Combodirvar").setCurrentIndex(direction);
  program.control<QAbstractButton>("Command5").click();
}

void play(const QString& example, Album& album) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("meuse.zvm");
  QFile::copy(example, file);
  Program program(folder.path().toStdString());
  program.window().showAbout();
  album.keep(program.control<QWidget>("formabout"), "about");
  program.dialogs().files.push_back(file.toStdString());
  Program::inModal([&] { program.trigger("k1"); },
                   [&](QWidget& modal) {
                     album.keep(modal, "data-structure");
                     Program::find<QAbstractButton>(modal, "Command2").click();
                   });
  album.keep(program.window(), "main-window");
  for (const Line& line : {Line{"est1", nullptr, "0.1", ""}, Line{"est2", "tipo2", "0.75", "1400"}})
    fitLine(program, line);
  program.window().plotvariogram();
  album.keep(program.control<QWidget>("Formod"), "plot");
  openDirection(program, 1);
  program.trigger("k7");
  for (const int direction : {1, 1, 0, 0}) openDirection(program, direction);
  album.keep(program.window(), "fit");
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 4) {
    std::cerr << "pictures EXAMPLE FOLDER SUFFIX\n";
    return 2;
  }
  Album album(argv[2], argv[3]);
  try {
    play(argv[1], album);
  } catch (const std::exception& fault) {
    std::cerr << fault.what() << "\n";
    return 1;
  }
  return 0;
}
