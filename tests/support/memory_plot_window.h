#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plot/plot_window.h"
#include "session/tables.h"
#include "tests/support/recording_surface.h"

namespace zevfit {

/// A plot window without a screen, as it is after its load. Every character of a title is 120 wide.
class MemoryPlotWindow : public PlotWindow {
 public:
  static constexpr double kTitleCharacter = 120;

  bool visible() const override { return isVisible; }
  bool minimised() const override { return isMinimised; }
  void restore() override {
    isMinimised = false;
    ++restored;
  }

  double width() const override { return outerWidth; }
  double height() const override { return outerHeight; }
  void setSize(double width, double height) override {
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

  void setHandleBorder(int handle, bool border) override { borders.emplace_back(handle, border); }
  void hideGuides() override { ++guidesHidden; }
  void toFront() override { ++fronted; }

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
  std::vector<std::pair<int, bool>> borders;  ///< every border set, in order
  int restored = 0;
  int guidesHidden = 0;
  int fronted = 0;
};

/// Windows that appear once they are used, by (direction, variable).
class MemoryPlotWindows : public PlotWindows {
 public:
  MemoryPlotWindow& plotwin(std::int64_t direction, std::int64_t variable) override {
    if (direction < 0 || direction >= kVariableSlots || variable < 0 || variable >= kVariableSlots)
      throwSubscript();
    return windows[{direction, variable}];
  }

  std::map<std::pair<std::int64_t, std::int64_t>, MemoryPlotWindow> windows;
};

}  // namespace zevfit
