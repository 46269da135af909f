#pragma once

#include <cmath>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "plot/drawing/surface.h"
#include "session/numbers.h"

namespace zevfit {

// The operations on a surface as plain values.

/// Kept to the thousandth of a twip, so that a test can state it in decimals.
struct Place {
  Place(double across, double down)
      : x(std::round(across * 1000) / 1000), y(std::round(down * 1000) / 1000) {}
  double x, y;
  bool operator==(const Place&) const = default;
};

struct ClearOf {
  Colour background;
  bool operator==(const ClearOf&) const = default;
};

struct TextOf {
  Place at;
  std::string text;
  Font font;
  Colour colour;
  bool operator==(const TextOf&) const = default;
};

struct LineOf {
  Place from, to;
  Stroke stroke;
  bool operator==(const LineOf&) const = default;
};

struct DiscOf {
  Place at;
  double radius;
  Stroke outline;
  Colour fill;
  bool operator==(const DiscOf&) const = default;
};

struct BoxOf {
  Place at;
  double width, height;
  Colour fill;
  BoxOf(const Place& corner, double across, double down, Colour colour)
      : at(corner), width(Place(across, 0).x), height(Place(0, down).y), fill(colour) {}
  bool operator==(const BoxOf&) const = default;
};

using Operation = std::variant<ClearOf, TextOf, LineOf, DiscOf, BoxOf>;
using Operations = std::vector<Operation>;

// As a failing test shows them.

inline std::ostream& operator<<(std::ostream& out, const Place& place) {
  return out << "(" << generalText(place.x) << ", " << generalText(place.y) << ")";
}
inline std::ostream& operator<<(std::ostream& out, const Font& font) {
  return out << font.name << " " << font.size << (font.bold ? " bold" : "");
}
inline std::ostream& operator<<(std::ostream& out, const Stroke& stroke) {
  return out << "colour " << stroke.colour << " width " << stroke.width
             << (stroke.style == LineStyle::dotted ? " dotted" : " solid");
}
inline std::ostream& operator<<(std::ostream& out, const ClearOf& clear) {
  return out << "clear " << clear.background;
}
inline std::ostream& operator<<(std::ostream& out, const TextOf& text) {
  return out << '"' << text.text << "\" " << text.at << " in " << text.font << " colour "
             << text.colour;
}
inline std::ostream& operator<<(std::ostream& out, const LineOf& line) {
  return out << "line " << line.from << " to " << line.to << " " << line.stroke;
}
inline std::ostream& operator<<(std::ostream& out, const DiscOf& disc) {
  return out << "disc " << disc.at << " radius " << disc.radius << " " << disc.outline
             << " filled with " << disc.fill;
}

inline std::ostream& operator<<(std::ostream& out, const BoxOf& box) {
  return out << "box " << box.at << " " << box.width << " by " << box.height << " filled with "
             << box.fill;
}

/// The operations of one kind, in their order.
template <class Kind>
std::vector<Kind> only(const Operations& operations) {
  std::vector<Kind> found;
  for (const Operation& one : operations)
    if (const Kind* match = std::get_if<Kind>(&one)) found.push_back(*match);
  return found;
}

/// Keeps what stands on the picture: the last clear and the operations since. A character is 20
/// wide for each point of its size, a bold one 24.
class RecordingSurface : public Surface {
 public:
  void clear(Colour background) override { operations = {ClearOf{background}}; }
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
    operations.emplace_back(TextOf{{x, y}, std::string(text), font, colour});
  }
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override {
    operations.emplace_back(LineOf{{x1, y1}, {x2, y2}, stroke});
  }
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override {
    operations.emplace_back(DiscOf{{x, y}, radius, outline, fill});
  }
  void box(double left, double top, double width, double height, Colour fill) override {
    operations.emplace_back(BoxOf{{left, top}, width, height, fill});
  }
  double textWidth(std::string_view text, const Font& font) override {
    const double character = static_cast<double>(font.size) * (font.bold ? 24 : 20);
    return character * static_cast<double>(text.size());
  }

  Operations operations;
};

}  // namespace zevfit
