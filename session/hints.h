#pragma once

#include <string_view>

namespace zevfit {

/// What a hint is about.
enum class HintTopic {
  sill,
  range,  ///< and which handles are out of view
  sheet
};

/// Where a routine says what the user need not answer.
class Hints {
 public:
  virtual ~Hints() = default;
  /// Shows a text, encoded as those of Messages, in place of the hint before it. An empty one takes
  /// away a hint of the same topic and no other.
  virtual void hint(HintTopic topic, std::string_view text) = 0;
};

/// Tells nobody.
Hints& noHints();

}  // namespace zevfit
