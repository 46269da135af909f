// The pictures that `zvm plot` makes, beside kept ones and by what they hold.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <memory>
#include <sstream>

#include "tests/zvm/plot/picture.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

const fs::path kKept = fs::path(ZEVFIT_SOURCE_DIR) / "tests/zvm/plot/kept";

void expectAlike(const std::string& svg, const std::string& kept) {
  const auto is = elementsOf(svg), was = elementsOf(kept);
  ASSERT_EQ(is.size(), was.size());
  for (std::size_t i = 0; i < is.size(); ++i) {
    EXPECT_EQ(is[i].what, was[i].what) << i;
    EXPECT_EQ(is[i].look, was[i].look) << i;
    EXPECT_EQ(is[i].words, was[i].words) << i;
    ASSERT_EQ(is[i].places.size(), was[i].places.size()) << i;
    for (std::size_t k = 0; k < is[i].places.size(); ++k)
      EXPECT_NEAR(is[i].places[k], was[i].places[k], 1) << is[i].what << ' ' << i;
  }
}

TEST_F(Plot, DrawsADirectionAsItIsKept) {
  const std::string svg = drawn(
      {path("a.zvm"), "--var", "zinc", "--dir", "0;0", "--size", "330x185pt"}, "direction.svg");
  expectAlike(svg, contentOf(kKept / "direction.svg"));
  // A picture of 6600 by 3700 has its plot from 800 to 5800 across and from 600 to 3100 down.
  const auto discs = only(elementsOf(svg), "circle", "#008000");
  ASSERT_EQ(discs.size(), 3U) << "the legend and two classes";
  EXPECT_NEAR(discs[1].places.at(0), 3300, 1) << "10 of 20";
  EXPECT_NEAR(discs[2].places.at(0), 5800, 1);
  EXPECT_NEAR((3100 - discs[1].places.at(1)) / (3100 - discs[2].places.at(1)), 0.5 / 1.5, 1e-3);
  // The model at each hundredth of the axis: from 0.2 to 20, above the range at 0.6.
  const auto curves = only(elementsOf(svg), "polyline", "none #0000ff 30");
  ASSERT_EQ(curves.size(), 2U) << "the legend and the curve";
  EXPECT_NEAR(curves[1].places.at(0), 850, 1);
  EXPECT_NEAR(curves[1].places[curves[1].places.size() - 2], 5800, 1);
  EXPECT_NEAR((3100 - curves[1].places.back()) / (3100 - discs[2].places.at(1)), 0.6 / 1.5, 1e-3);
}

TEST_F(Plot, DrawsAllDirectionsAsTheyAreKept) {
  const std::string svg =
      drawn({path("a.zvm"), "--var", "1", "--overlay", "--size", "330x185pt"}, "overlay.svg");
  expectAlike(svg, contentOf(kKept / "overlay.svg"));
  const auto elements = elementsOf(svg);
  // Discs and squares, one of each in the legend.
  EXPECT_EQ(only(elements, "circle", "#000000").size(), 3U);
  EXPECT_EQ(only(elements, "rect", "#d55e00").size(), 3U);
  const auto has = [&](const std::string& words) {
    return std::ranges::count(elements, words, &Element::words) == 1;
  };
  EXPECT_TRUE(has("0;0"));
  EXPECT_TRUE(has("90;0"));
  EXPECT_TRUE(has("Semivariogram (zinc)"));
  const auto one =
      elementsOf(drawn({path("a.zvm"), "--var", "1", "--overlay", "--dir", "2"}, "one.svg"));
  EXPECT_EQ(only(one, "circle", "#000000").size(), 0U);
  EXPECT_EQ(only(one, "rect", "#d55e00").size(), 3U);
  // The axes are those of what is shown: 1 at 20 of the second direction, 1.06 times which is less
  // than 1.06 of 1.5 in the first.
  EXPECT_EQ(wordsOf(elements).count("1.59"), 1U);
  EXPECT_EQ(wordsOf(one).count("1.59"), 0U);
  EXPECT_EQ(wordsOf(one).count("1.06"), 1U);
  EXPECT_EQ(wordsOf(one).count("Variance"), 1U);
}

TEST_F(Plot, DrawsAMapAsItIsKept) {
  auto arguments = mapOptions();
  arguments.push_back(path("map.svg"));
  const Ran run = ran(arguments);
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out, "");
  expectAlike(content("map.svg"), contentOf(kKept / "map.svg"));
  const auto elements = elementsOf(content("map.svg"));
  // The greatest value is that of the step to the north: 12.5, once up and once down.
  EXPECT_EQ(only(elements, "rect", "#fde725").size(), 2U);
  EXPECT_EQ(std::ranges::count(elements, "12.50", &Element::words), 1);
  // Two pairs one to the east and to the west, eight squares of one pair.
  EXPECT_EQ(std::ranges::count(elements, "2", &Element::words), 2);
  EXPECT_EQ(std::ranges::count(elements, "1", &Element::words), 8);
}

TEST_F(Plot, HasTheSizeAndTheDotsThatAreAskedFor) {
  const std::string svg = drawn(
      {path("a.zvm"), "--overlay", "--var", "1", "--size", "10x5cm", "--format", "svg"}, "picture");
  EXPECT_NE(svg.find("viewBox=\"0 0 5669 2835\""), std::string::npos) << svg.substr(0, 200);
  const std::string png =
      drawn({path("a.zvm"), "--overlay", "--var", "1", "--size", "4x3in", "--dpi", "150"}, "p.png");
  // Width and height stand at 16 and 20, the greatest byte first.
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(png.at(at)); };
  EXPECT_EQ(byte(18) * 256 + byte(19), 600);
  EXPECT_EQ(byte(22) * 256 + byte(23), 450);
}

TEST_F(Plot, TakesSizesUpToBothBounds) {
  for (const char* size : {"25.4x100", "2.54x10cm", "1x1in", "72x72pt", "96x96px", "2540x100",
                           "254x10cm", "100x2540", "100x100in", "9600x9600px"}) {
    const Ran run = ran({"plot", path("a.zvm"), path("s.svg"), "--overlay", "--var", "1", "--size",
                         size, "--overwrite"});
    EXPECT_EQ(run.err, "") << size;
  }
}

// Below 80 by 50 mm all of a picture is smaller, here half as large: a title of 200, and a plot
// from 800 on to 800 from the right.
TEST_F(Plot, MakesSmallPicturesSmallerAsAWhole) {
  const auto half = elementsOf(
      drawn({path("a.zvm"), "--var", "1", "--dir", "1", "--size", "113.4x80pt"}, "half.svg"));
  EXPECT_EQ(only(half, "text", "#000000 100").size(), 1U);
  const auto discs = only(half, "circle", "#008000");
  ASSERT_EQ(discs.size(), 3U);
  EXPECT_NEAR(discs[1].places.at(0), 1134, 1) << "10 of 20";
  EXPECT_NEAR(discs[2].places.at(0), 2268 - 400, 1);
  EXPECT_EQ(only(half, "polyline", "none #0000ff 15").size(), 2U) << "lines of half the width";
  const std::string png = drawn(
      {path("a.zvm"), "--var", "1", "--dir", "1", "--size", "40x30", "--dpi", "254"}, "half.png");
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(png.at(at)); };
  EXPECT_EQ(byte(18) * 256 + byte(19), 400);
  EXPECT_EQ(byte(22) * 256 + byte(23), 300);
  // 10,000 dots a metre: 0x2710.
  const std::size_t resolution = png.find("pHYs") + 4;
  EXPECT_EQ(byte(resolution + 2) * 256 + byte(resolution + 3), 10000);
}

// A title of 15 points in place of 10 makes all half as large again, margins too.
TEST_F(Plot, MakesRoomForLargeTexts) {
  const auto large = elementsOf(drawn({path("a.zvm"), "--var", "1", "--dir", "1", "--size",
                                       "660x370pt", "--font", "Liberation Sans,15"},
                                      "large.svg"));
  EXPECT_EQ(only(large, "text", "#000000 300").size(), 1U);
  const auto discs = only(large, "circle", "#008000");
  ASSERT_EQ(discs.size(), 3U);
  EXPECT_NEAR(discs[2].places.at(0), 13200 - 1200, 1);
  // 160 by 100 mm are twice what the texts take by themselves.
  const Ran run = ran({"plot", path("a.zvm"), path("l.svg"), "--var", "1", "--overlay", "--font",
                       "Liberation Sans,24"});
  EXPECT_EQ(
      run.err,
      "zvm: warning: --font Liberation Sans,24: a picture of this --size has room for a title "
      "of 20 points\n");
  EXPECT_EQ(only(elementsOf(content("l.svg")), "text", "#000000 400").size(), 1U);
}

/// The words of a page, in any order.
std::multiset<std::string> pdfWords(const std::string& file, int page) {
  const std::string number = std::to_string(page);
  const std::string command = "pdftotext -f " + number + " -l " + number + " '" + file + "' -";
  const std::unique_ptr<FILE, int (*)(FILE*)> reader(::popen(command.c_str(), "r"), ::pclose);
  std::string text;
  for (int c = 0; (c = std::fgetc(reader.get())) != EOF;) text += static_cast<char>(c);
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

// Semivariances end at 1.06 times the largest, distances at 20; the second page has no model.
TEST_F(Plot, PutsTheTextsOnThePagesOfAPdfFile) {
  EXPECT_EQ(ran({"plot", path("a.zvm"), path("p.pdf"), "--dir", "0;0"}).code, 0);
  using Words = std::multiset<std::string>;
  EXPECT_EQ(pdfWords(path("p.pdf"), 1),
            (Words{"Semivariogram", "(0;0)", "\xCE\xB3", "(h)",  "zinc",  "1.59", "1.27",
                   "0.95",          "0.64",  "0.32",     "0",    "4.00",  "8.00", "12.00",
                   "16.00",         "20.00", "Data",     "Sill", "Model", "h(",   ")"}));
  EXPECT_EQ(pdfWords(path("p.pdf"), 2),
            (Words{"Semivariogram", "(0;0)", "\xCE\xB3", "(h)",  "lead", "4.24", "3.39",
                   "2.54",          "1.70",  "0.85",     "0",    "4.00", "8.00", "12.00",
                   "16.00",         "20.00", "Data",     "Sill", "h(",   ")"}));
  EXPECT_EQ(ran({"plot", path("a.zvm"), path("o.pdf"), "--overlay", "--var", "lead"}).code, 0);
  EXPECT_EQ(pdfWords(path("o.pdf"), 1),
            (Words{"Semivariogram", "(lead)", "\xCE\xB3", "(h)", "4.24", "3.39", "2.54",
                   "1.70",          "0.85",   "0",        "0",   "4.00", "8.00", "12.00",
                   "16.00",         "20.00",  "h(",       ")",   "0;0",  "90;0", "Variance"}));
}

TEST_F(Plot, TakesStyleAndFont) {
  // Colours of text, points, curve, sill and paper; patterns; three fonts.
  putFile(
      path("s.ini"),
      "\r\n255\r\n16711680\r\n32768\r\n0\r\n12632256\r\n*#0.###*\r\n*#0*\r\n"
      "A\r\nLiberation Sans\r\n12\r\nB\r\nLiberation Sans\r\n9\r\nC\r\nLiberation Sans\r\n9\r\n");
  const std::vector<std::string> arguments{path("a.zvm"), "--var",   "1",          "--dir",
                                           "1",           "--style", path("s.ini")};
  const auto styled = elementsOf(drawn(arguments, "s.svg"));
  EXPECT_EQ(only(styled, "circle", "#0000ff").size(), 3U);
  EXPECT_EQ(only(styled, "rect", "#c0c0c0").size(), 1U);
  EXPECT_EQ(only(styled, "text", "#ff0000 240").size(), 1U) << "a title of 12 points";
  auto more = arguments;
  more.insert(more.end(), {"--font", "Liberation Mono,24"});
  const std::string svg = drawn(more, "f.svg");
  EXPECT_EQ(only(elementsOf(svg), "text", "#ff0000 480").size(), 1U);
  EXPECT_GT(only(elementsOf(svg), "text", "#ff0000 360").size(), 5U) << "others in proportion";
  EXPECT_NE(svg.find("Liberation Mono"), std::string::npos);
}

}  // namespace
}  // namespace zevfit::test
