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

using Rows = std::vector<std::vector<std::string>>;

/// Behind the title, what became of the points.
void addPoints(Rows& rows, const zvm::PointCounts& counts) {
  rows.push_back({"points read", std::to_string(counts.read)});
  rows.push_back({"without coordinates", std::to_string(counts.skipped)});
  rows.push_back({"without a value", std::to_string(counts.unknown)});
  rows.push_back({"used", std::to_string(counts.used)});
  rows.push_back({"in the place of another", std::to_string(counts.duplicates)});
}

std::string rateText(const Pace& pace) { return std::to_string(std::llround(pace.pairsASecond)); }

Json jsonOf(const zvm::PointCounts& counts) {
  return {{"read", counts.read},
          {"withoutCoordinates", counts.skipped},
          {"withoutValue", counts.unknown},
          {"used", counts.used},
          {"duplicates", counts.duplicates}};
}

Json jsonOf(const zvm::Frame::Variable& variable) {
  return {{"name", utf8Of(variable.name)},
          {"cross", variable.isCross},
          {"variance", variable.variance},
          {"points", variable.points}};
}

Json directionsOf(const zvm::Frame& frame) {
  Json directions = Json::array();
  for (const zvm::Frame::Toward& direction : frame.directions)
    directions.push_back(utf8Of(direction.name));
  return directions;
}

}  // namespace

std::string fewPairsText(const zvm::Experimental& experimental) {
  const zvm::Frame& frame = experimental.frame;
  Rows rows{
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
  Rows rows{{"title", utf8Of(frame.title)}};
  addPoints(rows, frame.counts);
  if (pace) rows.push_back({"pairs a second", rateText(*pace)});
  std::string text = table(rows);
  rows = {{"variable", "points", "pairs at one place"}};
  for (std::size_t v = 0; v < frame.variables.size(); ++v)
    rows.push_back({utf8Of(frame.variables[v].name), std::to_string(frame.variables[v].points),
                    placesText(experimental.zeroPairs[v], frame)});
  text += '\n' + table(rows);
  return text + '\n' + fewPairsText(experimental);
}

std::string textOf(const Share& share, const Pace& pace) {
  const auto& [number, count] = share.part;
  const std::string part = std::to_string(number) + " of " + std::to_string(count);
  Rows rows{{"title", utf8Of(share.frame.title)},
            {"part", number > share.frame.tasks ? part + ", all pairs are in others" : part}};
  addPoints(rows, share.frame.counts);
  rows.push_back({"pairs a second", rateText(pace)});
  const std::string text = table(rows);
  rows = {{"variable", "points"}};
  for (const zvm::Frame::Variable& variable : share.frame.variables)
    rows.push_back({utf8Of(variable.name), std::to_string(variable.points)});
  return text + '\n' + table(rows);
}

Json jsonOf(const zvm::Experimental& experimental, const std::optional<Pace>& pace) {
  const zvm::Frame& frame = experimental.frame;
  Json variables = Json::array();
  for (std::size_t v = 0; v < frame.variables.size(); ++v) {
    variables.push_back(jsonOf(frame.variables[v]));
    variables.back()["pairsAtOnePlace"] = experimental.zeroPairs[v];
  }
  Json report{{"title", utf8Of(frame.title)},
              {"points", jsonOf(frame.counts)},
              {"variables", variables},
              {"directions", directionsOf(frame)},
              {"semivariograms", semivariogramsOf(experimental)}};
  if (pace) report["seconds"] = pace->seconds;
  if (pace) report["pairsASecond"] = pace->pairsASecond;
  return report;
}

Json jsonOf(const Share& share, const Pace& pace) {
  Json variables = Json::array();
  for (const zvm::Frame::Variable& variable : share.frame.variables)
    variables.push_back(jsonOf(variable));
  return {{"part", share.part.number},
          {"parts", share.part.count},
          {"title", utf8Of(share.frame.title)},
          {"points", jsonOf(share.frame.counts)},
          {"variables", variables},
          {"directions", directionsOf(share.frame)},
          {"seconds", pace.seconds},
          {"pairsASecond", pace.pairsASecond}};
}

}  // namespace zevfit::verbs
