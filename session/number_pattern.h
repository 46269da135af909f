#pragma once

#include <string>
#include <string_view>

namespace zevfit {

/// Renders a number with a pattern of #, 0, . and blank; halves of the decimal text are rounded
/// away from zero, digits are never cut off in front. Any other character stands for itself.
std::string formatNumber(double value, std::string_view pattern);

}  // namespace zevfit
