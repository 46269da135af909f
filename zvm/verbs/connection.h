#pragma once

#include <string>

namespace zevfit::verbs {

/// A source such as "PG:dbname=geo" or "postgresql://...", which is no file.
bool isConnection(const std::string& source);

/// What messages, reports and titles call a source: a file by its name; of a connection only what
/// is known to be no secret, such as host, database and user; of an address, also behind
/// "/vsicurl/" and the like, scheme, host and path; of XML the first tag. `isSpatial`: what is no
/// file is taken by a driver of OGR, which may read words such as "DSN=geo;PWD=..." in it.
std::string shownSource(const std::string& source, bool isSpatial = false);

}  // namespace zevfit::verbs
