#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "zvm/exchange/refusal.h"
#include "zvm/experimental/outcome.h"
#include "zvm/points/data_error.h"

namespace zevfit::exchange {

/// A class of pairs as another system lists it.
struct ListedClass {
  double distance = 0, semivariance = 0;
  std::uint64_t pairs = 0;
  zvm::Place distancePlace, pairsPlace;
};

/// A semivariogram in a listing of GSLIB's gamv.
struct GamvListing {
  std::string tail, head;  ///< without blanks around; cut to twelve bytes by gamv
  bool isCross = false;
  std::int64_t direction = 0;        ///< its number, from 1
  std::vector<ListedClass> classes;  ///< distance 0, near pairs, and lags 1 and on
  zvm::Place place;                  ///< of the title
};

/// A row of a table that gstat's variogram makes.
struct GstatRow {
  ListedClass lag;
  double azimuth = 0, dip = 0;  ///< degrees; the dip positive up
  std::string id;
  zvm::Place place;  ///< of the id
};

/// What the two systems print. Both throw DataError, with line and column, for what is no such text
/// and for what is no semivariogram: covariances, correlations, relative ones, pseudo
/// cross-variograms, clouds, maps. `file` is named in the message.
std::vector<GamvListing> readGamv(std::string_view bytes, const std::string& file);
std::vector<GstatRow> readGstat(std::string_view bytes, const std::string& file);

/// Semivariograms as a variogram file holds them: pairs counted once, the same number of classes
/// everywhere, those without pairs at their centre.
struct Imported {
  struct Variable {
    std::string first, second;                        ///< the same for a variable by itself
    std::vector<std::vector<zvm::LagClass>> classes;  ///< by direction and class

    bool isCross() const { return first != second; }
  };
  std::vector<Variable> variables;      ///< crosses behind the others
  std::vector<std::string> directions;  ///< "AZ;DIP", azimuth from north, dip positive down
  Warnings warnings;
};

/// The mean of a variable's semivariances by pairs. Over all pairs of its points that is its sample
/// variance, of a cross variable the covariance. 0 where there is no pair.
double meanSemivariance(const Imported::Variable& variable);

/// An option is missing or can't be meant; the text is for the user.
class WrongOption : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a listing of gamv does not tell.
struct GamvOptions {
  std::vector<std::string> directions;  ///< "AZ;DIP" by number; none where there is but one
  std::vector<double> tolerances;       ///< half angles: one for all directions or one for each
  std::optional<double> width;          ///< the lag; only classes without pairs need it
  std::optional<double> lagTolerance;   ///< half of the lag where it is not told
};

/// A cross variable of gstat by its id.
struct ToldCross {
  std::string id, first, second;
};

/// What a table of gstat does not tell.
struct GstatOptions {
  double width = 0;  ///< of its classes
  std::vector<ToldCross> crosses;
};

/// Joins what was read. Throw DataError for what does not fit together and WrongOption.
Imported importGamv(const std::vector<GamvListing>& listings, const GamvOptions& options);
Imported importGstat(const std::vector<GstatRow>& rows, const GstatOptions& options);

}  // namespace zevfit::exchange
