#pragma once

#include <string>
#include <vector>

#include "tests/support/model_lines.h"
#include "zvm/exchange/export.h"

namespace zevfit::exchange {

/// A file of these variables and directions without models; no classes.
inline Session emptyFile(const std::vector<std::string>& variables,
                         const std::vector<std::string>& directions) {
  Session session;
  session.filetag = "zevRA1";
  session.inputfile = "some/meuse.zvm";
  session.loaded = true;
  session.nvar = session.nvarfile = static_cast<std::int64_t>(variables.size());
  session.ndir = static_cast<std::int64_t>(directions.size());
  resetFitState(session);
  session.hlag.create(0);
  session.gam.create(0);
  session.npairs.create(0);
  std::int64_t at = 0;
  for (const std::string& name : variables) {
    session.varname(++at) = name;
    session.variance(at) = 1;
  }
  at = 0;
  for (const std::string& name : directions) session.dirname(++at) = name;
  return session;
}

/// Nugget 0.1; spherical 0.5 with 1000 along 45;0 and 400 along 135;0; exponential 0.3 with these
/// ranges.
inline Session exampleFile(double exponentialMain = 250.5, double exponentialMinor = 250.5) {
  Session session = emptyFile({"ln zinc"}, {"45;0", "135;0"});
  for (const std::int64_t direction : {1, 2}) {
    const Pair pair{1, direction};
    setNugget(session, pair, 0.1);
    setStructure(session, pair, Line::first, "S", 0.5, direction == 1 ? 1000 : 400);
    setStructure(session, pair, Line::second, "E", 0.3,
                 direction == 1 ? exponentialMain : exponentialMinor);
  }
  return session;
}

/// Variable 1 with directions 1 and 2 as Main and Minor 1.
inline Request requestFor(Target target) {
  Request request;
  request.target = target;
  request.variables = {1};
  request.main = 1;
  request.minor1 = 2;
  return request;
}

inline std::string exported(const Session& session, Target target) {
  return exportModel(session, requestFor(target)).text;
}

/// The reason of a refusal; "(text)" where there is none.
inline std::string refusalOf(const Session& session, const Request& request) {
  try {
    exportModel(session, request);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "(text)";
}

/// The lines of a text that neither are empty nor begin with a mark of comments.
inline std::string codeOf(const std::string& text) {
  std::string code;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t end = text.find('\n', from);
    const std::string line = text.substr(from, end - from);
    if (!line.empty() && line.front() != '#') code += line + "\n";
    from = end == text.npos ? text.size() : end + 1;
  }
  return code;
}

}  // namespace zevfit::exchange
