#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <deque>
#include <functional>
#include <vector>

class QMessageBox;
class QWidget;

namespace zevfit::tour {

/// What the user does in the modal windows and boxes that come up, told before they do. Each has
/// its turn; one that nobody told of ends the tour.
class Answers {
 public:
  using Steps = std::function<void(QWidget&)>;

  Answers();

  /// The steps must close the window, or lead to it being closed.
  void expect(const QString& title, Steps steps);
  /// A box with this text, left by Enter, which presses its first button.
  void expectBox(const QString& title, const QString& text);
  /// A file dialog, into which this path is typed.
  void expectFile(const QString& title, const QString& path);
  /// All that was told of came up.
  bool done() const { return turns_.empty(); }

 private:
  struct Turn {
    QString title;
    Steps steps;
  };

  void look();

  QObject context_;
  std::deque<Turn> turns_;
  std::vector<QPointer<QWidget>> known_;  ///< that have had their turn and are still open
};

}  // namespace zevfit::tour
