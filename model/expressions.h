#pragma once

#include <optional>
#include <string_view>

#include "session/session.h"

namespace zevfit {

/// Who writes the expression: the option of the line or the option of the model. Their texts
/// differ, so that what is read tells how the line was reached.
enum class ExpressionBy { est, tipo };

/// The expression of a structure with a letter; nothing for a pair that has none.
std::optional<std::string_view> modelExpression(Line structure, std::string_view letter,
                                                ExpressionBy by);

}  // namespace zevfit
