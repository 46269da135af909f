#include "platform/picture_file.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "platform/bitmap_surface.h"
#include "platform/sheet_surface.h"
#include "session/fault.h"

namespace zevfit {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kTwipsPerPoint = 20;
constexpr const char* kCreator = "zevFIT";
/// Bitmaps of scale 1 have 96 dots to the inch.
constexpr double kDotsPerMetre = 96 / 0.0254;
/// No bitmap has more dots a side.
constexpr double kLargestSide = 32000;

/// Draws with a painter on a device that has a dot for each twip, with pens as wide as on the
/// screen.
void drawWith(QPainter& painter, const Draw& draw) {
  const QPaintDevice& device = *painter.device();
  SheetSurface surface(painter, QSizeF(device.width(), device.height()), kTwipsPerPixel);
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

QImage blank(QSizeF twips, double scale) {
  const QSizeF dots = twips / kTwipsPerPixel * scale;
  if (!(dots.width() <= kLargestSide && dots.height() <= kLargestSide))
    throw Fault("The picture is too large");
  QImage image(dots.toSize().expandedTo({1, 1}), QImage::Format_RGB32);
  if (image.isNull()) throw Fault("The picture is too large");
  image.fill(Qt::white);
  image.setDevicePixelRatio(scale);
  return image;
}

}  // namespace

QByteArray svgPicture(QSizeF twips, const QString& title, const Draw& draw) {
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
  drawWith(painter, draw);
  end(painter);
  return withoutControls(file.data());
}

QByteArray pdfPicture(QSizeF twips, const QString& title, const Draw& draw) {
  return pdfPages(twips, title, {draw});
}

QByteArray pdfPages(QSizeF twips, const QString& title, const std::vector<Draw>& pages) {
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
    drawWith(painter, draw);
  }
  end(painter);
  return withoutDate(file.data());
}

QByteArray pngPicture(QSizeF twips, double scale, const Draw& draw) {
  QImage image = blank(twips, scale);
  // Texts are laid out for 96 dots to the inch, which the painter then scales.
  image.setDotsPerMeterX(static_cast<int>(std::lround(kDotsPerMetre)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(kDotsPerMetre)));
  {
    BitmapSurface surface(image);
    draw(surface);
  }
  image.setDotsPerMeterX(static_cast<int>(std::lround(kDotsPerMetre * scale)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(kDotsPerMetre * scale)));
  QBuffer file;
  file.open(QBuffer::WriteOnly);
  if (!image.save(&file, "PNG")) throw Fault("The picture is too large");
  return file.data();
}

}  // namespace zevfit
