#include "model/selection.h"

#include <array>
#include <optional>
#include <string_view>

#include "model/expressions.h"
#include "model/sliders.h"
#include "session/line.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

struct LineRow {
  const char* sillLabel;       ///< Label18 by the line's option, and by models but the power one
  const char* powerSillLabel;  ///< Label18 by the power model; its blanks are part of it
  const char* rangeLabel;      ///< Label21
  Box box;
};
constexpr std::array<LineRow, kLines.size()> kLineRows{{
    {"C0 :", "", "", Box::plot1},
    {"C1 :", "  :", "a1 :", Box::plot2},
    {"C2 :", "   :", "a2 :", Box::plot3},
    {"C3 :", "   :", "a3 :", Box::plot4},
}};

const LineRow& rowOf(Line which) { return kLineRows.at(indexOf(which)); }

void enableSill(FitPanel& panel, bool enabled) {
  panel.setEnabled(Control::HScrollc0, enabled);
  panel.setEnabled(Control::Textc0, enabled);
}

void enableRange(FitPanel& panel, bool enabled) {
  for (const Control control : {Control::Texta, Control::HScrolla, Control::tipos})
    panel.setEnabled(control, enabled);
}

void placeSill(Fit& fit, Line which) {
  const Session& session = fit.session;
  const Pair pair = session.current();
  fit.panel.setPosition(Slider::c0, sillPosition(sillScale(session, pair),
                                                 line(session, pair, which).sill().number()));
}

void selectNugget(Fit& fit) {
  FitPanel& panel = fit.panel;
  panel.setCaption(Caption::label10, "C0");
  panel.setCaption(Caption::Label18, rowOf(Line::nugget).sillLabel);
  // The slider of the sill is not touched: after a power structure it stays disabled, and the
  // nugget is typed or dragged until a structure with a sill is selected.
  panel.setEnabled(Control::Textc0, true);
  enableRange(panel, false);
  fit.session.sel = Line::nugget;
  panel.setText(Field::c0, fit.session.c0(fit.session.current()).toText());
  endSilently([&] { placeSill(fit, Line::nugget); });
}

void placeStructure(Fit& fit, Line structure) {
  const Session& session = fit.session;
  placeSill(fit, structure);
  fit.panel.setPosition(
      Slider::a, rangePosition(rangeScale(session, session.current()), fit.panel.text(Field::a)));
  scalesliders(fit, session.current());
  if (const auto text = modelExpression(structure, fit.panel.letter(structure), ExpressionBy::est))
    fit.panel.setCaption(Caption::label10, *text);
}

// The old expression stays where the sliders can't show the structure.
void selectStructure(Fit& fit, Line structure) {
  FitPanel& panel = fit.panel;
  const LineRow& row = rowOf(structure);
  panel.setCaption(Caption::Label18, row.sillLabel);
  panel.setCaption(Caption::Label21, row.rangeLabel);
  enableRange(panel, true);
  fit.session.sel = structure;
  // A power structure has no sill.
  enableSill(panel, panel.letter(structure) != letterOf(Form::power));
  // The pair is asked for at each use: the first text may run a drawing.
  const auto current = [&] { return line(fit.session, fit.session.current(), structure); };
  panel.setText(Field::c0, current().sill().toText());
  panel.setText(Field::a, current().range().toText());
  endSilently([&] { placeStructure(fit, structure); });
}

void giveForm(Fit& fit, Line structure, Form form) {
  FitPanel& panel = fit.panel;
  const LineRow& row = rowOf(structure);
  const std::string_view letter = letterOf(form);
  panel.setLetter(structure, letter);
  if (const auto text = modelExpression(structure, letter, ExpressionBy::tipo))
    panel.setCaption(Caption::label10, *text);
  panel.setCaption(Caption::Label18, form == Form::power ? row.powerSillLabel : row.sillLabel);
  panel.setCaption(Caption::Label21, row.rangeLabel);
  line(fit.session, fit.session.current(), structure).letter() = letter;
  panel.setTicked(row.box, true);
}

/// The boxes of structures 2 and 3 are not read: each click flips a state that all variables and
/// directions share, so a flag can end opposite to its box. What is drawn and saved is the flag.
int flipped(bool& state) {
  state = !state;
  return state ? 1 : 0;
}

Pair pairOfLists(const Fit& fit) {
  return {fit.panel.listPosition(List::Combo2) + 1, fit.panel.listPosition(List::Combodirvar) + 1};
}

}  // namespace

// A failure passes to the caller up to the sliders, from there on it ends the handler silently.
void est_Click(Fit& fit, Line which) {
  if (!requireFile(fit)) return;
  if (which == Line::nugget)
    selectNugget(fit);
  else
    selectStructure(fit, which);
}

// These catch no failure.
void tipo_Click(Fit& fit, Form form) {
  if (requireFile(fit)) tipo_DblClick(fit, form);
}

void tipo_DblClick(Fit& fit, Form form) {
  enableSill(fit.panel, form != Form::power);
  const std::optional<Line> selected = fit.session.sel;
  if (selected && selected != Line::nugget) giveForm(fit, *selected, form);
}

void box_Click(Fit& fit, Box box) {
  Session& session = fit.session;
  const Pair pair = session.current();
  const bool ticked = fit.panel.ticked(box);
  switch (box) {
    case Box::plot1:
      return line(session, pair, Line::nugget).use(ticked ? 1 : 0);
    case Box::plot2:
      return line(session, pair, Line::first).use(ticked ? 1 : 0);
    case Box::plot3:
      return line(session, pair, Line::second).use(flipped(session.plot3state));
    case Box::plot4:
      return line(session, pair, Line::third).use(flipped(session.plot4state));
    case Box::psill:
      session.showsill(pair) = ticked;
      return;
  }
}

// These catch no failure.
void Combo2_Click(Fit& fit) {
  if (!requireFile(fit)) return;
  fit.session.selvar = fit.panel.listPosition(List::Combo2) + 1;
  fit.session.curvar = fit.session.selvar;
}

void Combodirvar_Click(Fit& fit) {
  if (!requireFile(fit)) return;
  fit.session.seldir = fit.panel.listPosition(List::Combodirvar) + 1;
  fit.session.curdir = fit.session.seldir;
}

// A failure to give the focus is ignored.
void Command3_Click(Fit& fit) {
  if (!requireFile(fit)) return;
  Session& session = fit.session;
  const ColourSwatches& cores = session.style.cores;
  session.axiscolor = session.axiscolor != cores.paper() ? cores.paper() : cores.ink();
  endSilently([&] { fit.panel.focusPlotButton(); });
}

// Catches no failure.
void Command5_Click(Fit& fit) {
  if (!requireFile(fit)) return;
  const Pair chosen = pairOfLists(fit);
  if (!requireFlags(fit.session, chosen, fit.messages)) return;
  fit.session.setCurrent(chosen);
  fit.plotter.plotvariogram();
}

// Failures are ignored.
void Command5_GotFocus(Plotter& plotter) {
  endSilently([&] { plotter.plotvariogram(); });
}

void est1_MouseMove(Fit& fit) {
  fit.panel.setLineTip(generalText(static_cast<double>(fit.session.curvar)));
}

void tipo1_MouseMove(Fit& fit) {
  fit.panel.setModelTip(generalText(static_cast<double>(fit.session.curdir)));
}

}  // namespace zevfit
