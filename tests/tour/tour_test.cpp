// Plays the tour once and looks at what it leaves. The kept files are worked out in kept/README.md.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <set>

#include "tests/support/scratch_folder.h"
#include "tests/tour/tour.h"

namespace zevfit::tour {
namespace {

namespace fs = std::filesystem;
using test::contentOf;

/// The windows, and steps within them.
const char* const kPictures[] = {
    "mdimod-start",   "formabout",    "frmzevfit",     "frmzevfit-look",  "frmzevfit-sum",
    "mdimod-opened",  "Formod",       "mdimod",        "mdimod-cascade",  "mdimod-slider",
    "Formod-handles", "Formod-range", "Formod-sill",   "testcruz-failed", "testcruz",
    "Frame2",         "cores",        "Formfont",      "cutgraph",        "legenda",
    "Formod-sum",     "modfinal",     "printcolection"};

class TourTest : public testing::Test {
 protected:
  static fs::path folder() {
    return fs::absolute(QApplication::arguments().at(1).toStdString()).lexically_normal();
  }

  /// The folder as it was before any tour, with a new copy of the example.
  static void SetUpTestSuite() {
    fs::create_directories(folder());
    for (const char* name : {kModelFile, kKrigingFile, kReportFile, kParameterFile})
      fs::remove(folder() / name);
    for (const char* name : kPictures) fs::remove(picture(name));
    fs::copy_file(ZEVFIT_SOURCE_DIR "/examples/meuse.zvm", folder() / kModelFile);
    Tour(folder()).play();
  }

  static fs::path picture(const std::string& name) { return folder() / (name + ".png"); }
  static std::string left(const char* name) { return contentOf(folder() / name); }
  static std::string kept(const char* name) {
    return contentOf(fs::path(ZEVFIT_SOURCE_DIR "/tests/tour/kept") / name);
  }
};

/// The first line in which two files differ, as they have it; nothing for equal ones.
std::string firstDifference(const std::string& is, const std::string& wanted) {
  if (is == wanted) return {};
  const auto at =
      std::mismatch(is.begin(), is.end(), wanted.begin(), wanted.end()).first - is.begin();
  const std::size_t line = is.substr(0, static_cast<std::size_t>(at)).rfind('\n') + 1;
  return "is '" + is.substr(line, 60) + "', wanted '" + wanted.substr(line, 60) + "'";
}

TEST_F(TourTest, LeavesTheModels) {
  EXPECT_EQ(firstDifference(left(kModelFile), kept("meuse.zvm")), "");
}

TEST_F(TourTest, LeavesTheKrigingFile) { EXPECT_EQ(left(kKrigingFile), kept("meuse.ZVP")); }

// Its first line is the path of the file, which is another one on each machine.
TEST_F(TourTest, LeavesTheParameters) {
  EXPECT_EQ(left(kParameterFile), (folder() / kModelFile).string() + "\r\n" + kept("zevfit.ini"));
}

/// The output of a tool; a test without it fails.
QString outputOf(const QString& tool, const QStringList& arguments) {
  QProcess process;
  process.start(tool, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0)
    ADD_FAILURE() << tool.toStdString() << ": " << process.errorString().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

/// One a line; where they stand on the sheet depends on the fonts.
std::string sortedWords(const QString& text) {
  QStringList words = text.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
  words.sort();
  return (words.join('\n') + '\n').toStdString();
}

TEST_F(TourTest, LeavesTheReportOnOneSheet) {
  const QString file = QString::fromStdString((folder() / kReportFile).string());
  EXPECT_TRUE(outputOf("pdfinfo", {file}).contains(QRegularExpression("Pages: +1\n")));
  EXPECT_EQ(sortedWords(outputOf("pdftotext", {file, "-"})), kept("report.txt"));
}

/// More colours than an empty window has.
bool isDrawn(const QImage& image) {
  std::set<QRgb> colours;
  for (int y = 0; y < image.height() && colours.size() < 10; ++y)
    for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
  return colours.size() >= 10;
}

TEST_F(TourTest, LeavesAPictureOfEachWindow) {
  for (const char* name : kPictures)
    EXPECT_TRUE(isDrawn(QImage(QString::fromStdString(picture(name).string())))) << name;
}

}  // namespace
}  // namespace zevfit::tour
