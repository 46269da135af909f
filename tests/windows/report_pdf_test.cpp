// A full report as PDF, looked at with the tools of Poppler.

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QImage>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "platform/qt_printer.h"
#include "tests/support/full_report.h"

namespace zevfit::test {
namespace {

constexpr int kPlots = kReportRows * kReportColumns;
constexpr qint64 kLargestFile = 300000;

/// The output of a tool; a test without it fails.
QString outputOf(const QString& tool, const QStringList& arguments) {
  QProcess process;
  process.start(tool, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0)
    ADD_FAILURE() << tool.toStdString()
                  << " did not run: " << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

/// The report of the example file with three columns and seven rows, printed.
class FullReport : public testing::Test {
 protected:
  FullReport() {
    QtPrinter printer([this](QPrinter& chosen) {
      chosen.setOutputFileName(path());
      // What the user picks in the dialog does not count.
      chosen.setPageOrientation(QPageLayout::Landscape);
      chosen.setPageSize(QPageSize(QPageSize::A5));
      return true;
    });
    Program program(folder_.path().toStdString(), &printer);
    const QString input = folder_.filePath("meuse.zvm");
    QFile::copy(ZEVFIT_SOURCE_DIR "/examples/meuse.zvm", input);
    program.open(input.toStdString());
    composeFullReport(program);
    program.control<QAbstractButton>("printar").click();
    messages_ = program.dialogs().shown;
  }

  QString path() const { return folder_.filePath("report.pdf"); }
  QString text() const { return outputOf("pdftotext", {"-layout", path(), "-"}); }

  QTemporaryDir folder_;
  std::vector<std::string> messages_;
};

TEST_F(FullReport, IsOneA4PageUpright) {
  EXPECT_EQ(messages_, std::vector<std::string>{"open: Input Data File (*.ZVM)|*.ZVM"});
  const QString info = outputOf("pdfinfo", {path()});
  EXPECT_TRUE(info.contains(QRegularExpression("Pages: +1\n"))) << info.toStdString();
  EXPECT_TRUE(info.contains(QRegularExpression("Page size: +59[45]\\S* x 84[12]\\S* pts \\(A4\\)")))
      << info.toStdString();
}

TEST_F(FullReport, IsASmallFile) { EXPECT_LT(QFileInfo(path()).size(), kLargestFile); }

TEST_F(FullReport, HasAllItsTexts) {
  const QString found = text();
  struct {
    const char* text;
    qsizetype times;
  } const rows[] = {{"Semivariogram (", kPlots},
                    {"Semivariogram (0;0)", kReportRows},
                    {"Semivariogram (45;0)", kReportRows},
                    {"Semivariogram (90;0)", kReportRows},
                    {"Data", kPlots},
                    {"Model", kPlots},
                    {"Sill", kPlots},
                    {"h( )", kPlots},
                    {"ln zinc", kReportColumns},
                    {"ln lead", kReportColumns},
                    {"ln copper", kReportColumns},
                    {"ln cadmium", kReportColumns},
                    {"zinc-lead", kReportColumns},
                    {"zinc-copp", kReportColumns},
                    {"lead-copp", kReportColumns}};
  for (const auto& row : rows) EXPECT_EQ(found.count(row.text), row.times) << row.text;
  EXPECT_GE(found.count(QChar(0x3B3)), kPlots);
}

TEST_F(FullReport, HasItsFontsInIt) {
  const QStringList lines = outputOf("pdffonts", {path()}).split('\n', Qt::SkipEmptyParts);
  ASSERT_GT(lines.size(), 2);
  // Name, type (of one or two words), encoding, emb, sub, uni, object.
  const QRegularExpression embedded(" yes +(yes|no) +yes +\\d+ +\\d+$");
  for (const QString& font : lines.mid(2))
    EXPECT_TRUE(font.contains(embedded)) << font.toStdString();
}

TEST_F(FullReport, HasNoBitmap) {
  EXPECT_EQ(outputOf("pdfimages", {"-list", path()}).split('\n', Qt::SkipEmptyParts).size(), 2);
}

// At 100 dots to the inch a sheet is 827 by 1169; a unit of it is 0.06944 dots.
TEST_F(FullReport, ShowsPointsAndCurvesInEachPlot) {
  const QString image = folder_.filePath("page");
  outputOf("pdftoppm", {"-r", "100", "-png", "-singlefile", path(), image});
  const QImage page(image + ".png");
  ASSERT_NEAR(page.width(), 827, 1);
  ASSERT_NEAR(page.height(), 1169, 1);
  const double dots = 827 / 11907.0;
  for (int column = 1; column <= kReportColumns; ++column)
    for (int row = 1; row <= kReportRows; ++row) {
      int red = 0, green = 0, blue = 0;
      const QRectF part(((column - 1) * 3572.1 + 100) * dots, (row - 1) * 2054.47 * dots,
                        3572.1 * dots, 2054.47 * dots);
      for (int y = static_cast<int>(part.top()); y < static_cast<int>(part.bottom()); ++y)
        for (int x = static_cast<int>(part.left()); x < static_cast<int>(part.right()); ++x) {
          const QColor colour = page.pixelColor(x, y);
          red += colour.red() > 200 && colour.blue() < 90 && colour.green() < 90 ? 1 : 0;
          green += colour.green() > 90 && colour.red() < 90 && colour.blue() < 90 ? 1 : 0;
          blue += colour.blue() > 200 && colour.red() < 90 && colour.green() < 90 ? 1 : 0;
        }
      EXPECT_GT(red, 50) << row << " " << column;
      EXPECT_GT(green, 50) << row << " " << column;
      EXPECT_GT(blue, 50) << row << " " << column;
    }
}

}  // namespace
}  // namespace zevfit::test
