#pragma once

#include <QLabel>

namespace zevfit {

/// A label that shows its lines side by side on one, and leaves out what it has no room for. All of
/// it is in its tool tip and in the "Copy" of its menu.
class ElidedLabel : public QLabel {
 public:
  ElidedLabel(const QString& name, Qt::TextElideMode mode);

  /// Nothing happens for the text that stands.
  void tell(const QString& text, const QString& tip);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString onOneLine() const;

  Qt::TextElideMode mode_;
};

}  // namespace zevfit
