#include <gtest/gtest.h>

#include <QFile>
#include <QIcon>
#include <QPainter>
#include <cstdlib>

namespace zevfit {
namespace {

constexpr const char* kIcons[] = {
    "open",   "view",   "results",     "cascade",     "vertical",   "horizontal", "copy",
    "format", "models", "print",       "zoom-in",     "zoom-out",   "scales",     "crosstest",
    "grid",   "add",    "remove",      "back",        "continue",   "ticked",     "unticked",
    "app",    "about",  "test-passed", "test-failed", "test-fault", "test-root",
};

class IconTest : public testing::TestWithParam<const char*> {};

TEST_P(IconTest, IsCompiledInAndDrawsSomethingAtEverySize) {
  const QString path = QString(":/icons/%1.svg").arg(GetParam());
  ASSERT_TRUE(QFile::exists(path));
  for (const int side : {16, 24, 48}) {
    const QImage image = QIcon(path).pixmap(QSize(side, side), 1.0).toImage();
    ASSERT_FALSE(image.isNull()) << side;
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) drawn += image.pixelColor(x, y).alpha() > 128;
    }
    // A line icon covers at least a twelfth of its square.
    EXPECT_GT(drawn, image.width() * image.height() / 12) << side;
  }
}

INSTANTIATE_TEST_SUITE_P(Icons, IconTest, testing::ValuesIn(kIcons), [](const auto& row) {
  return QString(row.param).remove('-').toStdString();
});

/// Without its colours, on white, as many see it.
QImage grey(const QString& name) {
  constexpr int kSide = 16;
  QImage image(kSide, kSide, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QIcon(QString(":/icons/%1.svg").arg(name)).paint(&painter, image.rect());
  painter.end();
  return image.convertToFormat(QImage::Format_Grayscale8);
}

TEST(TestIcons, TellApartWithoutColour) {
  const QStringList names{"test-passed", "test-failed", "test-fault", "test-root"};
  for (const QString& one : names)
    for (const QString& other : names) {
      if (one == other) continue;
      const QImage first = grey(one), second = grey(other);
      int different = 0;
      for (int y = 0; y < first.height(); ++y)
        for (int x = 0; x < first.width(); ++x)
          different += std::abs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y))) > 64;
      // A quarter of the square.
      EXPECT_GT(different, 64) << one.toStdString() << " and " << other.toStdString();
    }
}

}  // namespace
}  // namespace zevfit
