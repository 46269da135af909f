#pragma once

#include <optional>
#include <string_view>

namespace zevfit {

/// Who writes the expression: the option of the line or the option of the model. Their texts
/// differ on purpose.
enum class ExpressionBy { est, tipo };

/// The expression of structure 1 to 3 with a letter; nothing for a pair that has none.
std::optional<std::string_view> modelExpression(int structure, std::string_view letter,
                                                ExpressionBy by);

}  // namespace zevfit
