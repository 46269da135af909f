#pragma once

#include <string>

namespace zevfit::spatial {

/// A message without the pieces of `source` that it quotes and that `shown` does not have: a driver
/// may take a part of a password for a host or a number, and say so. Pieces of the source with
/// "%41" and the like replaced count as well.
std::string withoutQuoted(const std::string& text, const std::string& source,
                          const std::string& shown);

}  // namespace zevfit::spatial
