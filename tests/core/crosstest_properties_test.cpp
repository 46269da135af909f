// The test of coregionalization over random models, against a plain statement of its rules.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <set>

#include "tests/support/coreg_sample.h"

namespace zevfit::test {
namespace {

using Lines = std::vector<std::string>;

constexpr int kTrials = 4000;

/// A model of small whole numbers; doubles hold the squares and products of these exactly.
struct Model {
  int use[4], sill[4], range[4];
  char letter[4];
};

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
  for (int line = 0; line < 4; ++line) {
    const int use = dice.below(2);
    const char letter = "SEGP"[dice.below(4)];
    for (auto& directions : nine)
      for (Model& model : directions) {
        const bool isCross = &directions == nine.data();
        model.use[line] = use;
        model.letter[line] = letter;
        model.range[line] = 5;
        model.sill[line] = isCross ? dice.below(6) : 4 + dice.below(6);
      }
  }
  for (int changes = dice.below(3); changes > 0; --changes) {
    Model& model = nine.at(std::size_t(dice.below(3))).at(std::size_t(dice.below(3)));
    const int line = dice.below(4);
    switch (dice.below(8)) {
      case 0:
        model.use[line] = 1 - model.use[line];
        break;
      case 1:
        model.letter[line] = 'X';
        break;
      case 2:
      case 3:
      case 4:
        model.range[line] = 6;
        break;
      default:
        model.sill[line] = dice.below(41) - 20;
    }
  }
  return nine;
}

void give(Session& session, const Nine& nine) {
  for (std::size_t v = 0; v < 3; ++v)
    for (std::size_t d = 0; d < 3; ++d)
      for (int line = 0; line < 4; ++line) {
        const Model& model = nine.at(v).at(d);
        const std::string letter(1, model.letter[line]);
        setLine(session, line, VariableSlot(v), DirectionSlot(d),
                {double(model.use[line]), letter.c_str(), double(model.sill[line]),
                 double(model.range[line])});
      }
}

// The rules.

/// How many values the nine models have between them.
template <class Value>
std::size_t kinds(const Nine& nine, Value value) {
  std::set<decltype(value(nine[0][0]))> found;
  for (const auto& directions : nine)
    for (const Model& model : directions) found.insert(value(model));
  return found.size();
}

bool isOn(const Nine& nine, int line) { return nine[0][0].use[line] == 1; }

bool rangesDiffer(const Nine& nine, int line, std::size_t d) {
  return line > 0 && isOn(nine, line) &&
         (nine[0][d].range[line] != nine[1][d].range[line] ||
          nine[1][d].range[line] != nine[2][d].range[line]);
}

int product(const Nine& nine, int line, std::size_t d) {
  return nine[1][d].sill[line] * nine[2][d].sill[line];
}

bool sillIsWrong(const Nine& nine, int line, std::size_t d) {
  const int crossSill = nine[0][d].sill[line];
  return isOn(nine, line) && crossSill * crossSill > product(nine, line, d);
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
  const auto all = {0, 1, 2, 3};
  const auto some = [&](auto&& holds) { return std::any_of(all.begin(), all.end(), holds); };
  const auto someWhere = [&](auto&& holds) {
    return some([&](int line) {
      return holds(nine, line, 0) || holds(nine, line, 1) || holds(nine, line, 2);
    });
  };
  const auto used = [&](int line) {
    return [line](const Model& model) { return model.use[line]; };
  };
  if (!some([&](int line) { return kinds(nine, used(line)) > 1 || isOn(nine, line); }))
    return "No structures detected";
  if (some([&](int line) { return kinds(nine, used(line)) > 1; }))
    return "Different number of structures";
  if (some([&](int line) {
        return line > 0 && isOn(nine, line) &&
               kinds(nine, [line](const Model& model) { return model.letter[line]; }) > 1;
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
    for (int line = 0; line < 4; ++line)
      if (holds(nine, line, d)) return true;
    return false;
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
    for (int line = 0; line < 4; ++line) {
      const std::string s = " " + std::to_string(line);
      if (sillIsWrong(nine, line, at))
        lines.push_back(joined({"cs", d, s, " < cs", d, ":  |C", s, "xy|  =< ",
                                boundText(product(nine, line, at)), ", 2"}));
    }
  });
  each([&](std::size_t at, const std::string& d) {
    for (int line = 1; line < 4; ++line) {
      const std::string s = " " + std::to_string(line);
      if (rangesDiffer(nine, line, at))
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
  for (const auto table : kSillTable)
    for (int v = 1; v <= 3; ++v)
      for (int d = 1; d <= 3; ++d) {
        Cell& sill = (session.*table)(v, d);
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
        EXPECT_EQ(nodes, hasModel(session, v + 1, d + 1) ? 4U : 7U);
      }
  }
}

}  // namespace
}  // namespace zevfit::test
