#pragma once

#include <QComboBox>
#include <functional>
#include <memory>
#include <utility>

namespace zevfit {

/// Runs the handler with the entry at each choice: once where another entry comes on show, whoever
/// changed it, and where the user chooses the one on show again.
inline void onChoice(QComboBox& list, const std::function<void(int)>& handler) {
  // A user's change is told by both signals, one behind the other.
  const auto ran = std::make_shared<bool>(false);
  QObject::connect(&list, &QComboBox::currentIndexChanged, &list, [&list, ran, handler](int entry) {
    handler(entry);
    *ran = true;
    QMetaObject::invokeMethod(
        &list, [ran] { *ran = false; }, Qt::QueuedConnection);
  });
  QObject::connect(&list, &QComboBox::activated, &list, [ran, handler](int entry) {
    if (!std::exchange(*ran, false)) handler(entry);
  });
}

}  // namespace zevfit
