#include "zvm/experimental/walk.h"

#include <tuple>

namespace zevfit::zvm {

namespace {

auto placeOf(const Strip& strip) { return std::tuple(strip.layer, strip.row); }

}  // namespace

std::size_t Walk::stripAt(std::size_t point) const {
  const auto behind = std::ranges::upper_bound(points_.strips, point, {}, &Strip::first);
  return static_cast<std::size_t>(behind - points_.strips.begin()) - 1;
}

void Walk::meetRows(std::uint32_t layer, std::uint32_t firstRow, std::uint32_t lastRow, double x) {
  auto at = std::ranges::lower_bound(points_.strips, std::tuple(layer, firstRow), {}, placeOf);
  for (; at != points_.strips.end() && at->layer == layer && at->row <= lastRow; ++at) {
    const auto begin = points_.x.begin() + static_cast<std::ptrdiff_t>(at->first);
    const auto end = points_.x.begin() + static_cast<std::ptrdiff_t>(at->last);
    const auto near = static_cast<std::size_t>(std::lower_bound(begin, end, x) - points_.x.begin());
    met_.push_back({&*at, near, near});
  }
}

void Walk::meet(std::size_t strip, std::size_t point) {
  const Strip& own = points_.strips[strip];
  const std::uint32_t around = points_.around;
  const double x = points_.x[point];
  met_.clear();
  met_.push_back({&own, point, point});
  meetRows(own.layer, own.row + 1, own.row + around, x);
  if (points_.z.empty()) return;
  const std::uint32_t firstRow = own.row < around ? 0 : own.row - around;
  for (std::uint32_t layer = own.layer + 1; layer <= own.layer + around; ++layer)
    meetRows(layer, firstRow, own.row + around, x);
}

}  // namespace zevfit::zvm
