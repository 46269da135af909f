#pragma once

#include <string>

namespace zevfit {

/// A number as a hint names it where its last digits do not matter: up to 7 significant ones.
std::string hintNumber(double value);

}  // namespace zevfit
