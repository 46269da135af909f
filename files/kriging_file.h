#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "files/orthogonality.h"
#include "session/axis.h"
#include "session/file_chooser.h"
#include "session/messages.h"

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

/// The fields of one direction: azimuth, dip, and the ranges of three structures.
using AxisTexts = std::array<std::string, kAxisEntries>;

/// What the file is made of; all texts as the results window shows them.
struct KrigingModel {
  std::string filetag;
  std::string variable;
  AxisTexts main, minor1, minor2;
  /// The row that was transferred as Main, 1 to 12: nugget; code, sill and range of each structure;
  /// total sill; largest range. Slot 0 is not used.
  std::array<std::string, 13> rowcells;
};

/// An angle that overflows single precision, as a warning names it; nothing where there is none.
std::optional<std::string> illegalAngle(const KrigingModel& model);
/// Why the directions of a model make no file, as a box tells it; nothing where they are at right
/// angles. Throws Fault for what illegalAngle names.
std::optional<std::string> angleRefusal(const KrigingModel& model,
                                        const Orthogonality& orthogonality);
/// Why its structures make none, as a warning tells it; nothing where the directions have the same
/// number. `fileName` stands in one of the warnings.
std::optional<std::string> structureRefusal(const KrigingModel& model, std::string_view fileName);
/// No direction has a structure but the nugget, which is warned of.
bool isNuggetAlone(const KrigingModel& model);

/// The bytes of the file, for a model that nothing refuses. Throws Fault for numbers that overflow.
std::string composeKrigingFile(const KrigingModel& model);

/// Checks the model, asks for the file, writes it as saveWhole does and tells so, or that it can't
/// be written.
void saveKrigingFile(const KrigingModel& model, const Orthogonality& orthogonality,
                     Messages& messages, FileChooser& chooser);

}  // namespace zevfit
