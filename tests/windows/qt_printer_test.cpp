#include "platform/qt_printer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QApplication>
#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTimer>
#include <csignal>

#include "session/fault.h"

namespace zevfit::test {
namespace {

class QtPrinterTest : public testing::Test {
 protected:
  QtPrinter::Choice toFile(const QString& path) {
    return [path](QPrinter& printer) {
      printer.setOutputFileName(path);
      return true;
    };
  }
  QString path(const char* name) { return folder_.filePath(name); }
  static bool isPdf(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) && file.readAll().startsWith("%PDF");
  }

  QTemporaryDir folder_;
};

TEST_F(QtPrinterTest, PrintsIntoAFile) {
  QtPrinter printer(toFile(path("sheet.pdf")));
  printer.showPrinter();
  printer.startDoc(11907, 16839.9);
  printer.sheet().text(1000, 1000, "Data", {kPlotFont, 10, true}, kBlack);
  printer.endDoc();
  EXPECT_TRUE(isPdf(path("sheet.pdf")));
  EXPECT_EQ(printer.destination(), "the file " + path("sheet.pdf").toStdString());
  EXPECT_THROW(printer.sheet(), Fault);
  EXPECT_NO_THROW(printer.endDoc());
}

TEST_F(QtPrinterTest, PrintsOneSheetAfterTheOther) {
  QStringList files{path("one.pdf"), path("two.pdf")};
  QtPrinter printer([&](QPrinter& chosen) {
    chosen.setOutputFileName(files.takeFirst());
    return true;
  });
  for (int i = 0; i < 2; ++i) {
    printer.showPrinter();
    printer.startDoc(11907, 16839.9);
    printer.endDoc();
  }
  EXPECT_TRUE(isPdf(path("one.pdf")));
  EXPECT_TRUE(isPdf(path("two.pdf")));
}

TEST_F(QtPrinterTest, CancelIsAFault) {
  QtPrinter printer([](QPrinter&) { return false; });
  EXPECT_THROW(printer.showPrinter(), Fault);
}

TEST_F(QtPrinterTest, NoDocumentWithoutAChoice) {
  QtPrinter printer(toFile(path("sheet.pdf")));
  EXPECT_THROW(printer.startDoc(11907, 16839.9), Fault);
  EXPECT_THROW(printer.sheet(), Fault);
}

TEST_F(QtPrinterTest, AFileThatCannotBeWrittenIsAFault) {
  for (const QString& name : {path("missing/sheet.pdf"), folder_.path(), QString()}) {
    QtPrinter printer(toFile(name));
    printer.showPrinter();
    EXPECT_THROW(printer.startDoc(11907, 16839.9), Fault) << name.toStdString();
  }
}

/// As if the disk had room for that many bytes more, for as long as it lives.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(QtPrinterTest, AFileThatIsCutShortIsAFault) {
  QtPrinter printer(toFile(path("sheet.pdf")));
  printer.showPrinter();
  const FullDisk disk(500);
  printer.startDoc(11907, 16839.9);
  printer.sheet().text(1000, 1000, "Data", {kPlotFont, 10, true}, kBlack);
  EXPECT_THROW(printer.endDoc(), Fault);
}

TEST_F(QtPrinterTest, APrinterThatIsNotThereIsAFault) {
  QtPrinter printer([](QPrinter& chosen) {
    chosen.setOutputFormat(QPrinter::NativeFormat);
    chosen.setPrinterName("gone");
    return true;
  });
  printer.showPrinter();
  EXPECT_THROW(printer.startDoc(11907, 16839.9), Fault);
}

TEST(Paper, IsA4WhereThePrinterHasIt) {
  const QPageSize a4(QPageSize::A4), letter(QPageSize::Letter), a3(QPageSize::A3);
  struct {
    const char* name;
    QList<QPageSize> sizes;
    bool anySize, takes;
  } const rows[] = {{"among others", {letter, a4}, false, true},
                    {"not there", {letter, a3}, false, false},
                    {"cut to size", {letter, a3}, true, true},
                    {"unknown", {}, false, true}};
  for (const auto& row : rows) EXPECT_EQ(takesA4(row.sizes, row.anySize), row.takes) << row.name;
}

TEST_F(QtPrinterTest, ADroppedDocumentIsClosed) {
  QtPrinter printer(toFile(path("sheet.pdf")));
  EXPECT_NO_THROW(printer.killDoc());
  printer.showPrinter();
  printer.startDoc(11907, 16839.9);
  printer.killDoc();
  EXPECT_THROW(printer.sheet(), Fault);
  EXPECT_NO_THROW(printer.startDoc(11907, 16839.9));
}

TEST_F(QtPrinterTest, TheDesktopsDialogChoosesOrCancels) {
  for (const bool accept : {true, false}) {
    QtPrinter printer;
    QPrintDialog* met = nullptr;
    QTimer::singleShot(0, [&] {
      met = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
      if (!met) return;
      met->printer()->setOutputFileName(path("dialog.pdf"));
      met->QDialog::done(accept ? QDialog::Accepted : QDialog::Rejected);
    });
    if (accept) {
      EXPECT_NO_THROW(printer.showPrinter());
    } else {
      EXPECT_THROW(printer.showPrinter(), Fault);
    }
    EXPECT_NE(met, nullptr);
  }
}

TEST_F(QtPrinterTest, WhatIsOutOfReachIsHarmless) {
  QtPrinter printer(toFile(path("sheet.pdf")));
  printer.showPrinter();
  printer.startDoc(11907, 16839.9);
  Surface& sheet = printer.sheet();
  for (const double far : {1e7, 1e12, 1e300, 1.7e308}) {
    sheet.line(-far, -far, far, far, {kBlue, 2, LineStyle::solid});
    sheet.disc(far, -far, 27, {kGreen, 2, LineStyle::solid}, kGreen);
    sheet.text(-far, far, "far", {kPlotFont, 10}, kBlack);
    sheet.box(-far, -far, far, far, kRed);
  }
  printer.endDoc();
  EXPECT_TRUE(isPdf(path("sheet.pdf")));
}

TEST_F(QtPrinterTest, ATextIsAsWideOnPaperAsItsTypeMakesIt) {
  QtPrinter printer(toFile(path("sheet.pdf")));
  printer.showPrinter();
  printer.startDoc(11907, 16839.9);
  const double small = printer.sheet().textWidth("zinc", {kPlotFont, 6, true});
  // Letters of about half their size: 4 * 6 * 20 / 2 twips.
  EXPECT_NEAR(small, 240, 60);
  EXPECT_NEAR(printer.sheet().textWidth("zinc", {kPlotFont, 12, true}), 2 * small, 2);
}

}  // namespace
}  // namespace zevfit::test
