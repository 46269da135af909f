#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/model_cells.h"
#include "session/session.h"

namespace zevfit {

/// The models that stand in the loaded file, kept to be held against those of the session as often
/// as these change.
class FileModels {
 public:
  /// The file has the models of the first `variables` variables as they stand.
  void take(const Session& session, std::int64_t variables);
  /// A save of the first `variables` variables would give the file other models or other variables.
  /// What lines hold that are not used does not count, since no save writes it.
  bool differFrom(const Session& session, std::int64_t variables) const;

 private:
  struct Variable {
    std::string name;
    std::vector<ModelCells> models;  ///< by directions
  };

  static bool isSame(const LineCells& kept, const Session& session, Pair pair, Line which);
  static bool isSame(const Variable& kept, const Session& session, std::int64_t variable);

  std::vector<Variable> variables_;
};

}  // namespace zevfit
