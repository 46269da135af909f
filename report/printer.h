#pragma once

#include <string>

#include "plot/drawing/surface.h"

namespace zevfit {

/// A printer with one sheet at a time.
class Printer {
 public:
  virtual ~Printer() = default;

  /// Lets the user choose the printer. Throws Fault when the user cancels.
  virtual void showPrinter() = 0;
  /// Opens a document of one A4 sheet on it, upright and in high quality, whatever the user has
  /// chosen besides. The sheet counts as that wide and high from the corner of the paper. Throws
  /// Fault where the printer refuses.
  virtual void startDoc(double width, double height) = 0;
  /// The sheet; throws Fault where no document is open.
  virtual Surface& sheet() = 0;
  /// Sends the document off as it stands; nothing where none is open. Throws Fault when that fails.
  virtual void endDoc() = 0;
  /// Where the last document went, as in "the printer Hall" or "the file /home/me/report.pdf".
  virtual std::string destination() const = 0;
  /// Drops the document, where one is open.
  virtual void killDoc() = 0;
};

}  // namespace zevfit
