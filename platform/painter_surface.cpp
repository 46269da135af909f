#include "platform/painter_surface.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/curve_outline.h"

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

/// Held to a size whose sums and differences are finite.
double inPixels(double twips) { return std::clamp(twips, -1e100, 1e100) / kTwipsPerPixel; }

constexpr std::size_t kTextsKept = 256;
constexpr std::size_t kDiscsKept = 16;

/// A polygon is filled in columns of as many pixels of the bitmap: Qt fills a wide one several
/// times over, with more memory each time, until a row of it finds room.
constexpr double kColumn = 64;

/// Nothing farther away than this many pixels is drawn: a painter's own numbers are not made for
/// the coordinates that an axis of next to no length can give.
constexpr double kReach = 10000;

bool withinReach(double pixels) { return std::abs(pixels) <= kReach; }

/// Shortens a line to the part where start + t * step, t from `from` to `to`, is within reach;
/// false when there is none.
bool clipAlong(double start, double step, double& from, double& to) {
  if (step == 0) return withinReach(start);
  const double low = (-kReach - start) / step, high = (kReach - start) / step;
  from = std::max(from, std::min(low, high));
  to = std::min(to, std::max(low, high));
  return from <= to;
}

/// The part of a line that is within reach.
std::optional<QLineF> clipped(const QLineF& line) {
  double from = 0, to = 1;
  if (!clipAlong(line.x1(), line.dx(), from, to)) return std::nullopt;
  if (!clipAlong(line.y1(), line.dy(), from, to)) return std::nullopt;
  return QLineF(line.pointAt(from), line.pointAt(to));
}

/// The whole pixels of the bitmap that a line along an axis covers.
QRectF alongAxis(const QLineF& line, int width, double ratio) {
  const QRectF between = QRectF(line.p1(), line.p2()).normalized();
  const double thick = width * ratio;
  const auto first = [&](double place) { return std::floor(place * ratio - thick / 2 + 0.5); };
  const bool upright = line.x1() == line.x2();
  const double left = upright ? first(between.left()) : std::floor(between.left() * ratio);
  const double top = upright ? std::floor(between.top() * ratio) : first(between.top());
  const double wide = upright ? thick : std::floor(between.right() * ratio) - left + 1;
  const double high = upright ? std::floor(between.bottom() * ratio) - top + 1 : thick;
  return {left / ratio, top / ratio, wide / ratio, high / ratio};
}

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

void PainterSurface::forget() {
  faces_.clear();
  discs_.clear();
}

PainterSurface::Face& PainterSurface::face(const Font& font) {
  const auto found = std::find_if(faces_.begin(), faces_.end(),
                                  [&](const Face& known) { return known.font == font; });
  if (found != faces_.end()) return *found;
  faces_.push_back({font, toQFont(font), {}});
  return faces_.back();
}

void PainterSurface::text(double x, double y, std::string_view text, const Font& font,
                          Colour colour) {
  if (!withinReach(inPixels(x)) || !withinReach(inPixels(y))) return;
  finish();
  Face& with = face(font);
  if (with.texts.size() > kTextsKept) with.texts.clear();
  const auto [kept, isNew] = with.texts.try_emplace(std::string(text));
  QStaticText& laidOut = kept->second;
  if (isNew) {
    laidOut.setTextFormat(Qt::PlainText);
    laidOut.setText(toDrawnText(text, font.name));
  }
  QPainter& to = painter();
  to.setFont(with.face);
  to.setPen(toQColor(colour));
  to.drawStaticText(QPointF(inPixels(x), inPixels(y)), laidOut);
}

void PainterSurface::line(double x1, double y1, double x2, double y2, const Stroke& stroke) {
  const auto drawn = clipped({inPixels(x1), inPixels(y1), inPixels(x2), inPixels(y2)});
  if (!drawn || goesOn(*drawn, stroke)) return;
  finish();
  const bool isPoint = x1 == x2 && y1 == y2;
  const bool isStraight = !isPoint && (x1 == x2 || y1 == y2);
  if (isStraight || stroke.style == LineStyle::dotted) return straight(*drawn, stroke);
  curveStroke_ = stroke;
  curve_ << drawn->p1();
  goesOn(*drawn, stroke);
}

bool PainterSurface::goesOn(const QLineF& line, const Stroke& stroke) {
  if (curve_.isEmpty() || curve_.constLast() != line.p1() || curveStroke_ != stroke) return false;
  if (line.p2() != line.p1()) curve_ << line.p2();
  return true;
}

void PainterSurface::straight(const QLineF& line, const Stroke& stroke) {
  QPainter& to = painter();
  if (stroke.style == LineStyle::solid)
    return to.fillRect(alongAxis(line, stroke.width, to.device()->devicePixelRatioF()),
                       toQColor(stroke.colour));
  to.setRenderHint(QPainter::Antialiasing, false);
  to.setPen(toPen(stroke));
  to.drawLine(line);
}

// A curve that is level all the way, or a point, is as crisp as any line along an axis.
void PainterSurface::finish() {
  if (curve_.isEmpty()) return;
  const QRectF reach = curve_.boundingRect();
  if (reach.width() == 0 || reach.height() == 0) {
    straight({reach.topLeft(), reach.bottomRight()}, curveStroke_);
  } else {
    QPainter& to = painter();
    to.setRenderHint(QPainter::Antialiasing, true);
    to.setPen(Qt::NoPen);
    to.setBrush(toQColor(curveStroke_.colour));
    drawColumns(outlineOf(curve_, curveStroke_.width));
    to.setBrush(Qt::NoBrush);
  }
  curve_.clear();
}

void PainterSurface::drawColumns(const QPolygonF& outline) {
  QPainter& to = painter();
  const double ratio = to.device()->devicePixelRatioF();
  const double wide = kColumn / ratio;
  const QRectF reach = outline.boundingRect();
  const double end = std::min(reach.right(), to.device()->width() / ratio);
  double left = std::max(0.0, std::floor(reach.left() / wide) * wide);
  for (; left < end; left += wide)
    to.drawPolygon(columnOf(outline, left, left + wide), Qt::WindingFill);
}

PainterSurface::Disc& PainterSurface::discOf(double radius, const Stroke& outline, Colour fill) {
  for (Disc& known : discs_)
    if (known.radius == radius && known.outline == outline && known.fill == fill) return known;
  if (discs_.size() == kDiscsKept) discs_.clear();
  const double reach = inPixels(radius) + outline.width / 2.0;
  const double ratio = bitmap().devicePixelRatio();
  discs_.push_back({radius, outline, fill, {}, 2 * static_cast<int>(std::ceil(reach * ratio)) + 2});
  return discs_.back();
}

// Rounding down by hand: a call of the library's takes longer than all else here.
PainterSurface::Place PainterSurface::placeOf(double pixels) {
  const int towardsZero = static_cast<int>(pixels);
  const int pixel = pixels < towardsZero ? towardsZero - 1 : towardsZero;
  return {pixel, static_cast<std::size_t>((pixels - pixel) * kPhases)};
}

Stamp PainterSurface::stampOf(const Disc& disc, std::size_t phaseX, std::size_t phaseY) {
  const double ratio = bitmap().devicePixelRatio();
  QImage made(disc.side, disc.side, QImage::Format_ARGB32_Premultiplied);
  made.fill(Qt::transparent);
  QPainter to(&made);
  to.setRenderHint(QPainter::Antialiasing);
  const int middle = disc.side / 2;
  to.translate(middle + static_cast<double>(phaseX) / kPhases,
               middle + static_cast<double>(phaseY) / kPhases);
  to.scale(ratio, ratio);
  to.setPen(toPen(disc.outline));
  to.setBrush(toQColor(disc.fill));
  to.drawEllipse(QPointF(0, 0), inPixels(disc.radius), inPixels(disc.radius));
  to.end();
  return Stamp(made);
}

void PainterSurface::disc(double x, double y, double radius, const Stroke& outline, Colour fill) {
  const double pixelX = inPixels(x), pixelY = inPixels(y);
  if (!withinReach(pixelX) || !withinReach(pixelY)) return;
  finish();
  Disc& drawn = discOf(radius, outline, fill);
  QImage& ground = bitmap();
  const double ratio = ground.devicePixelRatio();
  const Place across = placeOf(pixelX * ratio), down = placeOf(pixelY * ratio);
  auto& stamp = drawn.stamps[down.phase * kPhases + across.phase];
  if (!stamp) stamp = stampOf(drawn, across.phase, down.phase);
  const int middle = drawn.side / 2;
  stamp->putOn(ground, across.pixel - middle, down.pixel - middle);
}

void PainterSurface::box(double left, double top, double width, double height, Colour fill) {
  const auto held = [](double twips) { return std::clamp(inPixels(twips), -kReach, kReach); };
  finish();
  painter().fillRect(
      QRectF(QPointF(held(left), held(top)), QPointF(held(left + width), held(top + height))),
      toQColor(fill));
}

double PainterSurface::textWidth(std::string_view text, const Font& font) {
  const QFontMetricsF metrics(face(font).face, painter().device());
  return metrics.horizontalAdvance(toDrawnText(text, font.name)) * kTwipsPerPixel;
}

}  // namespace zevfit
