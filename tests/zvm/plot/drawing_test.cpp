// Requests as bytes, legends and maps as operations on a surface.
#include <gtest/gtest.h>

#include <cmath>

#include "plot/overlay/legend.h"
#include "plot/overlay/looks.h"
#include "session/fault.h"
#include "tests/support/recording_surface.h"
#include "zvm/plotting/map_drawing.h"
#include "zvm/plotting/pages.h"

namespace zevfit::plotting {
namespace {

/// Three by three squares; the middle one has no pairs.
Map sampleMap() {
  zvm::SurfaceMap surface{1, 50, std::vector<zvm::SurfaceCell>(9, {2, 30})};
  surface.cells[4] = {};
  surface.cells[3] = surface.cells[5] = {1, 7};
  surface.cells[0] = surface.cells[8] = {3, 120};
  return {"zinc", surface};
}

TEST(PlotRequest, ComesBackFromItsBytes) {
  Request request{Format::png, 9071, 5669, 0.75, 192, "style\n", std::string("a\0\xE9", 3), {}};
  request.pages.push_back({Kind::direction, 2, 3, {}, {}});
  request.pages.push_back({Kind::overlay, 1, 0, Directions().set(1).set(20), {}});
  request.pages.push_back({Kind::map, 0, 0, {}, sampleMap()});
  const Request back = requestOf(bytesOf(request));
  EXPECT_EQ(back.format, Format::png);
  EXPECT_EQ(back.width, 9071);
  EXPECT_EQ(back.scale, 0.75);
  EXPECT_EQ(back.dots, 192);
  EXPECT_EQ(back.style, request.style);
  EXPECT_EQ(back.data, request.data);
  ASSERT_EQ(back.pages.size(), 3U);
  EXPECT_EQ(back.pages[0].direction, 3);
  EXPECT_EQ(back.pages[1].shown, request.pages[1].shown);
  EXPECT_EQ(back.pages[2].map->name, "zinc");
  EXPECT_EQ(back.pages[2].map->surface.cells, request.pages[2].map->surface.cells);
}

TEST(PlotRequest, RefusesOtherBytes) {
  for (const char* bytes : {"x", "5\nabc", "2\n{}", "2\nab", "3", "-1\n"})
    EXPECT_THROW(requestOf(bytes), Fault) << bytes;
  EXPECT_EQ(filesOf(bytesOf(std::vector<std::string>{"", "a\n1\n", "b"})),
            (std::vector<std::string>{"", "a\n1\n", "b"}));
}

TEST(Ramp, GoesFromDarkToLight) {
  constexpr Colour kDark = 68 + 256 * 1 + 65536 * 84, kMiddle = 33 + 256 * 144 + 65536 * 141,
                   kLight = 253 + 256 * 231 + 65536 * 37;
  EXPECT_EQ(rampColour(0), kDark);
  EXPECT_EQ(rampColour(-1), kDark);
  EXPECT_EQ(rampColour(0.5), kMiddle);
  EXPECT_EQ(rampColour(1), kLight);
  // In grey it stays in order.
  double before = -1;
  for (int i = 0; i <= 100; ++i) {
    const Colour c = rampColour(i / 100.0);
    const double grey = 0.299 * (c & 255) + 0.587 * (c >> 8 & 255) + 0.114 * (c >> 16);
    EXPECT_GT(grey, before) << i;
    before = grey;
  }
}

// The picture is 4150 by 3050, so that the squares take 1800 by 1800 from (900, 600) on.
TEST(MapDrawing, HasSquaresNorthUpAndTheirPairs) {
  RecordingSurface surface;
  GraphStyle style;
  style.Formfont.Label2[0].fontsize = 6;
  style.Formfont.Label2[1].fontsize = 3.5;
  drawMap(style, sampleMap(), surface, 4150, 3050);
  const auto boxes = only<BoxOf>(surface.operations);
  ASSERT_EQ(boxes.size(), 9U + 64U);
  // Row by row from the north-west, each over the seam to the next: 3, 2, 2; 1, none, 1; 2, 2, 3.
  EXPECT_EQ(boxes[0], (BoxOf{{900, 600}, 608, 608, rampColour(0.5)}));
  EXPECT_EQ(boxes[2], (BoxOf{{2100, 600}, 600, 608, rampColour(1)}));
  EXPECT_EQ(boxes[3], (BoxOf{{900, 1200}, 608, 608, rampColour(0)}));
  EXPECT_EQ(boxes[4], (BoxOf{{1500, 1200}, 608, 608, kWhite}));
  EXPECT_EQ(boxes[6], (BoxOf{{900, 1800}, 608, 600, rampColour(1)}));
  EXPECT_EQ(boxes[8], (BoxOf{{2100, 1800}, 600, 600, rampColour(0.5)}));
  // There are 300 less 80 from number to number below the map: two of the digits, no decimals.
  std::vector<std::string> texts;
  for (const TextOf& text : only<TextOf>(surface.operations)) texts.push_back(text.text);
  EXPECT_EQ(texts, (std::vector<std::string>{"Semivariogram surface (zinc)",
                                             "30",
                                             "30",
                                             "120",
                                             "7",
                                             "7",
                                             "120",
                                             "30",
                                             "30",
                                             "-50",
                                             "-50",
                                             "-25",
                                             "-25",
                                             "0",
                                             "0",
                                             "25",
                                             "25",
                                             "50",
                                             "50",
                                             "north",
                                             "east",
                                             "1.00",
                                             "1.50",
                                             "2.00",
                                             "2.50",
                                             "3.00",
                                             "g",
                                             "(h)"}));
  // Dark on light squares, light on dark ones; 20 of width a point and a character.
  const auto all = only<TextOf>(surface.operations);
  EXPECT_EQ(all[3].colour, kBlack);
  EXPECT_EQ(all[4].colour, kWhite);
  EXPECT_NEAR(all[4].at.x, 900 + 300 - 3.5 * 20 / 2, 0.01);
}

TEST(MapDrawing, LeavesOutNumbersThatDoNotFit) {
  Map map = sampleMap();
  map.surface.cells[1] = {2, 123456789012};
  RecordingSurface surface;
  drawMap(GraphStyle(), map, surface, 2500, 3050);
  for (const TextOf& text : only<TextOf>(surface.operations)) EXPECT_NE(text.text, "7");
  // One value alone has a scale without a length.
  for (zvm::SurfaceCell& cell : map.surface.cells) cell = {2, 1};
  drawMap(GraphStyle(), map, surface, 4150, 3050);
  EXPECT_EQ(only<BoxOf>(surface.operations).front().fill, rampColour(0));
}

TEST(MapDrawing, StandsMidwayWithATitleThatFits) {
  Map map = sampleMap();
  map.name = "concentration of zinc";
  RecordingSurface surface;
  drawMap(GraphStyle(), map, surface, 6000, 3050);
  // 28 characters of 200 fit into 6000 less twice 150, of which 24 are others.
  EXPECT_EQ(only<TextOf>(surface.operations)[0].text, "Semivariogram surface (c...)");
  // Of 6000 the map with its margins takes 4150.
  EXPECT_EQ(only<BoxOf>(surface.operations)[0].at, Place(900 + 925, 600));
}

TEST(MapDrawing, WritesNumbersThatThePatternCantTell) {
  Map map = sampleMap();
  map.surface.width = 1e-4;
  for (zvm::SurfaceCell& cell : map.surface.cells) cell.semivariance *= 1e-6;
  RecordingSurface surface;
  GraphStyle style;
  style.Formfont.Label2[1].fontsize = 3;
  drawMap(style, map, surface, 4150, 3050);
  std::vector<std::string> numbers;
  for (const TextOf& text : only<TextOf>(surface.operations))
    if (text.font.size == 3.0F && text.text.find("E-") != text.text.npos)
      numbers.push_back(text.text);
  // A number takes 360, and 220 are there: every other one stands below the map, all beside it.
  EXPECT_EQ(numbers,
            (std::vector<std::string>{"-1E-04", "-1E-04", "-5E-05", "5E-05", "1E-04", "1E-04",
                                      "1E-06", "1.5E-06", "2E-06", "2.5E-06", "3E-06"}));
}

/// Three directions of one variable without a variance in sight.
class Legend : public testing::Test {
 protected:
  Legend() {
    session_.ndir = 3;
    session_.dirname(1) = "0;0";
    session_.dirname(2) = " 90;0 ";
    session_.dirname(3) = "135;0";
    for (std::int64_t d = 1; d <= 3; ++d) session_.showsill({1, d}) = false;
  }
  Operations drawn(const LegendBox& box) {
    surface_.operations.clear();
    drawLegend(session_, content_, surface_, box);
    return surface_.operations;
  }
  std::vector<std::string> names(const LegendBox& box) {
    std::vector<std::string> all;
    for (const TextOf& text : only<TextOf>(drawn(box))) all.push_back(text.text);
    return all;
  }

  Session session_;
  OverlayContent content_{1, Directions().set(1).set(2), Directions().set(1).set(2)};
  RecordingSurface surface_;
};

TEST_F(Legend, HasASampleAndANameForEachDirectionThatIsShown) {
  // 600 of the sample, a gap of 100, four letters of 156 in 7.8 points, a margin of 150.
  EXPECT_NEAR(legendWidth(session_, content_, surface_, 9000), 850 + 4 * 156, 0.001);
  EXPECT_EQ(legendWidth(session_, content_, surface_, 900), 300);
  const Operations all = drawn({1000, 600, 1474, 3000});
  const auto texts = only<TextOf>(all);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, "0;0");
  EXPECT_EQ(texts[1].text, "90;0");
  EXPECT_EQ(texts[1].at.x, 1700);
  // From line to line one and a half heights of 156.
  EXPECT_NEAR(texts[1].at.y - texts[0].at.y, 234, 0.01);
  EXPECT_EQ(only<LineOf>(all).front(), (LineOf{{1000, 717}, {1600, 717}, {kBlack, 2}}));
  EXPECT_EQ(only<BoxOf>(all).front().fill, lookOf(2, kBlack).colour);
}

TEST_F(Legend, IsCloserAndSmallerWhereItsHeightIsTooLittle) {
  const auto texts = only<TextOf>(drawn({1000, 600, 1474, 240}));
  EXPECT_NEAR(texts[1].at.y - texts[0].at.y, 120, 0.01);
  // A line takes 1.2 heights of its letters: 100 twips, 5 points.
  EXPECT_NEAR(texts[0].font.size, 5, 0.01);
}

TEST_F(Legend, EndsNamesThatAreTooLongWithPoints) {
  session_.dirname(2) = "across the strike";
  // 850 of the third of 4974 are others; of 808 five letters of 156.
  EXPECT_EQ(legendWidth(session_, content_, surface_, 4974), 1658);
  EXPECT_EQ(names({1000, 600, 1658, 3000}), (std::vector<std::string>{"0;0", "ac..."}));
}

TEST_F(Legend, HasTheVarianceWhereThePictureHasIt) {
  session_.variance(1) = 5;
  session_.ymax({1, 1}) = session_.ymax({1, 2}) = 10;
  session_.showsill({1, 2}) = true;
  EXPECT_EQ(names({1000, 600, 2500, 3000}), (std::vector<std::string>{"0;0", "90;0", "Variance"}));
  EXPECT_EQ(only<LineOf>(drawn({1000, 600, 2500, 3000})).back(),
            (LineOf{{1000, 1185}, {1600, 1185}, {kRed, 1}}));
  session_.variance(1) = 11;
  EXPECT_EQ(names({1000, 600, 2500, 3000}), (std::vector<std::string>{"0;0", "90;0"}));
}

}  // namespace
}  // namespace zevfit::plotting
