#include <gtest/gtest.h>

#include <QFile>
#include <QIcon>

namespace zevfit {
namespace {

constexpr const char* kIcons[] = {
    "open",   "view",  "results",  "cascade",  "vertical", "horizontal", "copy",  "format",
    "models", "print", "zoom-in",  "zoom-out", "scales",   "crosstest",  "grid",  "add",
    "remove", "back",  "continue", "ticked",   "unticked", "app",        "about",
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

}  // namespace
}  // namespace zevfit
