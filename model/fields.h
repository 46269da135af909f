#pragma once

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
/// Key down in Textc0 or Texta; kEnterKeyCode draws.
void Text_KeyDown(Plotter& plotter, int keyCode);
void Labelvariance_Click(Fit& fit);

}  // namespace zevfit
