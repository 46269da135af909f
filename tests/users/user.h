#pragma once

#include <QPoint>
#include <deque>
#include <functional>
#include <string>

#include "platform/qt_dialogs.h"
#include "tests/users/desk.h"
#include "tests/users/invariants.h"

class QFileDialog;
class QMessageBox;
class QWidget;

namespace zevfit {
class mdimod;
}

namespace zevfit::test {

/// Class and name of a control, for the reader of a failure.
std::string nameOf(const QWidget& control);

/// The boxes of the desktop, with an eye on what they say.
class WatchedDialogs : public QtDialogs {
 public:
  explicit WatchedDialogs(UsersDesk& desk) : desk_(desk) {}

  std::string fault;    ///< that has ended the program
  bool loaded = false;  ///< a file was chosen

  void plain(std::string_view text) override;
  void fatal(std::string_view text) override;
  std::optional<std::string> openFile(std::string_view title, std::string_view pattern) override;

 private:
  UsersDesk& desk_;
};

/// Somebody who does anything to the program that mouse and keys can do, one event at each turn of
/// the event loop, also within modal windows; and looks behind each event whether all is in order.
class User {
 public:
  User(UsersDesk& desk, Chance& chance, int& eventsLeft)
      : desk_(desk), chance_(chance), left_(eventsLeft) {}

  /// Starts with the event loop, on this window; returns at once.
  void sitDown(mdimod& window, WatchedDialogs& dialogs);

  /// What was found wrong; empty so far.
  const std::string& broken() const { return broken_; }
  /// The last events, the youngest last.
  std::string lastEvents() const;
  /// Closes what is open, and the program; true as long as something closes.
  bool leaving() const { return left_ <= 0; }

 private:
  void schedule();
  void turn();
  void act();
  void check();
  /// Has the total sill looked at behind each edit of a sill and each tick of a line.
  void watchTotal();
  /// Ends the program for what was found; goes on without.
  void end(const std::string& broken);
  void note(const std::string& event);

  void leave();
  void answerFiles(QFileDialog& dialog);
  void answer(QMessageBox& box);
  /// Goes on with a fit, where there is something to fit; false where not.
  bool fit();
  void click();
  void clickOn(QWidget& control);
  void drag();
  void dragOn(QWidget& control);
  void wheel();
  void key();
  void type();
  void choose();
  void trigger();
  void arrange();

  /// The window that takes input: a popup, a modal one, or any.
  QWidget* stage();
  /// Something on it that a user may point at; nothing on an empty one.
  QWidget* target(QWidget& stage);
  QPoint placeIn(QWidget& control);

  UsersDesk& desk_;
  Chance& chance_;
  int& left_;
  mdimod* window_ = nullptr;
  WatchedDialogs* dialogs_ = nullptr;
  Invariants invariants_;
  int actingLevel_ = 0;
  int refusals_ = 0;  ///< tries to close that closed nothing
  int turns_ = 0;
  std::deque<std::string> events_;
  std::string broken_;
};

}  // namespace zevfit::test
