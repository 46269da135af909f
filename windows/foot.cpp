#include "windows/foot.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMainWindow>

#include "session/number_pattern.h"
#include "windows/elided_label.h"
#include "windows/foot_room.h"

namespace zevfit {

namespace {

constexpr int kLongestName = 240;
constexpr int kMargin = 8;
constexpr const char* kMark = "*";
constexpr const char* kMarkTip =
    "The models differ from those in the file: Models (Ctrl+S) saves them";
constexpr const char* kMisfitTip =
    "Square root of the mean squared difference of curve and points, weighted by their pairs, as a "
    "share of the variance";
/// More than this is no fit, and would need more room.
constexpr double kLargestShown = 9999.9;

QString toText(const std::string& bytes) { return QFile::decodeName(bytes.c_str()); }

/// A label whose texts change without any other moving.
QLabel* makeFixed(const char* name, const QString& longest) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setFixedSize(label->fontMetrics().horizontalAdvance(longest) + kMargin,
                      label->fontMetrics().height());
  return label;
}

Foot& footOf(QMainWindow& window) {
  if (auto* foot = dynamic_cast<Foot*>(window.findChild<QStatusBar*>())) return *foot;
  auto* foot = new Foot;
  window.setStatusBar(foot);
  return *foot;
}

}  // namespace

QString misfitText(double share) {
  const double percent = share * 100;
  const bool fits = percent <= kLargestShown;
  return QString(fits ? "Misfit %1 %" : "Misfit over %1 %")
      .arg(QString::fromStdString(formatNumber(fits ? percent : kLargestShown, "###0.0")));
}

Foot::Foot()
    : LabelFile(new ElidedLabel("LabelFile", Qt::ElideMiddle)),
      LabelChanged(makeFixed("LabelChanged", kMark)),
      LabelHint(new ElidedLabel("LabelHint", Qt::ElideRight)),
      LabelTip(new ElidedLabel("LabelTip", Qt::ElideRight)),
      LabelFoot(new ElidedLabel("LabelFoot", Qt::ElideMiddle)),
      room_(new FootRoom(*LabelHint, *LabelTip, *LabelFoot)),
      LabelMisfit(makeFixed("LabelMisfit", misfitText(kLargestShown))) {
  setObjectName("Foot");
  LabelFile->setMaximumWidth(kLongestName);
  LabelFile->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  addWidget(LabelFile);
  addWidget(LabelChanged);
  addWidget(room_, 1);
  addPermanentWidget(LabelMisfit);
  LabelFoot->hide();
  LabelTip->hide();
  LabelMisfit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setContentsMargins(kMargin, 0, 0, 0);
  setFixedHeight(fontMetrics().height() + kMargin);
}

void Foot::showFile(const std::string& path, bool modelsDiffer) {
  if (path != path_) {
    path_ = path;
    const QString whole = toText(path);
    LabelFile->tell(QFileInfo(whole).fileName(), whole);
  }
  const QString mark = modelsDiffer ? kMark : "";
  if (LabelChanged->text() == mark) return;
  LabelChanged->setText(mark);
  LabelChanged->setToolTip(modelsDiffer ? kMarkTip : "");
  LabelChanged->setAccessibleName(LabelChanged->toolTip());
}

void Foot::showMisfit(std::optional<double> share) {
  const QString text = share ? misfitText(*share) : QString();
  if (LabelMisfit->text() == text) return;
  LabelMisfit->setText(text);
  LabelMisfit->setToolTip(share ? kMisfitTip : "");
}

void Foot::addNote(const QString& line) {
  QStringList lines = LabelFoot->text().split('\n', Qt::SkipEmptyParts);
  if (!lines.contains(line)) lines.append(line);
  LabelFoot->tell(lines.join('\n'), lines.join('\n'));
  LabelFoot->setVisible(true);
  room_->share();
}

void Foot::showHint(const QString& hint) {
  topic_.reset();
  LabelHint->tell(hint, hint);
  if (!hint.isEmpty()) showTip({});
  room_->share();
}

void Foot::showTip(const QString& tip) {
  LabelTip->tell(tip, tip);
  LabelTip->setVisible(!tip.isEmpty());
  LabelHint->setVisible(tip.isEmpty());
  room_->share();
}

void Foot::showHint(HintTopic topic, const QString& hint) {
  if (hint.isEmpty() && topic_ != topic) return;
  showHint(hint);
  topic_ = topic;
}

void Foot::clear() {
  LabelFoot->tell({}, {});
  LabelFoot->hide();
  showHint({});
}

void tellAtFoot(QMainWindow& window, const std::string& note) {
  footOf(window).addNote(toText(note));
}

void hintAtFoot(QMainWindow& window, const std::string& hint) {
  footOf(window).showHint(toText(hint));
}

void clearFoot(QMainWindow& window) { footOf(window).clear(); }

}  // namespace zevfit
