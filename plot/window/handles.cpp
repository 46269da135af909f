#include "plot/window/handles.h"

#include <array>

#include "session/fault.h"

namespace zevfit {
namespace {

constexpr const char* kSillPattern = "#####.###";
constexpr const char* kRangePattern = "####.###";
/// The axis of a press that is to change a sill.
constexpr int kSillAxis = 2;
/// What the box of a plot has beside it on the right.
constexpr double kBoxMargin = 800;

// The nugget has no range and stands at three left margins. Structure 1 alone stands to the left of
// its place, and structures 2 and 3 alone are placed on an axis that ends 800 earlier; all of it on
// purpose: they jump to the mouse at the first move.
constexpr std::array<HandleForm, kLines> kHandleForms{{
    {2400, 800, false},
    {std::nullopt, 800, true},
    {std::nullopt, 1600, false},
    {std::nullopt, 1600, false},
}};

std::size_t lineOf(int handle) { return static_cast<std::size_t>(handle); }

/// The box of the picture with the handle's own right end.
PlotBox handleBox(const PlotBox& box, const HandleForm& form) {
  return {box.pictureW - (form.rightMargin - kBoxMargin), box.pictureH};
}

}  // namespace

bool contains(const PlotBox& box, Point at) {
  return at.x >= PlotBox::xleft && at.x <= box.xright() && at.y >= PlotBox::ytop &&
         at.y <= box.ybottom();
}

Point heldInside(const PlotBox& box, Point at) {
  if (at.y > box.ybottom()) at.y = box.ybottom();
  if (at.x > box.xright()) at.x = box.xright();
  if (at.y < PlotBox::ytop) at.y = PlotBox::ytop;
  if (at.x < PlotBox::xleft) at.x = PlotBox::xleft;
  return at;
}

double sillAt(const PlotMap& map, double y) {
  const double bottom = map.box.ybottom();
  const double share = divide(y - bottom, PlotBox::ytop - bottom);
  // At the upper edge the sum could miss the end of the axis by its last digit.
  if (share == 1) return map.ymax;
  return finite(share * (map.ymax - map.ymin) + map.ymin);
}

double rangeAt(const PlotMap& map, double x) {
  return finite(divide(x - PlotBox::xleft, map.box.xright() - PlotBox::xleft) * map.xmax);
}

DragTarget dragTarget(int handle, int dragaxis) {
  const std::size_t line = lineOf(handle);
  // The nugget has no other axis, whatever the last press of a structure's handle has chosen.
  if (handle == 0 || dragaxis == kSillAxis)
    return {kSillTable.at(line), Field::c0, kSillPattern, true};
  return {kRangeTable.at(line), Field::a, kRangePattern, false};
}

const HandleForm& handleForm(int handle) { return kHandleForms.at(lineOf(handle)); }

std::optional<Point> handlePlace(const Session& session, const PlotMap& map, int handle,
                                 std::int64_t variable, std::int64_t direction) {
  if (flag(session, handle, variable, direction) != 1) return std::nullopt;
  const HandleForm& form = handleForm(handle);
  PlotMap own = map;
  own.box = handleBox(map.box, form);
  const auto cell = [&](PairTable<Cell> Session::*table) {
    return (session.*table)(variable, direction).number();
  };
  const double x = form.fixedLeft ? *form.fixedLeft : own.x(cell(kRangeTable.at(lineOf(handle))));
  const Point place{x, own.y(cell(kSillTable.at(lineOf(handle))))};
  if (!contains(own.box, place)) return std::nullopt;
  return place;
}

}  // namespace zevfit
