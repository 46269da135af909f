#include "zvm/verbs/coregions.h"

#include <algorithm>

#include "zvm/checking/cross_names.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

/// "NAME=A,B", of which the name may hold an equals sign and B a comma.
CrossVariable toldCross(const Loaded& loaded, const std::string& told) {
  const std::size_t equals = told.rfind('=');
  const std::size_t comma = equals == told.npos ? told.npos : told.find(',', equals);
  if (comma == told.npos)
    throw Failure(Exit::usage, "--cross-of takes \"NAME=A,B\", not `" + told + "`");
  const auto variable = [&](const std::string& name) {
    return variableOf(loaded.session, loaded.path, name);
  };
  const CrossVariable cross{variable(told.substr(0, equals)),
                            variable(told.substr(equals + 1, comma - equals - 1)),
                            variable(told.substr(comma + 1))};
  if (!isOfThree(cross))
    throw Failure(Exit::usage, "--cross-of takes three variables, not `" + told + "`");
  return cross;
}

void addCross(const Loaded& loaded, const CrossVariable& cross, Coregion& coregion,
              Context& context) {
  const auto same = [&](const CrossVariable& other) {
    return isOf(other, cross.first, cross.second);
  };
  const auto before = std::ranges::find_if(coregion.crosses, same);
  if (before == coregion.crosses.end()) return coregion.crosses.push_back(cross);
  const auto names = variableNames(loaded.session);
  const auto name = [&](std::int64_t v) { return names.at(static_cast<std::size_t>(v - 1)); };
  if (before->cross != cross.cross)
    context.warning(loaded.path + ": " + name(cross.cross) + " and " + name(before->cross) +
                    " are both the cross variable of " + name(cross.first) + " and " +
                    name(cross.second) + "; " + name(before->cross) + " counts");
}

}  // namespace

std::vector<CrossVariable> crossesByName(const Session& session) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(session.nvar));
  for (std::int64_t v = 1; v <= session.nvar; ++v) names.push_back(session.varname(v));
  std::vector<CrossVariable> crosses;
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    const auto of = checking::crossOf(session.varname(v), names);
    if (of.isCross()) crosses.push_back({v, of.first, of.second});
  }
  return crosses;
}

bool isOfThree(const CrossVariable& cross) {
  return cross.first != cross.second && cross.cross != cross.first && cross.cross != cross.second;
}

bool isOf(const CrossVariable& cross, std::int64_t first, std::int64_t second) {
  return (cross.first == first && cross.second == second) ||
         (cross.first == second && cross.second == first);
}

Coregion coregionOf(const Loaded& loaded, const std::vector<std::string>& told, Context& context) {
  Coregion coregion;
  for (const std::string& text : told) addCross(loaded, toldCross(loaded, text), coregion, context);
  for (const CrossVariable& cross : crossesByName(loaded.session))
    addCross(loaded, cross, coregion, context);
  for (std::int64_t v = 1; v <= loaded.session.nvar; ++v)
    if (std::ranges::any_of(coregion.crosses, [&](const CrossVariable& cross) {
          return cross.first == v || cross.second == v;
        }))
      coregion.variables.push_back(v);
  return coregion;
}

std::string noCrossOf(const Session& session, std::int64_t first, std::int64_t second) {
  const std::vector<std::string> names = variableNames(session);
  const std::string& a = names.at(static_cast<std::size_t>(first - 1));
  const std::string& b = names.at(static_cast<std::size_t>(second - 1));
  std::vector<std::string> others = names;
  std::erase_if(others, [&](const std::string& name) { return name == a || name == b; });
  const std::string wanted = a + '-' + b, none = "no variable is named " + wanted;
  return others.empty() ? none : none + "; there are " + nearestFirst(wanted, others);
}

std::vector<std::pair<std::int64_t, std::int64_t>> pairsWithoutCross(const Session& session,
                                                                     const Coregion& coregion) {
  const std::vector<CrossVariable> named = crossesByName(session);
  const auto isCross = [&](std::int64_t v) {
    return std::ranges::count(coregion.crosses, v, &CrossVariable::cross) > 0 ||
           std::ranges::count(named, v, &CrossVariable::cross) > 0;
  };
  std::vector<std::int64_t> direct;
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    if (!isCross(v)) direct.push_back(v);
  std::vector<std::pair<std::int64_t, std::int64_t>> pairs;
  for (auto a = direct.begin(); a != direct.end(); ++a)
    for (auto b = std::next(a); b != direct.end(); ++b)
      if (std::ranges::none_of(coregion.crosses,
                               [&](const CrossVariable& cross) { return isOf(cross, *a, *b); }))
        pairs.emplace_back(*a, *b);
  return pairs;
}

}  // namespace zevfit::verbs
