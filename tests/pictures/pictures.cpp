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
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <iostream>

#include "tests/support/full_report.h"
#include "tests/support/model_lines.h"
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
  program.session().c0typed(program.session().current()) = true;
  program.session().atyped(program.session().current()) = true;
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

/// The mouse as it goes through the main window.
class Mouse {
 public:
  explicit Mouse(Program& program) : program_(program) {}

  QPoint onPicture(QPoint at) { return placeOf("Picture4", at); }
  QPoint onHandle(const char* name) { return placeOf(name, {2, 2}); }
  void click(QPoint at) { QTest::mouseClick(window(), Qt::LeftButton, {}, at); }
  void press(QPoint at, Qt::MouseButton button) { QTest::mousePress(window(), button, {}, at); }
  void release(QPoint at, Qt::MouseButton button) { QTest::mouseRelease(window(), button, {}, at); }
  /// In steps, as a hand does.
  void move(QPoint from, QPoint to) {
    for (int i = 1; i <= 10; ++i) QTest::mouseMove(window(), from + (to - from) * i / 10);
  }

 private:
  QWindow* window() { return program_.window().windowHandle(); }
  QPoint placeOf(const char* name, QPoint at) {
    return program_.control<QWidget>(name).mapTo(&program_.window(), at);
  }

  Program& program_;
};

/// A structure whose range and sill are dragged to the data.
void playDrag(Program& program, Album& album) {
  fitLine(program, {"est1", nullptr, "0.1", ""});
  fitLine(program, {"est2", "tipo2", "0.3", "500"});
  program.window().plotvariogram();
  auto& plot = program.control<QWidget>("Formod");
  Mouse mouse(program);
  mouse.click(mouse.onPicture({20, 20}));
  album.keep(plot, "drag-1-handles");

  const QPoint start = mouse.onHandle("estru_1");
  mouse.press(start, Qt::LeftButton);
  album.keep(plot, "drag-2-held");
  const QPoint far = mouse.onPicture({330, 150});
  mouse.move(start, far);
  album.keep(plot, "drag-3-range");
  mouse.release(far, Qt::LeftButton);

  const QPoint again = mouse.onHandle("estru_1");
  mouse.press(again, Qt::RightButton);
  const QPoint high = mouse.onPicture({330, 83});
  mouse.move(again, high);
  album.keep(plot, "drag-4-sill");
  mouse.release(high, Qt::RightButton);
  album.keep(plot, "drag-5-released");
}

/// One spherical model for ln zinc, ln lead and their cross variable in all directions.
void fitTogether(zevfit::Session& session) {
  struct Row {
    int variable;
    double nugget, sill;
  };
  for (const Row& row : {Row{1, 0.1, 0.6}, Row{2, 0.08, 0.4}, Row{5, 0.05, 0.45}})
    for (std::int64_t direction = 1; direction <= session.ndir; ++direction) {
      const zevfit::Pair pair{row.variable, direction};
      zevfit::setNugget(session, pair, row.nugget);
      zevfit::setStructure(session, pair, zevfit::Line::first, "S", row.sill, 1200);
    }
}

/// The test of coregionalization, passed first, then with another range and a sill too large.
void testTogether(Program& program, Album& album) {
  zevfit::Session& session = program.session();
  fitTogether(session);
  session.testsecondary = 1;
  session.testcross = 4;
  session.testminor1 = 2;
  session.testminor2 = 1;
  program.control<QAbstractButton>("Command2").click();
  auto& dialog = program.control<QWidget>("testcruz");
  album.keep(dialog, "test-passed");
  zevfit::setStructure(session, {5, 1}, zevfit::Line::first, "S", 0.6, 1200);
  zevfit::setStructure(session, {2, 2}, zevfit::Line::first, "S", 0.4, 900);
  Program::find<QAbstractButton>(dialog, "Command1").click();
  album.keep(dialog, "test-detail");
  dialog.close();
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
  testTogether(program, album);
}

/// The windows of the axes.
void playAxes(Program& program, Album& album) {
  program.control<QAbstractButton>("Command1").click();
  auto& scales = program.control<QWidget>("cutgraph");
  album.keep(scales, "scales");
  scales.hide();
  Program::inModal([&] { program.control<QAbstractButton>("Command4").click(); },
                   [&](QWidget& modal) {
                     Program::find<QLineEdit>(modal, "Text1").setText("m");
                     album.keep(modal, "legend");
                     modal.close();
                   });
}

/// The results of a fit in all directions, with the axes chosen.
void playResultsOf(const QString& example, Album& album) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("meuse.zvm");
  QFile::copy(example, file);
  Program program(folder.path().toStdString());
  program.open(file.toStdString());
  int direction = 0;
  for (const char* range : {"1150", "1700", "900", "700"}) {
    openDirection(program, direction++);
    fitLine(program, {"est1", nullptr, "0.1", ""});
    fitLine(program, {"est2", "tipo2", "0.3", "400"});
    fitLine(program, {"est3", "tipo1", "0.2", range});
  }
  Program::inModal([&] { program.trigger("k3"); },
                   [&](QWidget& modal) {
                     auto& grid = Program::find<QTableWidget>(modal, "gridsairmod");
                     QApplication::processEvents();
                     for (const auto& [option, row] :
                          {std::pair("Option3d4", 3), {"Option3d5", 5}, {"Option3d6", 5}}) {
                       Program::find<QAbstractButton>(modal, option).click();
                       QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                                         grid.visualItemRect(grid.item(row, 1)).center());
                     }
                     album.keep(modal, "results");
                     modal.close();
                   });
}

/// A report of three columns, with the pointer on a plot.
void playReportOf(const QString& example, Album& album) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("meuse.zvm");
  QFile::copy(example, file);
  Program program(folder.path().toStdString());
  program.open(file.toStdString());
  zevfit::test::composeFullReport(program);
  auto& reports = program.control<QWidget>("printcolection");
  auto& page = Program::find<QWidget>(reports, "Picture1_0");
  QTest::mouseMove(&page, zevfit::test::middleOfThird(2, 2));
  album.keep(reports, "print-preview");
}

/// The windows of fonts, patterns and colours.
void playFormat(Program& program, Album& album) {
  program.trigger("k10");
  auto& format = program.control<QWidget>("Formfont");
  album.keep(format, "format");
  for (const auto& [button, window] : {std::pair("Command4", "Frame2"), {"Command5", "cores"}}) {
    format.findChild<QAbstractButton*>(button, Qt::FindDirectChildrenOnly)->click();
    auto& opened = Program::find<QWidget>(format, window);
    album.keep(opened, *window == 'F' ? "format-help" : "colours");
    opened.close();
  }
  format.close();
}

void playDragOf(const QString& example, Album& album) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("meuse.zvm");
  QFile::copy(example, file);
  Program program(folder.path().toStdString());
  program.open(file.toStdString());
  playDrag(program, album);
  playAxes(program, album);
  playFormat(program, album);
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
    playDragOf(argv[1], album);
    playResultsOf(argv[1], album);
    playReportOf(argv[1], album);
  } catch (const std::exception& fault) {
    std::cerr << fault.what() << "\n";
    return 1;
  }
  return 0;
}
