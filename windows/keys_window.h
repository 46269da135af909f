#pragma once

#include <QDialog>

namespace zevfit {

/// The list of all keys by group, read only and not modal.
class KeysWindow : public QDialog {
 public:
  explicit KeysWindow(QWidget* parent);

  /// Shows it, or brings it to the front.
  void open() override;
};

}  // namespace zevfit
