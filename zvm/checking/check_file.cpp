#include "zvm/checking/check_file.h"

#include <algorithm>

#include "zvm/checking/checker.h"

namespace zevfit::checking {

bool CheckResult::hasErrors() const {
  return std::ranges::any_of(
      findings, [](const Finding& finding) { return finding.severity == Severity::error; });
}

CheckResult checkFile(std::string_view bytes) { return Checker(bytes).run(); }

}  // namespace zevfit::checking
