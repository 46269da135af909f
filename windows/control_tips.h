#pragma once

#include <span>

class QWidget;

namespace zevfit {

/// What a control of the panel, or something over a plot, does, and its key.
struct ControlTip {
  const char* control;
  const char* text;
};

/// All of them.
std::span<const ControlTip> controlTips();
/// That of a control that has one.
const char* controlTip(const char* control);
/// Gives the controls within a widget their tool tips, which screen readers read out too.
void giveTips(QWidget& widget);

}  // namespace zevfit
