#include "model/settling.h"

#include "model/nested_model.h"
#include "model/slider_scale.h"
#include "session/line.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// A drawing within a drawing shows a line once more, and the two maps of a slider are no exact
/// inverses.
constexpr int kMostShowings = 3;

/// Takes the value of the tables where the file's own comes to it by being shown and drawn.
template <class Show, class Draw>
void settle(const Cell& shown, Cell& file, Show&& showing, Draw&& drawing) {
  const auto isReached = [&](double value) {
    return value == shown.number() || drawing(value) == shown.number();
  };
  double value = file.number();
  for (int i = 0; i < kMostShowings && !isReached(value); ++i) value = showing(value);
  if (isReached(value)) file = shown;
}

void settleLine(const Session& shown, Session& file, Pair pair, Line which) {
  const double hmax = file.hmax(pair);
  const SillScale sills{shown.ymin(pair), shown.ymax(pair), kSillSliderMaximum};
  const RangeScale ranges{hmax, rangeSliderMaximum(hmax)};
  const ConstLineRef from = line(shown, pair, which);
  const LineRef to = line(file, pair, which);
  endSilently([&] {
    settle(
        from.sill(), to.sill(),
        [&](double sill) { return sillValue(sills, sillPosition(sills, sill)); },
        [](double sill) { return sill; });
  });
  if (which == Line::nugget) return;
  endSilently([&] {
    settle(
        from.range(), to.range(),
        [&](double range) {
          return leadingNumber(rangeText(ranges, rangePosition(ranges, generalText(range))));
        },
        raisedRange);
  });
}

}  // namespace

void settleAsShown(const Session& shown, Session& file) {
  for (std::int64_t v = 1; v < kVariableSlots; ++v)
    for (std::int64_t d = 1; d < kDirectionSlots; ++d)
      for (const Line which : kLines) settleLine(shown, file, {v, d}, which);
}

}  // namespace zevfit
