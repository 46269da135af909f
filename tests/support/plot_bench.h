#pragma once

#include <gtest/gtest.h>
#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "plot/drawing/drawing_depth.h"
#include "plot/drawing/plot_variogram.h"
#include "tests/support/fit_fixture.h"
#include "tests/support/memory_plot_window.h"
#include "tests/support/model_lines.h"

namespace zevfit {

// Colours and fonts that tell where a drawing took them from.
inline constexpr Colour kText = 1, kData = 2, kCurve = 3, kSill = 4, kBackground = 5, kGrid = 6;
inline const Font kTitleFont{"Title Face", 11};
inline const Font kNumberFont{"Number Face", 8};
inline const Font kLegendFont{"Legend Face", 7};
inline const Font kGammaFont{"Symbol", 7};

/// The pair under work of the sample.
inline constexpr std::int64_t kVariable = 1, kDirection = 2;
inline constexpr Pair kPair{kVariable, kDirection};

struct LagClass {
  double h;
  double gamma;
  float pairs;
};

/// Writes the classes of a pair from class 1 on.
inline void setClasses(Session& session, Pair pair, const std::vector<LagClass>& classes) {
  std::int64_t lag = 0;
  for (const LagClass& one : classes) {
    ++lag;
    session.hlag.set(pair, lag, one.h);
    session.gam.set(pair, lag, one.gamma);
    session.npairs.set(pair, lag, one.pairs);
  }
}

inline void setStyle(Session& session) {
  session.style.cores = {kText, kData, kCurve, kSill, kBackground};
  session.axiscolor = kGrid;
  const Font fonts[] = {kTitleFont, kNumberFont, kLegendFont};
  for (std::size_t i = 0; i < 3; ++i) {
    session.style.Formfont.Label2.at(i).fontname = fonts[i].name;
    session.style.Formfont.Label2.at(i).fontsize = fonts[i].size;
  }
}

/// A loaded file of variables zinc and lead in two directions; distances up to 100, semivariances
/// from 0 to 10, so that in a window of standard size a unit of distance is 48.68 and a unit of
/// semivariance 252. The pair under work has a nugget of 2 and the variance 5.
inline Session plotSample() {
  Session session;
  setStyle(session);
  session.loaded = true;
  session.nvar = session.nvarfile = 2;
  session.ndir = 2;
  session.nclass = 4;
  resetFitState(session);
  session.hlag.create(4);
  session.gam.create(4);
  session.npairs.create(4);
  session.varname(1) = " zinc ";
  session.varname(2) = "lead";
  session.dirname(1) = "0 0 N";
  session.dirname(2) = "45 0 NE";
  session.variance(1) = 5;
  session.variance(2) = 7.5;
  for (std::int64_t v = 1; v <= 2; ++v) {
    for (std::int64_t d = 1; d <= 2; ++d) {
      session.hmax({v, d}) = 100;
      session.ymax({v, d}) = 10;
    }
  }
  setClasses(session, kPair, {{10, 2, 5}, {25, 4, 7}, {50, 8, 3}, {75, 6, 1}});
  setNugget(session, kPair, 2);
  session.setCurrent(kPair);
  return session;
}

/// The sample with controls, windows and the drawing routine, and no screen.
struct PlotBench : Plotter {
  Session session = plotSample();
  MemoryPanel panel;
  test::ScriptedDialogs dialogs;
  MemoryPlotWindows windows;
  Fit fit{session, panel, *this, dialogs};
  int drawings = 0;
  DrawingDepth depth;

  PlotBench() {
    connectPanel(panel, fit);
    panel.fillList(List::Combo2, 2);
    panel.fillList(List::Combodirvar, 2);
  }
  PlotBench(const PlotBench&) = delete;
  PlotBench& operator=(const PlotBench&) = delete;
  ~PlotBench() override = default;

  void plotvariogram() override {
    ++drawings;
    const DrawingDepth::Level level(depth);
    zevfit::plotvariogram(fit, windows);
  }
  /// Draws as the main window does, which then shows the window.
  void draw() {
    plotvariogram();
    window().isVisible = true;
  }

  MemoryPlotWindow& window(Pair pair = kPair) { return windows.plotwin(pair); }
  const Operations& operations() { return window().surface.operations; }

  /// The flag of structure 1 set and its letter none: the curve then is what its row holds.
  void setCurve(const std::vector<std::pair<int, double>>& samples, double elsewhere) {
    session.use0(kPair) = 0;
    session.use1(kPair) = 1;
    session.curverow[1].fill(elsewhere);
    for (const auto& [sample, gamma] : samples) session.curverow[1](sample) = gamma;
  }
};

/// Names the first operation that differs.
inline void expectOperations(const Operations& drawn, const Operations& expected) {
  for (std::size_t i = 0; i < std::min(drawn.size(), expected.size()); ++i)
    ASSERT_EQ(drawn[i], expected[i]) << "operation " << i;
  EXPECT_EQ(drawn.size(), expected.size());
}

/// The lines of one colour.
inline std::vector<LineOf> linesOf(const Operations& operations, Colour colour) {
  std::vector<LineOf> lines = only<LineOf>(operations);
  std::erase_if(lines, [=](const LineOf& line) { return line.stroke.colour != colour; });
  return lines;
}

/// The discs of the data: all but the first one, the symbol of the legend.
inline std::vector<DiscOf> pointsOf(const Operations& operations) {
  std::vector<DiscOf> discs = only<DiscOf>(operations);
  if (!discs.empty()) discs.erase(discs.begin());
  return discs;
}

/// The axis numbers as they stand, without the one at the origin: those of the distances, then
/// those of the semivariances from the top.
inline std::vector<TextOf> numbersOf(const Operations& operations) {
  std::vector<TextOf> texts = only<TextOf>(operations);
  std::erase_if(texts, [](const TextOf& text) { return text.font != kNumberFont; });
  if (!texts.empty()) texts.erase(texts.begin());
  return texts;
}

/// The texts of this wording.
inline std::vector<TextOf> textsNamed(const Operations& operations, std::string_view text) {
  std::vector<TextOf> texts = only<TextOf>(operations);
  std::erase_if(texts, [=](const TextOf& one) { return one.text != text; });
  return texts;
}

}  // namespace zevfit
