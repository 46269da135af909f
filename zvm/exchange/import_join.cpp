#include "zvm/exchange/import_join.h"

#include <algorithm>
#include <utility>

#include "session/tables.h"

namespace zevfit::exchange {
namespace {

bool isCross(const ImportedBlock& block) { return block.first != block.second; }

Imported::Variable& variableOf(Imported& imported, const ImportedBlock& block) {
  const auto found =
      std::ranges::find_if(imported.variables, [&](const Imported::Variable& variable) {
        return variable.first == block.first && variable.second == block.second;
      });
  if (found != imported.variables.end()) return *found;
  imported.variables.push_back({block.first, block.second, {}});
  imported.variables.back().classes.resize(imported.directions.size());
  return imported.variables.back();
}

std::string textOf(const ImportedBlock& block) {
  return '`' + block.first + (isCross(block) ? '-' + block.second : "") + '`';
}

void add(Imported& imported, const ImportedBlock& block) {
  auto& classes = variableOf(imported, block).classes.at(block.direction);
  if (!classes.empty())
    throw zvm::DataError(block.place, "a second semivariogram of " + textOf(block) +
                                          " in direction " + imported.directions[block.direction]);
  classes = block.classes;
}

void refuseMore(std::size_t count, int most, const char* what) {
  if (count > static_cast<std::size_t>(most))
    throw zvm::DataError({}, std::to_string(count) + ' ' + what + ", and a variogram file holds " +
                                 std::to_string(most));
}

/// Makes the classes of a variable as many as there are anywhere.
void complete(Imported& imported, Imported::Variable& variable, std::size_t count,
              const std::function<double(std::size_t)>& centre) {
  for (std::size_t d = 0; d < imported.directions.size(); ++d) {
    auto& classes = variable.classes[d];
    if (classes.empty())
      imported.warnings.push_back("no semivariogram of `" + variable.first +
                                  (variable.isCross() ? '-' + variable.second : "") +
                                  "` in direction " + imported.directions[d] +
                                  "; its classes are without pairs");
    classes.resize(count);
    for (std::size_t k = 0; k < count; ++k)
      if (classes[k].pairs == 0) classes[k] = {centre(k), 0, 0};
  }
}

}  // namespace

Imported joinBlocks(const std::vector<ImportedBlock>& blocks, std::vector<std::string> directions,
                    const std::function<double(std::size_t)>& centre) {
  refuseMore(directions.size(), kResetDirections, "directions");
  Imported imported;
  imported.directions = std::move(directions);
  std::size_t count = 0;
  for (const bool crosses : {false, true})
    for (const ImportedBlock& block : blocks) {
      if (isCross(block) == crosses) add(imported, block);
      count = std::max(count, block.classes.size());
    }
  if (count == 0) throw zvm::DataError({}, "no class has pairs");
  refuseMore(imported.variables.size(), kResetVariables, "variables");
  for (Imported::Variable& variable : imported.variables)
    complete(imported, variable, count, centre);
  return imported;
}

double meanSemivariance(const Imported::Variable& variable) {
  double sum = 0, pairs = 0;
  for (const auto& classes : variable.classes)
    for (const zvm::LagClass& lag : classes) {
      sum += static_cast<double>(lag.pairs) * lag.semivariance;
      pairs += static_cast<double>(lag.pairs);
    }
  return pairs > 0 ? sum / pairs : 0;
}

}  // namespace zevfit::exchange
