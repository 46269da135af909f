#pragma once

#include <QList>
#include <QPageSize>
#include <QPainter>
#include <functional>
#include <memory>
#include <optional>

#include "platform/sheet_surface.h"
#include "report/printer.h"

class QPrinter;

namespace zevfit {

/// The printers of the desktop, and files in PDF, by the desktop's print dialog.
class QtPrinter : public Printer {
 public:
  /// Lets the user choose printer and options; false on Cancel.
  using Choice = std::function<bool(QPrinter&)>;
  explicit QtPrinter(Choice choice = askByDialog);
  ~QtPrinter() override;

  void showPrinter() override;
  void startDoc(double width, double height) override;
  Surface& sheet() override;
  void endDoc() override;
  std::string destination() const override;
  void killDoc() override;

  /// The print dialog, over the window in front.
  static bool askByDialog(QPrinter& printer);

 private:
  /// Ends the painter; false when the printer did not take what was drawn.
  bool close();

  Choice choice_;
  std::unique_ptr<QPrinter> printer_;  ///< with the last choice; none before the first
  QPainter painter_;
  std::optional<SheetSurface> sheet_;
};

/// A printer that names these sizes has A4; one that names none is taken to have it.
bool takesA4(const QList<QPageSize>& sizes, bool anySize);

}  // namespace zevfit
