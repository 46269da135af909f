#include <optional>

#include "model/axes.h"
#include "session/line.h"
#include "session/numbers.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/report.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

/// The lines in use, as in "N+S+E"; "-" without a model.
std::string modelText(const Session& session, Pair pair) {
  std::string text;
  for (const Line which : kLines) {
    const ConstLineRef at = line(session, pair, which);
    if (!at.isOn()) continue;
    text += (text.empty() ? "" : "+") +
            (which == Line::nugget ? std::string("N") : utf8Of(at.letter()));
  }
  return text.empty() ? "-" : text;
}

std::string textReport(const Loaded& loaded) {
  const Session& session = loaded.session;
  const auto variables = variableNames(session), directions = directionNames(session);
  std::string text = table({{"title", utf8Of(loaded.title)},
                            {"tag", utf8Of(session.filetag)},
                            {"variables", std::to_string(session.nvar)},
                            {"directions", std::to_string(session.ndir)},
                            {"classes", std::to_string(session.nclass)}});
  std::vector<std::vector<std::string>> rows{{"direction", "azimuth", "dip"}};
  for (std::int64_t d = 1; d <= session.ndir; ++d) {
    const auto angles = directionNamed(session.dirname(d));
    rows.push_back({directions.at(static_cast<std::size_t>(d - 1)),
                    angles ? generalText(angles->azimuth) : "-",
                    angles ? generalText(angles->dip) : "-"});
  }
  text += '\n' + table(rows);
  rows = {{"variable", "variance"}};
  for (const std::string& direction : directions) rows.front().push_back("model " + direction);
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    rows.push_back({variables.at(static_cast<std::size_t>(v - 1)), session.variance(v).toText()});
    for (std::int64_t d = 1; d <= session.ndir; ++d)
      rows.back().push_back(modelText(session, {v, d}));
  }
  return text + '\n' + table(rows);
}

Json modelsReport(const Session& session) {
  Json models = Json::array();
  const auto variables = variableNames(session), directions = directionNames(session);
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    for (std::int64_t d = 1; d <= session.ndir; ++d)
      if (hasModel(session, {v, d}))
        models.push_back({{"variable", variables.at(static_cast<std::size_t>(v - 1))},
                          {"direction", directions.at(static_cast<std::size_t>(d - 1))},
                          {"lines", modelText(session, {v, d})}});
  return models;
}

Json jsonReport(const Loaded& loaded) {
  const Session& session = loaded.session;
  Json variables = Json::array(), directions = Json::array();
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    variables.push_back({{"name", utf8Of(trimmed(session.varname(v)))},
                         {"variance", session.variance(v).number()}});
  for (std::int64_t d = 1; d <= session.ndir; ++d) {
    const auto angles = directionNamed(session.dirname(d));
    Json row{{"name", utf8Of(trimmed(session.dirname(d)))}};
    row["azimuth"] = angles ? Json(angles->azimuth) : Json();
    row["dip"] = angles ? Json(angles->dip) : Json();
    directions.push_back(row);
  }
  return {{"schema", "zvm.info/1"},        {"file", loaded.path},
          {"title", utf8Of(loaded.title)}, {"tag", utf8Of(session.filetag)},
          {"classes", session.nclass},     {"variables", variables},
          {"directions", directions},      {"models", modelsReport(session)}};
}

}  // namespace

Run declareInfo(CLI::App& app) {
  const auto file = std::make_shared<std::string>();
  AddOption{app}("FILE", *file, "A variogram file, - for stdin", "")->required();
  return [file](Context& context) {
    const auto loaded = loadInput(context, *file);
    context.print(context.common.json ? textOf(jsonReport(*loaded)) : textReport(*loaded));
    return Exit::done;
  };
}

}  // namespace zevfit::verbs
