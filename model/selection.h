#pragma once

#include "model/fit.h"

namespace zevfit {

// Handlers of the selection controls of the panel. A fault outside their guarded stretch passes to
// the caller.

/// est1 to est4, Click and DblClick alike, for line 0 to 3.
void est_Click(Fit& fit, int line);
/// tipo1 to tipo4: letters E, S, G, P by index 0 to 3. The double click omits the file test.
void tipo_Click(Fit& fit, int index);
void tipo_DblClick(Fit& fit, int index);
/// plot1 to plot4 and psill.
void box_Click(Fit& fit, Box box);
void Combo2_Click(Fit& fit);
void Combodirvar_Click(Fit& fit);
/// Grid on and off: swaps axiscolor between the background and the legends' colour.
void Command3_Click(Fit& fit);
/// Takes the pair of the two lists and draws.
void Command5_Click(Fit& fit);
/// Draws, failures ignored.
void Command5_GotFocus(Fit& fit);
/// The pointer moves over est1, tipo1: their tips tell the current variable and direction.
void est1_MouseMove(Fit& fit);
void tipo1_MouseMove(Fit& fit);

}  // namespace zevfit
