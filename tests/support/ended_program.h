#pragma once

#include <QSocketNotifier>
#include <filesystem>
#include <memory>

#include "platform/end_signals.h"
#include "tests/support/program.h"

namespace zevfit::test {

/// The program as it ends by signals.
class EndedProgram : public Program {
 public:
  EndedProgram(const std::filesystem::path& folder, const EndSignals& signals)
      : Program(folder),
        delivery_(signals.deliverTo([this](int signal) { window().endBySignal(signal); })) {}

 private:
  std::unique_ptr<QSocketNotifier> delivery_;
};

}  // namespace zevfit::test
