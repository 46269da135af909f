#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/session.h"

namespace zevfit {

/// What is tested: positions in the lists of variables and directions, from 0, so that position p
/// is variable or direction p + 1. One of -1, no choice, stands for slot 0, which has no models.
struct CrossChoice {
  int cross = 0;  ///< the variable that holds the cross semivariogram
  int primary = 0;
  int secondary = 0;
  int main = 0;
  int minor1 = 0;
  int minor2 = 0;
};

/// The pictures of nodes, numbered as in the dialog's list of images.
enum class NodeImage { passed = 1, failed = 2, faultyDirection = 3, root = 4 };

/// A node of the tree of verdicts. Keys are unique; the root has no parent, which is an empty key,
/// and any other node stands behind its parent in the list.
struct TestNode {
  std::string key;
  std::string parent;
  std::string text;
  NodeImage image = NodeImage::passed;

  bool operator==(const TestNode&) const = default;
};

/// Tells whether the models of the three variables form a linear model of coregionalization in the
/// three directions, as a tree in the order in which its nodes are added. Of these checks the first
/// that fails ends the test, but for ranges and sills, which are told together:
///
/// - some line is on;
/// - a line is on in all nine models or in none;
/// - a structure that is on has one letter in all nine models;
/// - in each direction its range is the same number in the three models;
/// - in each direction the squared cross sill of a line that is on, the nugget and power structures
///   included, does not exceed the product of the other two sills, as numbers of double precision.
///   Sills whose products overflow are compared by the same digits at a smaller scale, so the
///   largest numbers have a verdict too; products too small for a double are 0, as always.
///
/// Changes nothing. No fault is handled here: throws Fault for a position beyond the tables, for a
/// text in place of a flag, and for a text in place of a range or sill of a line that is on. Those
/// of a line that is off are not looked at.
std::vector<TestNode> crosstest(const Session& session, const CrossChoice& choice);

/// The warning that names the first text in place of a flag, or of a sill or a range of a line that
/// is on, in the nine models; nothing where there is none. Throws Fault for a position beyond the
/// tables.
std::optional<std::string> illegalCell(const Session& session, const CrossChoice& choice);

}  // namespace zevfit
