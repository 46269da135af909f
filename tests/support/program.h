#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "files/orthogonality.h"
#include "tests/support/recording_printer.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"
#include "windows/mdimod.h"

namespace zevfit::test {

/// The box of a fault that ends the program: it says where the models of the loaded file are kept.
inline std::string fatalBox(const std::string& fault, const std::filesystem::path& folder) {
  return "fatal: " + fault + "\n\nThe models are kept in " + (folder / "rescue.zvm").string();
}

/// The whole program with its boxes answered by a script.
class Program {
 public:
  /// Prints on `printer` or, without one, on a printer in memory.
  explicit Program(const std::filesystem::path& folder, Printer* printer = nullptr)
      : folder_(folder), window_(dialogs_, printer ? *printer : printer_, angleTest_, folder) {
    window_.furnish();
    window_.loadIcons();
    window_.show();
    QApplication::processEvents();
  }

  /// An end of the program, asked for in a test, would end each later loop of events at once.
  ~Program() {
    QTimer::singleShot(0, [] { QApplication::exit(0); });
    QApplication::exec();
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  mdimod& window() { return window_; }
  Session& session() { return window_.session(); }
  ScriptedDialogs& dialogs() { return dialogs_; }
  RecordingPrinter& printer() { return printer_; }

  /// A control of the main window by its name.
  template <class Widget = QWidget>
  Widget& control(const char* name) {
    return find<Widget>(window_, name);
  }

  template <class Widget>
  static Widget& find(QObject& in, const char* name) {
    auto* found = in.findChild<Widget*>(name);
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }

  void trigger(const char* action) { control<QAction>(action).trigger(); }

  /// Runs `steps` on the modal window that `opening` brings up; `steps` must close it.
  static void inModal(const std::function<void()>& opening,
                      const std::function<void(QWidget&)>& steps) {
    bool met = false;
    QTimer::singleShot(0, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (!modal) return;
      met = true;
      steps(*modal);
    });
    opening();
    if (!met) throw std::runtime_error("no modal window came up");
  }

  /// Opens a file of these bytes, made in the program's folder.
  void openBytes(const std::string& bytes) {
    const std::filesystem::path path = folder_ / "small.zvm";
    putFile(path, bytes);
    open(path.string());
  }
  /// Opens a file through the toolbar and accepts it in the data structure window.
  void open(const std::string& path) {
    dialogs_.files.push_back(path);
    inModal([&] { trigger("k1"); },
            [](QWidget& modal) { find<QAbstractButton>(modal, "Command2").click(); });
    QApplication::processEvents();
  }

 private:
  std::filesystem::path folder_;
  ScriptedDialogs dialogs_;
  RecordingPrinter printer_;
  AngleTest angleTest_;
  mdimod window_;
};

}  // namespace zevfit::test
