#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "files/kriging_file.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"

namespace zevfit::test {

using Boxes = std::vector<std::string>;

inline const std::string kAsked = "save: Save Output File (*.ZVP)|*.ZVP";

/// Answers as told, and keeps what it was asked.
class FixedAnswer : public Orthogonality {
 public:
  explicit FixedAnswer(std::int16_t answer = 1) : answer_(answer) {}
  std::int16_t Normal_verif(float a, float b, float c, float d, float e, float f) const override {
    asked = {a, b, c, d, e, f};
    return answer_;
  }
  mutable std::vector<float> asked;

 private:
  std::int16_t answer_;
};

/// A row as the results window hands it over: nugget, three times code, sill and range, total sill,
/// largest range.
inline std::array<std::string, 13> row(const std::array<std::string, 12>& cells) {
  std::array<std::string, 13> made;
  for (std::size_t i = 0; i < cells.size(); ++i) made.at(i + 1) = cells.at(i);
  return made;
}

/// Three structures in a plane: Main 45, Minor 135.
inline KrigingModel threeStructures() {
  KrigingModel model;
  model.filetag = "zevRA1";
  model.variable = "ln zinc";
  model.main = {"45", "0", "100", "250.5", "1000"};
  model.minor1 = {"135", "0", "40", "250.5", "4000"};
  model.minor2 = {"135", "0", "40", "167", "3000"};
  model.rowcells =
      row({"0.1", "1", "0.5", "100", "2", "0.25", "250.5", "4", "1.5", "1000", "2.35", "1000"});
  return model;
}

/// A save of a model into a folder of its own, by way of its dialogs.
struct Save {
  explicit Save(KrigingModel of, std::int16_t orthogonal = 1)
      : model(std::move(of)), orthogonality(orthogonal) {
    dialogs.saved = {(folder / "out.ZVP").string()};
  }
  /// The boxes that it shows.
  Boxes run() {
    dialogs.shown.clear();
    saveKrigingFile(model, orthogonality, dialogs, dialogs);
    return dialogs.shown;
  }
  bool made() const { return std::filesystem::exists(folder / "out.ZVP"); }
  std::string bytes() const { return contentOf(folder / "out.ZVP"); }

  ScratchFolder folder;
  KrigingModel model;
  FixedAnswer orthogonality;
  ScriptedDialogs dialogs;
  std::string saved =
      "plain: File  ' out.ZVP '  is saved, you can go on to simulation/kriging modules.";
};

}  // namespace zevfit::test
