#pragma once

#include <string>
#include <vector>

#include "model/axis_fields.h"
#include "tests/support/scripted_dialogs.h"

namespace zevfit::test {

/// The fields of the axes in memory, with the event rule of the real ones.
class MemoryAxisFields : public AxisFields {
 public:
  std::string text(Axis axis, std::size_t entry) const override { return texts_[at(axis)][entry]; }

  void setText(Axis axis, std::size_t entry, std::string_view text) override {
    std::string& shown = texts_[at(axis)][entry];
    if (shown == text) return;
    shown = text;
    checkRanges(*this, axis, dialogs);
  }

  void put(Axis axis, const std::vector<std::string>& texts) {
    for (std::size_t entry = 0; entry < texts.size(); ++entry) setText(axis, entry, texts[entry]);
  }

  std::vector<std::string> all(Axis axis) const {
    return {texts_[at(axis)].begin(), texts_[at(axis)].end()};
  }

  ScriptedDialogs dialogs;

 private:
  static std::size_t at(Axis axis) { return static_cast<std::size_t>(axis); }

  std::array<std::array<std::string, kAxisEntries>, kAxes.size()> texts_;
};

}  // namespace zevfit::test
