#pragma once

#include <QFontDialog>

class QLineEdit;

namespace zevfit {

/// Qt's font dialog with sizes such as 7.8, where Qt's own knows whole ones alone: it would round
/// the size that it starts with, and take no other.
class FontDialog : public QFontDialog {
 public:
  FontDialog(const QFont& start, QWidget* parent);

 private:
  /// Gives the sample, which is what the dialog answers with, the size that stands in the field.
  void takeSize();

  QLineEdit* size_ = nullptr;
  QLineEdit* sample_ = nullptr;
};

}  // namespace zevfit
