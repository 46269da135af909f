#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/fit.h"

namespace zevfit {

/// The texts of the window for the scales of the axes, which keeps them while it is hidden.
struct ScaleTexts {
  std::string caption;
  std::string novoxmax;  ///< new distance maximum
  std::string Labelxm;   ///< the real one
  std::string Label3_1;  ///< what novoymax stands for
  std::string novoymax;  ///< new semivariance limit
  std::string Labelym;   ///< the real one
};

inline constexpr const char* kScaleDistanceCaption = "X - Maximum :";
inline constexpr const char* kScaleLimitCaption = "Y - Maximum :";
inline constexpr const char* kLegendLabel = "h [units]:";
inline constexpr const char* kLegendCaption = "X-Axis  h [units]";

// Handlers of the two windows. A fault passes to the caller.

/// Opens the window for the scales: takes the pair of the lists as that of the last drawing and
/// fills the texts. False, with the plain box of requireFile, when no file is loaded.
bool Command1_Click(Fit& fit, ScaleTexts& texts);
/// The window comes up: says which limit of the current pair it edits.
void cutgraph_Activate(const Session& session, ScaleTexts& texts);
/// Stores the texts in the current pair's axes. False for a number that overflows, for a variance
/// that is a text, and when the limit lies on the wrong side of the variance: that is told, and
/// nothing is stored.
bool cutgraph_Command2_Click(Session& session, Messages& messages, const ScaleTexts& texts);

/// Opens the window for the distance legend: makes the pair of the lists the current one and gives
/// the window's caption; nothing when no file is loaded, which is told.
bool Command4_Click(Fit& fit, std::string& caption);
/// Stores a legend for the current pair, which is then to be drawn anew. False when it is too long:
/// that is told, and an empty legend is stored in its place.
bool legenda_Command2_Click(Session& session, Messages& messages, std::string_view text);

}  // namespace zevfit
