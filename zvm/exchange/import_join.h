#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "zvm/exchange/import.h"

namespace zevfit::exchange {

/// More classes than any listing has.
inline constexpr std::size_t kMostImportedClasses = 100'000;

/// A semivariogram of one variable, or of two, in one direction.
struct ImportedBlock {
  std::string first, second;
  std::size_t direction = 0;           ///< position
  std::vector<zvm::LagClass> classes;  ///< those without pairs are all 0
  zvm::Place place;
};

/// Blocks side by side: variables in the order of their first blocks, crosses behind the others.
/// `centre` tells where the class at a position lies when no pair does. Throws DataError for two
/// blocks of one variable and direction and for more than a file holds.
Imported joinBlocks(const std::vector<ImportedBlock>& blocks, std::vector<std::string> directions,
                    const std::function<double(std::size_t)>& centre);

}  // namespace zevfit::exchange
