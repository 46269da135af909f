#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>

class QEvent;
class QWidget;

namespace zevfit {

/// Closes a window at a click beside it, in whatever other window of the program, and swallows that
/// click. Some desktops make the other window the active one first, and hand over the press after.
class OutsideClick : public QObject {
 public:
  /// `close` runs at the click.
  OutsideClick(QWidget& window, std::function<void()> close);

  /// Closes the window at the next click beside it. A box over the window ends nothing.
  void watch();
  void unwatch();
  /// The window has closed since another one became the active one; if that was by a click, it
  /// comes next and is swallowed.
  void awaitClick();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class State { idle, watching, awaiting, swallowing };
  void enter(State state);
  bool isBeside(const QObject& pressed) const;
  bool takePress(const QObject& pressed);

  QWidget& window_;
  std::function<void()> close_;
  State state_ = State::idle;
  QElapsedTimer awaited_;
};

}  // namespace zevfit
