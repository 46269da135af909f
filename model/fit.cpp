#include "model/fit.h"

namespace zevfit {

bool requireFile(const Session& session, Messages& messages) {
  if (!session.loaded) messages.plain(kNoFileText);
  return session.loaded;
}

}  // namespace zevfit
