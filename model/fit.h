#pragma once

#include "model/fit_panel.h"
#include "session/dialogs.h"
#include "session/session.h"

namespace zevfit {

/// What the handlers of the fit controls work on, handed down by the main window.
struct Fit {
  Session& session;
  FitPanel& panel;
  Plotter& plotter;
  Dialogs& dialogs;
};

/// True with a file loaded; otherwise says so in a plain box.
bool requireFile(Fit& fit);

}  // namespace zevfit
