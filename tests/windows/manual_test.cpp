// F1 opens the manual at the section of the window; what is opened is a page of HTML.
#include "windows/manual.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

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

  TwoPlots plots_;
  QString opened_;
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
  const char* action;
  bool modal;
  const char* section;
};

TEST_F(ManualTest, OpensFromOtherWindowsAtTheirSections) {
  const WindowRow rows[] = {{"frmzevfit", "k2", true, "data-structure"},
                            {"modfinal", "k3", true, "results-and-the-kriging-file"},
                            {"printcolection", "kp", false, "reports"},
                            {"alldirections", "mnudirections", false, "all-directions"},
                            {"keyswindow", "mnukeys", false, "keys"},
                            {"Formfont", "k10", false, "format-and-colours"}};
  for (const WindowRow& row : rows) {
    QString section;
    const auto look = [&] {
      for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == row.window && window->isVisible()) {
          section = sectionOf(window->focusWidget() ? *window->focusWidget() : *window);
          if (row.modal) window->close();
        }
    };
    if (row.modal) QTimer::singleShot(0, look);
    plots_.program().trigger(row.action);
    QApplication::processEvents();
    if (!row.modal) look();
    EXPECT_EQ(section, row.section) << row.window;
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
  plots_.program().trigger("mnumanual");
  const QString folder = opened_.section('/', 0, -2);
  const QString page = textOf(folder + "/manual.html");
  for (const ManualSection& section : manualSections())
    EXPECT_TRUE(page.contains(QString("name=\"%1\"").arg(section.anchor))) << section.anchor;
  EXPECT_TRUE(page.contains("name=\"messages\""));
  EXPECT_TRUE(page.contains("Invalid Input Data File Format or empty File!"));
  EXPECT_TRUE(page.contains("<table"));
  EXPECT_TRUE(page.contains("href=\"dragging.html\""));
  EXPECT_TRUE(page.contains("href=\"file-formats.html#the-kriging-parameter-file-zvp\""));
  EXPECT_TRUE(QFile::exists(folder + "/dragging.html"));
  EXPECT_TRUE(QFile::exists(folder + "/file-formats.html"));
  const QRegularExpression image("<img[^>]*src=\"([^\"]*)\"");
  int pictures = 0;
  for (auto found = image.globalMatch(page); found.hasNext(); ++pictures) {
    const QString path = QUrl(found.next().captured(1)).toLocalFile();
    EXPECT_TRUE(QFile::exists(path)) << path.toStdString();
  }
  EXPECT_GT(pictures, 8);
}

TEST_F(ManualTest, SaysWhereItIsNotThereOrNothingOpensIt) {
  auto& shown = plots_.program().dialogs().shown;
  Manual& manual = plots_.program().window().manual();
  manual.setFolder("/nowhere");
  shown.clear();
  plots_.program().trigger("mnumanual");
  EXPECT_EQ(shown, (std::vector<std::string>{"plain: The manual is not there."}));
  manual.setFolder(kDocs);
  manual.setOpener([](const QString&) { return false; });
  plots_.program().trigger("mnumanual");
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown.back().find("plain: Cannot open the manual: "), 0U);
}

}  // namespace
}  // namespace zevfit::test
