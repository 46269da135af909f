#pragma once

#include <functional>
#include <string>
#include <vector>

#include "session/fault.h"
#include "windows/frmzevfit.h"

namespace zevfit {

/// A main window that keeps what the data structure window asks of it, a line for each call.
class RecordingHost : public StructureHost {
 public:
  std::vector<std::string> calls;
  /// The call that can't be done.
  std::string failing;
  /// Added to each line, if set.
  std::function<std::string()> remark;

  void clearVariables() override { record("clearVariables"); }
  void enableMain() override { record("enableMain"); }
  void focusMain() override { record("focusMain"); }
  void fillDirections(const std::vector<std::string>& names) override {
    record("fillDirections" + joined(names));
  }
  void fillVariables(const std::vector<std::string>& names) override {
    record("fillVariables" + joined(names));
  }
  void removeVariable(int position) override {
    record("removeVariable " + std::to_string(position));
  }
  void selectDirection(int position) override {
    record("selectDirection " + std::to_string(position));
  }
  void selectVariable(int position) override {
    record("selectVariable " + std::to_string(position));
  }
  void enableFitControls() override { record("enableFitControls"); }
  void startFit() override { record("startFit"); }

 private:
  void record(const std::string& call) {
    calls.push_back(remark ? call + remark() : call);
    if (!failing.empty() && call == failing) throw Fault("The list can't do this");
  }
  static std::string joined(const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names) all += " [" + name + "]";
    return all;
  }
};

}  // namespace zevfit
