#include "platform/font_dialog.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QLocale>

namespace zevfit {

namespace {

constexpr double kSmallest = 1, kLargest = 512;
constexpr int kDecimals = 2, kDigits = 6;

QLocale pointLocale() {
  QLocale locale = QLocale::c();
  locale.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
  return locale;
}

QDoubleValidator* makeValidator(QObject* parent) {
  auto* validator = new QDoubleValidator(kSmallest, kLargest, kDecimals, parent);
  validator->setNotation(QDoubleValidator::StandardNotation);
  validator->setLocale(pointLocale());
  return validator;
}

}  // namespace

FontDialog::FontDialog(const QFont& start, QWidget* parent) : QFontDialog(start, parent) {
  setOption(DontUseNativeDialog);
  sample_ = findChild<QLineEdit*>("qt_fontDialog_sampleEdit");
  // The field for the size is the one that takes whole numbers.
  for (auto* field : findChildren<QLineEdit*>())
    if (qobject_cast<const QIntValidator*>(field->validator())) size_ = field;
  if (!size_ || !sample_) return;
  size_->setValidator(makeValidator(this));
  connect(this, &QFontDialog::currentFontChanged, this, &FontDialog::takeSize);
  connect(size_, &QLineEdit::textChanged, this, &FontDialog::takeSize);
  size_->setText(pointLocale().toString(start.pointSizeF(), 'g', kDigits));
}

void FontDialog::takeSize() {
  if (!size_->hasAcceptableInput()) return;
  QFont font = sample_->font();
  font.setPointSizeF(pointLocale().toDouble(size_->text()));
  sample_->setFont(font);
}

}  // namespace zevfit
