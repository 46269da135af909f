#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/zvm/command.h"

namespace zevfit::test {

/// Two variables, two directions, two classes; the first variable has models in the first.
inline constexpr const char* kFile =
    "t\nzevRA1\n2\nzinc\nlead\n2\n2\n0;0\n90;0\n"
    "1\n10 0.5 40\n20 1.5 40\n12 0.75 40\n20 1 40\n"
    "4\n10 1 40\n20 2 40\n10 1 40\n20 3 40\n"
    "1\n0.1\n1\nS\n0.5\n15\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n"
    "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n"
    "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n"
    "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
inline constexpr const char* kPoints = "x,y,z\n0,0,0\n1,0,1\n2,0,3\n0,1,5\n";

/// An element of a picture: what it is, how it is drawn, its words or its places.
struct Element {
  std::string what, look, words{};
  std::vector<double> places{};
};

inline std::string attribute(const std::string& tag, const std::string& name) {
  std::smatch found;
  const std::regex pattern(" " + name + "=\"([^\"]*)\"");
  return std::regex_search(tag, found, pattern) ? found[1].str() : "";
}

inline std::vector<double> numbersIn(const std::string& text) {
  std::vector<double> numbers;
  static const std::regex pattern("-?[0-9.]+(e-?[0-9]+)?");
  for (std::sregex_iterator i(text.begin(), text.end(), pattern), end; i != end; ++i)
    numbers.push_back(std::stod(i->str()));
  return numbers;
}

/// The elements in their order, each with the strokes and fills of its group. Where a text stands
/// depends on the fonts of the machine.
inline std::vector<Element> elementsOf(const std::string& svg) {
  std::vector<Element> elements;
  std::string look;
  static const std::regex pattern("<([a-z]+)([^>]*)>([^<]*)");
  for (std::sregex_iterator i(svg.begin(), svg.end(), pattern), end; i != end; ++i) {
    const std::string what = (*i)[1], tag = (*i)[2], words = (*i)[3];
    if (what == "g")
      look = attribute(tag, "fill") + ' ' + attribute(tag, "stroke") + ' ' +
             attribute(tag, "stroke-width") + ' ' + attribute(tag, "stroke-dasharray");
    else if (what == "text")
      elements.push_back({what, attribute(tag, "fill") + ' ' + attribute(tag, "font-size"), words});
    else if (what == "polyline")
      elements.push_back({what, look, "", numbersIn(attribute(tag, "points"))});
    else if (what == "circle" || what == "rect" || what == "path")
      elements.push_back({what, look, "", numbersIn(tag)});
  }
  return elements;
}

inline std::vector<Element> only(const std::vector<Element>& elements, const std::string& what,
                                 const std::string& look) {
  std::vector<Element> found;
  for (const Element& one : elements)
    if (one.what == what && one.look.starts_with(look)) found.push_back(one);
  return found;
}

inline std::multiset<std::string> wordsOf(const std::vector<Element>& elements) {
  std::multiset<std::string> words;
  for (const Element& one : elements)
    if (one.what == "text") words.insert(one.words);
  return words;
}

class Plot : public testing::Test {
 protected:
  void SetUp() override {
    ::setenv("ZVM_MODULES", ZEVFIT_MODULES, 1);
    putFile(folder_ / "a.zvm", kFile);
    putFile(folder_ / "points.csv", kPoints);
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string content(const std::string& name) const { return contentOf(folder_ / name); }
  bool isThere(const std::string& name) const { return std::filesystem::exists(folder_ / name); }

  /// Draws into a file and gives its bytes.
  std::string drawn(std::vector<std::string> arguments, const std::string& name) const {
    arguments.insert(arguments.begin(), "plot");
    arguments.push_back(path(name));
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, "");
    return content(name);
  }
  std::vector<std::string> mapOptions() const {
    return {"plot", path("points.csv"), "--map", "--x", "x", "--y", "y", "--var", "z", "--lag",
            "1",    "--lags",           "2"};
  }

 private:
  ScratchFolder folder_;
};

}  // namespace zevfit::test
