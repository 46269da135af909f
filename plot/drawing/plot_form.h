#pragma once

#include <cstdint>

#include "session/session.h"

namespace zevfit {

/// What texts of one kind have different from those of a plot on the screen.
struct TextForm {
  double right = 0, down = 0;  ///< from their place on the screen
  float size = 0;              ///< in points; 0: that of the style
};

/// What one kind of picture of a plot has different from another.
struct PlotForm {
  double discRadius = 0;  ///< data points and their legend symbol
  /// By this width the variable's name is centred; 0: the name, as wide as it really is, ends where
  /// its middle would be.
  double nameCharacterWidth = 0;
  /// Whether the legend shows the sill.
  bool (*legendShowsSill)(const Session& session, Pair pair) = nullptr;
  /// Behind the legend's sill the variable's name keeps the colour of that.
  bool nameKeepsColour = false;
  bool bold = false;  ///< all texts
  TextForm title{}, caption{}, name{}, argument{}, distanceLegend{};
  TextForm origin{}, distanceNumber{}, semivarianceNumber{};
};

/// A plot in its window.
extern const PlotForm kScreenPlot;
/// The picture of the format window.
extern const PlotForm kPreviewPlot;
/// A plot on a sheet of one or two columns, and the smaller one on a sheet of three.
extern const PlotForm kPrintedPlot, kSmallPrintedPlot;

/// No text but titles and printed names is measured: a character is taken to be that wide.
inline constexpr double kCharacterWidth = 150;

/// The fonts of a plot, entries of the style's samples.
enum class FontRole { title, numbers, legend };

/// A text of a plot in the form of its kind.
struct TextKind {
  FontRole role;
  TextForm PlotForm::*form;
};
inline constexpr TextKind kTitle{FontRole::title, &PlotForm::title};
inline constexpr TextKind kCaption{FontRole::legend, &PlotForm::caption};
inline constexpr TextKind kName{FontRole::legend, &PlotForm::name};
inline constexpr TextKind kArgument{FontRole::legend, &PlotForm::argument};
inline constexpr TextKind kDistanceLegend{FontRole::legend, &PlotForm::distanceLegend};
inline constexpr TextKind kOrigin{FontRole::numbers, &PlotForm::origin};
inline constexpr TextKind kDistanceNumber{FontRole::numbers, &PlotForm::distanceNumber};
inline constexpr TextKind kSemivarianceNumber{FontRole::numbers, &PlotForm::semivarianceNumber};

}  // namespace zevfit
