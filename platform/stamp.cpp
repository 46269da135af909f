#include "platform/stamp.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace zevfit {

namespace {

constexpr std::size_t kBytes = 4;

std::size_t bytesOf(int pixels) { return kBytes * static_cast<std::size_t>(pixels); }

/// Of colours in 256ths, a half: what Qt's painters round by.
constexpr unsigned kHalf = 128;

/// Bytes in a register of the processor.
constexpr std::size_t kAtOnce = 16;

/// Puts so many bytes of colours over a ground, with the rounding of Qt's painters. Sixteen
/// bits are enough for all sums.
template <std::size_t Bytes>
void blend(const std::uint16_t* colours, const std::uint16_t* shares, uchar* ground) {
  // A copy, which nothing else can be a part of, is worked on in one go.
  std::array<uchar, Bytes> mixed;
  std::memcpy(mixed.data(), ground, mixed.size());
  for (std::size_t i = 0; i < mixed.size(); ++i) {
    const auto through = static_cast<std::uint16_t>(mixed[i] * shares[i]);
    const auto sum = static_cast<std::uint16_t>(through + (through >> 8U) + colours[i]);
    mixed[i] = static_cast<uchar>(sum >> 8U);
  }
  std::memcpy(ground, mixed.data(), mixed.size());
}

/// The pixels of premultiplied colours that do not leave every ground as it is, and as many to the
/// right of them as go at once.
QRect keptPart(const QImage& picture) {
  QRect shown;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixel(x, y) != 0) shown |= QRect(x, y, 1, 1);
  constexpr int kPixels = kAtOnce / kBytes;
  shown.setWidth((shown.width() + kPixels - 1) / kPixels * kPixels);
  return shown;
}

}  // namespace

Stamp::Stamp(const QImage& picture) : kept_(keptPart(picture)) {
  const QImage kept = picture.copy(kept_);
  for (int y = 0; y < kept.height(); ++y) {
    const uchar* row = kept.constScanLine(y);
    std::transform(row, row + bytesOf(kept.width()), std::back_inserter(colours_),
                   [](uchar colour) { return static_cast<std::uint16_t>(256U * colour + kHalf); });
    for (int x = 0; x < kept.width(); ++x)
      shares_.insert(shares_.end(), kBytes,
                     static_cast<std::uint16_t>(255 - qAlpha(kept.pixel(x, y))));
  }
}

void Stamp::putOn(QImage& bitmap, int pictureLeft, int pictureTop) const {
  const int left = pictureLeft + kept_.left(), top = pictureTop + kept_.top();
  const int first = std::max(0, -left), last = std::min(kept_.width(), bitmap.width() - left);
  const int low = std::max(0, -top), high = std::min(kept_.height(), bitmap.height() - top);
  if (first >= last || low >= high) return;
  const std::size_t row = bytesOf(kept_.width());
  const std::size_t wide = bytesOf(last - first);
  const qsizetype line = bitmap.bytesPerLine();
  const std::size_t start = static_cast<std::size_t>(low) * row + bytesOf(first);
  const std::uint16_t *colours = &colours_[start], *shares = &shares_[start];
  uchar* ground = bitmap.scanLine(top + low) + bytesOf(left + first);
  for (int y = low; y < high; ++y) {
    std::size_t at = 0;
    for (; at + kAtOnce <= wide; at += kAtOnce)
      blend<kAtOnce>(colours + at, shares + at, ground + at);
    for (; at < wide; at += kBytes) blend<kBytes>(colours + at, shares + at, ground + at);
    colours += row;
    shares += row;
    ground += line;
  }
}

}  // namespace zevfit
