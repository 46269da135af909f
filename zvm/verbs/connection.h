#pragma once

#include <string>

namespace zevfit::verbs {

/// A source such as "PG:dbname=geo" or "postgresql://...", which is no file.
bool isConnection(const std::string& source);

/// What messages, reports and titles call a source: a file by its name; of a connection only what
/// is known to be no secret, such as host, database and user.
std::string shownSource(const std::string& source);

}  // namespace zevfit::verbs
