#pragma once

#include <QImage>
#include <vector>

namespace zevfit {

/// A small picture that is put on bitmaps at whole pixels, over what is there. For a disc of a few
/// pixels that takes a third of what a painter does.
class Stamp {
 public:
  /// Of premultiplied colours with their opacity.
  explicit Stamp(const QImage& picture);

  /// `left` and `top` are pixels of the bitmap, whose colours must be premultiplied or opaque, of
  /// 32 bits; what lies outside of it is left out.
  void putOn(QImage& bitmap, int left, int top) const;

 private:
  QSize size_;
  std::vector<uchar> colours_;  ///< four bytes a pixel, row by row
  std::vector<uchar> shares_;   ///< for each of them, how much of the ground is seen through it
};

}  // namespace zevfit
