#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "coreg/crosstest.h"
#include "session/line.h"
#include "session/session.h"

namespace zevfit::test {

/// A line of a model as a user builds it.
struct ModelLine {
  double use = 0;
  const char* letter = "-";
  double sill = 0;
  double range = 1e-05;
};

inline void setLine(Session& session, Line which, Pair pair, const ModelLine& model) {
  const LineRef at = line(session, pair, which);
  at.use(model.use);
  at.sill() = model.sill;
  if (which == Line::nugget) return;
  at.letter() = model.letter;
  at.range() = model.range;
}

/// Three variables and three directions without models. The lists have them in another order than
/// the sample choice, so that no position is that of its slot.
inline Session coregSession() {
  Session session;
  session.loaded = true;
  session.nvar = session.nvarfile = 3;
  session.ndir = 3;
  const char* const variables[] = {"zinc", "lead", "zinc-lead"};
  const char* const directions[] = {"0;0", "90;0", "45;0"};
  for (int i = 1; i <= 3; ++i) {
    session.varname(i) = variables[i - 1];
    session.dirname(i) = directions[i - 1];
  }
  resetFitState(session);
  return session;
}

/// Cross zinc-lead, primary lead, secondary zinc; main 90;0, minor 1 45;0, minor 2 0;0.
inline constexpr CrossChoice kSampleChoice{2, 1, 0, 1, 2, 0};
/// The subscripts of these, in this order.
inline constexpr std::int64_t kVariableOf[] = {3, 2, 1};
inline constexpr std::int64_t kDirectionOf[] = {2, 3, 1};

/// Slots of the sample choice.
enum VariableSlot { cross, primary, secondary };
enum DirectionSlot { mainDirection, minorDirection1, minorDirection2 };

inline Pair pairOf(VariableSlot variable, DirectionSlot direction) {
  return {kVariableOf[variable], kDirectionOf[direction]};
}

inline void setLine(Session& session, Line which, VariableSlot variable, DirectionSlot direction,
                    const ModelLine& model) {
  setLine(session, which, pairOf(variable, direction), model);
}

/// The line in all nine models of the sample choice, with a sill for each variable slot.
inline void setEverywhere(Session& session, Line which, const char* letter,
                          const std::vector<double>& sills, double range = 1e-05) {
  for (const VariableSlot v : {cross, primary, secondary})
    for (const DirectionSlot d : {mainDirection, minorDirection1, minorDirection2})
      setLine(session, which, v, d, {1, letter, sills.at(v), range});
}

/// The line is part of the model, or not.
inline void tick(Session& session, Line which, VariableSlot variable, DirectionSlot direction,
                 double use) {
  line(session, pairOf(variable, direction), which).use(use);
}

/// A linear model of coregionalization: nugget 0.5 under 1 and 1, a spherical structure of 2 under
/// 4 and 9 with range 100, a power structure 3 of 1 under 1 and 1 with range 1.5; structure 2 is
/// off.
inline void fitGoodModels(Session& session) {
  setEverywhere(session, Line::nugget, "", {0.5, 1, 1});
  setEverywhere(session, Line::first, "S", {2, 4, 9}, 100);
  setEverywhere(session, Line::third, "P", {1, 1, 1}, 1.5);
}

inline Session goodModels() {
  Session session = coregSession();
  fitGoodModels(session);
  return session;
}

/// A node as "key < parent: text, picture".
inline std::string toLine(const TestNode& node) {
  return node.key + " < " + node.parent + ": " + node.text + ", " +
         std::to_string(static_cast<int>(node.image));
}

inline std::vector<std::string> toLines(const std::vector<TestNode>& nodes) {
  std::vector<std::string> lines;
  lines.reserve(nodes.size());
  for (const TestNode& node : nodes) lines.push_back(toLine(node));
  return lines;
}

inline std::vector<std::string> treeOf(const Session& session,
                                       const CrossChoice& choice = kSampleChoice) {
  return toLines(crosstest(session, choice));
}

}  // namespace zevfit::test
