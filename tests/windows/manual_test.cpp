// F1 opens the manual at the section of the window; what is opened is a page of HTML.
#include "windows/manual.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include "tests/support/modal_steps.h"
#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

const QString kDocs = ZEVFIT_SOURCE_DIR "/docs";

QString textOf(const QString& path) {
  return QString::fromStdString(contentOf(path.toStdString()));
}

class ManualTest : public testing::Test {
 protected:
  ManualTest() {
    plots_.program().window().manual().setFolder(kDocs);
    plots_.program().window().manual().setOpener([this](const QString& path) {
      opened_ = path;
      ++openings_;
      return true;
    });
  }

  /// The section that F1 on a control opens.
  QString sectionOf(QWidget& control) {
    opened_.clear();
    QTest::keyClick(&control, Qt::Key_F1);
    if (opened_.isEmpty()) return "none";
    return QRegularExpression("url=manual.html#([a-z0-9-]+)\"").match(textOf(opened_)).captured(1);
  }

  void pressInMain(QKeyCombination keys) {
    plots_.program().window().activateWindow();
    QTest::keyClick(plots_.window(), keys.key(), keys.keyboardModifiers());
    QApplication::processEvents();
  }

  TwoPlots plots_;
  QString opened_;
  int openings_ = 0;
};

TEST(ManualSections, AreHeadingsOfTheManual) {
  QStringList anchors;
  for (const QString& line : textOf(kDocs + "/manual.md").split('\n'))
    if (line.startsWith('#')) anchors << anchorOf(line.section(' ', 1));
  EXPECT_TRUE(anchors.contains("messages"));
  for (const ManualSection& section : manualSections())
    EXPECT_TRUE(anchors.contains(section.anchor)) << section.window << " " << section.anchor;
}

TEST_F(ManualTest, OpensFromTheMainWindowAndFromAPlot) {
  Program& program = plots_.program();
  EXPECT_EQ(sectionOf(program.control("Textc0")), "the-main-window");
  plots_.picture(1).setFocus();
  EXPECT_EQ(sectionOf(plots_.picture(1)), "plots");
}

struct WindowRow {
  const char* window;
  QKeyCombination opens;
  bool modal;
  const char* section;
};

TEST_F(ManualTest, OpensFromOtherWindowsAtTheirSections) {
  const WindowRow rows[] = {
      {"frmzevfit", Qt::CTRL | Qt::Key_D, true, "data-structure"},
      {"modfinal", Qt::CTRL | Qt::Key_R, true, "results-and-the-kriging-file"},
      {"printcolection", Qt::CTRL | Qt::Key_P, false, "reports"},
      {"alldirections", Qt::CTRL | Qt::Key_L, false, "all-directions"},
      {"keyswindow", Qt::CTRL | Qt::Key_F1, false, "keys"},
      {"Formfont", Qt::CTRL | Qt::Key_F, false, "format-and-colours"}};
  for (const WindowRow& row : rows) {
    QString section;
    const auto look = [&] {
      for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == row.window && window->isVisible()) {
          section = sectionOf(window->focusWidget() ? *window->focusWidget() : *window);
          if (row.modal) window->close();
        }
    };
    const auto open = [&] { pressInMain(row.opens); };
    if (row.modal) {
      duringModal(open, [&](QWidget& /*modal*/) { look(); });
    } else {
      open();
      look();
    }
    EXPECT_EQ(section, row.section) << row.window;
  }
}

// The main window has the key as that of a menu's entry, the others by themselves.
TEST_F(ManualTest, OpensOnceWhileTheKeyIsHeld) {
  pressInMain(Qt::CTRL | Qt::Key_F1);
  QWidget& keys = plots_.program().control("keyswindow");
  for (QWidget* window : std::initializer_list<QWidget*>{&plots_.program().window(), &keys}) {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    openings_ = 0;
    for (int i = 0; i < 5; ++i)
      QTest::simulateEvent(window->windowHandle(), true, Qt::Key_F1, {}, {}, i > 0);
    EXPECT_EQ(openings_, 1) << window->objectName().toStdString();
    QTest::simulateEvent(window->windowHandle(), false, Qt::Key_F1, {}, {}, false);
  }
}

TEST_F(ManualTest, OpensFromAMessageAtTheMessages) {
  QMessageBox box(&plots_.program().window());
  QString section;
  QTimer::singleShot(0, &box, [&] {
    section = sectionOf(box);
    box.reject();
  });
  box.exec();
  EXPECT_EQ(section, "messages");
}

TEST_F(ManualTest, ThePageHasItsAnchorsPicturesTablesAndLinks) {
  pressInMain(Qt::Key_F1);
  const QString folder = opened_.section('/', 0, -2);
  const QString page = textOf(folder + "/manual.html");
  for (const ManualSection& section : manualSections())
    EXPECT_TRUE(page.contains(QString("name=\"%1\"").arg(section.anchor))) << section.anchor;
  EXPECT_TRUE(page.contains("name=\"messages\""));
  EXPECT_TRUE(page.contains("Invalid Input Data File Format or empty File!"));
  EXPECT_TRUE(page.contains("<table"));
  EXPECT_TRUE(page.contains("href=\"dragging.html\""));
  EXPECT_TRUE(page.contains("href=\"file-formats.html#the-kriging-parameter-file-zvp\""));
  const QRegularExpression image("<img[^>]*src=\"([^\"]*)\"");
  int pictures = 0;
  for (auto found = image.globalMatch(page); found.hasNext(); ++pictures) {
    const QString path = QUrl(found.next().captured(1)).toLocalFile();
    EXPECT_TRUE(QFile::exists(path)) << path.toStdString();
  }
  EXPECT_GT(pictures, 8);
}

/// What stands between a text and the next quotes, wherever it stands on a page.
QStringList quotedBehind(const QString& beginning, const QString& page) {
  QStringList found;
  const QRegularExpression quoted(beginning + "([^\"]*)\"");
  for (auto at = quoted.globalMatch(page); at.hasNext();) found << at.next().captured(1);
  return found;
}

// From the manual the reader comes to the pages of the command.
TEST_F(ManualTest, EveryLinkAndPictureOfItsPagesIsThere) {
  pressInMain(Qt::Key_F1);
  const QDir folder(opened_.section('/', 0, -2));
  for (const char* page :
       {"manual", "dragging", "file-formats", "zvm", "tutorial", "drill-holes", "large"}) {
    const QString text = textOf(folder.filePath(QString(page) + ".html"));
    for (const QString& link : quotedBehind("href=\"", text)) {
      const QString file = link.section('#', 0, 0);
      const QString target = file.isEmpty() ? text : textOf(folder.filePath(file));
      EXPECT_FALSE(target.isEmpty()) << page << " " << link.toStdString();
      const QString anchor = link.section('#', 1);
      EXPECT_TRUE(anchor.isEmpty() || target.contains("name=\"" + anchor + "\""))
          << page << " " << link.toStdString();
    }
    for (const QString& picture : quotedBehind("<img[^>]*src=\"", text))
      EXPECT_TRUE(QFile::exists(QUrl(picture).toLocalFile())) << page << picture.toStdString();
  }
}

TEST(ManualPage, KeepsLinesAndColumnsOfCode) {
  const QString page = toPage(
      "Type `zvm`:\n\n    $ zvm info <file>\n    title   A\n\n    table\n\nSave this:\n\n"
      "```r f.R\na <- 1\n\n  b\n```\n\n`x`, and no more.\n\n| `c` |\n|---|\n| `d` |\n",
      kDocs);
  EXPECT_TRUE(page.contains("<pre>$ zvm info &lt;file&gt;\ntitle   A\n\ntable</pre>"))
      << page.toStdString();
  EXPECT_TRUE(page.contains("<pre>a &lt;- 1\n\n  b</pre>")) << page.toStdString();
  EXPECT_EQ(page.count("<pre>"), 2);
}

TEST_F(ManualTest, SaysWhereItIsNotThereOrNothingOpensIt) {
  auto& shown = plots_.program().dialogs().shown;
  Manual& manual = plots_.program().window().manual();
  manual.setFolder("/nowhere");
  shown.clear();
  pressInMain(Qt::Key_F1);
  EXPECT_EQ(shown, (std::vector<std::string>{"plain: The manual is not there."}));
  manual.setFolder(kDocs);
  manual.setOpener([](const QString&) { return false; });
  pressInMain(Qt::Key_F1);
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown.back().find("plain: Cannot open the manual: "), 0U);
}

}  // namespace
}  // namespace zevfit::test
