#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace zevfit::exchange {

/// Why a model can't be said in the words of another system; the text is for the user, in UTF-8.
class Refusal : public std::runtime_error {
 public:
  explicit Refusal(const std::string& reason) : std::runtime_error(reason) {}
};

using Warnings = std::vector<std::string>;

}  // namespace zevfit::exchange
