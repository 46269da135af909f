#pragma once

#include <QStatusBar>
#include <optional>
#include <string>

#include "session/hints.h"

class QLabel;
class QMainWindow;

namespace zevfit {

class ElidedLabel;
class FootRoom;

/// The foot of the main window, of one height whatever it tells: the open file and whether the
/// models differ from it, a hint, notes, and the misfit of the model on show.
class Foot : public QStatusBar {
 public:
  Foot();

  /// The name of the file, empty for none, and its mark.
  void showFile(const std::string& path, bool modelsDiffer);
  /// A share of the variance; nothing where there is none to show.
  void showMisfit(std::optional<double> share);
  /// Adds a line that stays; one that stands there already stays one.
  void addNote(const QString& line);
  void showHint(const QString& hint);
  /// By the rule of Hints.
  void showHint(HintTopic topic, const QString& hint);
  /// Shows what the pointer is over in place of the hint, which comes back with an empty tip; a new
  /// hint goes before it.
  void showTip(const QString& tip);
  /// Takes away notes and hint.
  void clear();

 private:
  ElidedLabel* LabelFile;
  QLabel* LabelChanged;
  ElidedLabel* LabelHint;
  ElidedLabel* LabelTip;   ///< in the place of the hint
  ElidedLabel* LabelFoot;  ///< the notes
  FootRoom* room_;         ///< of hint, tip and notes
  QLabel* LabelMisfit;
  std::optional<HintTopic> topic_;  ///< of the hint on show, where it has one
  std::string path_;                ///< of the file on show
};

/// As in "Misfit 5.1 %", of a share of the variance.
QString misfitText(double share);
/// Adds a line to what stands at the foot of a window until a good load; a line that stands there
/// already stays one.
void tellAtFoot(QMainWindow& window, const std::string& note);
/// Shows a hint at the foot of a window in place of the one before; an empty one takes it away.
void hintAtFoot(QMainWindow& window, const std::string& hint);
/// Takes notes and hint away from the foot of a window.
void clearFoot(QMainWindow& window);

}  // namespace zevfit
