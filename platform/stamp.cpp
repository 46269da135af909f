#include "platform/stamp.h"

#include <algorithm>
#include <cstddef>

namespace zevfit {

namespace {

constexpr std::size_t kBytes = 4;

std::size_t bytesOf(int pixels) { return kBytes * static_cast<std::size_t>(pixels); }

/// Puts colours over a ground, with the rounding of Qt's painters.
void blend(const uchar* __restrict colours, const uchar* __restrict shares, std::size_t count,
           uchar* __restrict ground) {
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned through = static_cast<unsigned>(ground[i]) * shares[i];
    ground[i] = static_cast<uchar>(colours[i] + ((through + (through >> 8U) + 128U) >> 8U));
  }
}

}  // namespace

Stamp::Stamp(const QImage& picture) : size_(picture.size()) {
  for (int y = 0; y < size_.height(); ++y) {
    const uchar* row = picture.constScanLine(y);
    colours_.insert(colours_.end(), row, row + bytesOf(size_.width()));
    for (int x = 0; x < size_.width(); ++x)
      shares_.insert(shares_.end(), kBytes, static_cast<uchar>(255 - qAlpha(picture.pixel(x, y))));
  }
}

void Stamp::putOn(QImage& bitmap, int left, int top) const {
  const int first = std::max(0, -left), last = std::min(size_.width(), bitmap.width() - left);
  const int low = std::max(0, -top), high = std::min(size_.height(), bitmap.height() - top);
  if (first >= last || low >= high) return;
  const std::size_t wide = bytesOf(last - first);
  const std::size_t row = bytesOf(size_.width());
  const qsizetype line = bitmap.bytesPerLine();
  std::size_t at = static_cast<std::size_t>(low) * row + bytesOf(first);
  uchar* ground = bitmap.scanLine(top + low) + bytesOf(left + first);
  for (int y = low; y < high; ++y) {
    blend(&colours_[at], &shares_[at], wide, ground);
    at += row;
    ground += line;
  }
}

}  // namespace zevfit
