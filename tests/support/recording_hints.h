#pragma once

#include <string>
#include <string_view>

#include "session/hints.h"

namespace zevfit {

/// Keeps the hint that stands, by the rule of Hints.
class RecordingHints : public Hints {
 public:
  std::string standing;

  void hint(HintTopic topic, std::string_view text) override {
    if (text.empty() && topic != topic_) return;
    topic_ = topic;
    standing = text;
  }

 private:
  HintTopic topic_ = HintTopic::sill;
};

}  // namespace zevfit
