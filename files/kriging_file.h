#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "session/dialogs.h"

/// The kriging parameter file: the nested model of one variable with its ranges along three
/// directions, as text lines that end in carriage return and line feed:
///
///     "ZGRD", the tag of the variogram file, the name of the variable
///     azimuth and dip of Main
///     n, the number of structures with the nugget as one
///     nugget, total sill
///     n - 1 structures: model code (1 spherical, 2 exponential, 3 Gaussian, 4 power), sill, range
///         along Main, and the ratios of that range to those along Minor 1 and Minor 2
///     azimuth and dip of Minor 1, of Minor 2
namespace zevfit {

/// Tells whether three directions are orthogonal. Azimuth and dip in degrees, the azimuth clockwise
/// from north, the dip downward positive.
class Orthogonality {
 public:
  virtual ~Orthogonality() = default;
  /// 0 when they are not. Where both minor directions have the same angles the model lies in a
  /// plane, and Main against Minor 1 decides.
  virtual std::int16_t Normal_verif(float mainAzimuth, float mainDip, float minor1Azimuth,
                                    float minor1Dip, float minor2Azimuth,
                                    float minor2Dip) const = 0;
};

/// The fields of one direction: azimuth, dip, and the ranges of three structures.
using AxisTexts = std::array<std::string, 5>;
inline constexpr std::size_t kAzimuth = 0, kDip = 1, kFirstRange = 2;

/// What the file is made of; all texts as the results window shows them.
struct KrigingModel {
  std::string filetag;
  std::string variable;
  AxisTexts main, minor1, minor2;
  /// The row that was transferred as Main, 1 to 12: nugget; code, sill and range of each structure;
  /// total sill; largest range. Slot 0 is not used.
  std::array<std::string, 13> rowcells;
};

/// Checks the model, asks for the file, writes it and tells so, all through `dialogs`. The file is
/// replaced whole or left as it was; a failure to write it ends silently. Angles that overflow pass
/// to the caller as a Fault.
void saveKrigingFile(const KrigingModel& model, const Orthogonality& orthogonality,
                     Dialogs& dialogs);

}  // namespace zevfit
