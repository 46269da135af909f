#include "zvm/plotting/pages.h"

#include "files/parameter_file.h"
#include "files/variogram_reader.h"
#include "plot/drawing/geometry.h"
#include "plot/drawing/picture.h"
#include "plot/overlay/legend.h"
#include "session/fault.h"
#include "zvm/plotting/map_drawing.h"

namespace zevfit::plotting {
namespace {

/// From the box of the plot to the legend beside it.
constexpr double kLegendGap = 350;
/// Below a legend.
constexpr double kLegendBottom = 150;

/// A picture by itself, in which titles are as wide as they are drawn.
class Target : public PlotPicture {
 public:
  Target(Surface& surface, double width, double height)
      : surface_(surface), width_(width), height_(height) {}

  double pictureWidth() const override { return width_; }
  double pictureHeight() const override { return height_; }
  Surface& picture() override { return surface_; }
  PenState& pen() override { return pen_; }
  double measureTitle(std::string_view text, const Font& font) override {
    return surface_.textWidth(text, font);
  }

 private:
  Surface& surface_;
  double width_, height_;
  PenState pen_;
};

void drawDirection(const Session& session, const Page& page, Surface& surface, double width,
                   double height) {
  Target target(surface, width, height);
  drawPicture(session, {page.variable, page.direction}, target);
}

/// The legend takes the place of the margin on the right.
void drawDirections(const Session& session, const Page& page, Surface& surface, double width,
                    double height) {
  const OverlayContent content{page.variable, page.shown, page.shown};
  const double wide = legendWidth(session, content, surface, width), left = width - wide;
  drawOverlay(session, content, surface, left - kLegendGap + PlotBox::xmargin, height);
  drawLegend(session, content, surface,
             {left, PlotBox::ytop, wide, height - PlotBox::ytop - kLegendBottom});
}

}  // namespace

std::unique_ptr<Session> sessionOf(const Request& request) {
  auto session = std::make_unique<Session>();
  if (!request.data.empty()) {
    if (!readVariogramBytes(request.data, *session)) throw Fault("No variogram file");
    acceptLoad(*session, "");
  }
  static_cast<void>(readParameters(request.style, session->style));
  return session;
}

void drawPage(const Session& session, const Page& page, Surface& surface, double width,
              double height) {
  if (page.kind == Kind::map && page.map)
    drawMap(session.style, *page.map, surface, width, height);
  else if (page.kind == Kind::overlay)
    drawDirections(session, page, surface, width, height);
  else
    drawDirection(session, page, surface, width, height);
}

}  // namespace zevfit::plotting
