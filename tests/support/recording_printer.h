#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report/printer.h"
#include "session/fault.h"
#include "session/numbers.h"
#include "tests/support/recording_surface.h"

namespace zevfit {

/// Keeps what was drawn on its sheet, and in `calls` what was asked of it, in order.
class RecordingPrinter : public Printer {
 public:
  void showPrinter() override { note("dialog"); }
  void startDoc(double width, double height) override {
    note("start " + generalText(width) + " " + generalText(height));
    open = true;
  }
  Surface& sheet() override {
    if (!open) throw Fault("no document");
    if (onSheet) onSheet();
    return surface;
  }
  void endDoc() override {
    if (!open) return;
    open = false;
    note("end");
  }
  std::string destination() const override { return "the printer in memory"; }
  void killDoc() override {
    open = false;
    note("kill");
  }

  RecordingSurface surface;
  std::vector<std::string> calls;
  std::string refuses;            ///< the call that is a fault, by its first word
  std::function<void()> onSheet;  ///< when something is to be drawn
  bool open = false;

 private:
  void note(const std::string& call) {
    calls.push_back(call);
    if (!refuses.empty() && call.starts_with(refuses)) throw Fault(call);
  }
};

}  // namespace zevfit
