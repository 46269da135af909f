#include "zvm/exchange/import_fields.h"

#include <cmath>

#include "zvm/points/field.h"
#include "zvm/points/rows.h"

namespace zevfit::exchange {
namespace {

/// Up to here a double tells whole numbers apart.
constexpr double kMostPairs = 9007199254740992.0;

}  // namespace

double numberIn(const ListedField& field) {
  const std::string text = zvm::unquoted(field.text);
  const zvm::Field read = zvm::readField(text, {});
  if (read.refusal) throw zvm::DataError(field.place, *read.refusal);
  if (std::isnan(read.value)) throw zvm::DataError(field.place, '`' + text + "` is no number");
  return read.value;
}

std::uint64_t pairsIn(const ListedField& field) {
  const double pairs = numberIn(field);
  if (pairs < 0 || pairs > kMostPairs || pairs != std::floor(pairs))
    throw zvm::DataError(field.place, '`' + zvm::unquoted(field.text) + "` is no number of pairs");
  return static_cast<std::uint64_t>(pairs);
}

}  // namespace zevfit::exchange
