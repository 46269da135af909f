#include "platform/qt_printer.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "session/fault.h"

namespace zevfit {

namespace {

constexpr const char* kDocumentName = "zevFIT report";

bool printsToFile(const QPrinter& printer) { return printer.outputFormat() == QPrinter::PdfFormat; }

/// A file has a name; a printer is still there, and has the paper.
bool isReady(const QPrinter& printer) {
  if (printsToFile(printer)) return !printer.outputFileName().isEmpty();
  const QPrinterInfo info = QPrinterInfo::printerInfo(printer.printerName());
  return !info.isNull() && takesA4(info.supportedPageSizes(), info.supportsCustomPageSizes());
}

/// What was picked in the dialog does not count here.
void setUpSheet(QPrinter& printer) {
  printer.setDocName(kDocumentName);
  printer.setFullPage(true);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(QPageLayout::Portrait);
}

bool isUpright(const QPrinter& printer) {
  const QPageLayout layout = printer.pageLayout();
  return layout.pageSize().id() == QPageSize::A4 && layout.orientation() == QPageLayout::Portrait;
}

/// A full disk leaves a file without its end.
bool isWhole(const QString& path) {
  if (!QFileInfo(path).isFile()) return QFileInfo::exists(path);
  constexpr qint64 kTail = 32;
  QFile file(path);
  if (!file.open(QFile::ReadOnly)) return false;
  file.seek(std::max<qint64>(0, file.size() - kTail));
  return file.readAll().contains("%%EOF");
}

}  // namespace

bool takesA4(const QList<QPageSize>& sizes, bool anySize) {
  if (anySize || sizes.isEmpty()) return true;
  return std::any_of(sizes.begin(), sizes.end(),
                     [](const QPageSize& size) { return size.id() == QPageSize::A4; });
}

QtPrinter::QtPrinter(Choice choice) : choice_(std::move(choice)) {}

QtPrinter::~QtPrinter() { close(); }

bool QtPrinter::askByDialog(QPrinter& printer) {
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setObjectName("Dialog1");
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintCollateCopies);
  return dialog.exec() == QDialog::Accepted;
}

void QtPrinter::showPrinter() {
  if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (!choice_(*printer_)) throw Fault("Cancelled");
}

void QtPrinter::startDoc(double width, double height) {
  close();
  if (!printer_ || !isReady(*printer_)) throw Fault("No printer");
  setUpSheet(*printer_);
  if (!isUpright(*printer_)) throw Fault("No A4 sheet");
  if (!painter_.begin(printer_.get())) throw Fault("Printer refuses");
  sheet_.emplace(painter_, QSizeF(width, height));
}

Surface& QtPrinter::sheet() {
  if (!sheet_) throw Fault("No document");
  return *sheet_;
}

bool QtPrinter::close() {
  if (!sheet_) return true;
  sheet_->finish();
  sheet_.reset();
  const bool ended = painter_.end() && printer_->printerState() != QPrinter::Error;
  return ended && (!printsToFile(*printer_) || isWhole(printer_->outputFileName()));
}

void QtPrinter::endDoc() {
  if (!close()) throw Fault("Not printed");
}

std::string QtPrinter::destination() const {
  if (!printer_) return "";
  const bool file = printsToFile(*printer_);
  const QString named = file ? printer_->outputFileName() : printer_->printerName();
  return (file ? "the file " : "the printer ") + QFile::encodeName(named).toStdString();
}

void QtPrinter::killDoc() {
  if (!sheet_) return;
  sheet_.reset();
  printer_->abort();
  painter_.end();
}

}  // namespace zevfit
