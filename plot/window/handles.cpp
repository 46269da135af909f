#include "plot/window/handles.h"

#include <array>

#include "session/fault.h"
#include "session/hint_number.h"
#include "session/line.h"

namespace zevfit {
namespace {

constexpr const char* kSillPattern = "#####.###";
constexpr const char* kRangePattern = "####.###";

// The nugget has no range and stands at three left margins. Structure 1 alone stands to the left of
// its place, and structures 2 and 3 alone are placed on an axis that ends a margin earlier. Only
// the look depends on it: the first move of a drag takes each handle to the mouse.
constexpr std::array<HandleForm, kLines.size()> kHandleForms{{
    {3 * PlotBox::xleft, PlotBox::xmargin, false},
    {std::nullopt, PlotBox::xmargin, true},
    {std::nullopt, 2 * PlotBox::xmargin, false},
    {std::nullopt, 2 * PlotBox::xmargin, false},
}};

/// The range where that lies beyond the axis, otherwise the sill, as in "a1 = 1500".
std::string cellOutside(const ConstLineRef& at, Line handle, double xmax) {
  const bool range = handle != Line::nugget && at.range().number() > xmax;
  return (range ? "a" : "C") + std::to_string(indexOf(handle)) + " = " +
         (range ? at.range() : at.sill()).toText();
}

/// The box of the picture with the handle's own right end.
PlotBox handleBox(const PlotBox& box, const HandleForm& form) {
  return {box.pictureW - (form.rightMargin - PlotBox::xmargin), box.pictureH};
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

DragTarget dragTarget(Line handle, DragAxis dragaxis) {
  // The nugget has no other axis, whatever the last press of a structure's handle has chosen.
  if (handle == Line::nugget || dragaxis == DragAxis::sill) return {Field::c0, kSillPattern, true};
  return {Field::a, kRangePattern, false};
}

const HandleForm& handleForm(Line handle) { return kHandleForms.at(indexOf(handle)); }

std::optional<Point> handlePlace(const Session& session, const PlotMap& map, Line handle,
                                 Pair pair) {
  const ConstLineRef at = line(session, pair, handle);
  if (!at.isOn()) return std::nullopt;
  const HandleForm& form = handleForm(handle);
  PlotMap own = map;
  own.box = handleBox(map.box, form);
  const double x = form.fixedLeft ? *form.fixedLeft : own.x(at.range().number());
  const Point place{x, own.y(at.sill().number())};
  if (!contains(own.box, place)) return std::nullopt;
  return place;
}

std::string outOfView(const Session& session, const PlotMap& map, std::span<const Line> hidden,
                      Pair pair) {
  std::string named;
  for (const Line handle : hidden) {
    const ConstLineRef at = line(session, pair, handle);
    if (!at.isOn()) continue;
    named += named.empty() ? "Out of view: " : ", ";
    named += std::string(kHandleCaptions.at(indexOf(handle))) + " (" +
             cellOutside(at, handle, map.xmax) + ")";
  }
  if (named.empty()) return "";
  return named + ". The axes go to " + hintNumber(map.xmax, named) + " and from " +
         hintNumber(map.ymin, "") + " to " + hintNumber(map.ymax, named) + ".";
}

}  // namespace zevfit
