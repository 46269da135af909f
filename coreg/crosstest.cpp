#include "coreg/crosstest.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <span>
#include <utility>

#include "session/illegal_cell.h"
#include "session/line.h"
#include "session/number_pattern.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

/// Variable slots: cross, primary, secondary. Direction slots: main, minor 1, minor 2.
constexpr std::size_t kSlots = 3;
constexpr std::size_t kCross = 0, kPrimary = 1, kSecondary = 2;

constexpr const char* kRootKey = "R";
constexpr const char* kBoundPattern = "######0.0#";
/// Halves the exponents of sills whose products overflow; a power of two changes no digit.
constexpr int kScale = 512;

template <class T>
using Slots = std::array<T, kSlots>;

/// The nine models: every combination of the three variables and the three directions.
class Models {
 public:
  Models(const Session& session, const CrossChoice& choice)
      : session_(session),
        variables_{subscript(choice.cross), subscript(choice.primary), subscript(choice.secondary)},
        directions_{subscript(choice.main), subscript(choice.minor1), subscript(choice.minor2)} {}

  Pair pair(std::size_t v, std::size_t d) const { return {variables_.at(v), directions_.at(d)}; }
  ConstLineRef at(Line which, std::size_t v, std::size_t d) const {
    return line(session_, pair(v, d), which);
  }
  /// The line is on in the cross variable; where the flags agree, in all three.
  bool on(Line which, std::size_t d) const { return at(which, kCross, d).isOn(); }
  double range(Line which, std::size_t v, std::size_t d) const {
    return at(which, v, d).range().number();
  }
  double sill(Line which, std::size_t v, std::size_t d) const {
    return at(which, v, d).sill().number();
  }
  const std::string& directionName(std::size_t d) const {
    return session_.dirname(directions_.at(d));
  }

 private:
  static std::int64_t subscript(int position) { return std::int64_t{position} + 1; }

  const Session& session_;
  Slots<std::int64_t> variables_;
  Slots<std::int64_t> directions_;
};

bool noLines(const Models& models) {
  double count = 0;
  for (const Line which : kLines)
    for (std::size_t v = 0; v < kSlots; ++v)
      for (std::size_t d = 0; d < kSlots; ++d) count += models.at(which, v, d).used();
  return count == 0;
}

/// Some model differs in the value of a line from the first one, and so not all nine agree.
bool differ(const auto& value) {
  for (std::size_t v = 0; v < kSlots; ++v)
    for (std::size_t d = 0; d < kSlots; ++d)
      if (value(v, d) != value(0, 0)) return true;
  return false;
}

bool flagsDiffer(const Models& models) {
  for (const Line which : kLines)
    if (differ([&](std::size_t v, std::size_t d) { return models.at(which, v, d).used(); }))
      return true;
  return false;
}

/// To be asked where the flags agree.
bool lettersDiffer(const Models& models) {
  for (const Line which : kStructures) {
    const auto letter = [&](std::size_t v, std::size_t d) {
      return models.at(which, v, d).letter();
    };
    if (models.on(which, 0) && differ(letter)) return true;
  }
  return false;
}

/// The number of a line in texts and keys: 0 for the nugget.
std::string numberOf(Line which) { return signedText(static_cast<std::int64_t>(indexOf(which))); }

/// "a 1" where the three ranges of a structure are not the same, nothing where they are.
std::string rangeText(const Models& models, Line which, std::size_t d) {
  const double range = models.range(which, kCross, d);
  const bool same =
      range == models.range(which, kPrimary, d) && range == models.range(which, kSecondary, d);
  return same ? "" : "a" + numberOf(which);
}

/// The square of the cross sill is greater than the product of the other two.
bool exceeds(double cross, double primary, double secondary) {
  const double square = cross * cross;
  const double product = primary * secondary;
  if (std::isfinite(square) && std::isfinite(product)) return square > product;
  const auto scaled = [](double sill) { return std::ldexp(sill, -kScale); };
  return scaled(cross) * scaled(cross) > scaled(primary) * scaled(secondary);
}

/// The geometric mean of two sills; of a negative product, which no cross sill meets, that of its
/// absolute value.
double boundOf(double primary, double secondary) {
  const double product = std::abs(primary * secondary);
  if (std::isfinite(product)) return std::sqrt(product);
  return std::sqrt(std::abs(primary)) * std::sqrt(std::abs(secondary));
}

/// "|C 1xy|  =< 12.5" where the cross sill exceeds its bound, nothing where it does not.
std::string sillText(const Models& models, Line which, std::size_t d) {
  const double primary = models.sill(which, kPrimary, d);
  const double secondary = models.sill(which, kSecondary, d);
  if (!exceeds(models.sill(which, kCross, d), primary, secondary)) return {};
  return "|C" + numberOf(which) + "xy|  =< " +
         formatNumber(boundOf(primary, secondary), kBoundPattern);
}

/// The faults of lines that are on, by line and direction; an empty text is none.
using Marks = std::array<Slots<std::string>, kLines.size()>;

Marks marksOf(const Models& models, std::span<const Line> lines,
              std::string (*fault)(const Models&, Line, std::size_t)) {
  Marks marks;
  for (const Line which : lines)
    for (std::size_t d = 0; d < kSlots; ++d)
      if (models.on(which, d)) marks.at(indexOf(which)).at(d) = fault(models, which, d);
  return marks;
}

bool anyMark(const Marks& marks, std::size_t d) {
  for (const Slots<std::string>& line : marks)
    if (!line.at(d).empty()) return true;
  return false;
}

bool anyMark(const Marks& marks) {
  return anyMark(marks, 0) || anyMark(marks, 1) || anyMark(marks, 2);
}

/// The tree as it grows.
class Tree {
 public:
  Tree() { nodes_.push_back({kRootKey, "", "Test Results", NodeImage::root}); }

  void addDirections(const Models& models, NodeImage image) {
    const Slots<const char*> captions{"Main Direction:(", "Minor Direction 1:(",
                                      "Minor Direction 2:("};
    for (std::size_t d = 0; d < kSlots; ++d)
      nodes_.push_back(
          {key("d", d), kRootKey, captions.at(d) + models.directionName(d) + ")", image});
  }

  /// A node with the same text under each direction.
  void addUnderDirections(const char* text, NodeImage image) {
    for (std::size_t d = 0; d < kSlots; ++d)
      nodes_.push_back({key("es", d), key("d", d), text, image});
  }

  /// The verdict on ranges or sills under each direction.
  void addVerdicts(const char* prefix, const Marks& marks, const char* good, const char* bad) {
    for (std::size_t d = 0; d < kSlots; ++d) {
      const bool faulty = anyMark(marks, d);
      nodes_.push_back({key(prefix, d), key("es", d), faulty ? bad : good,
                        faulty ? NodeImage::failed : NodeImage::passed});
    }
  }

  /// What is wrong, line by line, under the verdicts of that prefix.
  void addFaults(const char* prefix, const Marks& marks) {
    for (std::size_t d = 0; d < kSlots; ++d)
      for (const Line which : kLines) {
        const std::string& mark = marks.at(indexOf(which)).at(d);
        if (mark.empty()) continue;
        const std::string parent = key(prefix, d);
        nodes_.push_back({parent + numberOf(which), parent, " " + mark, NodeImage::failed});
      }
  }

  std::vector<TestNode> take() { return std::move(nodes_); }

 private:
  static std::string key(const char* prefix, std::size_t d) { return prefix + std::to_string(d); }

  std::vector<TestNode> nodes_;
};

std::vector<TestNode> faultyTree(const Models& models, const char* fault) {
  Tree tree;
  tree.addDirections(models, NodeImage::faultyDirection);
  tree.addUnderDirections(fault, NodeImage::failed);
  return tree.take();
}

std::vector<TestNode> passedTree(const Models& models) {
  Tree tree;
  tree.addDirections(models, NodeImage::passed);
  return tree.take();
}

std::vector<TestNode> detailTree(const Models& models, const Marks& ranges, const Marks& sills) {
  Tree tree;
  // All directions look faulty here, also one without a fault.
  tree.addDirections(models, NodeImage::faultyDirection);
  tree.addUnderDirections("Number of structures", NodeImage::passed);
  tree.addVerdicts("rs", ranges, "Ranges", "Different ranges");
  tree.addVerdicts("cs", sills, "Sills", "Wrong sills");
  // The faults come the other way round: sills first.
  tree.addFaults("cs", sills);
  tree.addFaults("rs", ranges);
  return tree.take();
}

/// The cells of a line that the test asks for a number, with what they are.
std::vector<std::pair<std::string, Cell>> numbersAsked(const ConstLineRef& line, Line which) {
  std::vector<std::pair<std::string, Cell>> asked{{"flag", line.flag()}};
  if (asked.front().second.isText() || !line.isOn()) return asked;
  asked.emplace_back("sill", line.sill());
  if (which != Line::nugget) asked.emplace_back("range", line.range());
  return asked;
}

}  // namespace

std::optional<std::string> illegalCell(const Session& session, const CrossChoice& choice) {
  const Models models(session, choice);
  for (std::size_t v = 0; v < kSlots; ++v)
    for (std::size_t d = 0; d < kSlots; ++d)
      for (const Line which : kLines)
        for (const auto& [what, cell] : numbersAsked(models.at(which, v, d), which))
          if (auto illegal = illegalCell(session, models.pair(v, d), which, what, cell))
            return illegal;
  return std::nullopt;
}

std::vector<TestNode> crosstest(const Session& session, const CrossChoice& choice) {
  const Models models(session, choice);
  if (noLines(models)) return faultyTree(models, "No structures detected");
  if (flagsDiffer(models)) return faultyTree(models, "Different number of structures");
  if (lettersDiffer(models)) return faultyTree(models, "Different models");
  const Marks ranges = marksOf(models, kStructures, rangeText);
  const Marks sills = marksOf(models, kLines, sillText);
  if (anyMark(ranges) || anyMark(sills)) return detailTree(models, ranges, sills);
  return passedTree(models);
}

}  // namespace zevfit
