#pragma once

#include <QObject>
#include <functional>
#include <string>

#include "windows/boundary.h"

class QDropEvent;
class QWidget;

namespace zevfit {

/// Lets one variogram file be dropped anywhere on a window: on what lies in it too, also where a
/// field would take the path as a text. Everything else is refused while it is dragged, and so is
/// every file while the window is behind another that must be answered first.
class FileDrop : public QObject {
 public:
  /// `window` has all the fields that it is to have. `open` is given the path, once the program
  /// that the file comes from has been told of the drop.
  FileDrop(QWidget& window, const FaultReport& faults,
           std::function<void(const std::string&)> open);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool isOpenTo(const QDropEvent& drag) const;
  void drop(const QDropEvent& event);

  QWidget& window_;
  const FaultReport& faults_;
  std::function<void(const std::string&)> open_;
};

}  // namespace zevfit
