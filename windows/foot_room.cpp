#include "windows/foot_room.h"

#include <algorithm>

#include "windows/elided_label.h"

namespace zevfit {

namespace {

/// Between a hint and the notes, pixels.
constexpr int kGap = 16;

int widthOf(const ElidedLabel& label) {
  return label.isHidden() || label.text().isEmpty() ? 0 : label.sizeHint().width();
}

}  // namespace

FootRoom::FootRoom(ElidedLabel& hint, ElidedLabel& tip, ElidedLabel& notes)
    : hint_(hint), tip_(tip), notes_(notes) {
  setObjectName("RoomHint");
  for (ElidedLabel* label : {&hint_, &tip_, &notes_}) label->setParent(this);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void FootRoom::share() {
  const int hints = std::max(widthOf(hint_), widthOf(tip_)) + kGap;
  const int notes = std::min(widthOf(notes_), std::max(width() / 2, width() - hints));
  const int left = width() - notes;
  for (ElidedLabel* label : {&hint_, &tip_})
    label->setGeometry(0, 0, notes > 0 ? std::max(0, left - kGap) : left, height());
  notes_.setGeometry(left, 0, notes, height());
}

QSize FootRoom::sizeHint() const { return hint_.minimumSizeHint(); }

void FootRoom::resizeEvent(QResizeEvent* /*event*/) { share(); }

}  // namespace zevfit
