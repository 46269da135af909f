#include "zvm/verbs/compute_options.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "zvm/points/names.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/names.h"
#include "zvm/verbs/option_values.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

constexpr Choice<zvm::Compat> kCompats[] = {{"gstat", zvm::Compat::gstat},
                                            {"gamv", zvm::Compat::gamv}};
constexpr Choice<zvm::ZeroDistances> kZeros[] = {{"skip", zvm::ZeroDistances::skip},
                                                 {"first", zvm::ZeroDistances::first}};
constexpr Choice<zvm::PointFormat> kFormats[] = {{"csv", zvm::PointFormat::csv},
                                                 {"geoeas", zvm::PointFormat::geoeas},
                                                 {"ogr", zvm::PointFormat::csv}};

/// The column that an option names, or else the one of the geometry.
std::string coordinateOf(const std::string& given, const char* option, const char* own,
                         const ComputeOptions& options) {
  if (!given.empty()) return given;
  if (own != nullptr) return own;
  const std::string note = tableNote(options.points, options.format);
  throw Failure(Exit::usage, std::string(option) + " is required" +
                                 (note.empty() ? "; zvm compute --help tells more" : ": " + note));
}

/// The position of a variable by its column, its name or its number among the columns as given.
std::optional<std::size_t> positionOf(const std::string& asked, const ComputeOptions& options,
                                      const std::vector<std::string>& columns) {
  const std::vector<std::string> given = splitAll(options.variables, "--var");
  for (const auto* texts : {&columns, &given})
    if (const auto found = std::ranges::find(*texts, asked); found != texts->end())
      return static_cast<std::size_t>(found - texts->begin());
  return std::nullopt;
}

std::size_t requirePosition(const std::string& asked, const ComputeOptions& options,
                            const std::vector<std::string>& columns) {
  if (const auto position = positionOf(asked, options, columns)) return *position;
  throw Failure(Exit::usage, zvm::noSuchName("variable", asked, "--var", columns));
}

/// Names that are equal would be told apart by their numbers alone.
template <class Named>
void requireDifferent(const std::vector<Named>& all, std::string Named::*name, const char* what) {
  for (auto one = all.begin(); one != all.end(); ++one)
    if (std::find_if(all.begin(), one,
                     [&](const Named& other) { return other.*name == (*one).*name; }) != one)
      throw Failure(Exit::usage,
                    "two " + std::string(what) + "s named `" + utf8Of((*one).*name) + '`');
}

/// What the variables are called, in the order of their columns.
std::vector<std::string> variableTexts(const ComputeOptions& options,
                                       const std::vector<std::string>& columns) {
  std::vector<std::string> names = columns;
  for (const std::string& text : options.names) {
    const std::size_t sign = text.rfind('=');
    if (sign == std::string::npos)
      throw Failure(Exit::usage, "--name takes COLUMN=NAME, not `" + text + "`");
    requireName("--name " + text, text.substr(sign + 1));
    names[requirePosition(text.substr(0, sign), options, columns)] = text.substr(sign + 1);
  }
  const std::vector<std::string> given = splitAll(options.variables, "--var");
  for (std::size_t v = 0; v < names.size(); ++v)
    names[v] = nameForFile(given[v], names[v], !options.names.empty());
  return names;
}

}  // namespace

void declareOptions(CLI::App& app, ComputeOptions& options) {
  const AddOption add{app};
  const AddEach addEach{app};
  add("POINTS", options.points, "A table of points, - for stdin, or a spatial source", "")
      ->required();
  add("OUT", options.output, "The variogram file to write, - for stdout", "");
  add("-o,--output", options.outputOption, "The same", "OUT");
  add("--format", options.format, "The format of the points; default: found out", "csv|geoeas|ogr");
  add("--x", options.x,
      "The column of the eastings, by name or number; a spatial source has its geometry", "COLUMN");
  add("--y", options.y, "That of the northings", "COLUMN");
  add("--z", options.z, "That of the heights; without it the points lie in a plane", "COLUMN");
  addEach("--var", options.variables, "The columns of the variables", "A,B,...")->required();
  addEach("--log", options.logs, "Of these variables the natural logarithm", "A,...");
  addEach("--cross", options.crosses, "Cross semivariograms of all pairs or of these",
          "all|A:B,...");
  addEach("--name", options.names, "What a variable is called in the file", "COLUMN=NAME");
  addEach("--missing", options.missing, "Stands for no value, beside nothing, NA and NaN", "VALUE");
  add("--trim", options.trim, "Keeps the values from MIN to MAX, before --log", "MIN:MAX");
  add("--lag", options.lag, "The width of the lag classes", "W")->required();
  add("--lags", options.lags, "Their number", "N")->required();
  add("--lag-tolerance", options.lagTolerance, "Classes from kW - T to kW + T", "T");
  addEach("--dir", options.directions,
          "A direction, azimuth and dip in degrees; without one all directions together",
          "\"AZ;DIP\"");
  add("--tol", options.tolerance, "Half angle of the directions; default: 22.5", "DEGREES");
  add("--band", options.band, "Half width across the azimuth", "B");
  add("--vband", options.vband, "Half width across the axis and the band", "B");
  add("--zero", options.zero, "Pairs at the same place: left out, or in the first class",
      "skip|first");
  add("--compat", options.compat, "Counts and classes as this program has them", "gstat|gamv");
  add("--sample", options.sample, "Draws this many of the points", "N");
  add("--seed", options.seed, "Which sample is drawn; default: 1", "S");
  add("--part", options.part, "Computes part I of N for zvm merge", "I/N");
  add("--title", options.title, "The title of the file", "TEXT");
  declareOptions(app, options.spatial);
}

std::string outputOf(const ComputeOptions& options) {
  if (options.output.empty() && options.outputOption.empty())
    throw Failure(Exit::usage, "the file to write is missing");
  if (!options.output.empty() && !options.outputOption.empty())
    throw Failure(Exit::usage,
                  "two files to write: " + options.output + " and -o " + options.outputOption);
  return options.output.empty() ? options.outputOption : options.output;
}

std::optional<Part> partOf(const ComputeOptions& options) {
  if (options.part.empty()) return std::nullopt;
  const auto numbers = split(options.part, '/');
  const auto number = readNumber<std::uint32_t>(numbers.front());
  const auto count = readNumber<std::uint32_t>(numbers.back());
  if (numbers.size() != 2 || !number || !count)
    refuseValue("--part", "I/N in whole numbers", options.part);
  const Part part{*number, *count};
  if (part.number < 1 || part.number > part.count)
    throw Failure(Exit::usage, "there is no part " + options.part);
  return part;
}

std::optional<zvm::Sample> sampleOf(const ComputeOptions& options) {
  if (options.sample.empty() && !options.seed.empty())
    throw Failure(Exit::usage, "--seed takes --sample");
  if (options.sample.empty()) return std::nullopt;
  const auto count = numberOf<std::uint64_t>(options.sample, "--sample");
  if (count < 2) throw Failure(Exit::usage, "--sample takes 2 points and more");
  return zvm::Sample{count,
                     options.seed.empty() ? 1 : numberOf<std::uint64_t>(options.seed, "--seed")};
}

zvm::ReadOptions readOptionsOf(const ComputeOptions& options) {
  zvm::ReadOptions read;
  if (!options.format.empty()) read.format = choiceOf(options.format, "--format", kFormats);
  const bool hasGeometry = isSpatial(options.points, options.format, options.spatial);
  if (!hasGeometry && options.spatial.isAny())
    throw Failure(Exit::usage, "--layer, --where, --sql and --projected take a spatial source");
  read.x = coordinateOf(options.x, "--x", hasGeometry ? kEasting : nullptr, options);
  read.y = coordinateOf(options.y, "--y", hasGeometry ? kNorthing : nullptr, options);
  if (!options.z.empty()) read.z = options.z;
  read.variables = splitAll(options.variables, "--var");
  read.logs = splitAll(options.logs, "--log");
  read.missing = zvm::MissingValues(options.missing);
  for (auto one = read.variables.begin(); one != read.variables.end(); ++one)
    if (std::find(read.variables.begin(), one, *one) != one)
      throw Failure(Exit::usage, "--var " + *one + " is there twice");
  if (options.trim.empty()) return read;
  const auto bounds = split(options.trim, ':');
  const auto lowest = readNumber<double>(bounds.front()),
             highest = readNumber<double>(bounds.back());
  if (bounds.size() != 2 || !lowest || !highest)
    refuseValue("--trim", "MIN:MAX in numbers", options.trim);
  read.trim = zvm::Trim{*lowest, *highest};
  if (!(read.trim->lowest <= read.trim->highest))
    throw Failure(Exit::usage, "--trim " + options.trim + " keeps nothing");
  return read;
}

zvm::Plan planOf(const ComputeOptions& options) {
  zvm::Plan plan;
  plan.lags = {options.lag, options.lags, options.lagTolerance};
  if (!options.zero.empty()) plan.zero = choiceOf(options.zero, "--zero", kZeros);
  if (!options.compat.empty()) plan.compat = choiceOf(options.compat, "--compat", kCompats);
  if (plan.compat == zvm::Compat::gstat && options.zero == "skip")
    throw Failure(Exit::usage, "gstat has pairs at the same place in the first class");
  for (const std::string& name : options.directions) {
    auto direction = zvm::directionOf(name);
    if (!direction) throw Failure(Exit::usage, "--dir takes \"AZ;DIP\", not `" + name + "`");
    direction->name = zvm::withoutBlanks(name);
    direction->tolerance = options.tolerance.value_or(direction->tolerance);
    direction->band = options.band;
    direction->vband = options.vband;
    plan.directions.push_back(*direction);
  }
  requireDifferent(plan.directions, &zvm::Direction::name, "direction");
  if (!plan.directions.empty()) return plan;
  if (options.tolerance || options.band || options.vband)
    throw Failure(Exit::usage, "--tol, --band and --vband take --dir");
  plan.directions.push_back(*zvm::directionOf("0;0"));
  plan.directions.front().tolerance = 90;
  return plan;
}

std::vector<zvm::Pairing> pairingsOf(const ComputeOptions& options,
                                     const std::vector<std::string>& columns) {
  const std::vector<std::string> names = variableTexts(options, columns);
  std::vector<zvm::Pairing> pairings;
  for (std::size_t v = 0; v < names.size(); ++v) pairings.push_back({v, v, names[v]});
  const auto add = [&](std::size_t first, std::size_t second) {
    pairings.push_back({first, second, names[first] + '-' + names[second]});
  };
  std::vector<std::string> crosses = splitAll(options.crosses, "--cross");
  if (crosses == std::vector<std::string>{"all"}) {
    for (std::size_t first = 0; first < names.size(); ++first)
      for (std::size_t second = first + 1; second < names.size(); ++second) add(first, second);
    crosses.clear();
  }
  for (const std::string& cross : crosses) {
    const auto pair = split(cross, ':');
    if (pair.size() != 2)
      throw Failure(Exit::usage, "--cross takes all or A:B, not `" + cross + "`");
    const std::size_t first = requirePosition(pair[0], options, columns);
    const std::size_t second = requirePosition(pair[1], options, columns);
    if (first == second) throw Failure(Exit::usage, "--cross " + cross + " is no cross");
    add(first, second);
  }
  requireDifferent(pairings, &zvm::Pairing::name, "variable");
  return pairings;
}

std::string titleOf(const ComputeOptions& options) {
  if (!options.title.empty()) return titleAsTold(options.title);
  // What a shell calls a pipe, such as /dev/fd/63, says nothing.
  std::error_code unknown;
  if (std::filesystem::is_fifo(options.points, unknown))
    return titleOfSource(std::string(kStandardStream));
  return titleOfSource(titleNameOf(options.points, options.spatial));
}

}  // namespace zevfit::verbs
