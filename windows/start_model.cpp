#include "windows/start_model.h"

#include <algorithm>
#include <array>
#include <utility>

#include "fitting/fit.h"
#include "fitting/write.h"
#include "model/fill_model.h"
#include "session/hint_number.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "windows/foot.h"
#include "windows/wait_cursor.h"

namespace zevfit {

namespace {

constexpr std::array<const char*, kForms.size()> kFormNames{"spherical", "exponential", "Gaussian",
                                                            "power"};

std::string numberText(const Cell& cell) { return hintNumber(cell.number(), ""); }

/// As in "C1 = 0.59, a1 = 897, spherical".
std::string lineText(std::size_t index, const LineCells& cells) {
  const std::string number = std::to_string(index);
  std::string sill = "C" + number + " = " + numberText(cells.sill);
  const auto form = formOf(cells.letter);
  if (!form) return sill;
  const std::string range = "a" + number + " = " + numberText(cells.range) + ", " +
                            kFormNames.at(static_cast<std::size_t>(*form));
  return form == Form::power ? range : sill + ", " + range;
}

bool isOn(const LineCells& cells) { return cells.flag.number() == 1; }

std::string modelText(const ModelCells& cells) {
  std::string text;
  for (std::size_t i = 0; i < cells.size(); ++i)
    if (isOn(cells[i])) text += (text.empty() ? "" : "; ") + lineText(i, cells[i]);
  return text;
}

/// The cells that a fit would leave in a pair.
ModelCells cellsWith(const FitTables& tables, Pair pair, const NestedModel& model) {
  FitTables filled = tables;
  fitting::writeModel(filled, pair, model);
  return cellsOf(filled, pair);
}

/// Why the plot can't show the model; empty where it can.
std::string refusalOf(const Session& session, Pair pair, const ModelCells& cells) {
  const auto isOutside = [&](const LineCells& line) {
    const double sill = line.sill.number();
    return isOn(line) && (sill < session.ymin(pair) || sill > session.ymax(pair));
  };
  const auto* const outside = std::ranges::find_if(cells, isOutside);
  if (outside == cells.end()) return "";
  return "its sill of " + numberText(outside->sill) +
         " lies outside the semivariance axis, which goes from " +
         hintNumber(session.ymin(pair), "") + " to " + hintNumber(session.ymax(pair), "");
}

/// Why there is no model, and what may do.
std::string reasonOf(const fitting::Result& result) {
  return result.refusal + (result.unbounded ? "; a power form may do" : "");
}

fitting::Result fitOf(const Session& session, Pair pair) {
  const WaitCursor wait;
  fitting::Options options;
  options.cross = session.gmin(pair) < 0;
  return attempt([&] { return fitting::startModel(fitting::classesOf(session, pair), options); },
                 [] {
                   fitting::Result none;
                   none.refusal = "a distance of its classes is no number";
                   return none;
                 });
}

}  // namespace

StartModel::StartModel(Fit& fit, std::function<std::optional<double>()> misfit,
                       std::function<void(const std::string&)> tell)
    : fit_(fit), misfit_(std::move(misfit)), tell_(std::move(tell)) {}

bool StartModel::isReady() const {
  const Session& session = fit_.session;
  return session.loaded && session.curvar >= 1 && session.curdir >= 1;
}

void StartModel::run() {
  if (!isReady()) return;
  if (canTakeBack()) return takeBack();
  offer();
}

bool StartModel::canTakeBack() const {
  const Pair pair = fit_.session.current();
  return step_ && step_->pair == pair && isSame(cellsOf(fit_.session, pair), step_->after);
}

void StartModel::takeBack() {
  fillModel(fit_, std::exchange(step_, std::nullopt)->before);
  tell_("The model from before the start model is back.");
}

void StartModel::offer() {
  const Session& session = fit_.session;
  const Pair pair = session.current();
  const fitting::Result found = fitOf(session, pair);
  if (!found.isOffered()) return tell_("No start model: " + reasonOf(found) + ".");
  const ModelCells cells = cellsWith(session, pair, found.models.at(0));
  if (const std::string refusal = refusalOf(session, pair, cells); !refusal.empty())
    return tell_("No start model: " + refusal + ".");
  take(cells);
  const auto misfit = misfit_();
  tell_("Start model: " + modelText(cells) + "." +
        (misfit ? " " + misfitText(*misfit).toStdString() + "." : "") +
        " The same command takes it back.");
}

void StartModel::take(const ModelCells& cells) {
  Step step{fit_.session.current(), cellsOf(fit_.session, fit_.session.current()), {}};
  fillModel(fit_, cells);
  step.after = cellsOf(fit_.session, step.pair);
  step_ = std::move(step);
}

}  // namespace zevfit
