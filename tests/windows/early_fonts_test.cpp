// Fonts that are read beside the making of the window.
#include "platform/early_fonts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>

namespace zevfit {
namespace {

TEST(EarlyFonts, AreTheSameAsWithout) {
  const QFont font = QApplication::font();
  const int width = QFontMetrics(font).horizontalAdvance("Nugget Effect");
  const QStringList families = QFontDatabase::families();
  loadFontEarly(font, readFontsEarly()).join();
  EXPECT_EQ(QFontMetrics(font).horizontalAdvance("Nugget Effect"), width);
  EXPECT_EQ(QFontDatabase::families(), families);
}

TEST(EarlyFonts, MayBeUsedWhileTheyAreBeingRead) {
  const QFont font = QApplication::font();
  const QFontMetrics known(font);
  for (int size = 30; size < 60; ++size) {
    QFont other = font;
    other.setPointSize(size);
    const std::jthread reading = loadFontEarly(other, {});
    EXPECT_GT(QFontMetrics(other).height(), known.height()) << size;
  }
}

}  // namespace
}  // namespace zevfit
