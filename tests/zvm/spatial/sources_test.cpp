// Sources are left as they are; systems, attributes as coordinates, and why there is no point.
#include "tests/zvm/spatial/spatial_files.h"

namespace zevfit::test {
namespace {

TEST_F(Spatial, LeavesSourcesAndTheirFoldersAlone) {
  make("meuse.shp", "-f 'ESRI Shapefile'");
  make("meuse.gpkg", "-f GPKG");
  make("meuse.gml", "-f GML");
  // Without its schema the driver would keep what it finds out.
  fs::remove(path("meuse.xsd"));
  const auto before = files();
  const std::string expected = ofTable();
  EXPECT_EQ(computed({path("meuse.gml")}), expected);
  const std::string shape = path("meuse.shp"), package = path("meuse.gpkg");
  const auto refuse = [&](const std::string& source, const std::string& sql) {
    expectRefusal({source, "--var", "zinc", "--sql", sql}, 2,
                  "--sql takes one query that reads, not `" + sql + "`: it ");
  };
  for (const char* sql : {"CREATE INDEX ON meuse USING zinc", "DROP TABLE meuse", "REPACK meuse",
                          "ALTER TABLE meuse DROP COLUMN zinc", "RECOMPUTE EXTENT ON meuse",
                          "select * from meuse; CREATE INDEX ON meuse USING zinc"})
    refuse(shape, sql);
  for (const char* sql : {"update meuse set zinc = 1", "DELLAYER:meuse", "PRAGMA journal_mode=WAL",
                          "VACUUM", "select * from meuse; delete from meuse"})
    refuse(package, sql);
  expectRefusal({package, "--var", "zinc", "--where", "true; delete from meuse"}, 2,
                "--where takes one condition, not `true; delete from meuse`: it is more than one");
  EXPECT_EQ(computed({shape, "--sql", "select * from meuse"}), expected);
  EXPECT_EQ(computed({package, "--sql", "with m as (select * from meuse) select * from m;"}),
            expected);
  EXPECT_EQ(files(), before);
}

TEST_F(Spatial, TakesCoordinatesOfAnUndefinedSystemAsTheyStand) {
  // OGR gives a GeoPackage in no system one that would be geographic, and a Shapefile takes it on.
  makeBare("none.gpkg", "-f GPKG");
  tool("ogr2ogr none.shp none.gpkg");
  makeBare("plane.gpkg", R"(-f GPKG -a_srs 'LOCAL_CS["Undefined Cartesian SRS",UNIT["Meter",1]]')");
  const std::string expected = ofTable();
  const auto said = [](const std::string& layer) {
    return "zvm: warning: the coordinate system of layer `" + layer +
           "` is undefined: its coordinates are taken for those of a plane, as they stand\n";
  };
  EXPECT_EQ(computed({path("none.gpkg")}, said("meuse")), expected);
  EXPECT_EQ(computed({path("none.shp")}, said("none")), expected);
  EXPECT_EQ(computed({path("plane.gpkg")}), expected);
  for (const char* name : {"none.gpkg", "plane.gpkg"})
    expectRefusal({path(name), "--var", "zinc", "--projected", kSystem}, 3,
                  path(name) + ": layer `meuse` has no coordinate system to reproject from");
}

TEST_F(Spatial, LeavesGeometriesAsideWhereAttributesAreCoordinates) {
  make("degrees.gpkg", "-f GPKG -t_srs EPSG:4326");
  const std::string file = path("degrees.gpkg"), expected = ofTable();
  EXPECT_EQ(computed({file, "--x", "x", "--y", "y"}), expected);
  EXPECT_EQ(computed({file, "--x", "1", "--y", "2"}), expected);
  EXPECT_EQ(computed({file, "--sql", "select x, y, zinc, lead from meuse", "--x", "x", "--y", "y"}),
            expected);
  expectRefusal({file, "--var", "zinc", "--x", "x", "--y", "y", "--projected", kSystem}, 2,
                "--projected reprojects the coordinates of geometries, and --x and --y name "
                "attributes");
  // Nine attributes stand in front of geometry.x.
  for (const char* easting : {"geometry.x", "10"})
    expectRefusal({file, "--var", "zinc", "--x", easting, "--y", "y"}, 3,
                  "are geographic (WGS 84)");
  putFile(path("lines.geojson"),
          geoJson({{R"({"type":"LineString","coordinates":[[3,0],[4,0]]})", "1"}, {"null", "2"}}));
  const Ran run = ran({"compute", path("lines.geojson"), path("l.zvm"), "--x", "v", "--y", "v",
                       "--var", "v", "--lag", "1", "--lags", "2"});
  EXPECT_EQ(run.code, 0) << run.err;
}

TEST_F(Spatial, SaysWhyThereIsNoPoint) {
  make("meuse.gpkg", "-f GPKG");
  make("empty.gpkg", "-f GPKG -where \"zinc > 10000\"");
  const std::string file = path("meuse.gpkg");
  const auto refuse = [&](std::vector<std::string> source, const std::string& message,
                          const std::string& variable = "zinc") {
    source.insert(source.end(), {"--var", variable});
    expectRefusal(source, 3, "zvm: error: " + source.front() + ": " + message + '\n');
  };
  refuse({path("empty.gpkg")}, "layer `meuse` has no feature");
  refuse({file, "--where", "zinc > 10000"},
         "--where `zinc > 10000` holds for no feature of layer `meuse`");
  refuse({file, "--sql", "select * from meuse where zinc > 10000"}, "the query has no feature");
  refuse({file, "--sql", "select zinc from meuse"},
         "the query has no geometry; --x and --y name columns of coordinates");
  refuse({file, "--z", "geometry.z"},
         "the points of layer `meuse` have no heights, which --z geometry.z asks for");
  refuse({file, "--trim", "0:1"},
         "no semivariogram: no point with coordinates and a value (155 read, 0 without "
         "coordinates, 155 without a value)");
  // GeoJSON is in degrees where it does not say otherwise.
  putFile(path("empty.geojson"), geoJson({}));
  refuse({path("empty.geojson")}, "layer `empty` has no feature");
  putFile(path("a.geojson"), geoJson({{"null", "5"}, {"null", "6"}, {pointAt("3,0"), "null"}}));
  refuse({path("a.geojson"), "--projected", "EPSG:32631"},
         "no semivariogram: no point with coordinates and a value (3 read, 2 without coordinates, "
         "1 without a value)",
         "v");
}

TEST_F(Spatial, SaysWhatIsWrongWithACondition) {
  make("meuse.gpkg", "-f GPKG");
  make("meuse.shp", "-f 'ESRI Shapefile'");
  expectRefusal({path("meuse.gpkg"), "--var", "zinc", "--where", "zin > 3"}, 2,
                "meuse.gpkg: --where `zin > 3`: no such column: zin\n");
  expectRefusal({path("meuse.gpkg"), "--var", "zinc", "--sql", "select zin from meuse"}, 2,
                "meuse.gpkg: --sql `select zin from meuse` gives no table: no such column: zin\n");
  expectRefusal({path("meuse.shp"), "--var", "zinc", "--where", "zin > 3"}, 2,
                "--where `zin > 3`: \"zin\" not recognised as an available field.");
}

TEST_F(Spatial, SaysWhyWhatASourceLeadsToCantBeOpened) {
  putFile(path("p.vrt"),
          "<OGRVRTDataSource><OGRVRTLayer name=\"m\"><SrcDataSource relativeToVRT=\"1\">none.gpkg"
          "</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
  for (const std::vector<std::string>& options : {std::vector<std::string>{},
                                                  {"--layer", "m"},
                                                  {"--where", "zinc > 3"},
                                                  {"--sql", "select * from m"}}) {
    std::vector<std::string> source{path("p.vrt"), "--format", "ogr", "--var", "zinc"};
    source.insert(source.end(), options.begin(), options.end());
    expectRefusal(source, 4, "p.vrt: cannot open the source: ");
    expectRefusal(source, 4, "none.gpkg");
  }
}

/// A CSV file of points on a line, one unit apart, with these values.
std::string tableOf(const std::vector<std::string>& values) {
  std::string text = "v,v_original,x,y\n";
  for (std::size_t i = 0; i < values.size(); ++i)
    text += values[i] + ",7," + std::to_string(i) + ",0\n";
  return text;
}

TEST_F(Spatial, ComparesNumbersOfACsvFileAsNumbers) {
  const Ran run = ran({"compute", path("meuse.csv"), path("n.zvm"), "--x", "x", "--y", "y", "--var",
                       "zinc", "--lag", "100", "--lags", "3", "--json", "--where", "zinc > 300"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.err, "");
  // awk -F, '$6 > 300' counts them; as texts there are 64 behind '300'.
  EXPECT_EQ(Json::parse(run.out).at("points").at("read"), 80);
}

TEST_F(Spatial, TakesTheDigitsOfACsvFileAsTheyStand) {
  const auto written = [&](const std::string& file, const std::vector<std::string>& more) {
    std::vector<std::string> words{
        "compute", path(file), path("d.zvm"), "--x",    "x", "--y",     "y", "--var",
        "v",       "--lag",    "1",           "--lags", "2", "--title", "t", "--overwrite"};
    words.insert(words.end(), more.begin(), more.end());
    const Ran run = ran(words);
    EXPECT_EQ(run.code, 0) << run.err;
    return contentOf(path("d.zvm"));
  };
  const std::vector<std::vector<std::string>> columns{
      {"1", "007", "2.50", "1e1"}, {"1", "NaN", "3", "NA"}, {"1", "", "3", "0.12345678901234567"}};
  for (const auto& values : columns) {
    putFile(path("d.csv"), tableOf(values));
    EXPECT_EQ(written("d.csv", {"--format", "ogr"}), written("d.csv", {})) << values.front();
    EXPECT_EQ(written("d.csv", {"--sql", "select * from d"}), written("d.csv", {}));
  }
  for (const char* number : {"1D1", "12345678901234567890"}) {
    putFile(path("d.csv"), tableOf({number, "2", "3", "5"}));
    EXPECT_EQ(written("d.csv", {"--format", "ogr"}), written("d.csv", {})) << number;
  }
  // Whole numbers up to far behind the first megabyte.
  std::vector<std::string> late(200000, "7");
  late.back() = "7.5";
  putFile(path("d.csv"), tableOf(late));
  expectRefusal({path("d.csv"), "--x", "x", "--y", "y", "--var", "v", "--where", "v = 7.5"}, 3,
                "1 read");
  putFile(path("day.csv"), tableOf({"2020-01-02", "2020-01-03"}));
  expectRefusal({path("day.csv"), "--format", "ogr", "--x", "x", "--y", "y", "--var", "v"}, 3,
                "day.csv: feature 1: `2020-01-02` is no number");
  // What the driver puts between the columns is none of them.
  expectRefusal({path("day.csv"), "--format", "ogr", "--x", "x", "--y", "y", "--var", "w"}, 3,
                "there are v, x, y, v_original, geometry.x, geometry.y, geometry.z\n");
}

TEST_F(Spatial, NamesTheFileOnce) {
  make("meuse.gpkg", "-f GPKG");
  const std::string file = path("meuse.gpkg");
  expectRefusal({file, "--var", "zink"}, 3, "zvm: error: no column `zink` in " + file + "; there ");
  expectRefusal({file, "--var", "zinc", "--log", "lead"}, 2,
                "zvm: error: no variable `lead` in --var; there are zinc");
}

TEST_F(Spatial, ReadsBesideFieldsOfAnyKind) {
  const auto feature = [](const std::string& properties, const std::string& place) {
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":)" +
           pointAt(place) + '}';
  };
  putFile(path("kinds.geojson"),
          R"({"type":"FeatureCollection","features":[)" +
              feature(R"("day":"2020-01-02","list":[1,2],"t":"a, \"b\"\nc","a;b;c;d;e;f":1,)"
                      R"("geometry.x":10,"v":1)",
                      "3,0") +
              ',' +
              feature(R"("day":null,"list":["a"],"t":null,"geometry.x":14,"v":4)", "3,0.00001") +
              "]}");
  const auto arguments = [&](const std::string& variable) {
    return std::vector<std::string>{path("kinds.geojson"), "--projected", "EPSG:32631", "--var",
                                    variable};
  };
  expectRefusal(arguments("day"), 3, "kinds.geojson: feature 1: `2020/01/02` is no number");
  expectRefusal(arguments("list"), 3, "kinds.geojson: feature 1: `");
  // An attribute does not take the place of the geometry's own column. Half of 3 and 4 squared.
  const auto semivariance = [&](const std::string& variable) {
    std::vector<std::string> words = arguments(variable);
    words.insert(words.begin(), "compute");
    words.insert(words.end(),
                 {path("k.zvm"), "--lag", "1", "--lags", "2", "--overwrite", "--json"});
    const Ran run = ran(words);
    EXPECT_EQ(run.code, 0) << run.err;
    return Json::parse(run.out)["semivariograms"][0]["classes"][1]["semivariance"].get<double>();
  };
  EXPECT_EQ(semivariance("v"), 4.5);
  EXPECT_EQ(semivariance("attribute.geometry.x"), 8);
}

}  // namespace
}  // namespace zevfit::test
