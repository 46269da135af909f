#pragma once

#include <QDialog>
#include <QStringList>
#include <QTimer>

#include "plot/overlay/overlay.h"
#include "session/session.h"
#include "windows/boundary.h"

class QListWidget;

namespace zevfit {

class PictureBox;

/// The points and curves of all directions of the current variable over common axes, with a legend
/// whose entries can be switched off. Reads the session alone, and does nothing while it is hidden.
class AllDirections : public QDialog {
 public:
  AllDirections(const Session& session, const FaultReport& faults, QWidget* parent);

  /// Shows it, or brings it to the front.
  void open() override;
  /// The session may have changed: where the window is on show it is drawn anew, once, in the next
  /// turn of the event loop.
  void follow();

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void layOut();
  void makeLegend();
  /// The directions of the file; another set of names is shown whole.
  void fillLegend();
  void paintSamples();
  void tickAll(Qt::CheckState state);
  Directions shown() const;
  void draw();

  const Session& session_;
  const FaultReport& faults_;
  QWidget* frame_;
  PictureBox* picture_;
  QListWidget* legend_;
  QTimer pending_;
  QStringList names_;
  std::optional<std::pair<Colour, Colour>> sampleColours_;
};

}  // namespace zevfit
