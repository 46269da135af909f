#pragma once

#include <string>
#include <vector>

#include "zvm/points/points_reader.h"

namespace zevfit::zvm {

/// Which columns of a table are numbers that are asked for.
struct Columns {
  std::size_t count = 0;             ///< of the table
  std::vector<std::size_t> wanted;   ///< from 0, in the order of the table, each once
  std::vector<std::size_t> targets;  ///< x, y, z, variables: positions in `wanted`
  std::vector<bool> logs;            ///< by variable
  std::vector<std::string> names;    ///< of the variables
  bool inSpace = false;
};

/// Finds the columns that are asked for among the names of a table. Throws DataError for one that
/// isn't there, or whose name two columns have, and OptionError for a logarithm of one that is not
/// among the variables.
Columns findColumns(const std::vector<std::string>& names, const ReadOptions& options,
                    const std::string& file);

}  // namespace zevfit::zvm
