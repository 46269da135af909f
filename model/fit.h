#pragma once

#include "model/fit_panel.h"
#include "session/hints.h"
#include "session/messages.h"
#include "session/session.h"

namespace zevfit {

/// What the handlers that edit the model work on, handed down by the main window.
struct Fit {
  Session& session;
  FitPanel& panel;
  Plotter& plotter;
  Messages& messages;
  Hints& hints = noHints();
};

/// True with a file loaded; otherwise says so in a plain box.
bool requireFile(const Session& session, Messages& messages);
inline bool requireFile(const Fit& fit) { return requireFile(fit.session, fit.messages); }

/// True where the flags of the pair's model are numbers; otherwise warns of the first that is none.
bool requireFlags(const Session& session, Pair pair, Messages& messages);
/// Draws the current pair, or warns of a flag of its model. For handlers that catch no failure.
void plotOrWarn(Fit& fit);

}  // namespace zevfit
