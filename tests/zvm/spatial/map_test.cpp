// The semivariogram surface of a spatial file, where the program that draws is there.
#include "tests/zvm/spatial/spatial_files.h"

namespace zevfit::test {
namespace {

TEST_F(Spatial, DrawsAMapOfAFile) {
  make("meuse.gpkg", "-f GPKG");
  const auto drawn = [&](const std::vector<std::string>& source, const std::string& picture) {
    std::vector<std::string> arguments{"plot", "--map",  "--var", "zinc",  "--lag",
                                       "200",  "--lags", "4",     "--json"};
    arguments.insert(arguments.end(), source.begin(), source.end());
    arguments.push_back(path(picture));
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    return run.code == 0 ? Json::parse(run.out).at("pictures").at(0).at("cells") : Json();
  };
  const Json cells = drawn({path("meuse.gpkg")}, "a.svg");
  // 4 squares on each side of the middle one.
  EXPECT_EQ(cells.size(), 81U);
  EXPECT_EQ(cells, drawn({path("meuse.csv"), "--x", "x", "--y", "y"}, "b.svg"));
  const std::string picture = contentOf(path("a.svg"));
  EXPECT_NE(picture.find("<svg"), picture.npos);
  EXPECT_EQ(picture, contentOf(path("b.svg")));
}

}  // namespace
}  // namespace zevfit::test
