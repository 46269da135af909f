#include "model/refresh.h"

#include "model/model_curve.h"
#include "model/sliders.h"

namespace zevfit {

void sampleModel(Fit& fit) {
  const Session& session = fit.session;
  modelcurve(fit, session.plotted(), session.xmax(session.plotted()));
}

void refreshModel(Fit& fit) {
  showmodel(fit, fit.session.plotted());
  scalesliders(fit, fit.session.plotted());
  sampleModel(fit);
}

}  // namespace zevfit
