#pragma once

#include <array>

#include "model/fit.h"
#include "session/form.h"

namespace zevfit {

/// The forms of the options tipo1 to tipo4.
inline constexpr std::array kTipoForms{Form::exponential, Form::spherical, Form::gaussian,
                                       Form::power};

// Handlers of the selection controls of the panel. A fault outside their guarded stretch passes to
// the caller.

/// est1 to est4, Click and DblClick alike, for their lines.
void est_Click(Fit& fit, Line which);
/// tipo1 to tipo4, for their forms. The double click omits the file test.
void tipo_Click(Fit& fit, Form form);
void tipo_DblClick(Fit& fit, Form form);
/// plot1 to plot4 and psill.
void box_Click(Fit& fit, Box box);
void Combo2_Click(Fit& fit);
void Combodirvar_Click(Fit& fit);
/// Grid on and off: swaps axiscolor between the background and the legends' colour.
void Command3_Click(Fit& fit);
/// Takes the pair of the two lists and draws.
void Command5_Click(Fit& fit);
/// Draws, failures ignored.
void Command5_GotFocus(Plotter& plotter);
/// The pointer moves over est1, tipo1: their tips tell the current variable and direction.
void est1_MouseMove(Fit& fit);
void tipo1_MouseMove(Fit& fit);

}  // namespace zevfit
