#include "platform/picture_file.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QFontInfo>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "platform/bitmap_surface.h"
#include "platform/painter_surface.h"
#include "platform/sheet_surface.h"
#include "session/fault.h"

namespace zevfit {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kTwipsPerPoint = 20;
constexpr const char* kCreator = "zevFIT";
/// What stands in for the font of the plots letter by letter.
constexpr const char* kPlotFontAlike = "Liberation Serif";
/// Bitmaps of scale 1 have 96 dots to the inch.
constexpr double kDotsPerMetre = 96 / 0.0254;

/// Draws with a painter on a device that has a dot for each twip, with pens as wide as on the
/// screen.
void drawWith(QPainter& painter, const Draw& draw, double unit) {
  const QPaintDevice& device = *painter.device();
  SheetSurface surface(painter, QSizeF(device.width(), device.height()) / unit, kTwipsPerPixel,
                       unit);
  draw(surface);
  surface.finish();
}

void begin(QPainter& painter, QPaintDevice& device) {
  if (!painter.begin(&device)) throw Fault("No picture can be made");
}

void end(QPainter& painter) {
  if (!painter.end()) throw Fault("The picture is not whole");
}

/// With blanks for the characters that XML can't hold.
QByteArray withoutControls(QByteArray xml) {
  const auto isControl = [](char byte) {
    return static_cast<unsigned char>(byte) < ' ' && byte != '\n' && byte != '\t' && byte != '\r';
  };
  std::replace_if(xml.begin(), xml.end(), isControl, ' ');
  return xml;
}

/// The file without the date of its making, so that it depends on its pictures alone; as long as
/// before, since a PDF file tells where its parts begin.
QByteArray withoutDate(QByteArray pdf) {
  const qsizetype begin = pdf.indexOf("/CreationDate (");
  const qsizetype end = pdf.indexOf(')', begin);
  if (begin < 0 || end < 0) throw Fault("The picture is not whole");
  std::fill(pdf.begin() + begin, pdf.begin() + end + 1, ' ');
  return pdf;
}

QSize dotsOf(QSizeF twips, double scale) {
  constexpr double kBelow = kLargestSide + 0.5;  // They are rounded.
  const QSizeF dots = twips / kTwipsPerPixel * scale;
  if (!(dots.width() < kBelow && dots.height() < kBelow)) throw Fault("The picture is too large");
  return dots.toSize().expandedTo({1, 1});
}

QImage blank(QSize dots, double ratio) {
  QImage image(dots, QImage::Format_RGB32);
  if (image.isNull()) throw Fault("The picture is too large");
  image.fill(Qt::white);
  image.setDevicePixelRatio(ratio);
  return image;
}

void setDensity(QImage& image, double dotsPerMetre) {
  image.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerMetre)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(dotsPerMetre)));
}

}  // namespace

QByteArray svgPicture(QSizeF twips, const QString& title, const Draw& draw, double unit) {
  QBuffer file;
  QSvgGenerator generator;
  generator.setOutputDevice(&file);
  generator.setResolution(kTwipsPerInch);
  generator.setSize(twips.toSize());
  generator.setViewBox(QRect(QPoint(), twips.toSize()));
  generator.setTitle(title.toHtmlEscaped());  // It is written as it is.
  generator.setDescription(kCreator);
  QPainter painter;
  begin(painter, generator);
  drawWith(painter, draw, unit);
  end(painter);
  return withoutControls(file.data());
}

QByteArray pdfPicture(QSizeF twips, const QString& title, const Draw& draw) {
  return pdfPages(twips, title, {draw});
}

QByteArray pdfPages(QSizeF twips, const QString& title, const std::vector<Draw>& pages,
                    double unit) {
  QBuffer file;
  file.open(QBuffer::WriteOnly);
  QPdfWriter writer(&file);
  writer.setResolution(kTwipsPerInch);
  writer.setPageSize(
      QPageSize(twips / kTwipsPerPoint, QPageSize::Point, kCreator, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  writer.setTitle(title);
  writer.setCreator(kCreator);
  QPainter painter;
  begin(painter, writer);
  bool isFirst = true;
  for (const Draw& draw : pages) {
    if (!isFirst && !writer.newPage()) throw Fault("The picture is not whole");
    isFirst = false;
    drawWith(painter, draw, unit);
  }
  end(painter);
  return withoutDate(file.data());
}

QByteArray pngPicture(QSizeF twips, double scale, const Draw& draw, double unit) {
  const QSize dots = dotsOf(twips, scale);
  // A painter takes a bitmap with less than a dot for a pixel for one with a dot: there are as many
  // times more of them first.
  const int times = std::max(1, static_cast<int>(std::ceil(1 / (scale * unit))));
  QImage image = blank(dots * times, scale * unit * times);
  // Texts are laid out for 96 dots to the inch, which the painter then scales.
  setDensity(image, kDotsPerMetre);
  {
    BitmapSurface surface(image);
    draw(surface);
  }
  if (times > 1) image = image.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  setDensity(image, kDotsPerMetre * scale);
  QBuffer file;
  file.open(QBuffer::WriteOnly);
  if (!image.save(&file, "PNG")) throw Fault("The picture is too large");
  return file.data();
}

std::optional<QString> standInFor(const std::string& font) {
  constexpr float kAnySize = 10;
  const QFont face = toQFont({font, kAnySize});
  const QString drawn = QFontInfo(face).family();
  const bool isAlike = face.family() == kPlotFont && drawn == kPlotFontAlike;
  if (isAlike || QFontDatabase::hasFamily(face.family())) return std::nullopt;
  return drawn;
}

}  // namespace zevfit
