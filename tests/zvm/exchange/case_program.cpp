// case_program FOLDER FILE: writes models in every target's words, and for each the semivariances
// that they must have at some points, for the programs in ../peers that evaluate the texts.
//     NNN.json     dimensions, letters, Main as a vector, and points as east, north, up,
//     semivariance NNN.points   the points alone, one a line NNN.TARGET   the text;
//     NNN.TARGET.refused the reason where there is none
// Of the fitted example FILE one.gstat and several.gstat, a variable and a coregionalization.

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "model/nested_model.h"
#include "tests/support/model_lines.h"
#include "zvm/exchange/export.h"

namespace zevfit::exchange {
namespace {

namespace fs = std::filesystem;
using Point = std::array<double, 3>;

constexpr int kDistances = 50;
/// The least and the largest distance, in largest ranges.
constexpr double kNearest = 0.02, kFarthest = 1.6;

Point sum(const Point& a, double s, const Point& b, double t) {
  return {a[0] * s + b[0] * t, a[1] * s + b[1] * t, a[2] * s + b[2] * t};
}
double product(const Point& a, const Point& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
Point acrossBoth(const Point& a, const Point& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Point ofLengthOne(const Point& a) { return sum(a, 1 / std::sqrt(product(a, a)), a, 0); }

/// Azimuth clockwise from north and dip positive downward, degrees.
struct Name {
  double azimuth, dip;

  Point along() const {
    const double az = azimuth * std::numbers::pi / 180, down = dip * std::numbers::pi / 180;
    return {std::cos(down) * std::sin(az), std::cos(down) * std::cos(az), -std::sin(down)};
  }
  std::string text() const {
    std::array<char, 64> room{};
    std::snprintf(room.data(), room.size(), "%.9f;%.9f", azimuth, dip);
    return room.data();
  }
};

Name nameOf(const Point& along) {
  const double degrees = 180 / std::numbers::pi;
  return {std::atan2(along[0], along[1]) * degrees,
          std::atan2(-along[2], std::hypot(along[0], along[1])) * degrees};
}

/// A model in space as the tables are to hold it.
struct Case {
  int dimensions = 2;
  double nugget = 0;
  std::vector<Structure> structures;          ///< with the ranges along Main
  std::vector<std::array<double, 3>> ranges;  ///< of the structures along the axes
  std::array<Name, 3> names{};
  std::array<Point, 3> axes{};
};

class Chance {
 public:
  explicit Chance(unsigned seed) : source_(seed) {}
  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(source_);
  }
  int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(source_); }

 private:
  std::mt19937 source_;
};

void chooseAxes(Chance& chance, bool isRounded, Case& out) {
  Name main{chance.between(-180, 360), 0};
  if (out.dimensions == 3) main.dip = chance.between(-85, 85);
  const Point any{chance.between(-1, 1), chance.between(-1, 1), chance.between(-1, 1)};
  Point minor1 = ofLengthOne(acrossBoth(main.along(), any));
  if (out.dimensions == 2) minor1 = Name{main.azimuth + 90, 0}.along();
  out.names = {main, nameOf(minor1), nameOf(acrossBoth(main.along(), minor1))};
  if (out.dimensions == 2) out.names[1].dip = 0;
  for (Name& name : out.names)
    if (isRounded) name = {std::round(name.azimuth), std::round(name.dip)};
  const Point first = out.names[0].along(), second = out.names[1].along();
  out.axes[0] = first;
  out.axes[1] = ofLengthOne(sum(second, 1, first, -product(first, second)));
  out.axes[2] = acrossBoth(out.axes[0], out.axes[1]);
  if (out.dimensions == 2) out.names[2] = out.names[1];
}

/// How the structures' ranges differ by direction.
enum class Shape { same, oneRatio, each };

std::array<double, 3> chooseRanges(Chance& chance, Form form, Shape shape,
                                   const std::array<double, 3>& ratios) {
  if (form == Form::power) {
    const double exponent = chance.between(0.2, 1.95);
    return {exponent, exponent, exponent};
  }
  const double range = chance.between(50, 2000);
  if (shape == Shape::same) return {range, range, range};
  if (shape == Shape::oneRatio) return {range, range * ratios[1], range * ratios[2]};
  return {range, range * chance.between(0.1, 8), range * chance.between(0.1, 8)};
}

Case chooseCase(Chance& chance, int dimensions, const std::string& letters, Shape shape,
                bool isRounded) {
  Case out;
  out.dimensions = dimensions;
  out.nugget = chance.below(3) == 0 ? 0 : chance.between(0.01, 2);
  const std::array<double, 3> ratios{1, chance.between(0.1, 5), chance.between(0.1, 5)};
  for (const char letter : letters) {
    const Form form = formOf(std::string_view(&letter, 1)).value();
    std::array<double, 3> ranges = chooseRanges(chance, form, shape, ratios);
    if (dimensions == 2) ranges[2] = ranges[1];
    out.structures.push_back({form, chance.between(0.1, 3), ranges[0]});
    out.ranges.push_back(ranges);
  }
  chooseAxes(chance, isRounded, out);
  return out;
}

Session sessionOf(const Case& from) {
  Session session;
  session.filetag = "zevRA1";
  session.loaded = true;
  session.nvar = session.nvarfile = 1;
  session.ndir = from.dimensions;
  session.nclass = 4;
  resetFitState(session);
  session.hlag.create(4);
  session.gam.create(4);
  session.npairs.create(4);
  session.varname(1) = "ln zinc \xe9, \"top\" -- soil";
  session.variance(1) = 1.5;
  for (int direction = 1; direction <= from.dimensions; ++direction) {
    const auto axis = static_cast<std::size_t>(direction - 1);
    const Pair pair{1, direction};
    session.dirname(direction) = from.names.at(axis).text();
    for (int lag = 1; lag <= 4; ++lag) session.hlag.set(pair, lag, Cell(70.5 * lag));
    setNugget(session, pair, from.nugget);
    for (std::size_t at = 0; at < from.structures.size(); ++at) {
      const Structure& one = from.structures[at];
      setStructure(session, pair, kStructures.at(at), letterOf(one.form), one.sill,
                   from.ranges[at].at(axis));
    }
  }
  return session;
}

/// Each structure's own distance: |(h.e1/a1, h.e2/a2, h.e3/a3)| in its ranges.
double inSpace(const Case& from, const Point& h) {
  double total = from.nugget;
  for (std::size_t at = 0; at < from.structures.size(); ++at) {
    const bool isPower = from.structures[at].form == Form::power;
    double square = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const double part = product(h, from.axes.at(axis));
      square += std::pow(isPower ? part : part / from.ranges[at].at(axis), 2);
    }
    const double range = isPower ? 1 : from.structures[at].range;
    total += semivariance({0, {from.structures[at]}}, std::sqrt(square) * range);
  }
  return total;
}

double largestRange(const Case& from) {
  double largest = 0;
  for (const auto& ranges : from.ranges)
    for (const double range : ranges) largest = std::max(largest, range);
  return largest < 10 ? 1000 : largest;
}

nlohmann::json pointsOf(const Case& from, const Session& session) {
  nlohmann::json points = nlohmann::json::array();
  const Point oblique = ofLengthOne(sum(from.axes[0], 0.6, from.axes[1], -0.8));
  std::vector<Point> lines{from.axes[0], from.axes[1]};
  if (from.dimensions == 3) {
    lines.push_back(from.axes[2]);
    lines.push_back(ofLengthOne(sum(oblique, 1, from.axes[2], 0.7)));
    lines.push_back(ofLengthOne(sum(oblique, -0.4, from.axes[2], 1)));
  } else {
    lines.push_back(oblique);
    lines.push_back(ofLengthOne(sum(from.axes[0], 0.3, from.axes[1], 1)));
  }
  for (std::size_t at = 0; at < lines.size(); ++at) {
    for (int step = 0; step < kDistances; ++step) {
      const double h = largestRange(from) * (kNearest + (kFarthest - kNearest) * step / kDistances);
      const Point place = sum(lines[at], h, lines[at], 0);
      const bool onAxis = at < static_cast<std::size_t>(from.dimensions);
      const Pair pair{1, static_cast<std::int64_t>(at) + 1};
      points.push_back({place[0], place[1], place[2],
                        onAxis ? semivariance(modelOf(session, pair), h) : inSpace(from, place)});
    }
  }
  return points;
}

void write(const fs::path& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  if (!out.flush()) throw std::runtime_error("can't write " + path.string());
}

/// Shortest numbers, as the JSON has them.
std::string lines(const nlohmann::json& points) {
  std::string out;
  for (const auto& point : points) {
    for (const auto& number : point) out += number.dump() + " ";
    out.back() = '\n';
  }
  return out;
}

void writeText(const fs::path& stem, const std::string& name, const Session& session,
               const Request& request) {
  try {
    write(stem.string() + "." + name, exportModel(session, request).text);
  } catch (const Refusal& refusal) {
    write(stem.string() + "." + name + ".refused", refusal.what());
  }
}

bool hasOneRatio(const Case& from) {
  const auto isSame = [](double a, double b) { return std::abs(a - b) <= 1e-9 * a; };
  for (const auto& ranges : from.ranges)
    for (const std::size_t axis : {1U, 2U})
      if (!isSame(ranges.at(axis) / ranges[0], from.ranges[0].at(axis) / from.ranges[0][0]))
        return false;
  return true;
}

void writeCase(const fs::path& stem, const Case& from) {
  const Session session = sessionOf(from);
  const nlohmann::json points = pointsOf(from, session);
  nlohmann::json truth{
      {"dimensions", from.dimensions}, {"oneRatio", hasOneRatio(from)}, {"points", points}};
  std::string letters;
  for (const Structure& one : from.structures) letters += letterOf(one.form);
  truth["letters"] = letters;
  truth["main"] = {from.axes[0][0], from.axes[0][1], from.axes[0][2]};
  write(stem.string() + ".json", truth.dump(1));
  write(stem.string() + ".points", lines(points));
  Request request{Target::json, {1}, {}, 1, 2, from.dimensions, false};
  for (const TargetRow& row : kTargets) {
    request.target = row.target;
    const std::string name = row.target == Target::json ? "model" : std::string(row.name);
    writeText(stem, name, session, request);
  }
  request.target = Target::gslib;
  request.gslibGaussian9 = true;
  writeText(stem, "gslib9", session, request);
}

void writeCases(const fs::path& folder) {
  Chance chance(20260101);
  int number = 100;
  const std::array<std::string, 10> nestings{"S",  "E",   "G",   "P",   "SE",
                                             "GS", "SEG", "EES", "PSE", ""};
  for (const int dimensions : {2, 3}) {
    for (const std::string& letters : nestings) {
      for (const Shape shape : {Shape::same, Shape::oneRatio, Shape::each}) {
        for (const bool isRounded : {false, true}) {
          const Case chosen = chooseCase(chance, dimensions, letters, shape, isRounded);
          writeCase(folder / std::to_string(number++), chosen);
        }
      }
    }
  }
}

/// Variables 1 and 2 and their cross variable 5, along 45;0 and 135;0.
void writeExample(const fs::path& folder, const fs::path& file) {
  Session session;
  if (loadVariogramFile(file, session) != Load::good)
    throw std::runtime_error("can't read " + file.string());
  Request request{Target::gstat, {1}, {}, 2, 4, std::nullopt, false};
  write(folder / "one.gstat", exportModel(session, request).text);
  request.variables = {1, 2};
  request.crosses = {{5, 1, 2}};
  write(folder / "several.gstat", exportModel(session, request).text);
}

}  // namespace
}  // namespace zevfit::exchange

int main(int count, char** arguments) {
  if (count != 3) return 2;
  try {
    std::filesystem::remove_all(arguments[1]);
    std::filesystem::create_directories(arguments[1]);
    zevfit::exchange::writeCases(arguments[1]);
    zevfit::exchange::writeExample(arguments[1], arguments[2]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
