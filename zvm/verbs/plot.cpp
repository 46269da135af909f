#include <algorithm>
#include <cmath>
#include <filesystem>
#include <thread>

#include "zvm/plotting/request.h"
#include "zvm/points/names.h"
#include "zvm/verbs/connection.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/module.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/plot_options.h"
#include "zvm/verbs/plot_report.h"
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

/// A file as pages, with the names of its variables and directions.
class FilePages {
 public:
  FilePages(const Loaded& loaded, const PlotOptions& options)
      : variableTexts_(variableNames(loaded.session)),
        directionTexts_(directionNames(loaded.session)) {
    const Session& session = loaded.session;
    variables_ =
        chosen(options.points.variables, session.nvar, "--var",
               [&](const std::string& name) { return variableOf(session, loaded.path, name); });
    directions_ = chosen(options.directions, session.ndir, "--dir", [&](const std::string& name) {
      return directionOf(session, loaded.path, name);
    });
  }

  void addOverlays(Pictures& pictures) const {
    std::vector<std::int64_t> ordered = directions_;
    std::ranges::sort(ordered);
    for (const std::int64_t v : variables_) {
      Page page{Kind::overlay, v, 0, {}, {}};
      PictureRow row{nameAt(variableTexts_, v), {}, 0};
      for (const std::int64_t d : ordered) {
        page.shown.set(static_cast<std::size_t>(d));
        row.directions.push_back(nameAt(directionTexts_, d));
      }
      pictures.request.pages.push_back(page);
      pictures.rows.push_back(row);
    }
  }

  void addDirections(Pictures& pictures) const {
    for (const std::int64_t v : variables_)
      for (const std::int64_t d : directions_) {
        pictures.request.pages.push_back({Kind::direction, v, d, {}, {}});
        pictures.rows.push_back({nameAt(variableTexts_, v), {nameAt(directionTexts_, d)}, 0});
      }
  }

 private:
  std::vector<std::string> variableTexts_, directionTexts_;
  std::vector<std::int64_t> variables_, directions_;
};

/// The file to draw; of points it is said how they are drawn.
std::unique_ptr<Loaded> loadedFile(const PlotOptions& options, Context& context) {
  const ComputeOptions& points = options.points;
  try {
    return loadInput(context, points.points);
  } catch (const Failure& failure) {
    if (!looksLikePoints(points)) throw;
    // A place in bytes that are no text tells nothing.
    const bool isText = !isSpatial(points.points, points.format, points.spatial);
    throw Failure(failure.code(),
                  (isText ? failure.what() : shownPoints(points) + " is no variogram file") +
                      "; points take --map");
  }
}

void addPages(const PlotOptions& options, Context& context, Pictures& pictures) {
  const auto loaded = loadedFile(options, context);
  const FilePages pages(*loaded, options);
  if (options.overlay)
    pages.addOverlays(pictures);
  else
    pages.addDirections(pictures);
  pictures.request.data = loaded->bytes;
}

/// The name of a variable as its picture has it, in Latin-1.
std::string drawnName(const std::string& name, Context& context) {
  std::string drawn = zvm::nearestLatin1(name);
  if (zvm::utf8Of(drawn) != name)
    context.warning("the picture has `" + zvm::utf8Of(drawn) + "` for `" + name +
                    "`, which is not in Latin-1");
  return drawn;
}

zvm::PointCounts countsOf(const zvm::PointSet& points, std::size_t variable) {
  const auto isMissing = [](double value) { return std::isnan(value); };
  const auto unknown = std::ranges::count_if(points.values[variable], isMissing);
  return {points.read, points.skipped, static_cast<std::uint64_t>(unknown), 0, 0};
}

void addMaps(const PlotOptions& options, Context& context, Pictures& pictures) {
  const zvm::PointSet points = pointsOf(options.points, readOptionsOf(options.points), context);
  pictures.points = {options.points.lag, options.points.lags, points.read, points.skipped};
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  const unsigned threads =
      context.common.threads > 0 ? static_cast<unsigned>(context.common.threads) : cores;
  for (std::size_t v = 0; v < points.names.size(); ++v) {
    Progress progress(context, "computing");
    auto surface = zvm::surfaceMapOf(points, v, options.points.lag, options.points.lags, threads,
                                     [&](double share) { progress.tell(share); });
    const bool isEmpty =
        std::ranges::all_of(surface.cells, [](const auto& cell) { return cell.pairs == 0; });
    const zvm::PointCounts counts = countsOf(points, v);
    if (isEmpty)
      throw Failure(Exit::data, pointsName(options.points) + ": no two points of `" +
                                    points.names[v] + "` are within reach of the map" +
                                    countsText(counts));
    const plotting::Map map{drawnName(points.names[v], context), surface};
    pictures.request.pages.push_back({Kind::map, 0, 0, {}, map});
    pictures.rows.push_back({points.names[v], {}, points.values[v].size() - counts.unknown});
  }
}

/// "zinc.svg" as "zinc-03.svg" where there are ten and more.
std::string numbered(const std::string& output, std::size_t number, std::size_t count) {
  const std::string text = std::to_string(number);
  const std::string zeros(std::to_string(count).size() - text.size(), '0');
  const std::size_t ending = std::filesystem::path(output).extension().string().size();
  const std::size_t at = output.size() - ending;
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

Exit runPlot(const PlotOptions& options, Context& context) {
  const std::string output = outputOf(options);
  refuseMixture(options);
  const bool toStdout = isStandardOutput(output);
  if (context.common.json && toStdout)
    throw Failure(Exit::usage, "--json reports on a file: it takes another OUT than stdout");
  Pictures pictures{requestOf(options, output, context), {}, {}};
  if (options.map)
    addMaps(options, context, pictures);
  else
    addPages(options, context, pictures);
  const std::vector<std::string> files = filesOf(pictures, output);
  for (const std::string& file : files)
    if (file != kStandardStream) requireFree(file, context.common.overwrite);
  auto made = plotting::filesOf(outputOf(kModule, bytesOf(pictures.request), context));
  const bool isOne = pictures.request.format == Format::pdf;
  if (made.size() != (isOne ? 1 : files.size()))
    throw Failure(Exit::file, "zvm-plot has drawn other pictures than it was asked for");
  for (std::size_t i = 0; i < made.size(); ++i) context.save(files[i], std::move(made[i]));
  if (context.common.json)
    context.print(textOf(jsonReport(shownPoints(options.points), pictures, files)));
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
