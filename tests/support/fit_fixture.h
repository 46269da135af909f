#pragma once

#include <functional>

#include "model/fields.h"
#include "model/refresh.h"
#include "model/selection.h"
#include "model/sliders.h"
#include "session/line.h"
#include "session/policy.h"
#include "tests/support/memory_panel.h"
#include "tests/support/scripted_dialogs.h"

namespace zevfit {

/// Counts the drawings; `onDraw` stands for what a drawing does.
class RecordingPlotter : public Plotter {
 public:
  int drawings = 0;
  std::function<void()> onDraw;

  void plotvariogram() override {
    ++drawings;
    if (onDraw) onDraw();
  }
};

/// Runs the handlers on the events of a panel in memory, as the main window does.
inline void connectPanel(MemoryPanel& panel, Fit& fit) {
  panel.events.textChanged = [&fit](Field field) {
    field == Field::c0 ? Textc0_Change(fit) : Texta_Change(fit);
  };
  panel.events.positionChanged = [&fit](Slider slider) {
    slider == Slider::c0 ? HScrollc0_Change(fit) : HScrolla_Change(fit);
  };
  panel.events.boxClicked = [&fit](Box box) { box_Click(fit, box); };
  panel.events.lineClicked = [&fit](Line which) { est_Click(fit, which); };
  panel.events.listClicked = [&fit](List list) {
    list == List::Combo2 ? Combo2_Click(fit) : Combodirvar_Click(fit);
  };
  panel.events.plotButtonFocused = [&fit] { Command5_GotFocus(fit.plotter); };
}

/// What a drawing does to the controls and to the curve, without a picture. Ends silently.
inline void drawWithoutPicture(Fit& fit) {
  fit.session.setPlotted(fit.session.current());
  endSilently([&] {
    resynchroniseSliders(fit, fit.session.plotted());
    refreshModel(fit);
  });
}

/// The handlers at work on a panel in memory, with a loaded file and the pair of variable 2 and
/// direction 3 under work. Its axis goes from 0 to 10, so that a sill v stands at position 3200 v,
/// and its distances up to 100, so that a range a stands at position 16 a, within 0.0000008 a. The
/// sliders have their scales, no line is selected and drawings do nothing.
class FitFixture {
 public:
  static constexpr std::int64_t kVariable = 2, kDirection = 3;
  static constexpr Pair kPair{kVariable, kDirection};

  Session session;
  MemoryPanel panel;
  RecordingPlotter plotter;
  test::ScriptedDialogs dialogs;
  Fit fit{session, panel, plotter, dialogs};

  FitFixture() {
    fillSession();
    connectPanel(panel, fit);
    panel.fillList(List::Combo2, 3);
    panel.fillList(List::Combodirvar, 4);
    scalesliders(fit, kPair);
    panel.calls.clear();
  }
  FitFixture(const FitFixture&) = delete;
  FitFixture& operator=(const FitFixture&) = delete;

  /// The cell of the pair under work.
  template <class Tables, class Table>
  auto& cell(Table Tables::*table) {
    return (session.*table)(session.current());
  }
  double number(PairTable<Cell> FitTables::*table) { return cell(table).number(); }

  void select(Line which) { session.sel = which; }
  /// From here on drawings refresh controls and curve as the plot routine does.
  void drawForReal() {
    plotter.onDraw = [this] { drawWithoutPicture(fit); };
  }

 private:
  void fillSession() {
    session.loaded = true;
    session.nvar = session.nvarfile = 3;
    session.ndir = 4;
    resetFitState(session);
    session.setCurrent(kPair);
    session.variance(kVariable) = 5;
    cell(&Session::hmax) = 100;
    cell(&Session::xmax) = 100;
    cell(&Session::ymax) = 10;
  }
};

}  // namespace zevfit
