#include "model/fill_model.h"

#include <optional>

#include "model/selection.h"
#include "session/form.h"
#include "session/line.h"

namespace zevfit {
namespace {

bool isOn(const LineCells& cells) { return !cells.flag.isText() && cells.flag.number() == 1; }

/// By line.
constexpr std::array kBoxes{Box::plot1, Box::plot2, Box::plot3, Box::plot4};

/// Behind the boxes of structures 2 and 3, which flip it.
bool* stateOf(Session& session, Line which) {
  if (which == Line::second) return &session.plot3state;
  return which == Line::third ? &session.plot4state : nullptr;
}

/// Box, flag and state agree afterwards, whatever they have been before.
void tick(Fit& fit, Line which, bool on) {
  bool* const state = stateOf(fit.session, which);
  if (state) *state = !on;
  fit.panel.setTicked(kBoxes.at(indexOf(which)), on);
  if (state) *state = on;
}

void type(Fit& fit, Field field, const Cell& value) { fit.panel.setText(field, value.toText()); }

void typeLine(Fit& fit, Line which, const LineCells& cells) {
  fit.panel.selectLine(which);
  if (which != Line::nugget)
    if (const auto form = formOf(cells.letter)) tipo_DblClick(fit, *form);
  tick(fit, which, isOn(cells));
  type(fit, Field::c0, cells.sill);
  if (which != Line::nugget) type(fit, Field::a, cells.range);
}

void store(Session& session, Line which, const LineCells& cells) {
  const LineRef at = line(session, session.current(), which);
  at.use(cells.flag);
  at.sill() = cells.sill;
  if (which == Line::nugget) return;
  at.range() = cells.range;
  at.letter() = cells.letter;
}

Line lineToShow(const ModelCells& cells, std::optional<Line> before) {
  if (before) return *before;
  for (const Line which : kStructures)
    if (isOn(cells.at(indexOf(which)))) return which;
  return Line::nugget;
}

}  // namespace

void fillModel(Fit& fit, const ModelCells& cells) {
  Session& session = fit.session;
  const Pair pair = session.current();
  const Line shown = lineToShow(cells, session.sel);
  session.c0typed(pair) = session.atyped(pair) = true;
  for (const Line which : kLines) {
    typeLine(fit, which, cells.at(indexOf(which)));
    store(session, which, cells.at(indexOf(which)));
  }
  fit.panel.selectLine(shown);
  est_Click(fit, shown);
  plotOrWarn(fit);
}

}  // namespace zevfit
