#pragma once

#include <QAbstractButton>
#include <filesystem>

#include "files/orthogonality.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_printer.h"
#include "tests/tour/album.h"
#include "tests/tour/answers.h"
#include "tests/tour/hand.h"
#include "windows/greeting.h"
#include "windows/mdimod.h"

namespace zevfit::tour {

/// Names of the files that a tour leaves in its folder, beside the pictures.
inline constexpr const char* kModelFile = "meuse.zvm";
inline constexpr const char* kKrigingFile = "meuse.ZVP";
inline constexpr const char* kReportFile = "report.pdf";
inline constexpr const char* kParameterFile = "zevfit.ini";

/// A whole session on the real program, as a user has it: by mouse and keys alone.
class Tour {
 public:
  /// `folder` stands for the program's own, and holds the variogram file.
  explicit Tour(std::filesystem::path folder);

  void play();

 private:
  // The chapters, in their order; each is told where it is played.
  void start();
  void openAndAdd();
  void fitZinc();
  void fitCopperBySlider();
  void fitCopperByHandle();
  void fitTogether();
  void save();
  void testTogether();
  void format();
  void scaleAndLegend();
  void results();
  void report();
  void end();

  /// A control of a window by its name.
  template <class Widget = QAbstractButton>
  static Widget& find(QWidget& in, const char* name) {
    auto* found = in.findChild<Widget*>(name);
    if (!found) fail(name, in);
    return *found;
  }
  /// A control of the fit panel.
  template <class Widget = QAbstractButton>
  Widget& panel(const char* name) {
    return find<Widget>(find<QWidget>(*window_.centralWidget(), "Picture1"), name);
  }
  /// A window that comes up over another one.
  static QWidget& open(QWidget& over, const char* name);
  /// The plot window in front.
  QWidget& plot();
  /// A button of the toolbar.
  void press(const char* key);
  /// An option that is on already takes a double click.
  void choose(const char* option);
  /// Chooses a pair in the two lists, counted from 1, and plots it.
  void choosePair(Pair pair);
  void plotAgain();
  /// A press of a slider's groove, behind its handle.
  void pageUp(const char* slider, int times);
  /// By the fields, with Enter behind the last one.
  void fitNugget(const char* value);
  void fitStructure(const char* letter, const char* sill, const char* range);
  void takeRow(QWidget& results, const char* option, int direction);
  void look(QWidget& structure);
  void addUp(QWidget& structure);

  QString path(const char* name) const;

  std::filesystem::path folder_;
  QtDialogs dialogs_;
  QtPrinter printer_;
  AngleTest angleTest_;
  mdimod window_;
  Greeting greeting_;
  Answers answers_;
  Hand hand_;
  Album album_;
};

}  // namespace zevfit::tour
