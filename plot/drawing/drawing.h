#pragma once

#include <cstdint>
#include <string_view>

#include "plot/drawing/geometry.h"
#include "plot/drawing/plot_form.h"
#include "plot/drawing/plot_window.h"
#include "plot/drawing/surface.h"

namespace zevfit {

/// One drawing under way. The pair is `plotvar`, `plotdir` of the session; cells, style and sizes
/// are read at each use, since steps of a drawing run handlers that change them.
struct Drawing {
  Session& tables;
  PlotPicture& target;
  const PlotForm& form;
  double curvex = 0, curvey = 0;  ///< where the next piece of the model curve begins
  std::uint32_t clears = 0;       ///< of the picture, that of this drawing included

  Session& session() const { return tables; }
  const ColourSwatches& colours() const { return tables.style.cores; }
  PlotBox box() const { return {target.pictureWidth(), target.pictureHeight()}; }
  /// The maps of the picture as it stands.
  PlotMap map() const;
  /// The pair's cell of a table.
  template <class Table>
  auto& cell(Table AxisTables::*table) const {
    return (tables.*table)(tables.plotted());
  }
  std::string_view variableName() const;
  std::string_view directionName() const;
  bool hasModel() const;

  /// The font that the style has for it.
  Font styleFont(FontRole role) const;
  /// The same in the form of this picture.
  Font font(const TextKind& kind) const;
  /// At its place on the screen, which the form of this picture may shift.
  void text(const TextKind& kind, double x, double y, std::string_view text, Colour colour) const;
  /// Sets the pen that stays on the picture until a step sets it anew.
  void setPen(int width, LineStyle style) const;
  /// Lines and discs take the width and the style of that pen.
  void line(double x1, double y1, double x2, double y2, Colour colour) const;
  void disc(double x, double y, Colour colour) const;
};

/// Half the width that a text is taken to have.
double halfWidth(std::string_view text, double characterWidth);

}  // namespace zevfit
