// What `zvm plot` tells of its pictures, and how it names their files.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/zvm/plot/picture.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

TEST_F(Plot, TellsAMapAsJson) {
  putFile(path("points.csv"), std::string(kPoints) + ",1,4\n3,3,NA\n");
  auto arguments = mapOptions();
  arguments.insert(arguments.end(), {path("map.png"), "--json", "--threads", "2"});
  Json report = Json::parse(ran(arguments).out);
  const Json cells = report["pictures"][0]["cells"];
  ASSERT_EQ(cells.size(), 25U);
  EXPECT_EQ(cells[12], Json::parse(R"({"east":0.0,"north":0.0,"semivariance":null,"pairs":0})"));
  EXPECT_EQ(cells[13], Json::parse(R"({"east":1.0,"north":0.0,"semivariance":1.25,"pairs":2})"));
  EXPECT_EQ(cells[11], Json::parse(R"({"east":-1.0,"north":0.0,"semivariance":1.25,"pairs":2})"));
  report["pictures"][0].erase("cells");
  // Of six rows one has no easting, and one of the five points has no value.
  EXPECT_EQ(report, Json::parse(R"({"schema": "zvm.plot/1", "file": ")" + path("points.csv") +
                                R"(", "lag": 1.0, "lags": 2,
                                "points": {"read": 6, "withoutCoordinates": 1},
                                "pictures": [{"file": ")" +
                                path("map.png") + R"(", "variable": "z", "used": 4}]})"));
  EXPECT_EQ(content("map.png").substr(1, 3), "PNG");
}

TEST_F(Plot, TellsDirectionsAsJson) {
  const Ran run = ran({"plot", path("a.zvm"), path("p.svg"), "--json", "--var", "lead"});
  EXPECT_EQ(Json::parse(run.out),
            Json::parse(R"({"schema": "zvm.plot/1", "file": ")" + path("a.zvm") +
                        R"(", "pictures": [{"file": ")" + path("p-1.svg") +
                        R"(", "variable": "lead", "direction": "0;0"}, {"file": ")" +
                        path("p-2.svg") + R"(", "variable": "lead", "direction": "90;0"}]})"));
}

// In the order of the legend, whatever that of the options.
TEST_F(Plot, TellsOverlaysAsJson) {
  const Ran run = ran({"plot", path("a.zvm"), path("p.pdf"), "--json", "--overlay", "--var", "lead",
                       "--var", "zinc", "--dir", "90;0", "--dir", "1"});
  const std::string file = R"({"file": ")" + path("p.pdf"),
                    both = R"("directions": ["0;0", "90;0"])";
  EXPECT_EQ(
      Json::parse(run.out),
      Json::parse(R"({"schema": "zvm.plot/1", "file": ")" + path("a.zvm") + R"(", "pictures": [)" +
                  file + R"(", "page": 1, "variable": "lead", )" + both + "}, " + file +
                  R"(", "page": 2, "variable": "zinc", )" + both + "}]}"));
  const Ran text =
      ran({"plot", path("a.zvm"), path("q.pdf"), "--overlay", "--dir", "2", "--dir", "1"});
  EXPECT_NE(text.out.find("lead      0;0, 90;0\n"), text.out.npos) << text.out;
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

// A point in front begins a name and no ending.
TEST_F(Plot, NumbersPicturesBehindANameWithoutAnEnding) {
  EXPECT_EQ(ran({"plot", path("a.zvm"), path(".svg"), "--var", "1", "--format", "svg"}).code, 0);
  EXPECT_TRUE(isThere(".svg-1"));
  EXPECT_TRUE(isThere(".svg-2"));
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

TEST_F(Plot, WarnsOnceOfAFontThatIsNotInstalled) {
  const std::vector<std::string> arguments{"plot",   path("a.zvm"),  path("f.pdf"),
                                           "--font", "No such face", "--overwrite"};
  const Ran run = ran(arguments);
  EXPECT_EQ(run.code, 0);
  EXPECT_TRUE(run.err.starts_with(
      "zvm: warning: no font `No such face` is installed: its texts are those of `"))
      << run.err;
  EXPECT_EQ(std::ranges::count(run.err, '\n'), 1);
  auto quiet = arguments;
  quiet.emplace_back("-q");
  EXPECT_EQ(ran(quiet).err, "");
}

TEST_F(Plot, WarnsOfANameThatIsNotInLatin1) {
  putFile(path("points.csv"), "x,y,\xD1\x86 caf\xC3\xA9\n0,0,0\n1,0,1\n2,0,3\n");
  auto arguments = mapOptions();
  arguments[8] = "3";
  arguments.insert(arguments.end(), {path("map.svg"), "--json"});
  const Ran run = ran(arguments);
  EXPECT_EQ(run.err,
            "zvm: warning: the picture has `? caf\xC3\xA9` for `\xD1\x86 caf\xC3\xA9`, which is "
            "not in Latin-1\n");
  EXPECT_EQ(Json::parse(run.out)["pictures"][0]["variable"], "\xD1\x86 caf\xC3\xA9");
  EXPECT_EQ(wordsOf(elementsOf(content("map.svg"))).count("Semivariogram surface (? caf\xC3\xA9)"),
            1U);
}

}  // namespace
}  // namespace zevfit::test
