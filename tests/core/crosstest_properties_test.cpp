// The test of coregionalization over random models, against a plain statement of its rules.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <set>

#include "session/line.h"
#include "tests/support/coreg_sample.h"

namespace zevfit::test {
namespace {

using Lines = std::vector<std::string>;

constexpr int kTrials = 4000;

/// A line of small whole numbers; doubles hold the squares and products of these exactly.
struct Row {
  int use = 0, sill = 0, range = 0;
  char letter = '-';
};

/// By lines.
using Model = std::array<Row, 4>;

/// Nine models, [variable][direction], in the order of the choice.
using Nine = std::array<std::array<Model, 3>, 3>;

class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
  bool oneIn(int cases) { return below(cases) == 0; }

 private:
  std::mt19937 engine_;
};

/// One model everywhere with sills that mostly pass, then a few cells at random, so that every
/// verdict comes up often.
Nine randomModels(Dice& dice) {
  Nine nine{};
  for (const Line which : kLines) {
    const int use = dice.below(2);
    const char letter = "SEGP"[dice.below(4)];
    for (auto& directions : nine)
      for (Model& model : directions) {
        const bool isCross = &directions == nine.data();
        model[indexOf(which)] = {use, isCross ? dice.below(6) : 4 + dice.below(6), 5, letter};
      }
  }
  for (int changes = dice.below(3); changes > 0; --changes) {
    Model& model = nine.at(std::size_t(dice.below(3))).at(std::size_t(dice.below(3)));
    Row& row = model.at(std::size_t(dice.below(4)));
    switch (dice.below(8)) {
      case 0:
        row.use = 1 - row.use;
        break;
      case 1:
        row.letter = 'X';
        break;
      case 2:
      case 3:
      case 4:
        row.range = 6;
        break;
      default:
        row.sill = dice.below(41) - 20;
    }
  }
  return nine;
}

void give(Session& session, const Nine& nine) {
  for (std::size_t v = 0; v < 3; ++v)
    for (std::size_t d = 0; d < 3; ++d)
      for (const Line which : kLines) {
        const Row& row = nine.at(v).at(d).at(indexOf(which));
        const std::string letter(1, row.letter);
        setLine(session, which, VariableSlot(v), DirectionSlot(d),
                {double(row.use), letter.c_str(), double(row.sill), double(row.range)});
      }
}

// The rules.

const Row& rowOf(const Nine& nine, Line which, std::size_t v, std::size_t d) {
  return nine.at(v).at(d).at(indexOf(which));
}

/// The nine models have more than one value of a line between them.
template <class Value>
bool differs(const Nine& nine, Line which, Value Row::*value) {
  std::set<Value> found;
  for (const auto& directions : nine)
    for (const Model& model : directions) found.insert(model.at(indexOf(which)).*value);
  return found.size() > 1;
}

bool isOn(const Nine& nine, Line which) { return rowOf(nine, which, 0, 0).use == 1; }

bool rangesDiffer(const Nine& nine, Line which, std::size_t d) {
  const int range = rowOf(nine, which, 1, d).range;
  return which != Line::nugget && isOn(nine, which) &&
         (rowOf(nine, which, 0, d).range != range || range != rowOf(nine, which, 2, d).range);
}

int product(const Nine& nine, Line which, std::size_t d) {
  return rowOf(nine, which, 1, d).sill * rowOf(nine, which, 2, d).sill;
}

bool sillIsWrong(const Nine& nine, Line which, std::size_t d) {
  const int crossSill = rowOf(nine, which, 0, d).sill;
  return isOn(nine, which) && crossSill * crossSill > product(nine, which, d);
}

/// Two decimals, but the second only where it is no nought; roots of whole numbers are no halves.
std::string boundText(int ofProduct) {
  std::array<char, 40> digits{};
  std::snprintf(digits.data(), digits.size(), "%.2f", std::sqrt(std::abs(ofProduct)));
  std::string text = digits.data();
  if (text.back() == '0') text.pop_back();
  return text;
}

std::string verdictOf(const Nine& nine) {
  const auto some = [&](auto&& holds) { return std::any_of(kLines.begin(), kLines.end(), holds); };
  const auto someWhere = [&](auto&& holds) {
    return some([&](Line which) {
      return holds(nine, which, 0) || holds(nine, which, 1) || holds(nine, which, 2);
    });
  };
  const auto isMixed = [&](Line which) { return differs(nine, which, &Row::use); };
  if (!some([&](Line which) { return isMixed(which) || isOn(nine, which); }))
    return "No structures detected";
  if (some(isMixed)) return "Different number of structures";
  if (some([&](Line which) {
        return which != Line::nugget && isOn(nine, which) && differs(nine, which, &Row::letter);
      }))
    return "Different models";
  return someWhere(rangesDiffer) || someWhere(sillIsWrong) ? "detail" : "passed";
}

std::string joined(std::initializer_list<std::string> parts) {
  std::string all;
  for (const std::string& part : parts) all += part;
  return all;
}

/// What stands under a direction: its ranges and its sills, with the faults in them.
void addDetail(Lines& lines, const Nine& nine) {
  const std::string digits = "012";
  const auto each = [&](auto&& body) {
    for (std::size_t d = 0; d < 3; ++d) body(d, digits.substr(d, 1));
  };
  const auto lineFault = [&](std::size_t d, auto&& holds) {
    return std::any_of(kLines.begin(), kLines.end(),
                       [&](Line which) { return holds(nine, which, d); });
  };
  each([&](std::size_t, const std::string& d) {
    lines.push_back("es" + d + " < d" + d + ": Number of structures, 1");
  });
  each([&](std::size_t at, const std::string& d) {
    lines.push_back("rs" + d + " < es" + d + ": " +
                    (lineFault(at, rangesDiffer) ? "Different ranges, 2" : "Ranges, 1"));
  });
  each([&](std::size_t at, const std::string& d) {
    lines.push_back("cs" + d + " < es" + d + ": " +
                    (lineFault(at, sillIsWrong) ? "Wrong sills, 2" : "Sills, 1"));
  });
  each([&](std::size_t at, const std::string& d) {
    for (const Line which : kLines) {
      const std::string s = " " + std::to_string(indexOf(which));
      if (sillIsWrong(nine, which, at))
        lines.push_back(joined({"cs", d, s, " < cs", d, ":  |C", s, "xy|  =< ",
                                boundText(product(nine, which, at)), ", 2"}));
    }
  });
  each([&](std::size_t at, const std::string& d) {
    for (const Line which : kStructures) {
      const std::string s = " " + std::to_string(indexOf(which));
      if (rangesDiffer(nine, which, at))
        lines.push_back(joined({"rs", d, s, " < rs", d, ":  a", s, ", 2"}));
    }
  });
}

Lines expectedTree(const Nine& nine) {
  const std::string verdict = verdictOf(nine);
  const std::string image = verdict == "passed" ? ", 1" : ", 3";
  Lines lines{"R < : Test Results, 4", "d0 < R: Main Direction:(90;0)" + image,
              "d1 < R: Minor Direction 1:(45;0)" + image,
              "d2 < R: Minor Direction 2:(0;0)" + image};
  if (verdict == "detail") addDetail(lines, nine);
  if (verdict != "detail" && verdict != "passed")
    for (const char d : {'0', '1', '2'})
      lines.push_back(std::string("es") + d + " < d" + d + ": " + verdict + ", 2");
  return lines;
}

TEST(CrosstestProperties, TheTreeIsThatOfTheRules) {
  Dice dice(20240517);
  std::map<std::string, int> met;
  Session session = coregSession();
  for (int trial = 0; trial < kTrials; ++trial) {
    const Nine nine = randomModels(dice);
    ++met[verdictOf(nine)];
    give(session, nine);
    ASSERT_EQ(treeOf(session), expectedTree(nine)) << "trial " << trial;
  }
  for (const char* verdict : {"No structures detected", "Different number of structures",
                              "Different models", "passed", "detail"})
    EXPECT_GT(met[verdict], kTrials / 100) << verdict;
}

TEST(CrosstestProperties, PrimaryAndSecondaryMayChangePlaces) {
  Dice dice(1);
  CrossChoice exchanged = kSampleChoice;
  std::swap(exchanged.primary, exchanged.secondary);
  Session session = coregSession();
  for (int trial = 0; trial < kTrials / 10; ++trial) {
    give(session, randomModels(dice));
    ASSERT_EQ(treeOf(session, exchanged), treeOf(session)) << "trial " << trial;
  }
}

/// Keys and pictures alone, since the texts of bounds grow with the sills.
Lines shape(const Session& session) {
  Lines lines;
  for (const TestNode& node : crosstest(session, kSampleChoice))
    lines.push_back(node.key + " " + std::to_string(static_cast<int>(node.image)));
  return lines;
}

void scaleSills(Session& session, int power) {
  for (const Line which : kLines)
    for (int v = 1; v <= 3; ++v)
      for (int d = 1; d <= 3; ++d) {
        Cell& sill = line(session, {v, d}, which).sill();
        sill = std::ldexp(sill.number(), power);
      }
}

TEST(CrosstestProperties, TheVerdictDoesNotDependOnTheUnitOfTheSills) {
  Dice dice(2);
  Session session = coregSession();
  for (int trial = 0; trial < kTrials / 10; ++trial) {
    give(session, randomModels(dice));
    const Lines before = shape(session);
    // Powers of two change no digit; the largest make products overflow.
    for (const int power : {-300, 310, 890, -900}) {
      scaleSills(session, power);
      ASSERT_EQ(shape(session), before) << "trial " << trial << ", power " << power;
    }
  }
}

TEST(CrosstestProperties, AModelAgreesWithItself) {
  Dice dice(3);
  Session session = coregSession();
  for (int trial = 0; trial < kTrials / 10; ++trial) {
    give(session, randomModels(dice));
    for (int v = 0; v < 3; ++v)
      for (int d = 0; d < 3; ++d) {
        const std::size_t nodes = crosstest(session, {v, v, v, d, d, d}).size();
        EXPECT_EQ(nodes, hasModel(session, {v + 1, d + 1}) ? 4U : 7U);
      }
  }
}

}  // namespace
}  // namespace zevfit::test
