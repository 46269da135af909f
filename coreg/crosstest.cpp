#include "coreg/crosstest.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "session/number_pattern.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kFirstStructure = 1;
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

  double flag(int line, std::size_t v, std::size_t d) const {
    return zevfit::flag(session_, line, variables_.at(v), directions_.at(d));
  }
  /// The line is on in the cross variable; where the flags agree, in all three.
  bool on(int line, std::size_t d) const { return flag(line, kCross, d) == 1; }
  const std::string& letter(int line, std::size_t v, std::size_t d) const {
    return cell(kLetterTable, line, v, d);
  }
  double range(int line, std::size_t v, std::size_t d) const {
    return cell(kRangeTable, line, v, d).number();
  }
  double sill(int line, std::size_t v, std::size_t d) const {
    return cell(kSillTable, line, v, d).number();
  }
  const std::string& directionName(std::size_t d) const {
    return session_.dirname(directions_.at(d));
  }

 private:
  static std::int64_t subscript(int position) { return std::int64_t{position} + 1; }
  template <class T>
  const T& cell(const std::array<PairTable<T> Session::*, kLines>& tables, int line, std::size_t v,
                std::size_t d) const {
    const auto table = tables.at(static_cast<std::size_t>(line));
    return (session_.*table)(variables_.at(v), directions_.at(d));
  }

  const Session& session_;
  Slots<std::int64_t> variables_;
  Slots<std::int64_t> directions_;
};

bool noLines(const Models& models) {
  double count = 0;
  for (int line = 0; line < kLines; ++line)
    for (std::size_t v = 0; v < kSlots; ++v)
      for (std::size_t d = 0; d < kSlots; ++d) count += models.flag(line, v, d);
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
  for (int line = 0; line < kLines; ++line)
    if (differ([&](std::size_t v, std::size_t d) { return models.flag(line, v, d); })) return true;
  return false;
}

/// To be asked where the flags agree.
bool lettersDiffer(const Models& models) {
  for (int line = kFirstStructure; line < kLines; ++line) {
    const auto letter = [&](std::size_t v, std::size_t d) { return models.letter(line, v, d); };
    if (models.on(line, 0) && differ(letter)) return true;
  }
  return false;
}

/// "a 1" where the three ranges of a structure are not the same, nothing where they are.
std::string rangeText(const Models& models, int line, std::size_t d) {
  const double range = models.range(line, kCross, d);
  const bool same =
      range == models.range(line, kPrimary, d) && range == models.range(line, kSecondary, d);
  return same ? "" : "a" + signedText(line);
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
std::string sillText(const Models& models, int line, std::size_t d) {
  const double primary = models.sill(line, kPrimary, d);
  const double secondary = models.sill(line, kSecondary, d);
  if (!exceeds(models.sill(line, kCross, d), primary, secondary)) return {};
  return "|C" + signedText(line) + "xy|  =< " +
         formatNumber(boundOf(primary, secondary), kBoundPattern);
}

/// The faults of lines that are on, by line and direction; an empty text is none.
using Marks = std::array<Slots<std::string>, kLines>;

Marks marksOf(const Models& models, int firstLine,
              std::string (*fault)(const Models&, int, std::size_t)) {
  Marks marks;
  for (int line = firstLine; line < kLines; ++line)
    for (std::size_t d = 0; d < kSlots; ++d)
      if (models.on(line, d))
        marks.at(static_cast<std::size_t>(line)).at(d) = fault(models, line, d);
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
      for (std::size_t line = 0; line < marks.size(); ++line) {
        const std::string& mark = marks.at(line).at(d);
        if (mark.empty()) continue;
        const std::string parent = key(prefix, d);
        nodes_.push_back({parent + signedText(static_cast<std::int64_t>(line)), parent, " " + mark,
                          NodeImage::failed});
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

}  // namespace

std::vector<TestNode> crosstest(const Session& session, const CrossChoice& choice) {
  const Models models(session, choice);
  if (noLines(models)) return faultyTree(models, "No structures detected");
  if (flagsDiffer(models)) return faultyTree(models, "Different number of structures");
  if (lettersDiffer(models)) return faultyTree(models, "Different models");
  const Marks ranges = marksOf(models, kFirstStructure, rangeText);
  const Marks sills = marksOf(models, 0, sillText);
  if (anyMark(ranges) || anyMark(sills)) return detailTree(models, ranges, sills);
  return passedTree(models);
}

}  // namespace zevfit
