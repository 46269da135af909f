#pragma once

#include "model/fit.h"
#include "plot/drawing/plot_window.h"

namespace zevfit {

/// The picture of the format window. Sizes in twips.
class PreviewPicture {
 public:
  virtual ~PreviewPicture() = default;

  virtual double pictureWidth() const = 0;
  virtual double pictureHeight() const = 0;
  virtual Surface& picture() = 0;
  virtual PenState& pen() = 0;
  virtual void setPictureSize(double width, double height) = 0;
  /// All texts are bold.
  virtual bool bold() const = 0;
};

/// What the picture of a plot window at its standard size has, and so the preview.
inline constexpr double kPreviewWidth = kStandardWidth - kFrameWidth;
inline constexpr double kPreviewHeight = kStandardHeight - kFrameHeight;

/// Draws the current pair as its plot is drawn, in the form of a preview. Its window takes caption,
/// colours and title, but keeps its picture and its place. `previewrunning` is true from the start
/// and stays so when the preview fails, which it does without a word; without a file it says so.
void preview(Fit& fit, PlotWindows& windows, PreviewPicture& picture, bool& previewrunning);

}  // namespace zevfit
