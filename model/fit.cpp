#include "model/fit.h"

#include "session/illegal_cell.h"

namespace zevfit {

bool requireFile(const Session& session, Messages& messages) {
  if (!session.loaded) messages.plain(kNoFileText);
  return session.loaded;
}

bool requireFlags(const Session& session, Pair pair, Messages& messages) {
  const auto illegal = illegalFlag(session, pair);
  if (illegal) messages.warning(*illegal);
  return !illegal;
}

void plotOrWarn(Fit& fit) {
  if (requireFlags(fit.session, fit.session.current(), fit.messages)) fit.plotter.plotvariogram();
}

}  // namespace zevfit
