// Databases and folders that a driver would change by itself.
#include "tests/zvm/spatial/spatial_files.h"

namespace zevfit::test {
namespace {

/// Has a database written by a log beside it, which two bytes of the file tell.
void makeLogged(const std::string& file) {
  std::string bytes = contentOf(file);
  bytes.replace(18, 2, "\2\2");
  putFile(file, bytes);
}

TEST_F(Spatial, ReadsDatabasesWithALogWithoutATrace) {
  make("meuse.gpkg", "-f GPKG");
  make("meuse.sqlite", "-f SQLite");
  for (const char* name : {"meuse.gpkg", "meuse.sqlite"}) {
    makeLogged(path(name));
    const auto before = files();
    EXPECT_EQ(computed({path(name)}), ofTable()) << name;
    EXPECT_TRUE(files() == before) << name;
    // What waits in the log is a part of the data, and can't be read without a change of the file.
    putFile(path(std::string(name) + "-wal"), "changes");
    const auto waiting = files();
    expectRefusal({path(name), "--var", "zinc"}, 4,
                  "cannot open the source as it stands: changes wait in the file of that name with "
                  "-wal, until the program that made them ends or the file is opened and closed "
                  "with it");
    EXPECT_TRUE(files() == waiting) << name;
  }
}

TEST_F(Spatial, LeavesNoNotesBesideCompressedFiles) {
  make("meuse.gml", "-f GML");
  fs::remove(path("meuse.xsd"));
  tool("gzip meuse.gml");
  const auto before = files();
  EXPECT_EQ(computed({path("meuse.gml.gz"), "--layer", "meuse"}), ofTable());
  EXPECT_TRUE(files() == before);
}

TEST_F(Spatial, RestoresNoIndexOfAShapefile) {
  make("meuse.shp", "-f 'ESRI Shapefile'");
  fs::remove(path("meuse.shx"));
  ::setenv("SHAPE_RESTORE_SHX", "YES", 1);
  expectRefusal({path("meuse.shp"), "--var", "zinc"}, 4,
                "cannot open the source: Unable to open " + path("meuse.shx") + " or " +
                    path("meuse.SHX") + ".\n");
  ::unsetenv("SHAPE_RESTORE_SHX");
  EXPECT_FALSE(fs::exists(path("meuse.shx")));
}

TEST_F(Spatial, RefusesCoordinatesFromTheMiddleOfTheEarth) {
  make("centre.gpkg", "-f GPKG -dim XYZ -t_srs EPSG:4978");
  expectRefusal({path("centre.gpkg"), "--var", "zinc"}, 3,
                "the coordinates of layer `meuse` are geocentric (WGS 84), and none of a plane; "
                "--projected EPSG:n reprojects them");
}

}  // namespace
}  // namespace zevfit::test
