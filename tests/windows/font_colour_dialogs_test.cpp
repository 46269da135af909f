// The dialogs of the desktop for a font and for a colour.
#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QValidator>
#include <functional>

#include "platform/font_dialog.h"
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

/// The list that has the installed faces, with the one that is shown.
QListView& faceList(QWidget& dialog) {
  for (auto* list : dialog.findChildren<QListView*>())
    if (list->model()->rowCount() >= QFontDatabase::families().size()) return *list;
  throw std::runtime_error("no list of faces");
}

QString shownFace(QWidget& dialog) { return faceList(dialog).currentIndex().data().toString(); }

void chooseFace(QWidget& dialog, const QString& face) {
  QListView& list = faceList(dialog);
  const QModelIndexList found =
      list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, face, 1, Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1) << face.toStdString();
  list.setCurrentIndex(found.constFirst());
}

/// Chooses a size of the list of sizes.
void chooseSize(QWidget& dialog, const QString& size) {
  for (auto* list : dialog.findChildren<QListView*>()) {
    const auto found = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, size, 1);
    if (list != &faceList(dialog) && !found.isEmpty()) list->setCurrentIndex(found.constFirst());
  }
}

const char* const kMissing = "No Face Of This Name";

TEST(FontDialog, StartsWithAFaceThatIsNotInstalled) {
  for (const float size : {7.8F, 10.0F}) {
    const auto font = chooseFont({kMissing, size}, [&](QFontDialog& dialog) {
      EXPECT_EQ(shownFace(dialog), kMissing);
      EXPECT_EQ(sizeField(dialog).text().toFloat(), size);
      const auto& sample = Program::find<QLineEdit>(dialog, "qt_fontDialog_sampleEdit");
      EXPECT_EQ(sample.font().families(), (QStringList{kMissing, "Liberation Serif"}));
      EXPECT_NEAR(sample.font().pointSizeF(), size, 1e-5);
      dialog.accept();
    });
    ASSERT_TRUE(font) << size;
    EXPECT_EQ(font->name, kMissing);
    EXPECT_EQ(font->size, size);
  }
}

TEST(FontDialog, SizesThatItCannotShowStayWhereNothingIsChanged) {
  for (const float size : {0.5F, 7.8125F, 600.0F, 0.0F}) {
    const auto font =
        chooseFont({"Liberation Serif", size}, [](QFontDialog& dialog) { dialog.accept(); });
    ASSERT_TRUE(font) << size;
    EXPECT_EQ(font->name, "Liberation Serif");
    EXPECT_EQ(font->size, size);
  }
}

TEST(FontDialog, ANameKeepsItsBytes) {
  const std::string latin = "Caf\xE9", utf8 = "Caf\xC3\xA9";
  for (const std::string& name : {latin, utf8}) {
    const auto font = chooseFont({name, 9}, [](QFontDialog& dialog) { dialog.accept(); });
    ASSERT_TRUE(font);
    EXPECT_EQ(font->name, name);
  }
}

TEST(FontDialog, ASizeAloneNeverChangesTheFace) {
  for (const char* face : {kMissing, "Liberation Serif"}) {
    const auto typed = chooseFont({face, 10}, [](QFontDialog& dialog) {
      sizeField(dialog).selectAll();
      QTest::keyClicks(&sizeField(dialog), "8.5");
      dialog.accept();
    });
    ASSERT_TRUE(typed) << face;
    EXPECT_EQ(typed->name, face);
    EXPECT_EQ(typed->size, 8.5F);
    const auto listed = chooseFont({face, 10}, [](QFontDialog& dialog) {
      chooseSize(dialog, "14");
      EXPECT_EQ(sizeField(dialog).text(), "14");
      dialog.accept();
    });
    ASSERT_TRUE(listed) << face;
    EXPECT_EQ(listed->name, face);
    EXPECT_EQ(listed->size, 14);
  }
}

TEST(FontDialog, AFaceAloneNeverChangesTheSize) {
  const auto there = chooseFont({kMissing, 7.8F}, [](QFontDialog& dialog) {
    chooseFace(dialog, "Liberation Sans");
    EXPECT_EQ(sizeField(dialog).text(), "7.8");
    dialog.accept();
  });
  ASSERT_TRUE(there);
  EXPECT_EQ(there->name, "Liberation Sans");
  EXPECT_EQ(there->size, 7.8F);
  const auto back = chooseFont({kMissing, 7.8F}, [](QFontDialog& dialog) {
    chooseFace(dialog, "Liberation Sans");
    chooseFace(dialog, kMissing);
    EXPECT_EQ(sizeField(dialog).text(), "7.8");
    dialog.accept();
  });
  ASSERT_TRUE(back);
  EXPECT_EQ(back->name, kMissing);
  EXPECT_EQ(back->size, 7.8F);
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

// Where Qt's dialog has other lists and fields than those that are known, a size once brought the
// first face of the list with it.
TEST(FontDialog, KeepsWhatIsNotChangedAlsoWithoutTheControlsItKnows) {
  struct Row {
    const char* face;
    float size;
    std::function<void(FontDialog&)> steps;
    FontChoice chosen;
  };
  const auto nothing = [](FontDialog&) {};
  const auto size14 = [](FontDialog& dialog) { chooseSize(dialog, "14"); };
  const auto sans = [](FontDialog& dialog) { chooseFace(dialog, "Liberation Sans"); };
  const Row rows[] = {{kMissing, 7.8F, nothing, {kMissing, 7.8F}},
                      {kMissing, 7.8F, size14, {kMissing, 14}},
                      {kMissing, 7.8F, sans, {"Liberation Sans", 7.8F}},
                      {"Liberation Serif", 7.8F, nothing, {"Liberation Serif", 7.8F}},
                      {"Liberation Serif", 10, size14, {"Liberation Serif", 14}},
                      {"Liberation Serif", 10, sans, {"Liberation Sans", 10}}};
  for (const Row& row : rows) {
    FontDialog dialog({row.face, row.size}, row.face, nullptr, FontDialog::Controls::none);
    dialog.show();
    row.steps(dialog);
    dialog.accept();
    EXPECT_EQ(dialog.choice().name, row.chosen.name) << row.face << " " << row.chosen.size;
    EXPECT_EQ(dialog.choice().size, row.chosen.size) << row.face << " " << row.chosen.name;
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
