#pragma once

#include <QImage>
#include <cstdint>
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
  QRect kept_;  ///< of the picture
  /// Four of a pixel, row by row, in 256ths and a half, for the rounding.
  std::vector<std::uint16_t> colours_;
  /// For each of them, how much of the ground is seen through it, of 255.
  std::vector<std::uint16_t> shares_;
};

}  // namespace zevfit
