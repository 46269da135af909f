#pragma once

#include <functional>

#include "model/fields.h"
#include "model/model_curve.h"
#include "model/selection.h"
#include "model/sliders.h"
#include "session/fault.h"
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
  panel.events.lineClicked = [&fit](int line) { est_Click(fit, line); };
  panel.events.listClicked = [&fit](List list) {
    list == List::Combo2 ? Combo2_Click(fit) : Combodirvar_Click(fit);
  };
  panel.events.plotButtonFocused = [&fit] { Command5_GotFocus(fit); };
}

/// What a drawing does to the controls and to the curve, without a picture. Ends silently.
inline void drawWithoutPicture(Fit& fit) {
  Session& session = fit.session;
  const std::int64_t v = session.plotvar = session.curvar;
  const std::int64_t d = session.plotdir = session.curdir;
  try {
    resynchroniseSliders(fit, d, v);
    showmodel(fit, d, v);
    scalesliders(fit, d, v);
    modelcurve(fit, d, v, session.ymax(v, d), session.xmax(v, d));
  } catch (const Fault&) {
    return;
  }
}

/// The handlers at work on a panel in memory, with a loaded file and the pair of variable 2 and
/// direction 3 under work. Its axis goes from 0 to 10, so that a sill v stands at position 3200 v,
/// and its distances up to 100, so that a range a stands at position 16 a, within 0.0000008 a. The
/// sliders have their scales, no line is selected and drawings do nothing.
class FitFixture {
 public:
  static constexpr std::int64_t kVariable = 2, kDirection = 3;

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
    scalesliders(fit, kDirection, kVariable);
    panel.calls.clear();
  }
  FitFixture(const FitFixture&) = delete;
  FitFixture& operator=(const FitFixture&) = delete;

  /// The cell of the pair under work.
  template <class Table>
  auto& cell(Table Session::*table) {
    return (session.*table)(session.curvar, session.curdir);
  }
  double number(PairTable<Cell> Session::*table) { return cell(table).number(); }

  void select(int line) {
    session.sel = {};
    session.sel.at(static_cast<std::size_t>(line)) = 1;
  }
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
    session.curvar = kVariable;
    session.curdir = kDirection;
    session.variance(kVariable) = 5;
    cell(&Session::hmax) = 100;
    cell(&Session::xmax) = 100;
    cell(&Session::ymax) = 10;
  }
};

}  // namespace zevfit
