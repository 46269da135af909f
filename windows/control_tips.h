#pragma once

#include <QString>
#include <span>

class QWidget;

namespace zevfit {

/// What a control of the panel, or something over a plot, does, and its key.
struct ControlTip {
  const char* control;
  const char* text;
  const char* key = "";  ///< where the text does not tell it and no key of the program presses it
};

/// All of them.
std::span<const ControlTip> controlTips();
/// The text of a control that has one.
const char* controlTip(const char* control);
/// A text and behind it the key of the program that presses the control, or the other one.
QString withKey(const char* control, const QString& text, const QString& otherwise = {});
/// Gives the controls within a widget their tool tips, which screen readers read out with the keys.
void giveTips(QWidget& widget);
/// Has what screen readers read out told at the foot of the window, as long as the pointer is over
/// the control: some tool tips have no room for a key, and some give way to numbers.
void tellTipsAtFoot(QWidget& widget);

}  // namespace zevfit
