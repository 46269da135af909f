// The dialogs of the desktop for a font and for a colour.
#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFontDialog>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QValidator>

#include "platform/qt_dialogs.h"
#include "tests/support/program.h"

namespace zevfit::test {
namespace {

/// The field for the size, the only one that checks what is typed.
QLineEdit& sizeField(QWidget& dialog) {
  for (auto* field : dialog.findChildren<QLineEdit*>())
    if (field->validator()) return *field;
  throw std::runtime_error("no field for the size");
}

std::optional<FontChoice> chooseFont(const FontChoice& start,
                                     const std::function<void(QFontDialog&)>& steps) {
  QtDialogs dialogs;
  std::optional<FontChoice> chosen;
  Program::inModal([&] { chosen = dialogs.chooseFont(start); },
                   [&](QWidget& modal) {
                     EXPECT_EQ(modal.objectName(), "Dialog1");
                     steps(dynamic_cast<QFontDialog&>(modal));
                   });
  return chosen;
}

TEST(FontDialog, AcceptedAsItStandsGivesTheFontItStartedWith) {
  for (const float size : {7.8F, 10.0F, 16.4F, 9.25F}) {
    const auto font = chooseFont({"Liberation Serif", size}, [&](QFontDialog& dialog) {
      EXPECT_EQ(sizeField(dialog).text().toFloat(), size);
      dialog.accept();
    });
    ASSERT_TRUE(font) << size;
    EXPECT_EQ(font->name, "Liberation Serif") << size;
    EXPECT_EQ(font->size, size);
  }
}

TEST(FontDialog, TakesTypedSizesWithAPoint) {
  for (const auto& [typed, size] : {std::pair("16.5", 16.5F), {"16", 16.0F}, {"8.75", 8.75F}}) {
    const auto font = chooseFont({"Liberation Serif", 10}, [typed = typed](QFontDialog& dialog) {
      sizeField(dialog).selectAll();
      QTest::keyClicks(&sizeField(dialog), typed);
      dialog.accept();
    });
    ASSERT_TRUE(font) << typed;
    EXPECT_EQ(font->size, size) << typed;
  }
}

TEST(FontDialog, CancelIsAnOutcomeOfItsOwn) {
  EXPECT_FALSE(chooseFont({"Liberation Serif", 10}, [](QFontDialog& dialog) { dialog.reject(); }));
}

TEST(ColourDialog, StartsWithItsColourAndGivesTheChosenOne) {
  const Colour start = 16 + 256 * 32 + 65536 * 48;
  for (const bool accepts : {true, false}) {
    QtDialogs dialogs;
    std::optional<Colour> chosen;
    Program::inModal([&] { chosen = dialogs.chooseColour(start); },
                     [&](QWidget& modal) {
                       auto& dialog = dynamic_cast<QColorDialog&>(modal);
                       EXPECT_EQ(dialog.objectName(), "Dialog1");
                       EXPECT_EQ(dialog.currentColor(), QColor(16, 32, 48));
                       dialog.setCurrentColor(QColor(1, 2, 3));
                       accepts ? dialog.accept() : dialog.reject();
                     });
    EXPECT_EQ(chosen, accepts ? std::optional<Colour>(1 + 256 * 2 + 65536 * 3) : std::nullopt);
  }
}

}  // namespace
}  // namespace zevfit::test
