#include "plot/window/free_place.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace zevfit {
namespace {

constexpr int kWidth = 440, kHeight = 280, kTitle = 28;

WindowPlace at(int left, int top) { return {left, top, kWidth, kHeight, kTitle}; }

struct Row {
  const char* name;
  AreaSize area;
  std::vector<WindowPlace> others;
  int left, top;
};

TEST(FreePlace, OfAPlot) {
  const AreaSize area{900, 600}, narrow{500, 400}, tiny{300, 200};
  const std::vector<WindowPlace> four{at(0, 0), at(440, 0), at(0, 280), at(440, 280)};
  const Row rows[] = {
      {"the first goes to the corner", area, {}, 0, 0},
      {"the second beside it", area, {at(0, 0)}, 440, 0},
      {"the third below", area, {at(0, 0), at(440, 0)}, 0, 280},
      {"the fourth fills the area", area, {at(0, 0), at(440, 0), at(0, 280)}, 440, 280},
      {"a gap that was left is taken", area, {at(440, 0), at(0, 280)}, 0, 0},
      {"between two", {1400, 300}, {at(0, 0), at(960, 0)}, 440, 0},
      // From 308 down no title is hidden; in the corner it hides 420 by 240 pixels of the fourth.
      {"the fifth hides no title", area, four, 460, 320},
      // In the corner it hides 380 by 160 pixels.
      {"where one fits, the second leaves the title free", narrow, {at(0, 0)}, 60, 120},
      {"too small an area", tiny, {at(0, 0)}, 0, 0},
      // Below its title it hides 340 by 240 pixels on either side.
      {"a large one in the middle", area, {{100, 60, 700, 500, kTitle}}, 0, 320},
      {"one that is half out of view", area, {at(-300, -100)}, 140, 0},
      // All of it is title; 100 by 8 pixels of it are the least.
      {"a minimised one", {500, 300}, {{0, 272, 160, 28, 28}}, 60, 0},
  };
  for (const Row& row : rows) {
    const WindowPlace found = freePlace(row.area, at(7, 9), row.others);
    EXPECT_EQ(found.left, row.left) << row.name;
    EXPECT_EQ(found.top, row.top) << row.name;
    EXPECT_EQ(found.width, kWidth) << row.name;
    EXPECT_EQ(found.height, kHeight) << row.name;
  }
}

// However many there are, each is wholly in view.
TEST(FreePlace, KeepsAllInView) {
  const AreaSize area{900, 600};
  std::vector<WindowPlace> others;
  for (int i = 0; i < 40; ++i) {
    const WindowPlace next = freePlace(area, at(0, 0), others);
    EXPECT_TRUE(next.left >= 0 && next.left + kWidth <= area.width) << i;
    EXPECT_TRUE(next.top >= 0 && next.top + kHeight <= area.height) << i;
    others.push_back(next);
  }
}

}  // namespace
}  // namespace zevfit
