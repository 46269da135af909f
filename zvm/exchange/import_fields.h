#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zvm/points/data_error.h"

namespace zevfit::exchange {

/// A field of a line, and where it begins.
struct ListedField {
  std::string_view text;
  zvm::Place place;
};

/// A finite number. Throws DataError for any other text.
double numberIn(const ListedField& field);
/// A number of pairs. Throws DataError for what is none.
std::uint64_t pairsIn(const ListedField& field);

}  // namespace zevfit::exchange
