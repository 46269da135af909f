#include "zvm/verbs/compute_report.h"

#include <cmath>
#include <numeric>
#include <vector>

#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

/// Fewer make a class that a fit should not trust (Journel and Huijbregts, "Mining geostatistics",
/// III.B.1).
constexpr std::uint64_t kFewPairs = 30;

std::string placesText(std::uint64_t zeroPairs, const zvm::Frame& frame) {
  const bool counted =
      frame.zero == zvm::ZeroDistances::first || frame.compat == zvm::Compat::gstat;
  return std::to_string(zeroPairs) + (counted ? " in the first class" : " left out");
}

/// "1 2 14", the classes with few pairs; "-" where there is none.
std::string fewIn(const std::vector<zvm::LagClass>& classes) {
  std::string text;
  for (std::size_t k = 0; k < classes.size(); ++k)
    if (classes[k].pairs < kFewPairs) text += (text.empty() ? "" : " ") + std::to_string(k + 1);
  return text.empty() ? "-" : text;
}

}  // namespace

std::string fewPairsText(const zvm::Experimental& experimental) {
  const zvm::Frame& frame = experimental.frame;
  std::vector<std::vector<std::string>> rows{
      {"direction", "variable", "classes with fewer than " + std::to_string(kFewPairs) + " pairs"}};
  for (std::size_t d = 0; d < frame.directions.size(); ++d)
    for (std::size_t v = 0; v < frame.variables.size(); ++v)
      rows.push_back({utf8Of(frame.directions[d].name), utf8Of(frame.variables[v].name),
                      fewIn(experimental.classes[v][d])});
  return table(rows);
}

Json semivariogramsOf(const zvm::Experimental& experimental) {
  const zvm::Frame& frame = experimental.frame;
  Json semivariograms = Json::array();
  for (std::size_t v = 0; v < frame.variables.size(); ++v)
    for (std::size_t d = 0; d < frame.directions.size(); ++d) {
      Json classes = Json::array();
      for (const zvm::LagClass& lag : experimental.classes[v][d])
        classes.push_back(
            {{"distance", lag.distance}, {"semivariance", lag.semivariance}, {"pairs", lag.pairs}});
      semivariograms.push_back({{"variable", utf8Of(frame.variables[v].name)},
                                {"direction", utf8Of(frame.directions[d].name)},
                                {"classes", classes}});
    }
  return semivariograms;
}

std::string textOf(const zvm::Experimental& experimental, const std::optional<Pace>& pace) {
  const zvm::Frame& frame = experimental.frame;
  const zvm::PointCounts& counts = frame.counts;
  std::vector<std::vector<std::string>> rows{
      {"title", utf8Of(frame.title)},
      {"points read", std::to_string(counts.read)},
      {"without coordinates", std::to_string(counts.skipped)},
      {"without a value", std::to_string(counts.unknown)},
      {"used", std::to_string(counts.used)},
      {"in the place of another", std::to_string(counts.duplicates)}};
  if (pace) rows.push_back({"pairs a second", std::to_string(std::llround(pace->pairsASecond))});
  std::string text = table(rows);
  rows = {{"variable", "points", "pairs at one place"}};
  for (std::size_t v = 0; v < frame.variables.size(); ++v)
    rows.push_back({utf8Of(frame.variables[v].name), std::to_string(frame.variables[v].points),
                    placesText(experimental.zeroPairs[v], frame)});
  text += '\n' + table(rows);
  return text + '\n' + fewPairsText(experimental);
}

Json jsonOf(const zvm::Experimental& experimental, const std::optional<Pace>& pace) {
  const zvm::Frame& frame = experimental.frame;
  const zvm::PointCounts& counts = frame.counts;
  Json variables = Json::array(), directions = Json::array();
  for (std::size_t v = 0; v < frame.variables.size(); ++v) {
    const zvm::Frame::Variable& variable = frame.variables[v];
    variables.push_back({{"name", utf8Of(variable.name)},
                         {"cross", variable.isCross},
                         {"variance", variable.variance},
                         {"points", variable.points},
                         {"pairsAtOnePlace", experimental.zeroPairs[v]}});
  }
  for (const zvm::Frame::Toward& direction : frame.directions)
    directions.push_back(utf8Of(direction.name));
  Json report{{"title", utf8Of(frame.title)},
              {"points",
               {{"read", counts.read},
                {"withoutCoordinates", counts.skipped},
                {"withoutValue", counts.unknown},
                {"used", counts.used},
                {"duplicates", counts.duplicates}}},
              {"variables", variables},
              {"directions", directions},
              {"semivariograms", semivariogramsOf(experimental)}};
  if (pace) report["seconds"] = pace->seconds;
  if (pace) report["pairsASecond"] = pace->pairsASecond;
  return report;
}

}  // namespace zevfit::verbs
