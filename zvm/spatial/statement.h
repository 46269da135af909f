#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zevfit::spatial {

/// Why a text is not one query that only reads, as in "it is more than one statement"; nothing
/// where it is one, with or without a semicolon at its end. Quotes, dollar quotes and comments are
/// those of PostgreSQL, in which a backslash stands for itself but behind an E.
std::optional<std::string> queryRefusal(std::string_view sql);

/// The same of a condition, which is a part of a query.
std::optional<std::string> conditionRefusal(std::string_view condition);

/// A query as one between brackets, where nothing but a query can stand; without the semicolon at
/// its end.
std::string bracketed(std::string_view query);

}  // namespace zevfit::spatial
