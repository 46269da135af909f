#include <algorithm>
#include <cmath>
#include <thread>

#include "zvm/plotting/request.h"
#include "zvm/points/names.h"
#include "zvm/verbs/connection.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/module.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/plot_options.h"
#include "zvm/verbs/points_input.h"
#include "zvm/verbs/progress.h"
#include "zvm/verbs/report.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

using plotting::Format;
using plotting::Kind;
using plotting::Page;

constexpr Module kModule{"zvm-plot", "zvm plot"};

/// What is drawn, and under which names.
struct Pictures {
  plotting::Request request;
  std::vector<std::string> variables, directions;  ///< by page; directions parted by ", "
};

std::vector<std::int64_t> chosen(const std::vector<std::string>& asked, std::int64_t count,
                                 const char* option, auto&& subscriptOf) {
  std::vector<std::int64_t> numbers;
  for (std::int64_t i = 1; asked.empty() && i <= count; ++i) numbers.push_back(i);
  for (const std::string& name : asked) {
    const std::int64_t number = subscriptOf(name);
    if (std::ranges::count(numbers, number) > 0)
      throw Failure(Exit::usage, std::string(option) + ' ' + name + " is there twice");
    numbers.push_back(number);
  }
  return numbers;
}

std::string nameAt(const std::vector<std::string>& names, std::int64_t subscript) {
  return names.at(static_cast<std::size_t>(subscript - 1));
}

void addOverlay(std::int64_t variable, const std::vector<std::int64_t>& directions,
                const std::vector<std::string>& names, Pictures& pictures) {
  Page page{Kind::overlay, variable, 0, {}, {}};
  std::vector<std::string> shown;
  shown.reserve(directions.size());
  for (const std::int64_t d : directions) {
    page.shown.set(static_cast<std::size_t>(d));
    shown.push_back(nameAt(names, d));
  }
  pictures.request.pages.push_back(page);
  pictures.directions.push_back(listed(shown));
}

void addPages(const Loaded& loaded, const PlotOptions& options, Pictures& pictures) {
  const Session& session = loaded.session;
  const auto variables =
      chosen(options.points.variables, session.nvar, "--var",
             [&](const std::string& name) { return variableOf(session, loaded.path, name); });
  const auto directions =
      chosen(options.directions, session.ndir, "--dir",
             [&](const std::string& name) { return directionOf(session, loaded.path, name); });
  const auto variableTexts = variableNames(session), directionTexts = directionNames(session);
  for (const std::int64_t v : variables) {
    if (options.overlay) addOverlay(v, directions, directionTexts, pictures);
    for (const std::int64_t d : directions) {
      if (options.overlay) break;
      pictures.request.pages.push_back({Kind::direction, v, d, {}, {}});
      pictures.directions.push_back(nameAt(directionTexts, d));
    }
    pictures.variables.resize(pictures.directions.size(), nameAt(variableTexts, v));
  }
}

zvm::PointCounts countsOf(const zvm::PointSet& points, std::size_t variable) {
  const auto isMissing = [](double value) { return std::isnan(value); };
  const auto unknown = std::ranges::count_if(points.values[variable], isMissing);
  return {points.read, points.skipped, static_cast<std::uint64_t>(unknown), 0, 0};
}

void addMaps(const PlotOptions& options, Context& context, Pictures& pictures) {
  const zvm::PointSet points = pointsOf(options.points, readOptionsOf(options.points), context);
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  const unsigned threads =
      context.common.threads > 0 ? static_cast<unsigned>(context.common.threads) : cores;
  for (std::size_t v = 0; v < points.names.size(); ++v) {
    Progress progress(context, "computing");
    auto surface = zvm::surfaceMapOf(points, v, options.points.lag, options.points.lags, threads,
                                     [&](double share) { progress.tell(share); });
    const bool isEmpty =
        std::ranges::all_of(surface.cells, [](const auto& cell) { return cell.pairs == 0; });
    if (isEmpty)
      throw Failure(Exit::data, pointsName(options.points) + ": no two points of `" +
                                    points.names[v] + "` are within reach of the map" +
                                    countsText(countsOf(points, v)));
    const std::string name = zvm::latin1Of(points.names[v]).value_or("?");
    pictures.request.pages.push_back({Kind::map, 0, 0, {}, plotting::Map{name, surface}});
    pictures.variables.push_back(points.names[v]);
    pictures.directions.emplace_back();
  }
}

/// "zinc.svg" as "zinc-03.svg" where there are ten and more.
std::string numbered(const std::string& output, std::size_t number, std::size_t count) {
  const std::string text = std::to_string(number);
  const std::string zeros(std::to_string(count).size() - text.size(), '0');
  const std::size_t slash = output.rfind('/'), point = output.rfind('.');
  const bool isNamed = point != output.npos && (slash == output.npos || point > slash + 1);
  const std::size_t at = isNamed ? point : output.size();
  return output.substr(0, at) + '-' + zeros + text + output.substr(at);
}

/// The file of each page.
std::vector<std::string> filesOf(const Pictures& pictures, const std::string& output) {
  const std::size_t count = pictures.request.pages.size();
  if (count == 1 || pictures.request.format == Format::pdf)
    return std::vector<std::string>(count, output);
  if (isStandardOutput(output) || isSpecial(output))
    throw Failure(Exit::usage, "these are " + std::to_string(count) + " pictures: " + output +
                                   " takes one, or those of a PDF file");
  std::vector<std::string> files;
  files.reserve(count);
  for (std::size_t i = 1; i <= count; ++i) files.push_back(numbered(output, i, count));
  return files;
}

Json cellsOf(const zvm::SurfaceMap& surface) {
  Json cells = Json::array();
  for (std::int64_t north = -surface.reach; north <= surface.reach; ++north)
    for (std::int64_t east = -surface.reach; east <= surface.reach; ++east) {
      const zvm::SurfaceCell& cell = surface.at(east, north);
      cells.push_back({{"east", static_cast<double>(east) * surface.width},
                       {"north", static_cast<double>(north) * surface.width},
                       {"semivariance", cell.pairs == 0 ? Json() : Json(cell.semivariance)},
                       {"pairs", cell.pairs}});
    }
  return cells;
}

Json jsonReport(const PlotOptions& options, const Pictures& pictures,
                const std::vector<std::string>& files) {
  Json rows = Json::array();
  for (std::size_t i = 0; i < files.size(); ++i) {
    const Page& page = pictures.request.pages[i];
    Json row{{"file", files[i]}, {"variable", pictures.variables[i]}};
    if (pictures.request.format == Format::pdf) row["page"] = i + 1;
    if (page.kind == Kind::direction) row["direction"] = pictures.directions[i];
    if (page.kind == Kind::overlay) row["directions"] = pictures.directions[i];
    if (page.map) row["cells"] = cellsOf(page.map->surface);
    rows.push_back(row);
  }
  return {
      {"schema", "zvm.plot/1"}, {"file", shownSource(options.points.points)}, {"pictures", rows}};
}

/// Of several pictures which is which.
std::string textReport(const Pictures& pictures, const std::vector<std::string>& files) {
  if (files.size() == 1) return "";
  const bool arePages = pictures.request.format == Format::pdf;
  std::vector<std::vector<std::string>> rows{{"file", "variable", "direction"}};
  for (std::size_t i = 0; i < files.size(); ++i)
    rows.push_back({files[i] + (arePages ? ", page " + std::to_string(i + 1) : ""),
                    pictures.variables[i], pictures.directions[i]});
  return table(rows);
}

Exit runPlot(const PlotOptions& options, Context& context) {
  const std::string output = outputOf(options);
  refuseMixture(options);
  Pictures pictures{requestOf(options, output), {}, {}};
  const bool toStdout = isStandardOutput(output);
  if (context.common.json && toStdout)
    throw Failure(Exit::usage, "--json reports on a file: it takes another OUT than stdout");
  pictures.request.style = styleOf(options, context);
  if (options.map) {
    addMaps(options, context, pictures);
  } else {
    const auto loaded = loadInput(context, options.points.points);
    addPages(*loaded, options, pictures);
    pictures.request.data = loaded->bytes;
  }
  const std::vector<std::string> files = filesOf(pictures, output);
  for (const std::string& file : files)
    if (file != kStandardStream) requireFree(file, context.common.overwrite);
  auto made = plotting::filesOf(outputOf(kModule, bytesOf(pictures.request), context));
  const bool isOne = pictures.request.format == Format::pdf;
  if (made.size() != (isOne ? 1 : files.size()))
    throw Failure(Exit::file, "zvm-plot has drawn other pictures than it was asked for");
  for (std::size_t i = 0; i < made.size(); ++i) context.save(files[i], std::move(made[i]));
  if (context.common.json)
    context.print(textOf(jsonReport(options, pictures, files)));
  else if (!toStdout)
    context.print(textReport(pictures, files));
  return Exit::done;
}

}  // namespace

Run declarePlot(CLI::App& app) {
  const auto options = std::make_shared<PlotOptions>();
  declareOptions(app, *options);
  return
      [options](Context& context) { return guarded([&] { return runPlot(*options, context); }); };
}

}  // namespace zevfit::verbs
