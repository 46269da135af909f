#include "report/printed_plot.h"

#include "model/refresh.h"
#include "plot/drawing/data_steps.h"
#include "plot/drawing/frame.h"
#include "plot/drawing/plot_variogram.h"
#include "plot/drawing/window_steps.h"
#include "report/collection.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// A part of a sheet as a surface of its own. Nothing is cut off at its edges.
class SheetPart : public Surface {
 public:
  SheetPart(Surface& sheet, double left, double top, double width)
      : sheet_(sheet), left_(left), top_(top), width_(width) {}

  double width() const { return width_; }
  double height() const { return width_ / kPlotAspect; }

  void clear(Colour background) override { box(0, 0, width(), height(), background); }
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
    sheet_.text(left_ + x, top_ + y, text, font, colour);
  }
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override {
    sheet_.line(left_ + x1, top_ + y1, left_ + x2, top_ + y2, stroke);
  }
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override {
    sheet_.disc(left_ + x, top_ + y, radius, outline, fill);
  }
  void box(double left, double top, double wide, double high, Colour fill) override {
    sheet_.box(left_ + left, top_ + top, wide, high, fill);
  }
  double textWidth(std::string_view text, const Font& font) override {
    return sheet_.textWidth(text, font);
  }

 private:
  Surface& sheet_;
  double left_, top_, width_;
};

/// Titles are measured in the plot window of the pair, as on the screen.
class PrintedPicture : public PlotPicture {
 public:
  PrintedPicture(Collection& reports, SheetPart& part, Pair pair)
      : reports_(reports), part_(part), pair_(pair) {}

  double pictureWidth() const override { return part_.width(); }
  double pictureHeight() const override { return part_.height(); }
  Surface& picture() override { return part_; }
  PenState& pen() override { return reports_.pen; }
  double measureTitle(std::string_view text, const Font& font) override {
    return reports_.plots.plotwin(pair_).measureTitle(text, font);
  }

 private:
  Collection& reports_;
  SheetPart& part_;
  Pair pair_;
};

const PlotForm& printedForm(const Collection& reports) {
  const bool small = reports.tables.reportcolumns(reports.window.tab() - 1) == 3;
  return small ? kSmallPrintedPlot : kPrintedPlot;
}

/// No fit control but the variance follows a printed plot.
void printData(Fit& fit, Drawing& drawing) {
  startDistanceAxis(drawing);
  sampleModel(fit);
  showVariance(fit);
  drawContent(drawing);
}

}  // namespace

void imprimirvariograma(Collection& reports, double width, double left, double top, Pair pair) {
  if (!requireFile(reports.fit)) return;
  SheetPart part(reports.printer.sheet(), left, top, width);
  part.clear(kWhite);
  selectFirstStructure(reports.fit, pair);
  reports.fit.session.setPlotted(pair);
  PrintedPicture picture(reports, part, pair);
  Drawing drawing{reports.fit.session, picture, printedForm(reports)};
  drawTitle(drawing);
  drawFrame(drawing);
  endSilently([&] { printData(reports.fit, drawing); });
}

}  // namespace zevfit
