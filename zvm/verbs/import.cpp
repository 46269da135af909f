#include "zvm/exchange/import.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "files/output_file.h"
#include "session/numbers.h"
#include "zvm/experimental/plan.h"
#include "zvm/points/names.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/compute_report.h"
#include "zvm/verbs/file_report.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/names.h"
#include "zvm/verbs/option_values.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

struct Options {
  std::string system;
  std::vector<std::string> files;  ///< the output is the last
  std::optional<double> width, lagTolerance;
  std::vector<std::string> tolerances, directions, crosses, variances, names;
  std::string title;
};

/// A semivariogram file to be, and what is told of it.
struct Import {
  zvm::Experimental experimental;
  std::vector<bool> isVarianceTold;
  exchange::Warnings warnings;
};

std::string nameOf(const std::string& file) { return file == kStandardStream ? "stdin" : file; }

// ---- The two systems.

template <class Item>
std::vector<Item> readAll(const std::vector<std::string>& files, Context& context,
                          std::vector<Item> (*read)(std::string_view, const std::string&)) {
  std::vector<Item> all;
  for (const std::string& file : files)
    for (Item& item : read(readInput(context, file), nameOf(file))) all.push_back(std::move(item));
  return all;
}

double aboveZero(const std::optional<double>& number, const char* option) {
  if (!number || !std::isfinite(*number) || *number <= 0)
    throw Failure(Exit::usage, std::string(option) + " takes a number above 0");
  return *number;
}

exchange::GamvOptions gamvOptions(const Options& options) {
  if (!options.crosses.empty())
    throw Failure(Exit::usage, "--cross-of goes with gstat; the titles of gamv tell its crosses");
  if (options.tolerances.empty())
    throw Failure(Exit::usage,
                  "--atol is missing: gamv counts each pair twice where it is 90 and more, and the "
                  "listing does not tell");
  exchange::GamvOptions gamv;
  for (const std::string& text : splitAll(options.tolerances, "--atol")) {
    gamv.tolerances.push_back(numberOf<double>(text, "--atol"));
    aboveZero(gamv.tolerances.back(), "--atol");
  }
  for (const std::string& name : options.directions) {
    if (!zvm::directionOf(name))
      throw Failure(Exit::usage, "--dir takes \"AZ;DIP\", not `" + name + "`");
    gamv.directions.push_back(name);
  }
  if (options.width) gamv.width = aboveZero(options.width, "--width");
  if (options.lagTolerance) gamv.lagTolerance = aboveZero(options.lagTolerance, "--lag-tolerance");
  return gamv;
}

/// "ID=A,B", of which the id may hold an equals sign.
exchange::ToldCross toldCross(const std::string& told) {
  const std::size_t equals = told.rfind('=');
  const auto pair =
      equals == told.npos ? std::vector<std::string>() : split(told.substr(equals + 1), ',');
  if (pair.size() != 2 || pair[0].empty() || pair[1].empty() || pair[0] == pair[1])
    throw Failure(Exit::usage, "--cross-of takes \"ID=A,B\", not `" + told + "`");
  return {told.substr(0, equals), pair[0], pair[1]};
}

exchange::GstatOptions gstatOptions(const Options& options) {
  if (!options.tolerances.empty() || !options.directions.empty() || options.lagTolerance)
    throw Failure(Exit::usage,
                  "--atol, --dir and --lag-tolerance go with gamv; a table of gstat tells its "
                  "directions");
  if (!options.width)
    throw Failure(
        Exit::usage,
        "--width is missing: gstat leaves classes without pairs out, and only their width "
        "tells which");
  exchange::GstatOptions gstat{aboveZero(options.width, "--width"), {}};
  for (const std::string& told : options.crosses) gstat.crosses.push_back(toldCross(told));
  return gstat;
}

exchange::Imported importedFromGamv(const Options& options, const std::vector<std::string>& files,
                                    Context& context) {
  const exchange::GamvOptions gamv = gamvOptions(options);
  return exchange::importGamv(readAll(files, context, exchange::readGamv), gamv);
}

exchange::Imported importedFromGstat(const Options& options, const std::vector<std::string>& files,
                                     Context& context) {
  const exchange::GstatOptions gstat = gstatOptions(options);
  return exchange::importGstat(readAll(files, context, exchange::readGstat), gstat);
}

using Importer = exchange::Imported (*)(const Options&, const std::vector<std::string>&, Context&);
constexpr Choice<Importer> kSystems[] = {{"gamv", importedFromGamv}, {"gstat", importedFromGstat}};

// ---- Names and variances.

/// The variables that semivariograms are of, each once.
std::vector<std::string> bases(const exchange::Imported& imported) {
  std::vector<std::string> names;
  for (const auto& variable : imported.variables)
    for (const std::string* name : {&variable.first, &variable.second})
      if (std::ranges::count(names, *name) == 0) names.push_back(*name);
  return names;
}

/// The position of a name, or of its number from 1.
std::size_t positionOf(const std::string& asked, const std::vector<std::string>& names,
                       const Options& options) {
  if (const auto found = std::ranges::find(names, asked); found != names.end())
    return static_cast<std::size_t>(found - names.begin());
  for (std::size_t i = 0; i < names.size(); ++i)
    if (asked == std::to_string(i + 1)) return i;
  const std::string where = options.files.size() == 1 ? nameOf(options.files[0]) : "the files";
  throw Failure(Exit::data, zvm::noSuchName("variable", asked, where, names));
}

/// NAME=TEXT, of which the name may hold an equals sign.
std::pair<std::string, std::string> told(const std::string& text, const std::string& form) {
  const std::size_t sign = text.rfind('=');
  if (sign == text.npos) throw Failure(Exit::usage, form + ", not `" + text + "`");
  return {text.substr(0, sign), text.substr(sign + 1)};
}

/// What the variables are called in the file, in Latin-1; no two of them the same.
std::vector<std::string> fileNames(const exchange::Imported& imported, const Options& options) {
  const std::vector<std::string> from = bases(imported);
  std::vector<std::string> names = from;
  for (const std::string& text : options.names) {
    const auto [old, name] = told(text, "--name takes NAME=NEW");
    requireName("--name " + text, name);
    names[positionOf(old, from, options)] = name;
  }
  for (std::size_t i = 0; i < names.size(); ++i)
    names[i] = nameForFile(from[i], names[i], !options.names.empty());
  const auto named = [&](const std::string& base) {
    return names[static_cast<std::size_t>(std::ranges::find(from, base) - from.begin())];
  };
  std::vector<std::string> all;
  for (const auto& variable : imported.variables) {
    all.push_back(named(variable.first) + (variable.isCross() ? '-' + named(variable.second) : ""));
    if (std::ranges::count(all, all.back()) > 1)
      throw Failure(Exit::data, "two variables are called `" + utf8Of(all.back()) +
                                    "`; --name gives one of them another name");
  }
  return all;
}

/// The variances that are told, by variable.
std::vector<std::optional<double>> toldVariances(const std::vector<std::string>& names,
                                                 const Options& options) {
  std::vector<std::string> printed;
  printed.reserve(names.size());
  for (const std::string& name : names) printed.push_back(utf8Of(name));
  std::vector<std::optional<double>> variances(names.size());
  for (const std::string& text : options.variances) {
    const auto [name, number] = told(text, "--variance takes NAME=VALUE");
    const auto value = numberOf<double>(number, "--variance");
    if (!std::isfinite(value)) throw Failure(Exit::usage, "--variance takes a finite number");
    variances[positionOf(name, printed, options)] = value;
  }
  return variances;
}

Import importOf(const exchange::Imported& imported, const Options& options) {
  Import import;
  import.warnings = imported.warnings;
  zvm::Frame& frame = import.experimental.frame;
  frame.title =
      options.title.empty() ? titleOfFile(options.files.front()) : titleAsTold(options.title);
  const std::vector<std::string> names = fileNames(imported, options);
  const auto variances = toldVariances(names, options);
  for (std::size_t v = 0; v < names.size(); ++v) {
    const exchange::Imported::Variable& variable = imported.variables[v];
    const double variance = variances[v].value_or(exchange::meanSemivariance(variable));
    frame.variables.push_back({names[v], variable.isCross(), variance, 0});
    import.experimental.classes.push_back(variable.classes);
    import.isVarianceTold.push_back(variances[v].has_value());
    if (!variances[v])
      import.warnings.push_back("the variance of `" + utf8Of(names[v]) + "` is taken as " +
                                generalText(variance) +
                                ", the mean of its semivariances by pairs; --variance \"" +
                                utf8Of(names[v]) + "=VALUE\" tells it");
  }
  for (const std::string& direction : imported.directions)
    frame.directions.push_back({direction, false});
  frame.lags.count = static_cast<std::int64_t>(imported.variables.front().classes.front().size());
  return import;
}

// ---- What is told.

std::string textReport(const Import& import) {
  const zvm::Frame& frame = import.experimental.frame;
  std::vector<std::vector<std::string>> rows{
      {"title", utf8Of(frame.title)},
      {"variables", std::to_string(frame.variables.size())},
      {"directions", std::to_string(frame.directions.size())},
      {"classes", std::to_string(frame.lags.count)}};
  std::string text = table(rows);
  rows = {{"variable", "variance"}};
  for (std::size_t v = 0; v < frame.variables.size(); ++v)
    rows.push_back({utf8Of(frame.variables[v].name),
                    generalText(frame.variables[v].variance) +
                        (import.isVarianceTold[v] ? "" : " (mean semivariance)")});
  return text + '\n' + table(rows) + '\n' + fewPairsText(import.experimental);
}

Json jsonReport(const Import& import, const Options& options, const std::string& output) {
  const zvm::Frame& frame = import.experimental.frame;
  Json variables = Json::array(), directions = Json::array();
  for (std::size_t v = 0; v < frame.variables.size(); ++v)
    variables.push_back({{"name", utf8Of(frame.variables[v].name)},
                         {"cross", frame.variables[v].isCross},
                         {"variance", frame.variables[v].variance},
                         {"varianceTold", bool{import.isVarianceTold[v]}}});
  for (const zvm::Frame::Toward& direction : frame.directions)
    directions.push_back(utf8Of(direction.name));
  return {{"schema", "zvm.import/1"},
          {"system", options.system},
          {"files", options.files},
          {"output", output},
          {"title", utf8Of(frame.title)},
          {"classes", frame.lags.count},
          {"variables", variables},
          {"directions", directions},
          {"semivariograms", semivariogramsOf(import.experimental)},
          {"warnings", import.warnings}};
}

Exit runImport(Options options, Context& context) {
  const Importer importer = choiceOf(options.system, "system", kSystems);
  if (options.files.size() < 2)
    throw Failure(Exit::usage, "import takes a system, its files and the file to write");
  const std::string output = options.files.back();
  options.files.pop_back();
  requireOutput(context, output);
  const Import import = importOf(importer(options, options.files, context), options);
  for (const std::string& warning : import.warnings) context.warning(warning);
  MemorySink sink;
  zvm::composeExperimental(import.experimental, sink);
  context.save(output, std::move(sink.bytes));
  reportOn(context, output, jsonReport(import, options, output), textReport(import));
  return Exit::done;
}

Exit guarded(const Options& options, Context& context) {
  try {
    return runImport(options, context);
  } catch (const zvm::DataError& error) {
    throw Failure(Exit::data, error.what());
  } catch (const exchange::WrongOption& error) {
    throw Failure(Exit::usage, error.what());
  }
}

}  // namespace

Run declareImport(CLI::App& app) {
  const auto options = std::make_shared<Options>();
  const AddOption add{app};
  const AddEach addEach{app};
  add("SYSTEM", options->system, "Whose files they are", "gamv|gstat")->required();
  app.add_option("FILE... OUT", options->files,
                 "Listings of gamv, or tables that R wrote of gstat's variogram, - for "
                 "stdin; and the variogram file to write, - for stdout")
      ->required()
      ->type_name("");
  add("--width", options->width, "The width of gstat's classes, the lag separation of gamv", "W");
  add("--lag-tolerance", options->lagTolerance,
      "Of gamv: its lag tolerance; default: half of --width", "T");
  addEach("--atol", options->tolerances,
          "Of gamv: its angular tolerance, one for all directions or one for each", "DEGREES,...");
  addEach("--dir", options->directions,
          "Of gamv: a direction, in the order of their numbers; the dip is positive down, that of "
          "gamv negative",
          "\"AZ;DIP\"");
  addEach("--cross-of", options->crosses, "Of gstat: an id that is the cross of two variables",
          "ID=A,B");
  addEach("--variance", options->variances,
          "The variance of a variable; default: the mean of its semivariances", "NAME=VALUE");
  addEach("--name", options->names, "What a variable is called in the file", "NAME=NEW");
  add("--title", options->title, "The title of the file", "TEXT");
  return [options](Context& context) { return guarded(*options, context); };
}

}  // namespace zevfit::verbs
