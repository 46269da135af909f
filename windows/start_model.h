#pragma once

#include <functional>
#include <optional>
#include <string>

#include "model/fit.h"
#include "session/model_cells.h"

namespace zevfit {

/// The command Start model: fits a model to the current pair and fills it in as the user would, as
/// one step that the same command takes back as long as nothing of that model was changed since.
class StartModel {
 public:
  /// `misfit`: that of the plot on show; `tell`: says something at the foot.
  StartModel(Fit& fit, std::function<std::optional<double>()> misfit,
             std::function<void(const std::string&)> tell);

  /// There is a pair to fit a model to.
  bool isReady() const;
  void run();
  /// The tables hold another file: there is nothing to take back any more.
  void forget() { step_.reset(); }

 private:
  struct Step {
    Pair pair;
    ModelCells before, after;
  };

  bool canTakeBack() const;
  void takeBack();
  void offer();
  /// Fills in a model of the current pair, and remembers the one before.
  void take(const ModelCells& cells);

  Fit& fit_;
  const std::function<std::optional<double>()> misfit_;
  const std::function<void(const std::string&)> tell_;
  std::optional<Step> step_;
};

}  // namespace zevfit
