#include "platform/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "tests/support/scratch_folder.h"

namespace zevfit {
namespace {

/// Runs `call`, which shows a dialog, and `reply` while the dialog is up.
template <class Dialog>
void during(const std::function<void()>& call, const std::function<void(Dialog&)>& reply) {
  bool seen = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    seen = true;
    reply(*dialog);
  });
  call();
  EXPECT_TRUE(seen);
}

/// Asks, looks at the box and answers it by `reply`.
Answer ask(const std::function<void(QMessageBox&)>& reply) {
  Answer answer = Answer::cancel;
  during<QMessageBox>(
      [&] { answer = QtDialogs().question("Save configuration data file to zevFIT.INI ?"); },
      [&](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Save configuration data file to zevFIT.INI ?");
        EXPECT_EQ(box.windowTitle(), "zevRA: Program zevFIT");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        reply(box);
      });
  return answer;
}

void click(QMessageBox& box, QMessageBox::StandardButton button) {
  QTest::mouseClick(box.button(button), Qt::LeftButton);
}

Answer press(QMessageBox::StandardButton button) {
  return ask([&](QMessageBox& box) { click(box, button); });
}

TEST(QtDialogs, QuestionGivesTheButtonPressed) {
  EXPECT_EQ(press(QMessageBox::Yes), Answer::yes);
  EXPECT_EQ(press(QMessageBox::No), Answer::no);
  EXPECT_EQ(press(QMessageBox::Cancel), Answer::cancel);
}

TEST(QtDialogs, QuestionClosedOrEscapedIsACancel) {
  EXPECT_EQ(ask([](QMessageBox& box) { box.close(); }), Answer::cancel);
  EXPECT_EQ(ask([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), Answer::cancel);
}

struct Told {
  const char* what;
  void (QtDialogs::*tell)(std::string_view);
  const char* title;
  QMessageBox::Icon icon;
  const char* text;
};

const Told kTold[] = {
    {"plain", &QtDialogs::plain, "", QMessageBox::NoIcon, "Text"},
    {"warning", &QtDialogs::warning, "zevRA : Program zevFIT", QMessageBox::Warning, "Text"},
    {"fatal", &QtDialogs::fatal, "zevRA : Program zevFIT", QMessageBox::Critical,
     "The program has met a fault and must end: Text"},
};

TEST(QtDialogs, BoxesThatTellHaveTheirTitleIconAndOneButton) {
  for (const Told& told : kTold) {
    QtDialogs dialogs;
    during<QMessageBox>([&] { (dialogs.*told.tell)("Text"); },
                        [&](QMessageBox& box) {
                          EXPECT_EQ(box.windowTitle(), told.title) << told.what;
                          EXPECT_EQ(box.icon(), told.icon) << told.what;
                          EXPECT_EQ(box.text(), told.text) << told.what;
                          EXPECT_EQ(box.standardButtons(), QMessageBox::Ok) << told.what;
                          click(box, QMessageBox::Ok);
                        });
  }
}

// The title of a short text: its letters in bold, and 160 pixels for an icon and buttons.
TEST(QtDialogs, ABoxIsAsWideAsItsTitle) {
  QFont bold = QApplication::font("QMdiSubWindowTitleBar");
  bold.setBold(true);
  during<QMessageBox>([] { QtDialogs().warning("No"); },
                      [&](QMessageBox& box) {
                        EXPECT_GE(
                            box.width(),
                            QFontMetrics(bold).horizontalAdvance("zevRA : Program zevFIT") + 160);
                        click(box, QMessageBox::Ok);
                      });
}

bool confirmed(const std::function<void(QMessageBox&)>& reply) {
  bool answer = false;
  during<QMessageBox>([&] { answer = QtDialogs().confirm("Go on?"); },
                      [&](QMessageBox& box) {
                        EXPECT_EQ(box.windowTitle(), "zevRA: Program zevFIT");
                        EXPECT_EQ(box.icon(), QMessageBox::Question);
                        EXPECT_EQ(box.text(), "Go on?");
                        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                        reply(box);
                      });
  return answer;
}

TEST(QtDialogs, OnlyOkConfirms) {
  EXPECT_TRUE(confirmed([](QMessageBox& box) { click(box, QMessageBox::Ok); }));
  EXPECT_FALSE(confirmed([](QMessageBox& box) { click(box, QMessageBox::Cancel); }));
  EXPECT_FALSE(confirmed([](QMessageBox& box) { box.close(); }));
}

struct Shown {
  const char* what;
  const char* bytes;
  QString text;
};

const Shown kShown[] = {
    {"UTF-8", "caf\xc3\xa9", QString("caf") + QChar(0xE9)},
    {"Latin-1", "caf\xe9", QString("caf") + QChar(0xE9)},
    {"marks of rich text", "<b>zinc</b>", "<b>zinc</b>"},
};

TEST(QtDialogs, ShowsUtf8AndLatin1AsPlainText) {
  for (const Shown& shown : kShown) {
    during<QMessageBox>([&] { QtDialogs().warning(shown.bytes); },
                        [&](QMessageBox& box) {
                          EXPECT_EQ(box.text(), shown.text) << shown.what;
                          EXPECT_EQ(box.textFormat(), Qt::PlainText) << shown.what;
                          box.close();
                        });
  }
}

std::optional<std::string> openFile(QtDialogs& dialogs,
                                    const std::function<void(QFileDialog&)>& reply) {
  std::optional<std::string> path;
  during<QFileDialog>([&] { path = dialogs.openFile("Input Data File (*.ZVM)", "*.ZVM"); }, reply);
  return path;
}

/// Types a name into the file dialog.
void typeName(QFileDialog& dialog, const QString& name) {
  auto* field = dialog.findChild<QLineEdit*>("fileNameEdit");
  dialog.activateWindow();
  field->setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return field->hasFocus(); }));
  field->setText(name);
}

/// Types a name into the file dialog and presses its button.
void choose(QFileDialog& dialog, const QString& name) {
  typeName(dialog, name);
  static_cast<QDialog&>(dialog).accept();
}

TEST(QtDialogs, TheFileDialogAsksForAnExistingVariogramFile) {
  QtDialogs dialogs;
  EXPECT_EQ(openFile(dialogs,
                     [](QFileDialog& dialog) {
                       EXPECT_EQ(dialog.objectName(), "Dialog1");
                       EXPECT_EQ(dialog.windowTitle(), "Input Data File (*.ZVM)");
                       EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.ZVM)"});
                       EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
                       EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
                       EXPECT_EQ(dialog.defaultSuffix(), "zvm");
                       dialog.reject();
                     }),
            std::nullopt);
  EXPECT_EQ(dialogs.heldFile(), "");
}

TEST(QtDialogs, TheFileDialogStartsWhereItWasAndCompletesAName) {
  const test::ScratchFolder folder;
  test::putFile(folder / "one.zvm", "1");
  test::putFile(folder / "two.zvm", "2");
  QtDialogs dialogs;
  dialogs.holdFile((folder / "one.zvm").string());
  const auto path = openFile(dialogs, [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path().toStdString(), folder.path().string());
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "one.zvm");
    choose(dialog, "two");
  });
  EXPECT_EQ(path, (folder / "two.zvm").string());
  EXPECT_EQ(dialogs.heldFile(), (folder / "two.zvm").string());
}

TEST(QtDialogs, TheFileDialogTakesANameWithoutAnEndingAsItIs) {
  const test::ScratchFolder folder;
  test::putFile(folder / "noZVM", "1");
  QtDialogs dialogs;
  dialogs.holdFile((folder / "other.zvm").string());
  const auto path = openFile(dialogs, [](QFileDialog& dialog) { choose(dialog, "noZVM"); });
  EXPECT_EQ(path, (folder / "noZVM").string());
}

std::optional<std::string> saveFile(QtDialogs& dialogs,
                                    const std::function<void(QFileDialog&)>& reply) {
  std::optional<std::string> path;
  during<QFileDialog>([&] { path = dialogs.saveFile("Save Output File (*.ZVP)", "*.ZVP"); }, reply);
  return path;
}

TEST(QtDialogs, TheSaveDialogAsksForAKrigingFile) {
  QtDialogs dialogs;
  EXPECT_EQ(saveFile(dialogs,
                     [](QFileDialog& dialog) {
                       EXPECT_EQ(dialog.objectName(), "Dialog2");
                       EXPECT_EQ(dialog.windowTitle(), "Save Output File (*.ZVP)");
                       EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.ZVP)"});
                       EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
                       EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
                       EXPECT_EQ(dialog.defaultSuffix(), "ZVP");
                       dialog.reject();
                     }),
            std::nullopt);
}

TEST(QtDialogs, TheSaveDialogStartsBesideTheFileReadAndThenWhereItWas) {
  const test::ScratchFolder folder;
  std::filesystem::create_directory(folder / "in");
  std::filesystem::create_directory(folder / "out");
  QtDialogs dialogs;
  dialogs.holdFile((folder / "in/one.zvm").string());
  const std::string target = (folder / "out/model").string();
  const auto path = saveFile(dialogs, [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path().toStdString(), (folder / "in").string());
    choose(dialog, QString::fromStdString(target));
  });
  EXPECT_EQ(path, target + ".ZVP") << "a name gets its ending";
  EXPECT_EQ(dialogs.heldFile(), (folder / "in/one.zvm").string()) << "the other dialog's own";
  saveFile(dialogs, [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path().toStdString(), (folder / "out").string());
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "model.ZVP");
    dialog.reject();
  });
}

TEST(QtDialogs, TheSaveDialogAsksBeforeAFileIsReplaced) {
  const test::ScratchFolder folder;
  test::putFile(folder / "old.ZVP", "old");
  QtDialogs dialogs;
  int asked = 0;
  const auto path = saveFile(dialogs, [&](QFileDialog& dialog) {
    for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
      typeName(dialog, QString::fromStdString((folder / "old.ZVP").string()));
      during<QMessageBox>([&] { static_cast<QDialog&>(dialog).accept(); },
                          [&](QMessageBox& box) {
                            ++asked;
                            click(box, button);
                          });
      EXPECT_EQ(dialog.isVisible(), button == QMessageBox::No);
    }
  });
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(path, (folder / "old.ZVP").string());
}

TEST(QtDialogs, HoldsTheFileNameThatTheFileDialogStartsWith) {
  QtDialogs dialogs;
  EXPECT_EQ(dialogs.heldFile(), "");
  dialogs.holdFile("/data/caf\xc3\xa9.zvm");
  EXPECT_EQ(dialogs.heldFile(), "/data/caf\xc3\xa9.zvm");
}

TEST(QtDialogs, APathKeepsBytesThatAreNoText) {
  QtDialogs dialogs;
  for (const char* path : {"/data/S\xE3o/\xFF.zvm", "/data/S\xC3\xA3o.zvm", ""}) {
    dialogs.holdFile(path);
    EXPECT_EQ(dialogs.heldFile(), path);
    during<QFileDialog>([&] { EXPECT_FALSE(dialogs.openFile("Open", "*.ZVM")); },
                        [](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.heldFile(), path) << "a Cancel keeps it";
  }
}

constexpr FileKind kKinds[] = {{"Drawing", "svg"}, {"Picture", "png"}, {"Finer picture", "png"}};

struct KindRow {
  const char* what;
  const char* typed;
  int chosen;  ///< entry of the list of kinds; below 0: as it stands
  const char* path;
  std::size_t kind;
};

TEST(QtDialogs, SaveAsTakesTheKindOfTheListOrOfTheName) {
  const KindRow rows[] = {{"as it stands", "sketch", -1, "sketch.png", 1},
                          {"another", "sketch", 0, "sketch.svg", 0},
                          {"the proposed name", "", -1, "zinc_0_0.png", 1},
                          {"the same as another kind", "", 0, "zinc_0_0.svg", 0},
                          {"the last", "sketch", 2, "sketch.png", 2},
                          {"by its name", "sketch.svg", 2, "sketch.svg", 0},
                          {"of the same ending", "sketch.PNG", 2, "sketch.PNG", 2},
                          {"an ending of no kind", "sketch.v2", 0, "sketch.v2", 0}};
  for (const KindRow& row : rows) {
    const test::ScratchFolder folder;
    QtDialogs dialogs;
    std::optional<ChosenFile> file;
    during<QFileDialog>(
        [&] { file = dialogs.saveFileAs("Save Picture", kKinds, 1, "zinc_0_0"); },
        [&](QFileDialog& dialog) {
          EXPECT_EQ(dialog.windowTitle(), "Save Picture");
          EXPECT_EQ(dialog.nameFilters(),
                    (QStringList{"Drawing (*.svg)", "Picture (*.png)", "Finer picture (*.png)"}));
          auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
          EXPECT_EQ(name->text(), "zinc_0_0.png");
          dialog.setDirectory(QString::fromStdString((folder / "").string()));
          auto* kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
          if (row.chosen >= 0) {
            kinds->setCurrentIndex(row.chosen);
            Q_EMIT kinds->activated(row.chosen);
            Q_EMIT kinds->textActivated(kinds->currentText());
          }
          if (*row.typed != 0) name->setText(row.typed);
          QTest::keyClick(name, Qt::Key_Return);
        });
    ASSERT_TRUE(file) << row.what;
    EXPECT_EQ(file->path, (folder / row.path).string()) << row.what;
    EXPECT_EQ(file->kind, row.kind) << row.what;
  }
}

TEST(QtDialogs, SaveAsAsksAboutAFileThatIsThere) {
  const test::ScratchFolder folder;
  test::putFile(folder / "sketch.svg", "old");
  QtDialogs dialogs;
  std::optional<ChosenFile> file;
  bool asked = false;
  during<QFileDialog>([&] { file = dialogs.saveFileAs("Save Picture", kKinds, 0, ""); },
                      [&](QFileDialog& dialog) {
                        dialog.setDirectory(QString::fromStdString((folder / "").string()));
                        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("sketch");
                        QTimer::singleShot(0, &dialog, [&] {
                          auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                          asked = box != nullptr;
                          if (box) click(*box, QMessageBox::No);
                          dialog.reject();
                        });
                        QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"),
                                        Qt::Key_Return);
                      });
  EXPECT_TRUE(asked);
  EXPECT_FALSE(file);
}

}  // namespace
}  // namespace zevfit
