#pragma once

#include <cstdint>
#include <string_view>

#include "model/fit.h"
#include "plot/geometry.h"
#include "plot/plot_window.h"
#include "plot/surface.h"

namespace zevfit {

/// What one kind of picture of a plot has different from another.
struct PlotForm {
  double discRadius;          ///< data points and their legend symbol
  double nameCharacterWidth;  ///< of the variable's name, which is centred by it
  /// Whether the legend shows the sill, for (variable, direction).
  bool (*legendShowsSill)(const Session& session, std::int64_t variable, std::int64_t direction);
};

/// The fonts of a plot, entries of the style's samples.
enum class FontRole { title, numbers, legend };

/// One drawing under way. The pair is `plotvar`, `plotdir` of the session; cells, style and sizes
/// are read at each use, since steps of a drawing run handlers that change them.
struct Drawing {
  Fit& fit;
  PlotWindow& window;
  const PlotForm& form;
  double curvex = 0, curvey = 0;  ///< where the next piece of the model curve begins
  std::uint32_t clears = 0;       ///< of the picture, that of this drawing included

  Session& session() const { return fit.session; }
  const ColourSwatches& colours() const { return fit.session.style.cores; }
  PlotBox box() const { return {window.pictureWidth(), window.pictureHeight()}; }
  /// The maps of the picture as it stands.
  PlotMap map() const;
  /// The pair's cell of a table.
  template <class T>
  T& cell(PairTable<T> Session::*table) const {
    return (fit.session.*table)(fit.session.plotvar, fit.session.plotdir);
  }
  std::string_view variableName() const;
  std::string_view directionName() const;
  bool hasModel() const;

  Font font(FontRole role) const;
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) const;
  /// Sets the pen that stays on the picture until a step sets it anew.
  void setPen(int width, LineStyle style) const;
  /// Lines and discs take the width and the style of that pen.
  void line(double x1, double y1, double x2, double y2, Colour colour) const;
  void disc(double x, double y, Colour colour) const;
};

/// Half the width that a text is taken to have: no text but the title is measured.
inline constexpr double kCharacterWidth = 150;
double halfWidth(std::string_view text, double characterWidth);

}  // namespace zevfit
