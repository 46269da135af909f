#pragma once

#include <QFont>
#include <QFontDialog>

#include "session/style.h"

class QLineEdit;
class QListView;

namespace zevfit {

/// Qt's font dialog for a face and a size. It takes sizes such as 7.8, where Qt's own knows whole
/// ones alone, and starts with the face that it is given also where that is not installed: Qt's
/// own would start with the first face of its list. Each of the two changes only by its own
/// controls.
class FontDialog : public QFontDialog {
 public:
  /// What it works with: the lists and fields of Qt's dialog, or, as where they are not those that
  /// this class knows, nothing but the dialog as it is.
  enum class Controls { lists, none };

  /// `name` is the face of `start` as it is shown.
  FontDialog(const FontChoice& start, const QString& name, QWidget* parent,
             Controls controls = Controls::lists);

  /// What the dialog stands at: the very start for what was not changed.
  FontChoice choice() const;

 private:
  void findControls();
  bool hasControls() const { return size_ && sample_ && faces_ && sizes_; }
  /// What Qt's dialog stands at, but the start for what it has shown from the first: also the face
  /// that it opened on in place of one that is not installed.
  FontChoice plainChoice() const;
  /// Adds the face to the list where it is missing, and selects it.
  void selectStart();
  QString face() const;
  /// Another face was chosen.
  void takeFace();
  /// A text in the field for the size.
  void takeSize();
  /// Whatever has changed the sample shows the chosen face and size again.
  void showChoice();
  void showSize();

  FontChoice start_;
  QString name_;
  QFont opened_;  ///< what the dialog has made of the start
  QString shownFace_;
  QString sizeText_;  ///< the last one that is a size
  float chosenSize_;
  QLineEdit* size_ = nullptr;
  QLineEdit* sample_ = nullptr;
  QListView* faces_ = nullptr;
  QListView* sizes_ = nullptr;
};

}  // namespace zevfit
