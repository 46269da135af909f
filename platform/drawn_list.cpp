#include "platform/drawn_list.h"

#include <algorithm>

namespace zevfit {

void DrawnList::restart() {
  if (!isShown()) shown_ = same();
  items_.resize(count_);
  count_ = same_ = 0;
}

void DrawnList::forget() {
  items_.clear();
  count_ = same_ = shown_ = 0;
}

void DrawnList::shown() {
  items_.resize(count_);
  same_ = count_;
  shown_ = kAll;
}

std::size_t DrawnList::same() const { return std::min(same_, shown_); }

bool DrawnList::isShown() const {
  return shown_ == kAll && same_ == count_ && count_ == items_.size();
}

bool DrawnList::goesOn(std::size_t place) const {
  const Line* before = std::get_if<Line>(&items_[place - 1]);
  const Line* here = std::get_if<Line>(&items_[place]);
  return before != nullptr && here != nullptr && before->stroke == here->stroke &&
         before->x2 == here->x1 && before->y2 == here->y1;
}

std::size_t DrawnList::cut(std::size_t place) const {
  while (place > 0 && place < count_ && goesOn(place)) --place;
  return place;
}

void DrawnList::draw(std::size_t first, std::size_t last, Surface& surface) const {
  for (std::size_t i = first; i < last; ++i)
    std::visit([&](const auto& item) { item.drawOn(surface); }, items_[i]);
}

}  // namespace zevfit
