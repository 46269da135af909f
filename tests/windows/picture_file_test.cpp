// Pictures as files: what a name may hold never makes a file that other programs can't read.
#include "platform/picture_file.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zevfit
