// All directions of a variable in one picture. The picture is 6600 by 3700, so that its box goes
// from 800 to 5800 and from 600 to 3100: 50 to a unit of distance, 250 to one of semivariance.
#include "plot/overlay/overlay.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "plot/overlay/dashes.h"
#include "plot/overlay/looks.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

constexpr double kWidth = 6600, kHeight = 3700;
constexpr Colour kVermillion = 213 + 256 * 94;
const Font kNumberFontSmall{"Number Face", 5};

Operations overlayOf(const Session& session, std::int64_t variable = 1,
                     const Directions& shown = ~Directions()) {
  RecordingSurface surface;
  drawOverlay(session, {.variable = variable, .shown = shown}, surface, kWidth, kHeight);
  return surface.operations;
}

/// With numbers of 100 a character, 5 points.
Session withSmallNumbers() {
  Session session = plotSample();
  session.style.Formfont.Label2[1].fontsize = 5;
  return session;
}

std::vector<std::string> textsIn(const Operations& operations, const Font& font) {
  std::vector<std::string> texts;
  for (const TextOf& text : only<TextOf>(operations))
    if (text.font == font) texts.push_back(text.text);
  return texts;
}

std::vector<BoxOf> squaresOf(const Operations& operations) { return only<BoxOf>(operations); }

TEST(Overlay, AxesOfADirectionEndAtItsLastLagUntilTheyAreSet) {
  Session session = plotSample();
  EXPECT_EQ(axesOf(session, kPair), (AxisRange{100, 0, 10}));
  session.xmax(kPair) = 70;
  EXPECT_EQ(axesOf(session, kPair), (AxisRange{70, 0, 10}));
}

TEST(Overlay, CommonAxesHoldAllOthers) {
  EXPECT_EQ(commonAxes({}), std::nullopt);
  const std::vector<AxisRange> axes{{100, -1, 10}, {70, -3, 12}, {120, 0, 4}};
  EXPECT_EQ(commonAxes(axes), (AxisRange{120, -3, 12}));
}

TEST(Overlay, PointsStandOverTheCommonAxes) {
  Session session = plotSample();
  // Direction 2 is the second look: squares of 104 around their places.
  const Operations all = overlayOf(session);
  EXPECT_EQ(squaresOf(all), (std::vector<BoxOf>{{{1248, 2548}, 104, 104, kVermillion},
                                                {{1998, 2048}, 104, 104, kVermillion},
                                                {{3248, 1048}, 104, 104, kVermillion},
                                                {{4498, 1548}, 104, 104, kVermillion}}));
  // Twice as far and high, by another direction's axes.
  session.xmax({1, 1}) = 200;
  session.ymax({1, 1}) = 20;
  EXPECT_EQ(squaresOf(overlayOf(session)).at(2), (BoxOf{{1998, 2048}, 104, 104, kVermillion}));
}

TEST(Overlay, LeavesOutWhatAPlotLeavesOut) {
  Session session = plotSample();
  setClasses(session, kPair, {{10, 2, 0}, {25, 0, 7}, {50, 10.5, 3}, {101, 6, 1}});
  EXPECT_TRUE(squaresOf(overlayOf(session)).empty());
  session.hlag.set(kPair, 1, Cell::ofText("far"));
  setClasses(session, kPair, {{10, 2, 3}});
  session.hlag.set(kPair, 2, Cell::ofText("far"));
  EXPECT_EQ(squaresOf(overlayOf(session)).size(), 1U) << "a text is left out alone";
}

TEST(Overlay, CurvesAreThoseOfTheModels) {
  Session session = plotSample();
  const std::vector<LineOf> curve = linesOf(overlayOf(session), kVermillion);
  // The nugget of 2 from the first of 100 distances on.
  ASSERT_EQ(curve.size(), 99U);
  EXPECT_EQ(curve.front(), (LineOf{{850, 2600}, {900, 2600}, {kVermillion, 2}}));
  EXPECT_EQ(curve.back(), (LineOf{{5750, 2600}, {5800, 2600}, {kVermillion, 2}}));
}

TEST(Overlay, ACurveIsCutWhereItLeavesTheAxes) {
  Session session = plotSample();
  setNugget(session, kPair, 0);
  // h: 10 at a distance of 10, where the axis ends.
  setStructure(session, kPair, Line::first, "P", 1, 1);
  const std::vector<LineOf> curve = linesOf(overlayOf(session), kVermillion);
  ASSERT_EQ(curve.size(), 9U);
  EXPECT_EQ(curve.back(), (LineOf{{1250, 850}, {1300, 600}, {kVermillion, 2}}));
}

TEST(Overlay, DirectionsThatAreOffAreNotDrawn) {
  const Session session = plotSample();
  const Operations without = overlayOf(session, 1, Directions().set(1));
  EXPECT_TRUE(squaresOf(without).empty());
  EXPECT_TRUE(linesOf(without, kVermillion).empty());
  EXPECT_EQ(overlayOf(session, 1, Directions().set(2)).size(), overlayOf(session).size());
}

TEST(Overlay, ShowsTheVarianceWhereAPlotOfTheVariableDoes) {
  Session session = plotSample();
  for (std::int64_t d = 1; d <= 2; ++d) session.showsill({1, d}) = false;
  EXPECT_TRUE(linesOf(overlayOf(session), kSill).empty());
  session.showsill({1, 1}) = true;
  EXPECT_EQ(linesOf(overlayOf(session), kSill),
            (std::vector<LineOf>{{{5800, 1850}, {800, 1850}, {kSill, 1}}}));
  EXPECT_EQ(shownVariance(session, {.variable = 1}), 5.0);
  session.ymax({1, 1}) = session.ymax({1, 2}) = 4;
  EXPECT_EQ(shownVariance(session, {.variable = 1}), std::nullopt) << "above the axis";
  EXPECT_TRUE(linesOf(overlayOf(session), kSill).empty());
  session.variance(1) = Cell::ofText("much");
  EXPECT_EQ(shownVariance(session, {.variable = 1}), std::nullopt);
}

// The first direction is off, and its axes reach twice as far and high.
TEST(Overlay, SpansWhatItIsToldToSpan) {
  Session session = plotSample();
  session.xmax({1, 1}) = 200;
  session.ymax({1, 1}) = 20;
  const Directions second = Directions().set(2);
  EXPECT_EQ(squaresOf(overlayOf(session, 1, second)).at(2).at, Place(1998, 2048));
  RecordingSurface surface;
  drawOverlay(session, {1, second, second}, surface, kWidth, kHeight);
  EXPECT_EQ(squaresOf(surface.operations).at(2).at, Place(3248, 1048));
  EXPECT_EQ(axesOf(session, OverlayContent{1, second, second}), (AxisRange{100, 0, 10}));
  EXPECT_EQ(axesOf(session, OverlayContent{1, second, {}}), AxisRange{});
}

// 6600 across, less 150 on both sides, have room for 28 characters of 220, of which 16 are others.
TEST(Overlay, ATitleThatIsTooLongEndsWithPoints) {
  Session session = plotSample();
  session.varname(1) = " lognormal zinc ";
  const auto titles = [&] { return textsIn(overlayOf(session), kTitleFont); };
  EXPECT_EQ(titles(), (std::vector<std::string>{"Semivariogram (lognormal...)"}));
  session.varname(1) = "lognormal z";
  EXPECT_EQ(titles(), (std::vector<std::string>{"Semivariogram (lognormal z)"}));
}

// There are 720 beside the axis, and 920 for each number below it.
TEST(Overlay, NumbersThatDoNotFitAreShorter) {
  Session session = withSmallNumbers();
  for (std::int64_t d = 1; d <= 2; ++d) session.ymax({1, d}) = 1e12;
  const auto numbers = textsIn(overlayOf(session), kNumberFontSmall);
  EXPECT_EQ(numbers,
            (std::vector<std::string>{"0", "0", "20.00", "2E+11", "40.00", "4E+11", "60.00",
                                      "6E+11", "80.00", "8E+11", "100.00", "1E+12"}));
}

// 1280 for a number, 920 of room.
TEST(Overlay, NumbersThatHaveNoRoomAreFewer) {
  Session session = plotSample();
  for (std::int64_t d = 1; d <= 2; ++d) {
    session.xmax({1, d}) = 6.15e-5;
    session.ymax({1, d}) = 5;
  }
  EXPECT_EQ(textsIn(overlayOf(session), kNumberFont),
            (std::vector<std::string>{"0", "0", "1.23E-05", "1.00", "2.00", "3.69E-05", "3.00",
                                      "4.00", "6.15E-05", "5.00"}));
}

TEST(Overlay, FrameHasItsPlaces) {
  const Session session = withSmallNumbers();
  const Operations all = overlayOf(session);
  EXPECT_EQ(all.front(), Operation(ClearOf{kBackground}));
  // 20 characters of 220, around the middle.
  EXPECT_EQ(textsNamed(all, "Semivariogram (zinc)"),
            (std::vector<TextOf>{{{1100, 100}, "Semivariogram (zinc)", kTitleFont, kText}}));
  // 5 characters of 100 end 40 left of the axis; 80 above their line.
  EXPECT_EQ(textsNamed(all, "10.00"),
            (std::vector<TextOf>{{{260, 520}, "10.00", kNumberFontSmall, kText}}));
  // 6 characters of 100 around the end of the axis.
  EXPECT_EQ(textsNamed(all, "100.00"),
            (std::vector<TextOf>{{{5500, 3140}, "100.00", kNumberFontSmall, kText}}));
  EXPECT_EQ(linesOf(all, kGrid).size(), 10U);
}

// The distance around the corner, the semivariance to the left of it, one character each.
TEST(Overlay, TheCornerIsNothingInWhateverPattern) {
  Session session = withSmallNumbers();
  const std::vector<TextOf> corner{{{750, 3140}, "0", kNumberFontSmall, kText},
                                   {{660, 3020}, "0", kNumberFontSmall, kText}};
  EXPECT_EQ(textsNamed(overlayOf(session), "0"), corner);
  session.ymin({1, 1}) = -2;
  EXPECT_EQ(textsNamed(overlayOf(session), "0").size(), 1U);
  EXPECT_EQ(textsNamed(overlayOf(session), "-2.00").size(), 1U) << "an end of its own";
}

TEST(Overlay, AxesWithoutALengthLeaveTheFrame) {
  Session session = plotSample();
  for (std::int64_t d = 1; d <= 2; ++d) session.ymax({1, d}) = 0;
  const Operations all = overlayOf(session);
  EXPECT_TRUE(squaresOf(all).empty());
  EXPECT_EQ(linesOf(all, kGrid).size(), 10U);
}

TEST(Overlay, ATextInAModelCostsThatCurveAlone) {
  Session session = plotSample();
  setNugget(session, {1, 1}, Cell::ofText("much"));
  const Operations all = overlayOf(session);
  EXPECT_EQ(linesOf(all, kVermillion).size(), 99U);
  EXPECT_EQ(squaresOf(all).size(), 4U);
}

TEST(Looks, TellAllDirectionsApart) {
  std::set<std::tuple<Colour, Mark, Dash>> all;
  for (std::int64_t d = 1; d < kDirectionSlots; ++d) {
    const Look look = lookOf(d, kBlack);
    all.insert({look.colour, look.mark, look.dash});
  }
  EXPECT_EQ(all.size(), 21U);
  for (std::int64_t first = 1; first + 7 < kDirectionSlots; ++first) {
    std::set<Colour> colours;
    for (std::int64_t d = first; d < first + 8; ++d) colours.insert(lookOf(d, kBlack).colour);
    EXPECT_EQ(colours.size(), 8U) << first;
  }
  for (const std::int64_t first : {1, 9}) {
    std::set<Mark> marks;
    for (std::int64_t d = first; d < first + 8; ++d) marks.insert(lookOf(d, kBlack).mark);
    EXPECT_EQ(marks.size(), 8U) << first;
  }
}

TEST(Looks, BeginWithTheInkAndComeAgainWithOtherMarksAndDashes) {
  EXPECT_EQ(lookOf(1, 77), (Look{77, Mark::disc, Dash::solid}));
  EXPECT_EQ(lookOf(2, 77), (Look{kVermillion, Mark::square, Dash::solid}));
  EXPECT_EQ(lookOf(10, 77), (Look{kVermillion, Mark::plus, Dash::dashed}));
  EXPECT_EQ(lookOf(18, 77), (Look{kVermillion, Mark::star, Dash::dotted}));
}

/// Dashes of 150 and gaps of 90 go on around a corner.
TEST(Dashes, GoOnAroundCorners) {
  RecordingSurface surface;
  const Stroke stroke{kRed, 2};
  DashedLine line(surface, stroke, Dash::dashed);
  line.moveTo(0, 0);
  line.lineTo(400, 0);
  line.lineTo(400, 200);
  EXPECT_EQ(only<LineOf>(surface.operations),
            (std::vector<LineOf>{{{0, 0}, {150, 0}, stroke},
                                 {{240, 0}, {390, 0}, stroke},
                                 {{400, 80}, {400, 200}, stroke}}));
}

TEST(Dashes, AnEmptyOrEndlessLineEnds) {
  RecordingSurface surface;
  DashedLine line(surface, {kRed, 2}, Dash::dotted);
  line.moveTo(5, 5);
  line.lineTo(5, 5);
  EXPECT_TRUE(surface.operations.empty());
  line.lineTo(1e300, 5);
  EXPECT_EQ(surface.operations.size(), 1U);
}

TEST(Looks, ASampleHasItsMarkInTheMiddle) {
  RecordingSurface surface;
  drawSample(surface, lookOf(2, kBlack), 0, 100, 600);
  EXPECT_EQ(surface.operations, (Operations{LineOf{{0, 100}, {600, 100}, {kVermillion, 2}},
                                            BoxOf{{248, 48}, 104, 104, kVermillion}}));
}

}  // namespace
}  // namespace zevfit
