// What `zvm plot` makes: pictures beside kept ones, files, reports, and how it refuses.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>

#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

const fs::path kKept = fs::path(ZEVFIT_SOURCE_DIR) / "tests/zvm/plot/kept";

/// Two variables, two directions, two classes; the first variable has models in the first.
constexpr const char* kFile =
    "t\nzevRA1\n2\nzinc\nlead\n2\n2\n0;0\n90;0\n"
    "1\n10 0.5 40\n20 1.5 40\n12 0.75 40\n20 1 40\n"
    "4\n10 1 40\n20 2 40\n10 1 40\n20 3 40\n"
    "1\n0.1\n1\nS\n0.5\n15\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n"
    "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n"
    "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n"
    "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
constexpr const char* kPoints = "x,y,z\n0,0,0\n1,0,1\n2,0,3\n0,1,5\n";

/// An element of a picture: what it is, how it is drawn, its words or its places.
struct Element {
  std::string what, look, words{};
  std::vector<double> places{};
};

std::string attribute(const std::string& tag, const std::string& name) {
  std::smatch found;
  const std::regex pattern(" " + name + "=\"([^\"]*)\"");
  return std::regex_search(tag, found, pattern) ? found[1].str() : "";
}

std::vector<double> numbersIn(const std::string& text) {
  std::vector<double> numbers;
  static const std::regex pattern("-?[0-9.]+(e-?[0-9]+)?");
  for (std::sregex_iterator i(text.begin(), text.end(), pattern), end; i != end; ++i)
    numbers.push_back(std::stod(i->str()));
  return numbers;
}

/// The elements in their order, each with the strokes and fills of its group. Where a text stands
/// depends on the fonts of the machine.
std::vector<Element> elementsOf(const std::string& svg) {
  std::vector<Element> elements;
  std::string look;
  static const std::regex pattern("<([a-z]+)([^>]*)>([^<]*)");
  for (std::sregex_iterator i(svg.begin(), svg.end(), pattern), end; i != end; ++i) {
    const std::string what = (*i)[1], tag = (*i)[2], words = (*i)[3];
    if (what == "g")
      look = attribute(tag, "fill") + ' ' + attribute(tag, "stroke") + ' ' +
             attribute(tag, "stroke-width") + ' ' + attribute(tag, "stroke-dasharray");
    else if (what == "text")
      elements.push_back({what, attribute(tag, "fill") + ' ' + attribute(tag, "font-size"), words});
    else if (what == "polyline")
      elements.push_back({what, look, "", numbersIn(attribute(tag, "points"))});
    else if (what == "circle" || what == "rect" || what == "path")
      elements.push_back({what, look, "", numbersIn(tag)});
  }
  return elements;
}

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

std::vector<Element> only(const std::vector<Element>& elements, const std::string& what,
                          const std::string& look) {
  std::vector<Element> found;
  for (const Element& one : elements)
    if (one.what == what && one.look.starts_with(look)) found.push_back(one);
  return found;
}

class Plot : public testing::Test {
 protected:
  void SetUp() override {
    ::setenv("ZVM_MODULES", ZEVFIT_MODULES, 1);
    putFile(folder_ / "a.zvm", kFile);
    putFile(folder_ / "points.csv", kPoints);
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string content(const std::string& name) const { return contentOf(folder_ / name); }
  bool isThere(const std::string& name) const { return fs::exists(folder_ / name); }

  /// Draws into a file and gives its bytes.
  std::string drawn(std::vector<std::string> arguments, const std::string& name) const {
    arguments.insert(arguments.begin(), "plot");
    arguments.push_back(path(name));
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, "");
    return content(name);
  }
  std::vector<std::string> mapOptions() const {
    return {"plot", path("points.csv"), "--map", "--x", "x", "--y", "y", "--var", "z", "--lag",
            "1",    "--lags",           "2"};
  }

 private:
  ScratchFolder folder_;
};

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

TEST_F(Plot, TellsAMapAsJson) {
  auto arguments = mapOptions();
  arguments.insert(arguments.end(), {path("map.png"), "--json", "--threads", "2"});
  const Json report = Json::parse(ran(arguments).out);
  EXPECT_EQ(report.at("schema"), "zvm.plot/1");
  const Json picture = report.at("pictures").at(0);
  EXPECT_EQ(picture.at("variable"), "z");
  const Json cells = picture.at("cells");
  ASSERT_EQ(cells.size(), 25U);
  EXPECT_EQ(cells[12], Json::parse(R"({"east":0.0,"north":0.0,"semivariance":null,"pairs":0})"));
  EXPECT_EQ(cells[13], Json::parse(R"({"east":1.0,"north":0.0,"semivariance":1.25,"pairs":2})"));
  EXPECT_EQ(cells[11], Json::parse(R"({"east":-1.0,"north":0.0,"semivariance":1.25,"pairs":2})"));
  EXPECT_EQ(content("map.png").substr(1, 3), "PNG");
}

TEST_F(Plot, NumbersSeveralPictures) {
  const Ran run = ran({"plot", path("a.zvm"), path("p.svg")});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out, "file" + std::string(path("p-1.svg").size() - 2, ' ') +
                         "variable  direction\n" + path("p-1.svg") + "  zinc      0;0\n" +
                         path("p-2.svg") + "  zinc      90;0\n" + path("p-3.svg") +
                         "  lead      0;0\n" + path("p-4.svg") + "  lead      90;0\n");
  EXPECT_NE(content("p-4.svg").find("<title>lead 90;0</title>"), std::string::npos);
  EXPECT_FALSE(isThere("p.svg"));
  // One that can't be made leaves none.
  fs::remove(path("p-1.svg"));
  fs::remove(path("p-2.svg"));
  const Ran again = ran({"plot", path("a.zvm"), path("p.svg")});
  EXPECT_EQ(again.code, 4);
  EXPECT_EQ(again.err, "zvm: error: " + path("p-3.svg") + " exists; --overwrite replaces it\n");
  EXPECT_FALSE(isThere("p-1.svg"));
  EXPECT_EQ(ran({"plot", path("a.zvm"), path("p.svg"), "--overwrite"}).code, 0);
  EXPECT_TRUE(isThere("p-1.svg"));
}

TEST_F(Plot, PutsSeveralPicturesOnPages) {
  const Ran run = ran({"plot", path("a.zvm"), path("p.pdf"), "--json"});
  EXPECT_EQ(run.code, 0) << run.err;
  const Json pictures = Json::parse(run.out).at("pictures");
  ASSERT_EQ(pictures.size(), 4U);
  EXPECT_EQ(
      pictures[2],
      (Json{{"file", path("p.pdf")}, {"variable", "lead"}, {"page", 3}, {"direction", "0;0"}}));
  const std::string pdf = content("p.pdf");
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/Count 4"), std::string::npos);
  EXPECT_EQ(pdf.find("/CreationDate"), std::string::npos);
  ::setenv("TZ", "IST-5:30", 1);
  EXPECT_EQ(ran({"plot", path("a.zvm"), path("east.pdf")}).code, 0);
  ::unsetenv("TZ");
  EXPECT_TRUE(content("east.pdf") == pdf);
}

TEST_F(Plot, TakesStdinAndStdout) {
  const Ran run = ran({"plot", "-", "-", "--format", "svg", "--var", "1", "--dir", "1"}, kFile);
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(elementsOf(run.out).size(),
            elementsOf(drawn({path("a.zvm"), "--var", "1", "--dir", "1"}, "b.svg")).size());
  EXPECT_EQ(run.err, "");
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

TEST_F(Plot, TellsWhatIsWrong) {
  putFile(path("bad.ini"), "x");
  putFile(path("there.svg"), "old");
  const std::string file = path("a.zvm"), out = path("o.svg"), points = path("points.csv");
  struct Row {
    std::vector<std::string> arguments;
    int code;
    std::string message;
  };
  const std::vector<Row> rows{
      {{file}, 2, "the file to write is missing"},
      {{file, out, "-o", out}, 2, "two files to write: " + out + " and -o " + out},
      {{file, path("o")},
       2,
       "the name " + path("o") +
           " tells no format: it ends with .svg, .pdf or .png, or --format tells it"},
      {{file, out, "--format", "gif"}, 2, "no --format `gif`; there are pdf, svg, png"},
      {{file, out, "--var", "zink"}, 3, "no variable `zink` in " + file + "; there are zinc, lead"},
      {{file, out, "--dir", "45;0"}, 3, "no direction `45;0` in " + file + "; there are 0;0, 90;0"},
      {{file, out, "--var", "1", "--var", "zinc"}, 2, "--var zinc is there twice"},
      {{file, out, "--dir", "1", "--dir", "0;0"}, 2, "--dir 0;0 is there twice"},
      {{file, "-", "--format", "svg"},
       2,
       "these are 4 pictures: - takes one, or those of a PDF file"},
      {{file, "-", "--format", "pdf", "--json"},
       2,
       "--json reports on a file: it takes another OUT than stdout"},
      {{file, out, "--size", "10"},
       2,
       "--size takes WIDTHxHEIGHT in millimetres, or with mm, cm, in, pt or px behind it, as in "
       "160x100 or 800x500px, not `10`"},
      {{file, out, "--size", "10x10"},
       2,
       "--size 10x10: a side is from 1 to 100 inches (25.4 to 2540 mm)"},
      {{file, out, "--size", "1e300x100"},
       2,
       "--size 1e300x100: a side is from 1 to 100 inches (25.4 to 2540 mm)"},
      {{file, out, "--font", ",12"}, 2, "--font takes NAME or NAME,POINTS, not `,12`"},
      {{file, out, "--font", "Serif,big"},
       2,
       "--font takes NAME,POINTS with 1 to 200 points, not `Serif,big`"},
      {{file, out, "--style", path("bad.ini")},
       3,
       path("bad.ini") + " is no parameter file of zevFIT"},
      {{file, out, "--style", path("no.ini")},
       4,
       "cannot read " + path("no.ini") + ": No such file or directory"},
      {{file, out, "--dpi", "9"}, 2, "--dpi takes 24 to 2400"},
      {{file, out, "--x", "x"},
       2,
       "--x, --y, --log, --missing, --trim, --lag, --lags and the options of spatial sources take "
       "--map"},
      {{points, out, "--map", "--overlay"}, 2, "--overlay and --map are two kinds of pictures"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z"},
       2,
       "--map is of points: it takes --x, --y, --var, --lag and --lags"},
      {{points, out, "--map", "--dir", "1"}, 2, "--map takes no --dir"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--lag", "-1", "--lags", "2"},
       2,
       "--lag takes a width above 0"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--lag", "1", "--lags", "101"},
       2,
       "--lags of a map takes 1 to 100"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "a", "--lag", "1", "--lags", "2"},
       3,
       "no column `a` in " + points + "; there are x, y, z"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--lag", "0.1", "--lags", "2"},
       3,
       points +
           ": no two points of `z` are within reach of the map (4 read, 0 without coordinates, "
           "0 without a value)"},
      {{path("none.zvm"), out},
       4,
       "cannot read " + path("none.zvm") + ": No such file or directory"},
      {{file, path("there.svg"), "--var", "1", "--dir", "1"},
       4,
       path("there.svg") + " exists; --overwrite replaces it"},
      {{file, path("no/o.svg"), "--var", "1", "--dir", "1"},
       4,
       "cannot write " + path("no/o.svg") + ": No such file or directory"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments{"plot"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Ran run = ran(arguments);
    EXPECT_EQ(run.err, "zvm: error: " + row.message + "\n");
    EXPECT_EQ(run.code, row.code) << row.message;
    EXPECT_EQ(run.out, "") << row.message;
    EXPECT_FALSE(isThere("o.svg")) << row.message;
  }
  EXPECT_EQ(content("there.svg"), "old");
}

TEST_F(Plot, SaysWhatToInstallWhereTheProgramIsMissing) {
  ::setenv("ZVM_MODULES", path("").c_str(), 1);
  const std::vector<std::string> arguments{"plot", path("a.zvm"), path("p.pdf")};
  const Ran missing = ran(arguments);
  EXPECT_EQ(missing.code, 4);
  EXPECT_EQ(missing.err,
            "zvm: error: zvm plot takes the program zvm-plot, which is not there: install the "
            "package zvm-plot, or put the program beside zvm\n");
  // One that fails is told of by its last line, and one that is killed as well.
  const auto with = [&](const std::string& script) {
    putFile(path("zvm-plot"), "#!/bin/sh\n" + script);
    fs::permissions(path("zvm-plot"), fs::perms::owner_all);
    return ran(arguments);
  };
  EXPECT_EQ(with("echo one >&2; echo two >&2; exit 134").err,
            "zvm: error: zvm-plot has failed: two\n");
  EXPECT_EQ(with("kill -9 $$").code, 4);
  const Ran refusing = with("echo 'warning: w' >&2; echo 'error: no room' >&2; exit 3");
  EXPECT_EQ(refusing.err, "zvm: warning: w\nzvm: error: no room\n");
  EXPECT_EQ(refusing.code, 3);
  EXPECT_EQ(with("true").err,
            "zvm: error: zvm-plot has drawn other pictures than it was asked for\n");
  EXPECT_FALSE(isThere("p.pdf"));
}

TEST_F(Plot, LeavesNothingWhenItIsInterrupted) {
  const std::string command =
      "cd '" + path("") +
      "' && mkdir modules && printf '#!/bin/sh\\nkill -INT $PPID\\nsleep 5\\n' "
      ">modules/zvm-plot && chmod +x modules/zvm-plot && ZVM_MODULES=modules "
      "env --default-signal=INT '" ZEVFIT_ZVM "' plot a.zvm p.pdf >out 2>&1";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 130);
  EXPECT_FALSE(isThere("p.pdf"));
  EXPECT_EQ(content("out"), "");
}

}  // namespace
}  // namespace zevfit::test
