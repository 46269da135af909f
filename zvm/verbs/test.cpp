#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "coreg/crosstest.h"
#include "coreg/full_matrix.h"
#include "session/fault.h"
#include "session/form.h"
#include "session/line.h"
#include "session/numbers.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/coregions.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/report.h"
#include "zvm/verbs/terminal.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

struct Options {
  std::string file;
  std::optional<std::string> primary, secondary, cross, main, minor1, minor2;
  bool all = false;
  std::vector<std::string> crossOf;
};

/// A run of the tree's test: variables and directions by their subscripts.
struct Triple {
  CrossVariable variables;
  std::array<std::int64_t, 3> directions{};
};

std::array<std::int64_t, 3> variablesOf(const Triple& triple) {
  const auto& [cross, first, second] = triple.variables;
  return {first, second, cross};
}

struct TreeVerdict {
  Triple triple;
  std::vector<TestNode> tree;
  bool passed = false;
};

struct Verdicts {
  std::vector<TreeVerdict> trees;
  Coregion coregion;
  std::vector<MatrixVerdict> matrices;
  bool passed() const {
    return std::ranges::all_of(trees, &TreeVerdict::passed) &&
           std::ranges::all_of(matrices, &MatrixVerdict::passed);
  }
};

struct ImageWords {
  NodeImage image;
  const char* mark;
  const char* name;
};
constexpr std::array kImages{ImageWords{NodeImage::passed, "passed  ", "passed"},
                             ImageWords{NodeImage::failed, "failed  ", "failed"},
                             ImageWords{NodeImage::faultyDirection, "faulty  ", "faulty direction"},
                             ImageWords{NodeImage::root, "        ", "root"}};

const ImageWords& wordsOf(NodeImage image) {
  return *std::ranges::find(kImages, image, &ImageWords::image);
}

TreeVerdict treeVerdict(const Session& session, const Triple& triple) {
  const auto position = [](std::int64_t subscript) { return static_cast<int>(subscript - 1); };
  const auto& [cross, first, second] = triple.variables;
  const auto& [main, minor1, minor2] = triple.directions;
  const CrossChoice choice{position(cross), position(first),  position(second),
                           position(main),  position(minor1), position(minor2)};
  if (const auto illegal = illegalCell(session, choice))
    throw Failure(Exit::data, utf8Of(*illegal));
  std::vector<TestNode> tree = crosstest(session, choice);
  const bool failed = std::ranges::any_of(tree, [](const TestNode& node) {
    return node.image == NodeImage::failed || node.image == NodeImage::faultyDirection;
  });
  return {triple, std::move(tree), !failed};
}

std::string nameOf(const Session& session, std::int64_t variable) {
  return utf8Of(trimmed(session.varname(variable)));
}

std::string directionName(const Session& session, std::int64_t direction) {
  return utf8Of(trimmed(session.dirname(direction)));
}

std::string lineName(Line line) {
  return line == Line::nugget ? "nugget" : "structure " + std::to_string(indexOf(line));
}

// ---- What is asked for.

void refuseMixture(const Options& options) {
  const std::array single{&options.primary, &options.secondary, &options.cross,
                          &options.main,    &options.minor1,    &options.minor2};
  const bool anySingle =
      std::ranges::any_of(single, [](const auto* text) { return text->has_value(); });
  if (options.all && anySingle)
    throw Failure(Exit::usage, "--all takes no variable and no direction");
  if (!options.all && !options.crossOf.empty())
    throw Failure(Exit::usage, "--cross-of goes with --all; a single cross variable is --cross");
  if (!options.all && !(options.primary && options.secondary))
    throw Failure(Exit::usage, "--primary and --secondary are missing, or --all");
}

std::int64_t crossFor(const Loaded& loaded, const Options& options, std::int64_t first,
                      std::int64_t second) {
  if (options.cross) return variableOf(loaded.session, loaded.path, *options.cross);
  for (const CrossVariable& found : crossesByName(loaded.session))
    if (isOf(found, first, second)) return found.cross;
  throw Failure(Exit::usage, "--cross is missing: " + noCrossOf(loaded.session, first, second));
}

std::array<std::int64_t, 3> directionsOf(const Loaded& loaded, const Options& options) {
  const Session& session = loaded.session;
  if (!options.main && session.ndir > 1)
    throw Failure(Exit::usage,
                  "--main is missing; there are the directions " + listed(directionNames(session)));
  const auto named = [&](const std::optional<std::string>& name, std::int64_t otherwise) {
    return name ? directionOf(session, loaded.path, *name) : otherwise;
  };
  const std::int64_t main = named(options.main, 1);
  const std::int64_t minor1 = named(options.minor1, main);
  return {main, minor1, named(options.minor2, minor1)};
}

Verdicts testOne(const Loaded& loaded, const Options& options) {
  const Session& session = loaded.session;
  const std::int64_t first = variableOf(session, loaded.path, *options.primary);
  const std::int64_t second = variableOf(session, loaded.path, *options.secondary);
  if (first == second) throw Failure(Exit::usage, "--primary and --secondary are one variable");
  const CrossVariable cross{crossFor(loaded, options, first, second), first, second};
  if (!isOfThree(cross)) throw Failure(Exit::usage, "--cross is --primary or --secondary");
  const auto directions = directionsOf(loaded, options);
  std::vector<std::int64_t> distinct;
  for (const std::int64_t direction : directions)
    if (std::ranges::count(distinct, direction) == 0) distinct.push_back(direction);
  Verdicts verdicts{{treeVerdict(session, {cross, directions})}, {{first, second}, {cross}}, {}};
  verdicts.matrices = matrixTest(session, verdicts.coregion, distinct);
  return verdicts;
}

void warnOfPairs(const Loaded& loaded, const Coregion& coregion, Context& context) {
  std::string pairs;
  for (const auto& [first, second] : pairsWithoutCross(loaded.session, coregion))
    pairs += (pairs.empty() ? "" : ", ") + nameOf(loaded.session, first) + " and " +
             nameOf(loaded.session, second);
  if (!pairs.empty())
    context.warning(loaded.path + ": no cross variable of " + pairs +
                    "; in the matrix their cross sills count as 0");
}

bool hasPowerSill(const Session& session, Pair pair) {
  return std::ranges::any_of(kStructures, [&](Line which) {
    const ConstLineRef at = line(session, pair, which);
    return at.isOn() && formOf(at.letter()) == Form::power && at.sill().number() != 1;
  });
}

/// Trees compare the cells as the program does; power structures have no part of theirs.
void warnOfPowers(const Loaded& loaded, const Verdicts& verdicts, Context& context) {
  const Session& session = loaded.session;
  std::vector<std::string> names;
  for (const TreeVerdict& verdict : verdicts.trees)
    for (const std::int64_t variable : variablesOf(verdict.triple))
      for (const std::int64_t direction : verdict.triple.directions) {
        const std::string name = nameOf(session, variable);
        if (hasPowerSill(session, {variable, direction}) && std::ranges::count(names, name) == 0)
          names.push_back(name);
      }
  if (!names.empty())
    context.warning(loaded.path +
                    ": a power structure is h^a without a sill: the tree compares the sills that " +
                    listed(names) + " have in the file, the full matrix takes 1");
}

Verdicts testAll(const Loaded& loaded, const Options& options, Context& context) {
  const Session& session = loaded.session;
  Verdicts verdicts;
  verdicts.coregion = coregionOf(loaded, options.crossOf, context);
  if (verdicts.coregion.crosses.empty())
    throw Failure(Exit::data, "no cross variable in " + loaded.path +
                                  ": none is named A-B for two variables A and B; there are " +
                                  listed(variableNames(session)) +
                                  "; --cross-of \"NAME=A,B\" names one");
  warnOfPairs(loaded, verdicts.coregion, context);
  std::vector<std::int64_t> directions;
  directions.reserve(static_cast<std::size_t>(session.ndir));
  for (std::int64_t d = 1; d <= session.ndir; ++d) directions.push_back(d);
  for (const CrossVariable& cross : verdicts.coregion.crosses)
    for (const std::int64_t d : directions)
      verdicts.trees.push_back(treeVerdict(session, {cross, {d, d, d}}));
  verdicts.matrices = matrixTest(session, verdicts.coregion, directions);
  return verdicts;
}

Verdicts verdictsOf(const Loaded& loaded, const Options& options, Context& context) {
  try {
    return options.all ? testAll(loaded, options, context) : testOne(loaded, options);
  } catch (const Fault& fault) {
    throw Failure(Exit::data, loaded.path + ": the sills can't be tested: " + fault.what());
  }
}

// ---- What is told.

std::string treeText(const Session& session, const TreeVerdict& verdict) {
  const auto& [cross, first, second] = verdict.triple.variables;
  std::string text = terminalText(nameOf(session, first) + ", " + nameOf(session, second) +
                                  ", cross " + nameOf(session, cross)) +
                     '\n';
  // Children stand behind their parents, but not at once: each node brings its own.
  std::multimap<std::string, const TestNode*> children;
  for (const TestNode& node : verdict.tree) children.emplace(node.parent, &node);
  const auto add = [&](const auto& self, const std::string& parent, std::size_t depth) -> void {
    const auto [begin, end] = children.equal_range(parent);
    for (auto child = begin; child != end; ++child) {
      const TestNode& node = *child->second;
      text += wordsOf(node.image).mark + std::string(2 * depth, ' ') +
              terminalText(utf8Of(node.text)) + '\n';
      self(self, node.key, depth + 1);
    }
  };
  add(add, "", 0);
  return text;
}

std::string matrixText(const Session& session, const Verdicts& verdicts) {
  std::string names;
  for (const std::int64_t variable : verdicts.coregion.variables)
    names += (names.empty() ? "" : ", ") + nameOf(session, variable);
  if (verdicts.matrices.empty()) return "No full matrix: no line is in use\n";
  std::string text = "Full matrix of " + terminalText(names) + '\n';
  for (const MatrixVerdict& verdict : verdicts.matrices)
    text += wordsOf(verdict.passed ? NodeImage::passed : NodeImage::failed).mark +
            lineName(verdict.line) + " in " +
            terminalText(directionName(session, verdict.direction)) + ": least eigenvalue " +
            generalText(verdict.least) + ", trace " + generalText(verdict.trace) + '\n';
  return text;
}

std::string textReport(const Session& session, const Verdicts& verdicts) {
  std::string text;
  for (const TreeVerdict& verdict : verdicts.trees) text += treeText(session, verdict) + '\n';
  return text + matrixText(session, verdicts);
}

Json treeReport(const Session& session, const TreeVerdict& verdict) {
  const auto& [cross, first, second] = verdict.triple.variables;
  const auto& [main, minor1, minor2] = verdict.triple.directions;
  Json nodes = Json::array();
  for (const TestNode& node : verdict.tree)
    nodes.push_back({{"key", node.key},
                     {"parent", node.parent},
                     {"text", utf8Of(node.text)},
                     {"image", wordsOf(node.image).name}});
  return {{"primary", nameOf(session, first)},
          {"secondary", nameOf(session, second)},
          {"cross", nameOf(session, cross)},
          {"main", directionName(session, main)},
          {"minor1", directionName(session, minor1)},
          {"minor2", directionName(session, minor2)},
          {"passed", verdict.passed},
          {"tree", nodes}};
}

Json jsonReport(const Loaded& loaded, const Verdicts& verdicts) {
  const Session& session = loaded.session;
  Json trees = Json::array(), matrices = Json::array(), variables = Json::array();
  for (const TreeVerdict& verdict : verdicts.trees) trees.push_back(treeReport(session, verdict));
  for (const std::int64_t variable : verdicts.coregion.variables)
    variables.push_back(nameOf(session, variable));
  for (const MatrixVerdict& verdict : verdicts.matrices)
    matrices.push_back({{"line", lineName(verdict.line)},
                        {"direction", directionName(session, verdict.direction)},
                        {"leastEigenvalue", verdict.least},
                        {"trace", verdict.trace},
                        {"passed", verdict.passed}});
  return {{"schema", "zvm.test/1"},
          {"file", loaded.path},
          {"passed", verdicts.passed()},
          {"tests", trees},
          {"fullMatrix", {{"variables", variables}, {"lines", matrices}}}};
}

Exit runTest(const Options& options, Context& context) {
  refuseMixture(options);
  const auto loaded = loadInput(context, options.file);
  const Verdicts verdicts = verdictsOf(*loaded, options, context);
  warnOfPowers(*loaded, verdicts, context);
  context.print(context.common.json ? textOf(jsonReport(*loaded, verdicts))
                                    : textReport(loaded->session, verdicts));
  return verdicts.passed() ? Exit::done : Exit::bad;
}

}  // namespace

Run declareTest(CLI::App& app) {
  const auto options = std::make_shared<Options>();
  const AddOption add{app};
  add("FILE", options->file, "A variogram file, - for stdin", "")->required();
  app.add_flag("--all", options->all,
               "Test all variables with a cross variable, in each direction");
  AddEach{app}("--cross-of", options->crossOf,
               "With --all: a cross variable that is not named A-B, as in \"NAME=A,B\"",
               "NAME=A,B");
  add("--primary", options->primary, "The first variable", "NAME");
  add("--secondary", options->secondary, "The second variable", "NAME");
  add("--cross", options->cross, "Their cross variable; default: the one named A-B or B-A", "NAME");
  add("--main", options->main, "Main direction; default: the only one", "DIRECTION");
  add("--minor1", options->minor1, "Minor direction 1; default: Main", "DIRECTION");
  add("--minor2", options->minor2, "Minor direction 2; default: Minor 1", "DIRECTION");
  return [options](Context& context) { return runTest(*options, context); };
}

}  // namespace zevfit::verbs
