#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tests/zvm/command.h"

namespace zevfit::test {

using Json = nlohmann::json;
namespace fs = std::filesystem;

inline const fs::path kMeuse = fs::path(ZEVFIT_SOURCE_DIR) / "examples/meuse.csv";
/// Of the points in the example, metres in the Netherlands.
inline constexpr const char* kSystem = "EPSG:28992";

/// A collection of points, each "x y" or nothing, with a value.
inline std::string geoJson(const std::vector<std::pair<std::string, std::string>>& geometries) {
  std::string text = R"({"type":"FeatureCollection","features":[)";
  std::string comma;
  for (const auto& [geometry, value] : geometries) {
    text += comma + R"({"type":"Feature","properties":{"v":)" + value + R"(},"geometry":)" +
            geometry + '}';
    comma = ",";
  }
  return text + "]}";
}

inline std::string pointAt(const std::string& place) {
  return R"({"type":"Point","coordinates":[)" + place + "]}";
}

/// A folder with the example's table, of which OGR's own tools make other files.
class Spatial : public testing::Test {
 protected:
  void SetUp() override {
    ::setenv("ZVM_MODULES", ZEVFIT_MODULES, 1);
    fs::copy(kMeuse, folder_ / "meuse.csv");
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

  /// Runs one of OGR's own tools in the folder.
  void tool(const std::string& words) const {
    const std::string command = "cd '" + path("") + "' && " + words + " >>log 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << contentOf(folder_ / "log");
  }

  /// Makes a file of the table's points in the folder, in no system.
  void makeBare(const std::string& name, const std::string& options) const {
    tool("ogr2ogr " + options + " '" + name +
         "' meuse.csv -oo X_POSSIBLE_NAMES=x -oo Y_POSSIBLE_NAMES=y -oo AUTODETECT_TYPE=YES");
  }

  /// The same in their own system, or in another one that the options tell.
  void make(const std::string& name, const std::string& options) const {
    const bool isOther = options.find("-t_srs") != options.npos;
    makeBare(name, options + (isOther ? " -s_srs " : " -a_srs ") + kSystem);
  }

  /// Every file of the folder with its bytes, but for what the tools and zvm leave.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::directory_iterator(path(""))) {
      const std::string name = entry.path().filename().string();
      if (name != "log" && name != "out.zvm") all[name] = contentOf(entry.path());
    }
    return all;
  }

  /// The bytes of a computed file, about which there is nothing to be said but `said`.
  std::string computed(const std::vector<std::string>& source, const std::string& said = "") const {
    std::vector<std::string> arguments{"compute", "--var", "zinc,lead", "--log",   "zinc",
                                       "--lag",   "100",   "--lags",    "15",      "--dir",
                                       "45;0",    "--dir", "135;0",     "--title", "t"};
    arguments.insert(arguments.end(), source.begin(), source.end());
    arguments.push_back(path("out.zvm"));
    arguments.emplace_back("--overwrite");
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, said);
    return contentOf(folder_ / "out.zvm");
  }
  std::string ofTable() const { return computed({path("meuse.csv"), "--x", "x", "--y", "y"}); }

  void expectRefusal(const std::vector<std::string>& source, int code,
                     const std::string& message) const {
    std::vector<std::string> arguments{"compute", path("no.zvm"), "--lag", "1", "--lags", "2"};
    arguments.insert(arguments.begin() + 1, source.begin(), source.end());
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, code) << message;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err << message;
    EXPECT_EQ(run.out, "");
    EXPECT_FALSE(fs::exists(folder_ / "no.zvm"));
  }

 private:
  ScratchFolder folder_;
};

}  // namespace zevfit::test
