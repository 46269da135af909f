#include "files/kriging_file.h"

#include <filesystem>
#include <optional>

#include "files/output_file.h"
#include "session/fault.h"
#include "session/illegal_value.h"
#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {
namespace {

constexpr const char* kTitle = "Save Output File (*.ZVP)";
constexpr const char* kPattern = "*.ZVP";
constexpr const char* kRatioPattern = "####.####";
constexpr int kStructures = 3;

/// What is said of directions and structures; the misspellings are the program's own.
constexpr const char* kNotInPlane = "Main / Minor 1 directions are not orthogonals !";
constexpr const char* kNotInSpace = "Main / Minor 1 / Minor 2 directions are not orthogonals !";
constexpr const char* kOtherThanMinor1 =
    "Wrong number of structures between Main Direction and Minor1 Direction!";
constexpr const char* kOtherThanMinor2 =
    "Wrong number of structures between Main Direction and Minor2 Direction!";
constexpr const char* kNuggetAlone = "Atention:You have only one structure (C0) !";

/// The azimuth of Minor 2 alone is single.
struct Angles {
  double mainAzimuth, mainDip, minor1Azimuth, minor1Dip;
  float minor2Azimuth;
  double minor2Dip;
};

/// Ratios of the Main range to those of the minor directions, by structure.
struct Ratios {
  std::array<double, kStructures> minor1{}, minor2{};
};

Angles anglesOf(const KrigingModel& model) {
  return {leadingNumber(model.main[kAzimuth]),
          leadingNumber(model.main[kDip]),
          leadingNumber(model.minor1[kAzimuth]),
          leadingNumber(model.minor1[kDip]),
          toSingle(leadingNumber(model.minor2[kAzimuth])),
          leadingNumber(model.minor2[kDip])};
}

bool orthogonal(const Angles& a, const Orthogonality& routine) {
  return routine.Normal_verif(toSingle(a.mainAzimuth), toSingle(a.mainDip),
                              toSingle(a.minor1Azimuth), toSingle(a.minor1Dip), a.minor2Azimuth,
                              toSingle(a.minor2Dip)) != 0;
}

/// In single precision, as the test of right angles compares them.
bool sameMinors(const Angles& a) {
  return toSingle(a.minor1Azimuth) == a.minor2Azimuth &&
         toSingle(a.minor1Dip) == toSingle(a.minor2Dip);
}

struct AxisName {
  AxisTexts KrigingModel::*fields;
  const char* name;
};
constexpr std::array<AxisName, 3> kAxisNames{{{&KrigingModel::main, "Main"},
                                              {&KrigingModel::minor1, "minor1"},
                                              {&KrigingModel::minor2, "minor2"}}};
constexpr std::array<const char*, 2> kAngleNames{"azimuth", "dip"};

/// The number of a text fits single precision, in which angles are tested.
bool isAngle(std::string_view text) {
  return attempt(
      [&] {
        toSingle(leadingNumber(text));
        return true;
      },
      [] { return false; });
}

double range(const AxisTexts& axis, int structure) {
  return leadingNumber(axis.at(kFirstRange + static_cast<std::size_t>(structure)));
}

/// The structures of a direction, the nugget as one; 0 for a pattern of ranges with a gap.
int structureCount(const AxisTexts& axis) {
  const bool first = range(axis, 0) != 0, second = range(axis, 1) != 0, third = range(axis, 2) != 0;
  if (first && second && third) return 4;
  if (first && second) return 3;
  if (first && !third) return 2;
  if (!first && !second && !third) return 1;
  return 0;
}

/// Errors of the count are ignored, as told at the save.
int countOf(const AxisTexts& axis) {
  int count = 0;
  endSilently([&] { count = structureCount(axis); });
  return count;
}

/// The sills of the row, joined without a separator, read as 0. A "-" in front, of a missing first
/// structure, makes them 0 whatever stands behind it, even digits that would read as a number.
bool rowIsEmpty(const KrigingModel& model) {
  if (model.rowcells.at(3) == "-") return true;
  std::string joined;
  for (const std::size_t cell : {3U, 6U, 9U, 11U}) joined += model.rowcells.at(cell);
  return leadingNumber(joined) == 0;
}

/// A structure without a range along one of the directions has ratios of 0.
void fillRatios(const KrigingModel& model, int structure, Ratios& ratios) {
  const double main = range(model.main, structure);
  const double minor1 = range(model.minor1, structure);
  const double minor2 = range(model.minor2, structure);
  if (main == 0 || minor1 == 0 || minor2 == 0) return;
  const auto at = static_cast<std::size_t>(structure);
  endSilently([&] { ratios.minor1.at(at) = divide(main, minor1); });
  endSilently([&] { ratios.minor2.at(at) = divide(main, minor2); });
}

void putLine(std::string& out, std::string_view text) {
  out += text;
  out += kLineEnd;
}

void putStructure(std::string& out, const KrigingModel& model, int structure,
                  const Ratios& ratios) {
  const auto at = static_cast<std::size_t>(structure);
  std::string line = model.rowcells.at(3 * at + 2);
  for (const std::string& field :
       {model.rowcells.at(3 * at + 3), fileNumber(range(model.main, structure)),
        formatNumber(ratios.minor1.at(at), kRatioPattern),
        formatNumber(ratios.minor2.at(at), kRatioPattern)}) {
    nextPrintZone(line, 0);
    line += field;
  }
  putLine(out, line);
}

/// What the file tells of the structures: their number with the nugget as one, and the ratios.
struct Structures {
  int count = 0;
  Ratios ratios;
};

/// A nugget alone shows one structure without a range.
Structures structuresOf(const KrigingModel& model) {
  Structures structures{countOf(model.main), {}};
  if (structures.count == 1) {
    structures.ratios.minor1[0] = structures.ratios.minor2[0] = 1;
    structures.count = 2;
    return structures;
  }
  for (int structure = 0; structure < structures.count - 1; ++structure)
    endSilently([&] { fillRatios(model, structure, structures.ratios); });
  return structures;
}

}  // namespace

std::optional<std::string> illegalAngle(const KrigingModel& model) {
  for (const auto& [fields, axis] : kAxisNames) {
    for (const std::size_t entry : {kAzimuth, kDip}) {
      const std::string& text = (model.*fields).at(entry);
      if (!isAngle(text))
        return illegalValue(kAngleNames.at(entry) + (" of " + std::string(axis)) + " Direction",
                            text);
    }
  }
  return std::nullopt;
}

std::optional<std::string> angleRefusal(const KrigingModel& model,
                                        const Orthogonality& orthogonality) {
  const Angles angles = anglesOf(model);
  if (orthogonal(angles, orthogonality)) return std::nullopt;
  return sameMinors(angles) ? kNotInPlane : kNotInSpace;
}

std::optional<std::string> structureRefusal(const KrigingModel& model, std::string_view fileName) {
  const int main = countOf(model.main), minor1 = countOf(model.minor1);
  bool empty = false;
  if (minor1 == 1) endSilently([&] { empty = rowIsEmpty(model); });
  if (empty)
    return "File ' " + std::string(fileName) + " ' have no parameters, please run  zevFIT program!";
  if (main != minor1) return kOtherThanMinor1;
  if (main != countOf(model.minor2)) return kOtherThanMinor2;
  return std::nullopt;
}

bool isNuggetAlone(const KrigingModel& model) { return countOf(model.main) == 1; }

std::string composeKrigingFile(const KrigingModel& model) {
  const Angles angles = anglesOf(model);
  const Structures structures = structuresOf(model);
  std::string out;
  putLine(out, "ZGRD");
  putLine(out, model.filetag);
  putLine(out, model.variable);
  putLine(out, fileNumber(angles.mainAzimuth));
  putLine(out, fileNumber(angles.mainDip));
  putLine(out, fileNumber(static_cast<double>(structures.count)));
  putLine(out, fileNumber(leadingNumber(model.rowcells.at(1))));
  putLine(out, model.rowcells.at(11));
  for (int structure = 0; structure < structures.count - 1; ++structure)
    putStructure(out, model, structure, structures.ratios);
  putLine(out, fileNumber(angles.minor1Azimuth));
  putLine(out, fileNumber(angles.minor1Dip));
  putLine(out, fileNumber(angles.minor2Azimuth));
  putLine(out, fileNumber(angles.minor2Dip));
  return out;
}

void saveKrigingFile(const KrigingModel& model, const Orthogonality& orthogonality,
                     Messages& messages, FileChooser& chooser) {
  if (const auto illegal = illegalAngle(model)) return messages.warning(*illegal);
  if (const auto refused = angleRefusal(model, orthogonality)) return messages.plain(*refused);
  const std::optional<std::string> path = chooser.saveFile(kTitle, kPattern);
  if (!path) return;
  const std::string name = std::filesystem::path(*path).filename().string();
  if (const auto refused = structureRefusal(model, name)) return messages.warning(*refused);
  if (isNuggetAlone(model)) messages.warning(kNuggetAlone);
  messages.plain(attempt(
      [&] {
        saveWhole(*path, composeKrigingFile(model));
        return "File  ' " + name + " '  is saved, you can go on to simulation/kriging modules.";
      },
      [&] { return "Cannot save file: " + name; }));
}

}  // namespace zevfit
