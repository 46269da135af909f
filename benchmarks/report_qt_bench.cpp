// A report sheet of 21 plots, drawn into a printer in memory (at most 50 ms) and into a PDF file,
// beside QCustomPlot saving 21 such plots as PDF (at most 0.5 of its time).
#include "benchmarks/sample_plot.h"

#include <QPrinter>

#include "platform/qt_printer.h"
#include "tests/support/full_report.h"

namespace {

using zevfit::bench::kClasses;
using zevfit::bench::writeFile;
/// 21 plots, each of 100 pieces of curve and about 70 other operations.
constexpr std::size_t kLeastOperations = 3150;
namespace test = zevfit::test;

/// The program with the sample plot in each cell of a report of three columns.
class Report {
 public:
  explicit Report(zevfit::Printer* printer = nullptr)
      : program_(folder_.path().toStdString(), printer) {
    program_.open(writeFile(folder_, 1, 1, kClasses));
    QWidget& reports = test::openReports(program_);
    test::giveColumns(reports, test::kReportColumns);
    for (int row = 1; row <= test::kReportRows; ++row)
      for (int column = 1; column <= test::kReportColumns; ++column)
        test::pressPage(reports, 0, test::middleOfThird(row, column));
  }

  void print() { program_.control<QAbstractButton>("printar").click(); }
  /// What the printer in memory has, of which it is then rid.
  std::size_t takeOperations() {
    return std::exchange(program_.printer().surface.operations, {}).size();
  }
  bool complained() { return program_.dialogs().shown.size() > 1; }

 private:
  QTemporaryDir folder_;
  test::Program program_;
};

void BM_SheetIntoMemory(benchmark::State& state) {
  Report report;
  std::size_t operations = 0;
  for (auto _ : state) {
    report.print();
    operations = report.takeOperations();
  }
  if (operations < kLeastOperations) state.SkipWithError("plots are missing");
}
BENCHMARK(BM_SheetIntoMemory)->Unit(benchmark::kMillisecond);

void BM_SheetIntoPdf(benchmark::State& state) {
  const QTemporaryDir folder;
  zevfit::QtPrinter printer([&](QPrinter& chosen) {
    chosen.setOutputFileName(folder.filePath("sheet.pdf"));
    return true;
  });
  Report report(&printer);
  for (auto _ : state) report.print();
  if (report.complained()) state.SkipWithError("not printed");
}
BENCHMARK(BM_SheetIntoPdf)->Unit(benchmark::kMillisecond);

/// The yardstick: the library's own files.
void BM_QCustomPlotSaves21Pdfs(benchmark::State& state) {
  const QTemporaryDir folder;
  QCustomPlot plot;
  zevfit::bench::setUp(plot);
  bool saved = true;
  for (auto _ : state)
    for (int i = 0; i < 21; ++i)
      saved = plot.savePdf(folder.filePath(QString("plot%1.pdf").arg(i))) && saved;
  if (!saved) state.SkipWithError("not saved");
}
BENCHMARK(BM_QCustomPlotSaves21Pdfs)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return zevfit::bench::run(argc, argv); }
