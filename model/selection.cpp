#include "model/selection.h"

#include <array>

#include "model/expressions.h"
#include "model/sliders.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

constexpr const char* kPowerLetter = "P";

struct LineRow {
  const char* sillLabel;       ///< Label18 by the line's option, and by models but the power one
  const char* powerSillLabel;  ///< Label18 by the power model; its blanks differ on purpose
  const char* rangeLabel;      ///< Label21
  Box box;
};
constexpr std::array<LineRow, kLines> kLineRows{{
    {"C0 :", "", "", Box::plot1},
    {"C1 :", "  :", "a1 :", Box::plot2},
    {"C2 :", "   :", "a2 :", Box::plot3},
    {"C3 :", "   :", "a3 :", Box::plot4},
}};

constexpr std::array<const char*, 4> kModelLetters{"E", "S", "G", kPowerLetter};

void enableSill(FitPanel& panel, bool enabled) {
  panel.setEnabled(Control::HScrollc0, enabled);
  panel.setEnabled(Control::Textc0, enabled);
}

void enableRange(FitPanel& panel, bool enabled) {
  for (const Control control : {Control::Texta, Control::HScrolla, Control::tipos})
    panel.setEnabled(control, enabled);
}

void select(Session& session, std::size_t line) {
  session.sel = {};
  session.sel[line] = 1;
}

void placeSill(Fit& fit, std::size_t line) {
  const Session& session = fit.session;
  const std::int64_t v = session.curvar, d = session.curdir;
  fit.panel.setPosition(Slider::c0, sillPosition(sillScale(session, v, d),
                                                 (session.*kSillTable[line])(v, d).number()));
}

const Cell& currentCell(const Session& session, PairTable<Cell> Session::*table) {
  return (session.*table)(session.curvar, session.curdir);
}

void selectNugget(Fit& fit) {
  FitPanel& panel = fit.panel;
  panel.setCaption(Caption::label10, "C0");
  panel.setCaption(Caption::Label18, kLineRows[0].sillLabel);
  // The slider of the sill is not touched: after a power structure it stays disabled, on purpose.
  panel.setEnabled(Control::Textc0, true);
  enableRange(panel, false);
  select(fit.session, 0);
  panel.setText(Field::c0, currentCell(fit.session, &Session::c0).toText());
  endSilently([&] { placeSill(fit, 0); });
}

void placeStructure(Fit& fit, std::size_t line) {
  const Session& session = fit.session;
  placeSill(fit, line);
  fit.panel.setPosition(
      Slider::a,
      rangePosition(rangeScale(session, session.curvar, session.curdir), fit.panel.text(Field::a)));
  scalesliders(fit, session.curdir, session.curvar);
  const int structure = static_cast<int>(line);
  if (const auto text = modelExpression(structure, fit.panel.letter(structure), ExpressionBy::est))
    fit.panel.setCaption(Caption::label10, *text);
}

// The old expression stays where the sliders can't show the structure.
void selectStructure(Fit& fit, std::size_t line) {
  FitPanel& panel = fit.panel;
  panel.setCaption(Caption::Label18, kLineRows[line].sillLabel);
  panel.setCaption(Caption::Label21, kLineRows[line].rangeLabel);
  enableRange(panel, true);
  select(fit.session, line);
  // A power structure has no sill.
  enableSill(panel, panel.letter(static_cast<int>(line)) != kPowerLetter);
  panel.setText(Field::c0, currentCell(fit.session, kSillTable[line]).toText());
  panel.setText(Field::a, currentCell(fit.session, kRangeTable[line]).toText());
  endSilently([&] { placeStructure(fit, line); });
}

void giveLetter(Fit& fit, std::size_t line, const std::string& letter) {
  FitPanel& panel = fit.panel;
  const LineRow& row = kLineRows[line];
  const int structure = static_cast<int>(line);
  panel.setLetter(structure, letter);
  if (const auto text = modelExpression(structure, letter, ExpressionBy::tipo))
    panel.setCaption(Caption::label10, *text);
  panel.setCaption(Caption::Label18, letter == kPowerLetter ? row.powerSillLabel : row.sillLabel);
  panel.setCaption(Caption::Label21, row.rangeLabel);
  (fit.session.*kLetterTable[line])(fit.session.curvar, fit.session.curdir) = letter;
  panel.setTicked(row.box, true);
}

/// The boxes of structures 2 and 3 are not read: each click flips a state that all variables and
/// directions share, so a flag can end opposite to its box. On purpose.
int flipped(int& state) {
  if (state == 0)
    state = 1;
  else if (state == 1)
    state = 0;
  return state;
}

void takePairOfLists(Fit& fit) {
  fit.session.curdir = fit.panel.listPosition(List::Combodirvar) + 1;
  fit.session.curvar = fit.panel.listPosition(List::Combo2) + 1;
}

}  // namespace

// A failure passes to the caller up to the sliders, from there on it ends the handler silently.
void est_Click(Fit& fit, int line) {
  if (!requireFile(fit)) return;
  if (line == 0)
    selectNugget(fit);
  else
    selectStructure(fit, static_cast<std::size_t>(line));
}

// These catch no failure.
void tipo_Click(Fit& fit, int index) {
  if (requireFile(fit)) tipo_DblClick(fit, index);
}

void tipo_DblClick(Fit& fit, int index) {
  const std::string letter = kModelLetters.at(static_cast<std::size_t>(index));
  enableSill(fit.panel, letter != kPowerLetter);
  for (std::size_t line = 1; line < kLines; ++line)
    if (fit.session.sel[line] == 1) giveLetter(fit, line, letter);
}

void box_Click(Fit& fit, Box box) {
  Session& session = fit.session;
  const std::int64_t v = session.curvar, d = session.curdir;
  const int ticked = fit.panel.ticked(box) ? 1 : 0;
  switch (box) {
    case Box::plot1:
      session.use0(v, d) = ticked;
      break;
    case Box::plot2:
      session.use1(v, d) = ticked;
      break;
    case Box::plot3:
      session.use2(v, d) = flipped(session.plot3state);
      break;
    case Box::plot4:
      session.use3(v, d) = toInt16(flipped(session.plot4state));
      break;
    case Box::psill:
      session.showsill(v, d) = toInt16(ticked);
      break;
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
  session.axiscolor = session.axiscolor != cores.Label5 ? cores.Label5 : cores.Label1;
  endSilently([&] { fit.panel.focusPlotButton(); });
}

// Catches no failure.
void Command5_Click(Fit& fit) {
  if (!requireFile(fit)) return;
  takePairOfLists(fit);
  fit.plotter.plotvariogram();
}

// Failures are ignored.
void Command5_GotFocus(Fit& fit) {
  endSilently([&] { fit.plotter.plotvariogram(); });
}

void est1_MouseMove(Fit& fit) {
  fit.panel.setLineTip(generalText(static_cast<double>(fit.session.curvar)));
}

void tipo1_MouseMove(Fit& fit) {
  fit.panel.setModelTip(generalText(static_cast<double>(fit.session.curdir)));
}

}  // namespace zevfit
