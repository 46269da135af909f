#include "platform/painter_surface.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>
#include <array>

namespace zevfit {

namespace {

/// What the letters A to Z and a to z of the font "Symbol" show.
constexpr std::array<char16_t, 26> kGreekCapitals{
    u'\u0391', u'\u0392', u'\u03A7', u'\u0394', u'\u0395', u'\u03A6', u'\u0393',
    u'\u0397', u'\u0399', u'\u03D1', u'\u039A', u'\u039B', u'\u039C', u'\u039D',
    u'\u039F', u'\u03A0', u'\u0398', u'\u03A1', u'\u03A3', u'\u03A4', u'\u03A5',
    u'\u03C2', u'\u03A9', u'\u039E', u'\u03A8', u'\u0396'};
constexpr std::array<char16_t, 26> kGreekSmall{
    u'\u03B1', u'\u03B2', u'\u03C7', u'\u03B4', u'\u03B5', u'\u03C6', u'\u03B3',
    u'\u03B7', u'\u03B9', u'\u03D5', u'\u03BA', u'\u03BB', u'\u03BC', u'\u03BD',
    u'\u03BF', u'\u03C0', u'\u03B8', u'\u03C1', u'\u03C3', u'\u03C4', u'\u03C5',
    u'\u03D6', u'\u03C9', u'\u03BE', u'\u03C8', u'\u03B6'};

constexpr const char* kSymbolFont = "Symbol";

QChar toGreek(QChar letter) {
  const char16_t code = letter.unicode();
  if (code >= u'A' && code <= u'Z') return kGreekCapitals[code - u'A'];
  if (code >= u'a' && code <= u'z') return kGreekSmall[code - u'a'];
  return letter;
}

QPen toPen(const Stroke& stroke) {
  QPen pen(toQColor(stroke.colour), stroke.width);
  pen.setStyle(stroke.style == LineStyle::dotted ? Qt::DotLine : Qt::SolidLine);
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

double toPixels(double twips) { return twips / kTwipsPerPixel; }

}  // namespace

QColor toQColor(Colour colour) {
  return QColor(colour & 255, (colour >> 8) & 255, (colour >> 16) & 255);
}

Colour toColour(const QColor& colour) {
  return colour.red() + 256 * colour.green() + 65536 * colour.blue();
}

QFont toQFont(const Font& font) {
  QFont face;
  const QString name =
      QString::fromLatin1(font.name.data(), static_cast<qsizetype>(font.name.size()));
  face.setFamilies(font.name == kSymbolFont ? QStringList{"Times New Roman", "Liberation Serif"}
                                            : QStringList{name, "Liberation Serif"});
  if (font.size > 0) face.setPointSizeF(static_cast<qreal>(font.size));
  face.setBold(font.bold);
  return face;
}

QString toDrawnText(std::string_view text, const std::string& fontName) {
  QString drawn = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
  if (fontName != kSymbolFont) return drawn;
  std::transform(drawn.cbegin(), drawn.cend(), drawn.begin(), toGreek);
  return drawn;
}

const PainterSurface::Face& PainterSurface::face(const Font& font, QPaintDevice* device) {
  const auto found = std::find_if(faces_.begin(), faces_.end(),
                                  [&](const Face& known) { return known.font == font; });
  if (found != faces_.end()) return *found;
  const QFont made = toQFont(font);
  faces_.push_back({font, made, QFontMetricsF(made, device).ascent()});
  return faces_.back();
}

void PainterSurface::clear(Colour background) {
  const QRectF all(QPointF(0, 0),
                   QSizeF(painter().device()->width(), painter().device()->height()));
  painter().fillRect(all, toQColor(background));
}

void PainterSurface::text(double x, double y, std::string_view text, const Font& font,
                          Colour colour) {
  QPainter& to = painter();
  const Face& with = face(font, to.device());
  to.setFont(with.face);
  to.setPen(toQColor(colour));
  to.drawText(QPointF(toPixels(x), toPixels(y) + with.ascent), toDrawnText(text, font.name));
}

void PainterSurface::line(double x1, double y1, double x2, double y2, const Stroke& stroke) {
  QPainter& to = painter();
  to.setRenderHint(QPainter::Antialiasing, x1 != x2 && y1 != y2);
  QPen pen = toPen(stroke);
  if (x1 != x2 && y1 != y2) pen.setCapStyle(Qt::RoundCap);
  to.setPen(pen);
  to.drawLine(QPointF(toPixels(x1), toPixels(y1)), QPointF(toPixels(x2), toPixels(y2)));
}

void PainterSurface::disc(double x, double y, double radius, const Stroke& outline, Colour fill) {
  QPainter& to = painter();
  to.setRenderHint(QPainter::Antialiasing, true);
  to.setPen(toPen(outline));
  to.setBrush(toQColor(fill));
  to.drawEllipse(QPointF(toPixels(x), toPixels(y)), toPixels(radius), toPixels(radius));
}

}  // namespace zevfit
