#pragma once

#include <Qt>

namespace zevfit {

/// One of the two Enter keys.
inline bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

}  // namespace zevfit
