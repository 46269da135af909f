#pragma once

#include <string>
#include <string_view>

namespace zevfit {

/// A number as a hint names it where its last digits do not matter: up to 7 significant ones, and
/// all 15 where the shorter text stands in what the number is named beside.
std::string hintNumber(double value, std::string_view beside);

}  // namespace zevfit
