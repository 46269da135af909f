#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plot/window/direction_window.h"
#include "session/numbers.h"
#include "session/tables.h"
#include "tests/support/recording_surface.h"

namespace zevfit {

/// A plot window without a screen, as it is after its load. Every character of a title is 120 wide.
/// Keeps what is done to its size and to the overlays as states and, in order, in `calls`.
class MemoryPlotWindow : public DirectionWindow {
 public:
  static constexpr double kTitleCharacter = 120;

  struct Handle {
    double left = 0, top = 0, width = 300;
    bool visible = false, border = true;
  };
  struct GuideState {
    double at = 0, from = 0, to = 0;
    bool visible = false;
    LineStyle style = LineStyle::dotted;
  };
  struct Tag {
    double left = 0, top = 0;
    std::string caption;
    bool visible = false;
  };

  bool visible() const override { return isVisible; }
  bool minimised() const override { return isMinimised; }
  void restore() override {
    isMinimised = false;
    ++restored;
  }

  double width() const override { return outerWidth; }
  double height() const override { return outerHeight; }
  void setSize(double width, double height) override {
    note("size", generalText(width) + " " + generalText(height));
    outerWidth = width;
    outerHeight = height;
  }

  std::string caption() const override { return title; }
  void setCaption(std::string_view caption) override { title = caption; }
  void setOverlayColours(Colour foreground, Colour background) override {
    overlayForeground = foreground;
    overlayBackground = background;
  }
  double measureTitle(std::string_view text, const Font& font) override {
    measuredText = text;
    measuredFont = font;
    return kTitleCharacter * static_cast<double>(text.size());
  }

  double pictureWidth() const override { return innerWidth; }
  double pictureHeight() const override { return innerHeight; }
  void setPictureSize(double width, double height) override {
    innerWidth = width;
    innerHeight = height;
  }
  RecordingSurface& picture() override { return surface; }
  PenState& pen() override { return penState; }
  std::optional<double>& misfit() override { return drawnMisfit; }

  void setHandleBorder(Line handle, bool border) override {
    note("border " + std::to_string(index(handle)), border ? "on" : "off");
    handleAt(handle).border = border;
  }
  void hideGuides() override {
    note("guides", "hidden");
    for (GuideState& guide : guides) guide.visible = false;
  }
  void toFront() override { ++fronted; }
  void endDelete() override { ++deletesEnded; }

  DragState& dragState() override { return drag; }
  double scaleWidth() const override { return innerWidth - 2 * pictureBorder; }
  double scaleHeight() const override { return innerHeight - 2 * pictureBorder; }
  /// The discs that were drawn last, and what they lie on.
  std::optional<Colour> colourAt(double x, double y) override {
    std::optional<Colour> found;
    for (const Operation& one : surface.operations) {
      if (const ClearOf* clear = std::get_if<ClearOf>(&one)) found = clear->background;
      const DiscOf* disc = std::get_if<DiscOf>(&one);
      if (disc && std::hypot(x - disc->at.x, y - disc->at.y) <= disc->radius) found = disc->fill;
    }
    return found;
  }

  double handleLeft(Line handle) const override { return handles.at(index(handle)).left; }
  double handleTop(Line handle) const override { return handles.at(index(handle)).top; }
  double handleWidth(Line handle) const override { return handles.at(index(handle)).width; }
  void moveHandle(Line handle, double left, double top) override {
    note("move " + std::to_string(index(handle)), generalText(left) + " " + generalText(top));
    handleAt(handle).left = left;
    handleAt(handle).top = top;
  }
  void showHandle(Line handle, bool visible) override {
    note("handle " + std::to_string(index(handle)), visible ? "shown" : "hidden");
    handleAt(handle).visible = visible;
  }

  void showGuide(Guide guide, bool visible) override {
    note(name(guide), visible ? "shown" : "hidden");
    line(guide).visible = visible;
  }
  void placeGuide(Guide guide, double at) override {
    note(name(guide) + " at", generalText(at));
    line(guide).at = at;
  }
  void setGuideEnds(Guide guide, double from, double to) override {
    note(name(guide) + " from", generalText(from) + " to " + generalText(to));
    line(guide).from = from;
    line(guide).to = to;
  }
  void setGuideStyle(Guide guide, LineStyle style) override {
    note(name(guide), style == LineStyle::dotted ? "dotted" : "solid");
    line(guide).style = style;
  }

  void placeTag(double left, double top) override {
    note("tag at", generalText(left) + " " + generalText(top));
    tag.left = left;
    tag.top = top;
  }
  void setTagCaption(std::string_view text) override {
    note("tag", text);
    tag.caption = text;
  }
  void showTag(bool visible) override {
    note("tag", visible ? "shown" : "hidden");
    tag.visible = visible;
  }

  GuideState& line(Guide guide) { return guides.at(static_cast<std::size_t>(guide)); }

  bool isVisible = false;
  bool isMinimised = false;
  double outerWidth = kLoadWidth, outerHeight = kLoadHeight;
  double innerWidth = kLoadWidth - kFrameWidth, innerHeight = kLoadHeight - kFrameHeight;
  std::string title;
  Colour overlayForeground = -1, overlayBackground = -1;
  std::string measuredText;  ///< last given to the hidden label
  Font measuredFont;
  RecordingSurface surface;
  PenState penState;
  std::optional<double> drawnMisfit;
  DragState drag;
  double pictureBorder = 0;
  std::array<Handle, 4> handles;
  std::array<GuideState, 2> guides;
  Tag tag;
  std::vector<std::string> calls;
  int restored = 0;
  int fronted = 0;
  int deletesEnded = 0;
  bool closed = false;

 private:
  static std::size_t index(Line handle) { return static_cast<std::size_t>(handle); }
  static std::string name(Guide guide) { return guide == Guide::Line1 ? "Line1" : "Line2"; }
  Handle& handleAt(Line handle) { return handles.at(index(handle)); }
  void note(std::string_view what, std::string_view how) {
    calls.push_back(std::string(what) + " " + std::string(how));
  }
};

/// Windows that appear once they are used, by pair.
class MemoryPlotWindows : public DirectionWindows {
 public:
  MemoryPlotWindow& plotwin(Pair pair) override { return windows[keyOf(pair)]; }
  bool isOpen(Pair pair) const override {
    const auto found = windows.find(keyOf(pair));
    return found != windows.end() && !found->second.closed;
  }

  /// By variable and direction.
  std::map<std::pair<std::int64_t, std::int64_t>, MemoryPlotWindow> windows;

 private:
  static std::pair<std::int64_t, std::int64_t> keyOf(Pair pair) {
    for (const std::int64_t subscript : {pair.variable, pair.direction})
      if (subscript < 0 || subscript >= kVariableSlots)
        throwSubscript("plotwin", {pair.variable, pair.direction});
    return {pair.variable, pair.direction};
  }
};

}  // namespace zevfit
