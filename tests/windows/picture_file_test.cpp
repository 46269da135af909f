// Pictures as files: what a name may hold never makes a file that other programs can't read.
#include "platform/picture_file.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QXmlStreamReader>

namespace zevfit {
namespace {

/// The text of the first element of that name; nothing where the bytes are no XML.
QString textOf(const QByteArray& xml, const QString& element) {
  QXmlStreamReader reader(xml);
  QString text;
  while (!reader.atEnd())
    if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == element &&
        text.isEmpty())
      text = reader.readElementText();
  return reader.hasError() ? QString() : text.trimmed();
}

QByteArray pictureOf(const std::string& name) {
  const QString title = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
  return svgPicture({6000, 3000}, title, [&](Surface& surface) {
    surface.text(300, 300, name, {"Liberation Serif", 10}, Colour{});
  });
}

TEST(PictureFile, AnSvgPictureIsXmlWhateverANameHolds) {
  EXPECT_EQ(textOf(pictureOf("Pb & Zn <5 \"x\""), "title"), "Pb & Zn <5 \"x\"");
  EXPECT_EQ(textOf(pictureOf("Pb & Zn <5 \"x\""), "text"), "Pb & Zn <5 \"x\"");
  EXPECT_EQ(textOf(pictureOf("caf\xE9"), "title"), QString::fromUtf8("caf\xC3\xA9"));
  // XML has no way to write most control characters.
  EXPECT_EQ(textOf(pictureOf("Pb\x01Zn\x1F!"), "title"), "Pb Zn !");
  EXPECT_EQ(textOf(pictureOf("Pb\x01Zn\x1F!"), "text"), "Pb Zn !");
}

/// A red box from a third of the picture to two of it, in units.
QImage bitmapOf(double twips, double scale, double unit) {
  const double third = twips / unit / 3;
  const auto draw = [&](Surface& surface) {
    surface.clear(kWhite);
    surface.box(third, third, third, third, kRed);
  };
  return QImage::fromData(pngPicture({twips, twips}, scale, draw, unit));
}

// Also with less than a dot for a pixel of the drawing.
TEST(PictureFile, ABitmapHoldsAllOfItsDrawing) {
  struct Row {
    double twips, scale, unit;
    int dotsPerMetre;
  };
  // 96 dots to the inch are 3780 to the metre.
  for (const Row& row : {Row{1500, 1, 1, 3780}, Row{1500, 1, 0.5, 3780}, Row{3000, 0.5, 1, 1890},
                         Row{6000, 0.25, 0.3, 945}, Row{750, 2, 3, 7559}}) {
    const QImage image = bitmapOf(row.twips, row.scale, row.unit);
    EXPECT_EQ(image.size(), QSize(100, 100));
    EXPECT_EQ(image.pixelColor(28, 28), QColor(Qt::white)) << row.scale << ' ' << row.unit;
    EXPECT_EQ(image.pixelColor(38, 38), QColor(Qt::red)) << row.scale << ' ' << row.unit;
    EXPECT_EQ(image.pixelColor(62, 62), QColor(Qt::red)) << row.scale << ' ' << row.unit;
    EXPECT_EQ(image.pixelColor(72, 72), QColor(Qt::white)) << row.scale << ' ' << row.unit;
    EXPECT_EQ(image.dotsPerMeterX(), row.dotsPerMetre);
  }
}

TEST(PictureFile, AFontThatIsNotInstalledHasAnotherInItsPlace) {
  EXPECT_EQ(standInFor("Liberation Serif"), std::nullopt);
  EXPECT_EQ(standInFor(kPlotFont), std::nullopt) << "one of the same metrics";
  EXPECT_TRUE(standInFor("No such face").has_value());
}

}  // namespace
}  // namespace zevfit
