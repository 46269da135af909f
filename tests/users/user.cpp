#include "tests/users/user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>

#include "windows/mdimod.h"

namespace zevfit::test {

namespace {

constexpr std::size_t kEventsKept = 40;
/// So often a window may refuse to close: a question may be asked, and answered, each time.
constexpr int kMostRefusals = 60;
/// All files are read again behind so many events.
constexpr int kTurnsBetweenFiles = 50;

}  // namespace

void WatchedDialogs::plain(std::string_view text) {
  constexpr std::string_view kSaved = "Models saved to file:";
  if (text.starts_with(kSaved)) desk_.saved(std::string(text.substr(kSaved.size())));
  QtDialogs::plain(text);
}

void WatchedDialogs::fatal(std::string_view text) {
  if (fault.empty()) fault = text.substr(0, text.find('\n'));
  QtDialogs::fatal(text);
}

std::optional<std::string> WatchedDialogs::openFile(std::string_view title,
                                                    std::string_view pattern) {
  const auto path = QtDialogs::openFile(title, pattern);
  loaded = loaded || path.has_value();
  return path;
}

void User::sitDown(mdimod& window, WatchedDialogs& dialogs) {
  window_ = &window;
  dialogs_ = &dialogs;
  invariants_ = Invariants();
  actingLevel_ = 0;
  refusals_ = 0;
  watchTotal();
  schedule();
}

// Connected behind the program's own handlers, and so called when they are through.
void User::watchTotal() {
  const auto look = [this] {
    if (broken_.empty()) end(invariants_.brokenTotal(window_->session(), dialogs_->loaded));
  };
  for (auto* field : window_->findChildren<QLineEdit*>("Textc0"))
    QObject::connect(field, &QLineEdit::textChanged, window_, look);
  for (const char* name : {"plot1", "plot2", "plot3", "plot4"})
    for (auto* box : window_->findChildren<QCheckBox*>(name))
      QObject::connect(box, &QCheckBox::toggled, window_, look);
}

void User::end(const std::string& broken) {
  if (broken.empty()) return;
  broken_ = broken;
  QCoreApplication::exit(1);
}

// A hand is slower than the program: what an event has posted is done before the next one.
void User::schedule() {
  QTimer::singleShot(0, window_, [this] { QTimer::singleShot(0, window_, [this] { turn(); }); });
}

// An event may run a loop of its own, in which the next turns come; a turn within the handling of
// an event, without such a loop, waits.
void User::turn() {
  const int level = QThread::currentThread()->loopLevel();
  schedule();
  if (level <= actingLevel_ || !broken_.empty()) return;
  const int before = std::exchange(actingLevel_, level);
  if (left_ > 0) {
    --left_;
    act();
  } else {
    leave();
  }
  check();
  actingLevel_ = before;
}

void User::check() {
  if (!broken_.empty()) return;
  end(invariants_.broken(window_->session(), std::exchange(dialogs_->loaded, false)));
  if (!broken_.empty() || ++turns_ % kTurnsBetweenFiles != 0) return;
  const std::string changed = desk_.changedFile();
  if (!changed.empty()) end("a file changes at a save alone: " + changed);
}

void User::note(const std::string& event) {
  if (std::getenv("ZEVFIT_USERS_ALOUD")) std::cerr << left_ << ' ' << event << std::endl;
  events_.push_back(event);
  if (events_.size() > kEventsKept) events_.pop_front();
}

std::string User::lastEvents() const {
  std::string all;
  for (const std::string& event : events_) all += event + "\n";
  return all;
}

void User::act() {
  if (auto* files = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
    if (!QApplication::activePopupWidget()) return answerFiles(*files);
  if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
    if (chance_.inHundred(60)) return answer(*box);
  if (chance_.inHundred(30) && fit()) return;
  struct Weighted {
    int weight;
    void (User::*event)();
  };
  static constexpr std::array<Weighted, 8> kEvents{{{38, &User::click},
                                                    {14, &User::drag},
                                                    {6, &User::wheel},
                                                    {14, &User::key},
                                                    {10, &User::type},
                                                    {6, &User::choose},
                                                    {8, &User::trigger},
                                                    {4, &User::arrange}}};
  int at = chance_.upTo(100);
  for (const Weighted& each : kEvents) {
    at -= each.weight;
    if (at < 0) return (this->*each.event)();
  }
}

// As somebody who wants to go home: popups, boxes and windows are closed until the program ends.
void User::leave() {
  if (++refusals_ > kMostRefusals) return end("every window can be closed");
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
    QAbstractButton* no = box->button(QMessageBox::No);
    note("answers '" + box->text().toStdString() + "'");
    (no ? no : box->buttons().constFirst())->click();
  } else if (QWidget* modal = QApplication::activeModalWidget()) {
    note("closes " + nameOf(*modal));
    modal->close();
  } else if (window_->isMinimized()) {
    note("brings the program back");
    window_->showNormal();
  } else if (window_->isEnabled()) {
    note("closes the program");
    window_->close();
  } else {
    QWidget* open = stage();
    note("closes " + (open ? nameOf(*open) : "nothing"));
    if (open && open != window_) open->close();
  }
}

}  // namespace zevfit::test
