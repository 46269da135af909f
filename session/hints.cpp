#include "session/hints.h"

namespace zevfit {

namespace {

class NoHints : public Hints {
 public:
  void hint(HintTopic /*topic*/, std::string_view /*text*/) override {}
};

}  // namespace

Hints& noHints() {
  static NoHints none;
  return none;
}

}  // namespace zevfit
