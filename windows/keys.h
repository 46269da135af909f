#pragma once

#include <Qt>

namespace zevfit {

/// One of the two Enter keys.
inline bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }
/// A key that presses what has the focus.
inline bool isPress(int key) { return key == Qt::Key_Space || isEnter(key); }

}  // namespace zevfit
