#pragma once

#include <QMdiArea>
#include <functional>

namespace zevfit {

/// The area of the plots. Its scroll bars come as needed, and never where a plot is maximised, also
/// behind others: they come and go in the turn of the event loop behind the change of its state.
class PlotArea : public QMdiArea {
 public:
  PlotArea();

  /// Runs `layOut` at the origin of the area and without its scroll bars, which may come back
  /// afterwards.
  void withoutScrollBars(const std::function<void()>& layOut);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// A plot is on show that is maximised.
  bool isFilled() const;
  void chooseScrollBars();
  /// A minimised plot has the one size of the minimised, whatever gives it another.
  static void keepMinimised(QMdiSubWindow& plot);
  /// A plot that lies outside, where no scroll bar leads to it, comes into the area.
  void bringInside(QMdiSubWindow* plot);

  bool layingOut_ = false;
};

}  // namespace zevfit
