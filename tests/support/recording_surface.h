#pragma once

#include <cmath>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "plot/surface.h"

namespace zevfit {

/// One operation on a surface as a plain value. Coordinates are kept to the thousandth of a twip,
/// so that a test can state them in decimals.
struct Operation {
  enum class Kind { clear, text, line, disc };

  Kind kind = Kind::clear;
  double x1 = 0, y1 = 0;
  double x2 = 0, y2 = 0;  ///< end of a line
  double radius = 0;
  std::string text;
  Font font;
  Stroke stroke;
  Colour fill = kBlack;  ///< background of a clear, inside of a disc, colour of a text

  bool operator==(const Operation&) const = default;
};

inline double toThousandth(double twips) { return std::round(twips * 1000) / 1000; }

inline Operation clearOf(Colour background) {
  return {.kind = Operation::Kind::clear, .fill = background};
}

inline Operation textOf(double x, double y, std::string_view text, const Font& font,
                        Colour colour) {
  return {.kind = Operation::Kind::text,
          .x1 = toThousandth(x),
          .y1 = toThousandth(y),
          .text = std::string(text),
          .font = font,
          .fill = colour};
}

inline Operation lineOf(double x1, double y1, double x2, double y2, const Stroke& stroke) {
  return {.kind = Operation::Kind::line,
          .x1 = toThousandth(x1),
          .y1 = toThousandth(y1),
          .x2 = toThousandth(x2),
          .y2 = toThousandth(y2),
          .stroke = stroke};
}

inline Operation discOf(double x, double y, double radius, const Stroke& outline, Colour fill) {
  return {.kind = Operation::Kind::disc,
          .x1 = toThousandth(x),
          .y1 = toThousandth(y),
          .radius = radius,
          .stroke = outline,
          .fill = fill};
}

inline std::ostream& operator<<(std::ostream& out, const Stroke& stroke) {
  return out << " colour " << stroke.colour << " width " << stroke.width
             << (stroke.style == LineStyle::dotted ? " dotted" : " solid");
}

inline std::ostream& operator<<(std::ostream& out, const Operation& operation) {
  const auto from = [&]() -> std::ostream& {
    return out << " (" << operation.x1 << ", " << operation.y1 << ")";
  };
  switch (operation.kind) {
    case Operation::Kind::clear:
      return out << "clear " << operation.fill;
    case Operation::Kind::text:
      out << "text \"" << operation.text << "\"";
      return from() << " in " << operation.font.name << " " << operation.font.size
                    << (operation.font.bold ? " bold" : "") << " colour " << operation.fill;
    case Operation::Kind::line:
      out << "line";
      return from() << " to (" << operation.x2 << ", " << operation.y2 << ")" << operation.stroke;
    case Operation::Kind::disc:
      out << "disc";
      return from() << " radius " << operation.radius << operation.stroke << " filled "
                    << operation.fill;
  }
  return out;
}

/// Keeps what stands on the picture: the last clear and the operations since.
class RecordingSurface : public Surface {
 public:
  void clear(Colour background) override { operations = {clearOf(background)}; }
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
    operations.push_back(textOf(x, y, text, font, colour));
  }
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override {
    operations.push_back(lineOf(x1, y1, x2, y2, stroke));
  }
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override {
    operations.push_back(discOf(x, y, radius, outline, fill));
  }

  std::vector<Operation> operations;
};

}  // namespace zevfit
