#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <stdexcept>

namespace zevfit::test {

/// Runs `steps` on the modal window that `opening` brings up, however many events come before it,
/// as those of keys that are held with another one. `steps` must close it.
inline void duringModal(const std::function<void()>& opening,
                        const std::function<void(QWidget&)>& steps) {
  bool met = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &look, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal) return;
    look.stop();
    met = true;
    steps(*modal);
  });
  look.start(0);
  opening();
  if (!met) throw std::runtime_error("no modal window came up");
}

}  // namespace zevfit::test
