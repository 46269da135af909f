#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace zevfit::verbs {

/// An object whose members keep their order.
using Json = nlohmann::ordered_json;

/// The text of a report: numbers with all digits, bytes that are no UTF-8 replaced, control
/// characters escaped.
std::string textOf(const Json& report);

}  // namespace zevfit::verbs
