#pragma once

#include <string_view>

#include "model/fit.h"

namespace zevfit {

inline constexpr int kEnterKeyCode = 13;

/// Puts the stored value of the selected line back into the field of the sill.
void restoreSillText(Fit& fit);

// Handlers of the two fields; a failure inside a change or a key ends them silently.
void Textc0_Change(Fit& fit);
void Texta_Change(Fit& fit);
void Textc0_Click(Session& session);
void Texta_Click(Session& session, Messages& messages);
/// Says, behind a drawing, why it shows another range than the text that the field had before it;
/// nothing where that is no text of the selected structure. No failure.
void tellDrawnRange(Fit& fit, std::string_view text);
/// Key down in Textc0 or Texta; kEnterKeyCode draws.
void Text_KeyDown(Plotter& plotter, int keyCode);
void Labelvariance_Click(Fit& fit);

}  // namespace zevfit
