#include "model/fit.h"

namespace zevfit {

bool requireFile(Fit& fit) {
  if (!fit.session.loaded) fit.dialogs.plain(kNoFileText);
  return fit.session.loaded;
}

}  // namespace zevfit
