// The menu Tools, the pictures that it saves and the windows that it opens.
#include "windows/tools_menu.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include "tests/support/same_tables.h"
#include "tests/support/two_plots.h"
#include "windows/save_picture.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

bool enabled(Program& program, const char* entry) {
  return program.control<QAction>(entry).isEnabled();
}

TEST(ToolsMenu, StandsBehindTheOthersWithItsKeys) {
  const TemporaryFolder folder;
  Program program(folder.folder());
  const QAction* last = program.window().menuBar()->actions().constLast();
  EXPECT_EQ(last->text(), "&Tools");
  QStringList found;
  for (const QAction* entry : last->menu()->actions())
    found << entry->objectName() + "|" + entry->text() + "|" +
                 entry->shortcut().toString(QKeySequence::PortableText);
  EXPECT_EQ(found, (QStringList{"mnupicture|&Save picture...|Ctrl+E",
                                "mnudirections|All &directions|Ctrl+L",
                                "mnustart|S&tart model|Ctrl+Shift+S", "mnumanual|&Manual|F1",
                                "mnukeys|&Keys|Ctrl+F1"}));
}

TEST(ToolsMenu, EntriesAreOnWhenTheyCanDoSomething) {
  const TemporaryFolder folder;
  Program program(folder.folder());
  EXPECT_FALSE(enabled(program, "mnupicture"));
  EXPECT_FALSE(enabled(program, "mnudirections"));
  EXPECT_FALSE(enabled(program, "mnustart"));
  EXPECT_TRUE(enabled(program, "mnumanual"));
  EXPECT_TRUE(enabled(program, "mnukeys"));
  program.openBytes(kOneDirection);
  EXPECT_TRUE(enabled(program, "mnupicture"));
  EXPECT_TRUE(enabled(program, "mnudirections"));
  EXPECT_TRUE(enabled(program, "mnustart"));
  QMdiSubWindow* plot = program.control<QMdiArea>("Area").activeSubWindow();
  // The button PLOT would draw it anew when it takes the focus back.
  program.control("Combo2").setFocus();
  plot->close();
  QApplication::processEvents();
  EXPECT_FALSE(plot->isVisible());
  EXPECT_FALSE(enabled(program, "mnupicture"));
  EXPECT_TRUE(enabled(program, "mnudirections"));
}

// Entries follow plots alone: whatever else comes and goes in the area does not matter.
TEST(ToolsMenu, TakesNoNoticeOfWhatIsNoPlot) {
  TwoPlots plots;
  auto& entry = plots.program().control<QAction>("mnupicture");
  QWidget other(plots.area().viewport());
  other.show();
  entry.setEnabled(false);
  other.hide();
  EXPECT_FALSE(entry.isEnabled());
  plots.plot(1).close();
  QApplication::processEvents();
  EXPECT_TRUE(entry.isEnabled()) << "the other plot is left";
}

/// What a picture could disturb.
std::string stateOf(Program& program) {
  Session& session = program.session();
  std::string text = dataText(session) + modelTexts(session);
  for (const std::int64_t each : {session.curvar, session.curdir, session.plotvar, session.plotdir})
    text += " " + std::to_string(each);
  for (int i = 1; i <= kCurvePoints; ++i) text += " " + generalText(session.curvegam(i));
  for (const char* field : {"Textc0", "Texta"})
    text += "|" + program.control<QLineEdit>(field).text().toStdString();
  return text;
}

class Pictures : public testing::Test {
 protected:
  /// Saves the active plot under a name; that of the kind counts from SVG.
  std::string save(const char* name, std::size_t kind) {
    const std::string path = (fs::path(plots_.folder()) / name).string();
    plots_.program().dialogs().pictures.push_back({path, kind});
    QTest::keyClick(&plots_.program().window(), Qt::Key_E, Qt::ControlModifier);
    return path;
  }
  std::vector<std::string>& shown() { return plots_.program().dialogs().shown; }
  std::string foot() { return plots_.program().control<QLabel>("LabelHint").text().toStdString(); }
  TwoPlots plots_;
};

TEST_F(Pictures, SvgHasTwipsAndTexts) {
  shown().clear();
  const std::string path = save("plot.svg", 0), svg = contentOf(path);
  const Formod& plot = plots_.plot(1);
  EXPECT_EQ(shown(), (std::vector<std::string>{"save: Save Picture|SVG drawing|zinc_0_0"}));
  EXPECT_EQ(foot(), "The picture is saved as " + path);
  const std::string size = "0 0 " + std::to_string(std::lround(plot.pictureWidth())) + " " +
                           std::to_string(std::lround(plot.pictureHeight()));
  EXPECT_NE(svg.find("viewBox=\"" + size + "\""), std::string::npos);
  EXPECT_NE(svg.find(">Semivariogram (0;0)</text>"), std::string::npos);
  EXPECT_NE(svg.find("font-family=\"Times New Roman\" font-size=\"200\""), std::string::npos);
  EXPECT_NE(svg.find("\u03B3"), std::string::npos) << "the gamma is one";
  EXPECT_EQ(svg.find("<image"), std::string::npos);
}

TEST_F(Pictures, PdfIsOnePageOfTheSizeOfThePlotWithItsTexts) {
  const std::string path = save("plot.pdf", 1);
  QProcess reader;
  reader.start("pdfinfo", {QString::fromStdString(path)});
  ASSERT_TRUE(reader.waitForFinished());
  const QString info = reader.readAllStandardOutput();
  EXPECT_TRUE(info.contains(QRegularExpression("Pages: +1\n"))) << info.toStdString();
  const QRegularExpressionMatch size =
      QRegularExpression("Page size: +([0-9.]+) x ([0-9.]+) pts").match(info);
  EXPECT_NEAR(size.captured(1).toDouble(), plots_.plot(1).pictureWidth() / 20, 0.5);
  EXPECT_NEAR(size.captured(2).toDouble(), plots_.plot(1).pictureHeight() / 20, 0.5);
  reader.start("pdftotext", {QString::fromStdString(path), "-"});
  ASSERT_TRUE(reader.waitForFinished());
  EXPECT_TRUE(reader.readAllStandardOutput().contains("Semivariogram (0;0)"));
}

TEST_F(Pictures, PngHasTheDotsOfItsScale) {
  plots_.session().setCurrent({1, 1});
  plots_.program().window().plotvariogram();
  const QImage screen = plots_.plot(1).clipboardImage();
  for (const auto& [kind, scale] : {std::pair(2, 1), std::pair(3, 2), std::pair(5, 8)}) {
    const QImage image(QString::fromStdString(save("plot.png", static_cast<std::size_t>(kind))));
    EXPECT_EQ(image.size(), screen.size() * scale);
    EXPECT_NEAR(image.dotsPerMeterX(), 3780 * scale, scale);
    if (scale > 1) continue;
    EXPECT_EQ(image.convertToFormat(screen.format()), screen);
  }
}

TEST_F(Pictures, LeaveTheSessionAndThePanelAsTheyAre) {
  Program& program = plots_.program();
  plots_.area().setActiveSubWindow(&plots_.plot(1));
  program.session().setCurrent({1, 2});
  const std::string before = stateOf(program);
  for (const std::size_t kind : {0U, 1U, 2U}) save("plot", kind);
  plots_.keyWithControl(Qt::Key_C);
  EXPECT_EQ(stateOf(program), before);
}

TEST_F(Pictures, CancelAndFailureLeaveNothing) {
  const auto& hint = plots_.program().control<QLabel>("LabelHint");
  QTest::keyClick(&plots_.program().window(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(hint.text(), "");
  shown().clear();
  const std::string path = save("no/such/folder.svg", 0);
  EXPECT_EQ(shown().back(), "plain: Cannot save picture: " + path);
  EXPECT_EQ(hint.text(), "");
}

TEST_F(Pictures, TheDialogOffersTheKindOfTheLastOne) {
  save("plot.png", 3);
  shown().clear();
  save("other.png", 3);
  EXPECT_EQ(shown().front(), "save: Save Picture|PNG picture, 2 times as fine|zinc_0_0");
}

TEST(PictureNames, AreThoseOfVariableAndDirectionAsEveryFileSystemTakesThem) {
  struct Row {
    const char *variable, *direction, *name;
  };
  const std::string longest(80, 'x');
  const std::string most = std::string(60, 'x') + "_0_0";
  const Row rows[] = {{"ln zinc", "45;-30", "ln_zinc_45_-30"},
                      {" lead ", "-45;30", "lead_-45_30"},
                      {"a/b:c*?", "0;0", "a_b_c_0_0"},
                      {"../etc", "90;0", "etc_90_0"},
                      {"\xe9t\xe9", "22.5;0", "\u00e9t\u00e9_22_5_0"},
                      {"", "0;0", "0_0"},
                      {"<>", "|", "plot"},
                      {longest.c_str(), "0;0", most.c_str()}};
  Session session;
  for (const Row& row : rows) {
    session.varname(2) = row.variable;
    session.dirname(3) = row.direction;
    EXPECT_EQ(pictureName(session, {2, 3}).toStdString(), row.name);
  }
}

TEST_F(Pictures, TheClipboardHasADrawingBesideTheBitmap) {
  plots_.keyWithControl(Qt::Key_C);
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(data->hasImage());
  EXPECT_TRUE(data->data("image/svg+xml").contains(">Semivariogram (0;0)</text>"));
}

}  // namespace
}  // namespace zevfit::test
