#include "zvm/experimental/pair_block.h"

#include <algorithm>

namespace zevfit::zvm {

PairBlock::PairBlock(const SortedPoints& points, const LagRule& rule, bool steps)
    : points_(points),
      rule_(rule),
      loops_(pairLoops().back()),
      classes_(rule),
      take_(points.z.empty() ? (steps ? loops_.planeSteps : loops_.plane)
                             : (steps ? loops_.spaceSteps : loops_.space)),
      differences_(points.values.size()) {}

std::size_t PairBlock::take(std::size_t i, std::size_t first, std::size_t last) {
  const std::size_t count = std::min(last - first, kSize - used_);
  PairRun run{points_.x.data() + first,
              points_.y.data() + first,
              nullptr,
              points_.x[i],
              points_.y[i],
              0,
              count};
  if (!points_.z.empty()) {
    run.zs = points_.z.data() + first;
    run.z = points_.z[i];
  }
  take_(run, classes_, rows_, used_);
  for (std::size_t v = 0; v < differences_.size(); ++v)
    loops_.differences(points_.values[v].data() + first, points_.values[v][i],
                       differences_[v].data() + used_, count);
  if (!points_.rows.empty())
    for (std::size_t k = 0; k < count; ++k)
      backward_[used_ + k] = points_.rows[first + k] < points_.rows[i];
  used_ += count;
  return first + count;
}

void PairBlock::classify() {
  for (std::size_t k = 0; k < used_; ++k) {
    const ClassRange range = rule_.classesOf(rows_.h[k]);
    rows_.firstClass[k] = range.first;
    rows_.lastClass[k] = range.last;
  }
}

std::size_t PairBlock::mostClasses() const {
  double most = 1;
  for (std::size_t k = 0; k < used_; ++k)
    most = std::max(most, rows_.lastClass[k] - rows_.firstClass[k] + 1);
  return static_cast<std::size_t>(most);
}

void PairBlock::settle(std::size_t slots) {
  const double beyond = rule_.count() + 1.0;
  loops_.settle(beyond, static_cast<double>(slots), rows_, used_);
  if (rule_.isUniform()) return;
  for (std::size_t k = 0; k < used_; ++k)
    if (rows_.firstClass[k] >= beyond) rows_.lastClass[k] = beyond;
}

}  // namespace zevfit::zvm
