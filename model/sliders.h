#pragma once

#include "model/fit.h"
#include "model/slider_scale.h"

namespace zevfit {

/// Scales of the sliders as they stand for the pair.
SillScale sillScale(const Session& session, std::int64_t variable, std::int64_t direction);
RangeScale rangeScale(const Session& session, std::int64_t variable, std::int64_t direction);

/// Sets the scales of both sliders for the pair and makes it the current one.
void scalesliders(Fit& fit, std::int64_t direction, std::int64_t variable);
/// Pushes the model of the pair to the controls and makes it the current one; while a handle is
/// dragged only the letters. Throws Fault where a slider can't show the value.
void showmodel(Fit& fit, std::int64_t direction, std::int64_t variable);

/// Lets the sliders catch up with typed values before a drawing: those of the pair whose field
/// drives. Throws Fault where a slider can't show the value.
void resynchroniseSliders(Fit& fit, std::int64_t direction, std::int64_t variable);

/// Puts the stored value of the selected line back into the field of the sill.
void restoreSillText(Fit& fit);

// Handlers of the two pairs of controls; a failure inside a change or a key ends them silently.
void HScrollc0_Change(Fit& fit);
void HScrolla_Change(Fit& fit);
void HScrollc0_GotFocus(Fit& fit);
void HScrolla_GotFocus(Fit& fit);
void Textc0_Change(Fit& fit);
void Texta_Change(Fit& fit);
void Textc0_Click(Fit& fit);
void Texta_Click(Fit& fit);
/// Key down in Textc0 or Texta; code 13 draws.
void Text_KeyDown(Fit& fit, int keyCode);
void Labelvariance_Click(Fit& fit);

}  // namespace zevfit
