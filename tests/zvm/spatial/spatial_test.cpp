// Points of spatial files: the same semivariograms as of a table, and what is refused.
#include "tests/zvm/spatial/spatial_files.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace zevfit::test {
namespace {

TEST_F(Spatial, FilesGiveTheBytesOfTheTable) {
  make("meuse.gpkg", "-f GPKG");
  make("meuse.shp", "-f 'ESRI Shapefile'");
  make("meuse.geojson", "-f GeoJSON -lco RFC7946=NO -lco COORDINATE_PRECISION=3");
  make("meuse.fgb", "-f FlatGeobuf -lco SPATIAL_INDEX=NO");
  const std::string expected = ofTable();
  for (const char* name : {"meuse.gpkg", "meuse.shp", "meuse.geojson", "meuse.fgb"})
    EXPECT_EQ(computed({path(name)}), expected) << name;
  // Attributes can be coordinates as well.
  EXPECT_EQ(computed({path("meuse.shp"), "--x", "x", "--y", "y"}), expected);
}

TEST_F(Spatial, HandsOnWhatOgrSaysOfASource) {
  make("meuse.gpkg", "-f GPKG");
  // The version of the format, in the head of the file.
  std::string bytes = contentOf(path("meuse.gpkg"));
  bytes.replace(60, 4, std::string("\0\x01\x86\x9F", 4));
  putFile(path("meuse.gpkg"), bytes);
  const Ran run = ran({"compute", path("meuse.gpkg"), path("out.zvm"), "--var", "zinc", "--lag",
                       "100", "--lags", "2"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(run.err.starts_with("zvm: warning: ")) << run.err;
  EXPECT_NE(run.err.find("99999"), run.err.npos) << run.err;
}

TEST_F(Spatial, TakesLayersConditionsAndQueries) {
  make("two.gpkg", "-f GPKG -nln first");
  make("two.gpkg", "-f GPKG -update -nln second -where \"zinc > 300\"");
  const std::string file = path("two.gpkg"), expected = ofTable();
  EXPECT_EQ(computed({file, "--layer", "first"}), expected);
  const std::string some = computed({file, "--layer", "second"});
  EXPECT_NE(some, expected);
  EXPECT_EQ(computed({file, "--layer", "first", "--where", "zinc > 300"}), some);
  EXPECT_EQ(computed({file, "--sql", "select * from first where zinc > 300"}), some);
  expectRefusal({file, "--var", "zinc"}, 2, "--layer is missing; there are first, second");
  expectRefusal({file, "--var", "zinc", "--layer", "secnd"}, 3,
                "no layer `secnd` in the source; there are second, first");
  expectRefusal({file, "--var", "zinc", "--layer", "first", "--sql", "select 1"}, 2,
                "--layer and --sql are two ways to say the same");
  expectRefusal({file, "--var", "zinc", "--layer", "first", "--where", "zin > 3"}, 2, "--where `");
  expectRefusal({file, "--var", "zinc", "--sql", "select"}, 2, "--sql `select` gives no table: ");
  expectRefusal({file, "--var", "zink", "--layer", "first"}, 3,
                "no column `zink` in " + file + "; there are zinc, ");
}

/// As of the table: numbers of pairs to the last one, means up to so many units.
class SpatialClasses : public Spatial {
 protected:
  Json classes(const std::vector<std::string>& source) const {
    // No pair of the table, whose coordinates are whole, lies near an edge.
    std::vector<std::string> arguments{"compute", "--var",  "zinc", "--lag",
                                       "100.37",  "--lags", "15",   "--json"};
    arguments.insert(arguments.end(), source.begin(), source.end());
    arguments.insert(arguments.end(), {path("json.zvm"), "--overwrite"});
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    return Json::parse(run.out).at("semivariograms").at(0).at("classes");
  }
  void expectClassesOfTheTable(const std::vector<std::string>& source, double near) const {
    const Json found = classes(source);
    const Json table = classes({path("meuse.csv"), "--x", "x", "--y", "y"});
    ASSERT_EQ(found.size(), table.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_EQ(found[i].at("pairs"), table[i].at("pairs")) << i;
      for (const char* mean : {"distance", "semivariance"})
        EXPECT_NEAR(found[i].at(mean).get<double>(), table[i].at(mean).get<double>(), near) << i;
    }
  }
};

TEST_F(SpatialClasses, AreThoseOfTheTableInAnotherOrderOfPoints) {
  // FlatGeobuf sorts the features for its index.
  make("sorted.fgb", "-f FlatGeobuf");
  expectClassesOfTheTable({path("sorted.fgb")}, 1e-6);
}

TEST_F(SpatialClasses, AreThoseOfTheTableWhenReprojected) {
  make("degrees.gpkg", "-f GPKG -t_srs EPSG:4326");
  expectRefusal(
      {path("degrees.gpkg"), "--var", "zinc"}, 3,
      "the coordinates of layer `meuse` are geographic (WGS 84), and degrees are no distances; "
      "--projected EPSG:n reprojects them");
  expectClassesOfTheTable({path("degrees.gpkg"), "--projected", kSystem}, 1e-4);
  expectRefusal({path("degrees.gpkg"), "--var", "zinc", "--projected", "EPSG:4326"}, 2,
                "--projected takes a projected coordinate system such as EPSG:32631, not "
                "`EPSG:4326`, which is none");
  expectRefusal({path("degrees.gpkg"), "--var", "zinc", "--projected", "EPSG:1"}, 2,
                "not `EPSG:1`: ");
  for (const char* word : {"28992", "foo"})
    expectRefusal({path("degrees.gpkg"), "--var", "zinc", "--projected", word}, 2,
                  std::string("zvm: error: --projected takes a projected coordinate system such as "
                              "EPSG:28992, not `") +
                      word + "`\n");
}

TEST_F(Spatial, CountsFeaturesWithoutAPlaceAndRefusesOtherShapes) {
  const std::string file = path("a.geojson");
  // Metres in UTM, where 3 degrees east on the equator are 500000, 0.
  const auto put = [&](const std::vector<std::pair<std::string, std::string>>& geometries) {
    putFile(file, geoJson(geometries));
  };
  put({{pointAt("3,0"), "1"},
       {"null", "5"},
       {R"({"type":"MultiPoint","coordinates":[[3.00001,0]]})", "3"}});
  const Ran run = ran({"compute", file, path("a.zvm"), "--var", "v", "--lag", "1", "--lags", "2",
                       "--projected", "EPSG:32631", "--json"});
  EXPECT_EQ(run.code, 0) << run.err;
  const Json report = Json::parse(run.out);
  EXPECT_EQ(report.at("points").at("read"), 3);
  EXPECT_EQ(report.at("points").at("withoutCoordinates"), 1);
  // 1e-5 degrees are 1.1132 m on the equator, by 0.9996 in the middle of a zone.
  const Json second = report.at("semivariograms").at(0).at("classes").at(1);
  EXPECT_EQ(second.at("pairs"), 1);
  EXPECT_EQ(second.at("semivariance"), 2);
  EXPECT_NEAR(second.at("distance").get<double>(), 6378137 * 1e-5 * M_PI / 180 * 0.9996, 1e-6);

  const std::vector<std::string> source{file, "--var", "v", "--projected", "EPSG:32631"};
  put({{pointAt("3,0"), "1"}, {R"({"type":"LineString","coordinates":[[3,0],[4,0]]})", "2"}});
  expectRefusal(source, 3, file + ": feature 2 is no point: LINESTRING");
  put({{pointAt("3,0"), "1"}, {R"({"type":"MultiPoint","coordinates":[[3,0],[4,0]]})", "2"}});
  expectRefusal(source, 3, file + ": feature 2 is no point: MULTIPOINT");
  put({{pointAt("3,0"), "1"}, {pointAt("4,0"), R"("a, \"b\"")"}});
  expectRefusal(source, 3, file + ": feature 2: `a, \"b\"` ");
  putFile(file, "{");
  expectRefusal(source, 4, file + ": cannot open the source: ");
  expectRefusal({path("none.gpkg"), "--var", "v"}, 4,
                path("none.gpkg") + ": cannot open the source");
}

TEST_F(Spatial, TakesHeightsWhereTheyAreAskedFor) {
  putFile(path("h.geojson"), geoJson({{pointAt("3,0,0"), "1"}, {pointAt("3,0,1.5"), "3"}}));
  const std::vector<std::string> arguments{"compute", path("h.geojson"), path("h.zvm"), "--var",
                                           "v",       "--projected",     "EPSG:32631",  "--lag",
                                           "1",       "--lags",          "2",           "--json",
                                           "--z",     "geometry.z"};
  const Ran run = ran(arguments);
  EXPECT_EQ(run.code, 0) << run.err;
  const Json classes = Json::parse(run.out).at("semivariograms").at(0);
  EXPECT_EQ(classes.at("classes").at(1).at("distance"), 1.5);
}

TEST_F(Spatial, SaysWhatToInstallWhereTheProgramIsMissing) {
  ::setenv("ZVM_MODULES", path("").c_str(), 1);
  make("meuse.gpkg", "-f GPKG");
  expectRefusal({path("meuse.gpkg"), "--var", "zinc"}, 4,
                "a spatial source takes the program zvm-ogr, which is not there: install the "
                "package zvm-ogr, or put the program beside zvm");
}

}  // namespace
}  // namespace zevfit::test
