#pragma once

#include <string_view>

#include "plot/drawing/surface.h"

namespace zevfit {

/// Sizes of the pictures, twips.
inline constexpr double kPageWidth = 3147, kPageHeight = 4452;
inline constexpr double kSettingsWidth = 602, kSettingsHeight = 852;

/// The window `printcolection` as its handlers see it. Pages and columns of controls go by slot 0
/// to 5, the tab by its number 1 to 6.
class ReportWindow {
 public:
  virtual ~ReportWindow() = default;

  /// The selected tab of TabStrip1.
  virtual int tab() const = 0;
  /// Moves HScroll1, within 1 to 3; a real change runs HScroll1_Change before this returns.
  virtual void setSlider(int columns) = 0;
  virtual int slider() const = 0;
  /// The number that Label5 shows.
  virtual int shownColumns() const = 0;
  virtual void showColumns(int columns) = 0;
  /// The number in Label1, out of sight: the columns that `grelha` draws.
  virtual int appliedColumns() const = 0;
  virtual void applyColumns(int columns) = 0;
  /// The box Check1.
  virtual bool deleteTicked() const = 0;
  virtual void setDeleteTicked(bool ticked) = 0;

  /// Shows or hides Picture1 of a slot; on show it is at its place in the tab.
  virtual void showPage(int slot, bool visible) = 0;
  virtual Surface& page(int slot) = 0;
  /// Brings what was drawn on the page to the screen at once.
  virtual void refreshPage(int slot) = 0;
  /// Picture2, the small drawing of the grid.
  virtual Surface& settings() = 0;
  /// Picture3 in that size, for a thumbnail; `apagar` takes the size too.
  virtual Surface& thumbnail(double width, double height) = 0;
  /// Copies Picture3 to a page, its top left corner to the place.
  virtual void pasteThumbnail(int slot, double left, double top) = 0;
  /// The same of `apagar`, which is blank.
  virtual void pasteBlank(int slot, double left, double top) = 0;

  /// Labelvar and Labeldir, refreshed at once.
  virtual void showLegend(std::string_view variable, std::string_view direction) = 0;

  /// Bar1, whose minimum is 0.
  virtual void setBarMaximum(int maximum) = 0;
  virtual void setBarValue(int value) = 0;
  /// The hourglass as pointer of the main window.
  virtual void setBusy(bool busy) = 0;

  /// In its normal state, on show and in front; blocks no other window.
  virtual void showNormally() = 0;
};

}  // namespace zevfit
