#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <variant>
#include <vector>

#include "plot/drawing/surface.h"

namespace zevfit {

/// What is drawn on a picture from one clearing to the next, kept so that of the next drawing only
/// what differs need be drawn.
class DrawnList {
 public:
  struct Text {
    double x, y;
    std::string text;
    Font font;
    Colour colour;
    bool operator==(const Text&) const = default;
    void drawOn(Surface& surface) const { surface.text(x, y, text, font, colour); }
  };
  struct Line {
    double x1, y1, x2, y2;
    Stroke stroke;
    bool operator==(const Line&) const = default;
    void drawOn(Surface& surface) const { surface.line(x1, y1, x2, y2, stroke); }
  };
  struct Disc {
    double x, y, radius;
    Stroke outline;
    Colour fill;
    bool operator==(const Disc&) const = default;
    void drawOn(Surface& surface) const { surface.disc(x, y, radius, outline, fill); }
  };
  struct Box {
    double left, top, width, height;
    Colour fill;
    bool operator==(const Box&) const = default;
    void drawOn(Surface& surface) const { surface.box(left, top, width, height, fill); }
  };
  using Item = std::variant<Text, Line, Disc, Box>;

  /// Begins anew; what the picture shows stays to be compared with.
  void restart();
  /// Drops all items: the picture shows none of them.
  void forget();
  template <class T>
  void add(const T& item);
  /// The picture shows all items.
  void shown();

  std::size_t size() const { return count_; }
  /// How many items at the beginning the picture shows too.
  std::size_t same() const;
  /// The picture shows these items and no others.
  bool isShown() const;
  /// The last place up to `place` where a drawing can be cut: not within lines that go on from end
  /// to end, which are one curve.
  std::size_t cut(std::size_t place) const;
  /// Draws the items from `first` on, up to `last`.
  void draw(std::size_t first, std::size_t last, Surface& surface) const;

 private:
  static constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();

  bool goesOn(std::size_t place) const;

  std::vector<Item> items_;  ///< behind the first count_, those of the drawing before
  std::size_t count_ = 0;
  std::size_t same_ = 0;      ///< leading items as they were in the drawing before
  std::size_t shown_ = kAll;  ///< of that drawing, the leading items that the picture shows
};

template <class T>
void DrawnList::add(const T& item) {
  if (count_ == items_.size()) {
    items_.emplace_back(item);
  } else if (T* const there = std::get_if<T>(&items_[count_])) {
    if (same_ == count_ && *there == item)
      ++same_;
    else
      *there = item;
  } else {
    items_[count_] = item;
  }
  ++count_;
}

}  // namespace zevfit
