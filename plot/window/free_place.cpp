#include "plot/window/free_place.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace zevfit {
namespace {

/// How much two lengths have in common.
int common(int from, int length, int otherFrom, int otherLength) {
  return std::max(0, std::min(from + length, otherFrom + otherLength) - std::max(from, otherFrom));
}

/// Pixels of the topmost part of a window that another one covers.
long covered(const WindowPlace& window, int height, const WindowPlace& by) {
  return long{common(window.left, window.width, by.left, by.width)} *
         common(window.top, height, by.top, by.height);
}

/// What a place costs; the least is the best.
auto costOf(const WindowPlace& window, std::span<const WindowPlace> others) {
  long titles = 0, bodies = 0;
  for (const WindowPlace& other : others) {
    titles += covered(other, other.title, window);
    bodies += covered(other, other.height, window);
  }
  return std::tuple(titles, bodies, window.top, window.left);
}

/// The places along one side that are worth a look: the ends of the area, beside a window, or just
/// clear of its title.
class Candidates {
 public:
  Candidates(int room, int length) : last_(std::max(0, room - length)), length_(length) {
    add(0);
    add(last_);
  }
  void beside(int from, int length) {
    add(from + length);
    add(from - length_);
  }
  void add(int at) { places_.insert(std::clamp(at, 0, last_)); }
  const std::set<int>& all() const { return places_; }

 private:
  int last_, length_;
  std::set<int> places_;
};

}  // namespace

WindowPlace freePlace(const AreaSize& area, WindowPlace window,
                      std::span<const WindowPlace> others) {
  Candidates lefts(area.width, window.width), tops(area.height, window.height);
  for (const WindowPlace& other : others) {
    lefts.beside(other.left, other.width);
    lefts.add(other.left + other.title);
    tops.beside(other.top, other.height);
    tops.add(other.top + other.title);
  }
  window.left = window.top = 0;
  WindowPlace best = window;
  auto least = costOf(best, others);
  for (const int top : tops.all()) {
    for (const int left : lefts.all()) {
      window.left = left;
      window.top = top;
      const auto cost = costOf(window, others);
      if (cost >= least) continue;
      least = cost;
      best = window;
    }
  }
  return best;
}

}  // namespace zevfit
