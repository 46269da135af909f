#include "platform/font_dialog.h"

#include <QDoubleValidator>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QStringListModel>
#include <algorithm>

#include "platform/painter_surface.h"

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

QFont startFont(const FontChoice& start, const QString& name) {
  QFont font(name);
  if (start.size > 0) font.setPointSizeF(static_cast<qreal>(start.size));
  return font;
}

QStringListModel* textsOf(const QListView& list) {
  return qobject_cast<QStringListModel*>(list.model());
}

bool areNumbers(const QStringList& texts) {
  return !texts.isEmpty() && std::all_of(texts.begin(), texts.end(), [](const QString& text) {
    bool isNumber = false;
    text.toInt(&isNumber);
    return isNumber;
  });
}

QStringList standardSizes() {
  QStringList texts;
  for (const int size : QFontDatabase::standardSizes()) texts << QString::number(size);
  return texts;
}

}  // namespace

FontDialog::FontDialog(const FontChoice& start, const QString& name, QWidget* parent,
                       Controls controls)
    : QFontDialog(startFont(start, name), parent),
      start_(start),
      name_(name),
      sizeText_(pointLocale().toString(static_cast<double>(start.size), 'g', kDigits)),
      chosenSize_(start.size) {
  setOption(DontUseNativeDialog);
  opened_ = currentFont();
  if (controls == Controls::lists) findControls();
  if (!hasControls()) return;
  size_->setValidator(makeValidator(this));
  selectStart();
  takeFace();
  connect(this, &QFontDialog::currentFontChanged, this, &FontDialog::showChoice);
  connect(size_, &QLineEdit::textChanged, this, &FontDialog::takeSize);
  // Behind what Qt's own does with another face.
  connect(faces_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &FontDialog::takeFace);
}

/// The lists and fields are told by what they hold, as they have no names.
void FontDialog::findControls() {
  sample_ = findChild<QLineEdit*>("qt_fontDialog_sampleEdit");
  for (auto* field : findChildren<QLineEdit*>())
    if (qobject_cast<const QIntValidator*>(field->validator())) size_ = field;
  const QStringList installed = QFontDatabase::families();
  for (auto* list : findChildren<QListView*>()) {
    const QStringListModel* texts = textsOf(*list);
    if (!texts) continue;
    if (texts->stringList() == installed) faces_ = list;
    if (areNumbers(texts->stringList())) sizes_ = list;
  }
}

void FontDialog::selectStart() {
  QStringListModel* faces = textsOf(*faces_);
  QStringList names = faces->stringList();
  if (!names.contains(name_)) {
    const auto behind = std::find_if(names.cbegin(), names.cend(), [this](const QString& other) {
      return other.compare(name_, Qt::CaseInsensitive) > 0;
    });
    names.insert(behind - names.cbegin(), name_);
    faces->setStringList(names);
  }
  faces_->setCurrentIndex(faces->index(static_cast<int>(names.indexOf(name_))));
}

QString FontDialog::face() const { return faces_->currentIndex().data().toString(); }

void FontDialog::takeFace() {
  shownFace_ = face();
  showSize();
  showChoice();
}

void FontDialog::takeSize() {
  // Qt's own sets a whole size while it takes another face.
  if (!size_->hasAcceptableInput() || face() != shownFace_) return;
  sizeText_ = size_->text();
  chosenSize_ = pointLocale().toFloat(sizeText_);
  showChoice();
}

void FontDialog::showSize() {
  if (textsOf(*sizes_)->rowCount() == 0) textsOf(*sizes_)->setStringList(standardSizes());
  const QSignalBlocker quiet(size_);
  size_->setText(sizeText_);
}

void FontDialog::showChoice() {
  QFont font = sample_->font();
  if (face() == name_) font.setFamilies(toQFont({start_.name, start_.size}).families());
  if (chosenSize_ > 0) font.setPointSizeF(static_cast<qreal>(chosenSize_));
  sample_->setFont(font);
}

FontChoice FontDialog::plainChoice() const {
  const QFont chosen = currentFont();
  FontChoice choice = start_;
  if (chosen.family() != opened_.family()) choice.name = chosen.family().toLatin1().toStdString();
  if (chosen.pointSizeF() != opened_.pointSizeF())
    choice.size = static_cast<float>(chosen.pointSizeF());
  return choice;
}

FontChoice FontDialog::choice() const {
  if (!hasControls()) return plainChoice();
  const QString chosen = face();
  return {chosen == name_ ? start_.name : chosen.toLatin1().toStdString(), chosenSize_};
}

}  // namespace zevfit
